#pragma once

#include <QClipboard>
#include <QLineEdit>

namespace controls {

/// The edit box inside the controls: lettered as they are, without a border, black on white on every desktop,
/// and grey while it is disabled. When the user comes to it its whole text is selected, by the mouse too: the
/// click that brings him places no caret. What a typed character does is up to the box that derives from it.
///
/// However it comes in, what the user enters keeps within a length: keys, input methods, pasting and
/// dropping. A pasted or dropped text ends at its first line break, as a cell of a spreadsheet brings one
/// along, and its tabs become blanks. Text set by program is taken as it is.
///
/// Going to another window and coming back, or opening the context menu, is no leaving and no coming: the
/// text stays as it was, with what is selected in it.
class EntryBox : public QLineEdit {
    Q_OBJECT

public:
    EntryBox(const QString& text, QWidget* parent);

    /// The most characters (UTF-16 units) that the user fills the box with; 0 or less is no limit. A
    /// selection doesn't count, as what is entered takes its place.
    int EntryLimit() const { return entryLimit_; }
    void SetEntryLimit(int characters) { entryLimit_ = characters; }

    /// A character is typed into the box, BackspaceKey and other control characters included. True if that
    /// was all; with false the edit box does with it what any other one does.
    virtual bool TakeKey(const QString& character) = 0;

    /// The user has left, also where the box couldn't be told, as when the focus was moved while another
    /// window was the active one. Nothing happens if he wasn't here.
    void Leave();

    /// The same where the focus goes while another window is the active one, which nobody else will tell of.
    void LeaveUnfocused();

    /// An assistive program puts a text in the place of another, between two positions. It counts as entered
    /// by the user: the focus comes first, the box takes no more than he could paste, and nothing where he
    /// can't enter anything. Where the focus can't come, the user has come, entered it and left.
    void Write(int start, int end, const QString& text);

    /// Where a character is seen, in pixels of the box.
    QRect PlaceOf(int position) const;

    // NOLINTNEXTLINE(readability-identifier-naming): takes the place of the edit box's own, in its menu too.
    Q_SLOT void paste();

Q_SIGNALS:
    void Entered();
    /// The focus is about to go, but hasn't gone yet.
    void Leaving();
    /// The focus has gone. Leaving came before.
    void Left();
    /// The user has left, and nothing told of a focus that went.
    void LeftUnfocused();

protected:
    /// Selects all that the box holds, for a user who comes to it.
    virtual void SelectOnEntering() { selectAll(); }

    /// Whether a click of a user who is here already selects the whole text, where other boxes place the
    /// caret.
    virtual bool SelectsAtEveryPress() const { return false; }

    /// How many characters more the user can enter now; below 0 where the program has put in too many.
    qsizetype Room() const;

    /// For boxes that know single characters only: an input method has put some together.
    static void TakeOneByOne(const QInputMethodEvent& event);

    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    enum class Presence { Away, Here, Going };
    /// The click that brings the focus selects the text; only the next one places the caret.
    enum class FocusingClick { None, Expected, Pressed };

    void Come();
    void BeginToLeave();
    void PasteFrom(QClipboard::Mode clipboard);
    QString FittingPart(const QString& text) const;
    void TypeOneByOne(const QKeyEvent& event, const QString& typed);

    Presence presence_ = Presence::Away;
    FocusingClick focusingClick_ = FocusingClick::None;
    int entryLimit_ = 0;
};

}  // namespace controls
