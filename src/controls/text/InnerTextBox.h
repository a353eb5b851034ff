#pragma once

#include <QLineEdit>

namespace controls {

/// The edit box inside a text box control: tells each typed character before it counts, keeps what is typed
/// within a length, selects all of its text when the focus comes, and draws a frame that shows the focus in
/// every style. White ground and dark text whatever the desktop's theme is.
///
/// Only typing is told and limited. What is pasted, dropped or put together by an input method comes in at
/// once, as a text set by program does.
class InnerTextBox : public QLineEdit {
    Q_OBJECT

public:
    explicit InnerTextBox(QWidget* parent);

    /// The most characters that typing fills the box with; 0 or less is no limit. A selection doesn't count,
    /// as the next character takes its place.
    int TypingLimit() const { return typingLimit_; }
    void SetTypingLimit(int characters) { typingLimit_ = characters; }

    /// Selects the whole text with the caret at its start.
    void SelectFromStart();

    /// Replaces the text as a program does: without the focus the box shows the start of the new text, with
    /// it the caret keeps its place as far as the text reaches.
    void ReplaceText(const QString& text);

Q_SIGNALS:
    /// A character is about to be typed; Backspace counts as one, other keys that edit or move don't. Once a
    /// handler sets `Swallow`, nothing comes of the key.
    void KeyTyped(QChar Key, bool& Swallow);
    /// Nothing more will come of the key told last.
    void KeyDone();

    /// The user comes to the box and leaves it. A menu of its own and a switch to another window and back are
    /// neither: he goes on where he was.
    void GotFocus();
    void LostFocus();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// The click that brings the focus selects the text; only the next one places the caret.
    enum class FocusingClick { None, Expected, Pressed };

    bool IsSwallowed(const QString& typed);
    void TypeOneByOne(const QKeyEvent& event);
    void Lose();

    int typingLimit_ = 0;
    bool userIsHere_ = false;
    FocusingClick focusingClick_ = FocusingClick::None;
};

}  // namespace controls
