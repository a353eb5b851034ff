#pragma once

#include "controls/base/EntryBox.h"

namespace controls {

/// The edit box inside a text box control: tells each typed character before it counts, keeps what is typed
/// within a length, and draws a frame that shows the focus in every style. For a user who comes to it the
/// caret stands at the start, as a long text is read from there.
///
/// Only typing is told and limited. What is pasted, dropped or put together by an input method comes in at
/// once, as a text set by program does.
class InnerTextBox : public EntryBox {
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

    bool TakeKey(const QString& character) override;

Q_SIGNALS:
    /// A character is about to be typed; Backspace counts as one, other keys that edit or move don't. Once a
    /// handler sets `Swallow`, nothing comes of the key.
    void KeyTyped(QChar Key, bool& Swallow);
    /// Nothing more will come of the key told last.
    void KeyDone();

protected:
    void SelectOnEntering() override { SelectFromStart(); }
    int LongestEntry() const override { return typingLimit_ > 0 ? typingLimit_ : maxLength(); }
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool IsBeyondLimit(const QString& character) const;

    int typingLimit_ = 0;
};

}  // namespace controls
