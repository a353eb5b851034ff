#pragma once

#include "controls/base/EntryBox.h"

namespace controls {

/// One of the three boxes of a date. Digits fill it and move on to the next box by themselves when it is
/// exactly full.
///
/// - A digit replaces a selected text whole, otherwise it is added at the end, wherever the caret stands, and
///   of a full box too: no digit that was typed goes lost unseen.
/// - A press of the mouse selects the whole text, so that the next digit begins anew.
/// - "/", "\" and "-" go on to the next box, as users type them between the parts of a date.
/// - Left and Right go to the previous and the next box, wherever the caret stands.
/// - Backspace doesn't delete: it puts a "." at the caret or in place of the selection. The text is read by
///   its leading number all the same.
/// - All other characters do nothing. Pasted text is taken as it is, up to the length of a full box.
class DateSegmentBox : public EntryBox {
    Q_OBJECT

public:
    DateSegmentBox(const QString& text, QWidget* parent);

    bool TakeKey(const QString& character) override;

Q_SIGNALS:
    void NextSegment();
    void PreviousSegment();

protected:
    bool SelectsAtEveryPress() const override { return true; }
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override { TakeOneByOne(*event); }

private:
    void PutPoint();
    void TypeDigit(const QString& digit);
};

}  // namespace controls
