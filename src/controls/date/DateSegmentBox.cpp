#include "controls/date/DateSegmentBox.h"

#include "controls/base/TypedText.h"

#include <QKeyEvent>

#include <algorithm>

namespace controls {

DateSegmentBox::DateSegmentBox(const QString& text, QWidget* parent) : EntryBox(text, parent) {
    setAcceptDrops(false);
}

void DateSegmentBox::Place(const QRect& place, int digits, Side side) {
    setGeometry(place);
    SetEntryLimit(digits);
    const int room = std::max(0, width() - WidthOfDigits());
    switch (side) {
        case Side::Left:
            lead_ = 0;
            break;
        case Side::Middle:
            lead_ = room / 2;
            break;
        case Side::Right:
            // The caret behind the digits is still seen.
            lead_ = std::max(0, room - 1);
            break;
    }
    // The box is as wide as its digits: the room that the toolkit keeps on both sides would cut them.
    constexpr int RoomOfToolkit = 2;
    setTextMargins(lead_ - RoomOfToolkit, 0, -RoomOfToolkit, 0);
}

int DateSegmentBox::DigitsEnd() const {
    return DigitsBegin() + WidthOfDigits();
}

int DateSegmentBox::WidthOfDigits() const {
    return fontMetrics().horizontalAdvance(QString(EntryLimit(), QLatin1Char('0')));
}

bool DateSegmentBox::TakeKey(const QString& character) {
    const QChar key = character.front();
    if (key == BackspaceKey) {
        PutPoint();
    } else if (key == QLatin1Char('/') || key == QLatin1Char('\\') || key == QLatin1Char('-')) {
        Q_EMIT NextSegment();
    } else if (key >= QLatin1Char('0') && key <= QLatin1Char('9')) {
        TypeDigit(character);
    }
    return true;
}

void DateSegmentBox::PutPoint() {
    if (Room() > 0) {
        insert(QStringLiteral("."));
    }
}

void DateSegmentBox::TypeDigit(const QString& digit) {
    setText(hasSelectedText() ? digit : text() + digit);
    if (text().length() == EntryLimit()) {
        Q_EMIT NextSegment();
    }
}

void DateSegmentBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            Q_EMIT PreviousSegment();
            return;
        case Qt::Key_Right:
            Q_EMIT NextSegment();
            return;
        case Qt::Key_Backspace:
            // With Control too, where other boxes delete a word.
            PutPoint();
            return;
        default:
            EntryBox::keyPressEvent(event);
    }
}

}  // namespace controls
