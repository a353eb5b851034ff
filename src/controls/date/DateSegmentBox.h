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
    /// Where the digits of a full box stand in it.
    enum class Side { Left, Middle, Right };

    DateSegmentBox(const QString& text, QWidget* parent);

    bool TakeKey(const QString& character) override;

    /// Takes its place and puts the digits that fill the box to a side. Fewer stand where those would begin.
    void Place(const QRect& place, int digits, Side side);
    /// Where the digits of a full box begin and end, in pixels of the parent.
    int DigitsBegin() const { return x() + lead_; }
    int DigitsEnd() const;

Q_SIGNALS:
    void NextSegment();
    void PreviousSegment();

protected:
    bool SelectsAtEveryPress() const override { return true; }
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override { TakeOneByOne(*event); }

private:
    int WidthOfDigits() const;
    void PutPoint();
    void TypeDigit(const QString& digit);

    /// Pixels in front of the digits.
    int lead_ = 0;
};

}  // namespace controls
