#pragma once

#include <QLineEdit>

namespace controls {

/// An edit box without a border, black on white, whose whole text is selected when it gets the focus, by the
/// mouse too. What typed characters do is up to the box that derives from it.
///
/// Going to another window and coming back, or opening the context menu, is no leaving and no getting of the
/// focus: the text stays as it was, with what is selected in it.
class EntryBox : public QLineEdit {
    Q_OBJECT

public:
    EntryBox(const QString& text, QWidget* parent);

    /// A character is typed into the box.
    virtual void KeyTyped(QChar character) = 0;

    /// Raises Leaving if the user has left the box without its being told, as when the focus was moved while
    /// another window was the active one.
    void LeaveIfEntered();

Q_SIGNALS:
    void Entered();
    /// The focus is about to go, but hasn't gone yet.
    void Leaving();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Leave();

    bool isEntered_ = false;
    bool focusCameByMouse_ = false;
    bool pressBroughtFocus_ = false;
};

}  // namespace controls
