#pragma once

#include "controls/base/EntryBox.h"

namespace controls {

/// The edit box inside a text box control: tells each typed character before it counts, and draws a frame
/// that shows the focus in every style. For a user who comes to it the caret stands at the start, as a long
/// text is read from there.
///
/// A character that a dead key or an input method has put together is a typed one too. What is pasted or
/// dropped comes in at once and isn't told.
class InnerTextBox : public EntryBox {
    Q_OBJECT

public:
    explicit InnerTextBox(QWidget* parent);

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
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace controls
