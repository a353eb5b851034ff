#include "controls/date/DateSegmentBox.h"

#include "controls/base/TypedText.h"

#include <QKeyEvent>

namespace controls {

void DateSegmentBox::KeyTyped(QChar character) {
    switch (character.unicode()) {
        case BackspaceCharacter:
            insert(QStringLiteral("."));
            return;
        case u'/':
        case u'\\':
        case u'-':
            Q_EMIT NextSegment();
            return;
        default:
            break;
    }
    if (character < QLatin1Char('0') || character > QLatin1Char('9')) {
        return;
    }
    setText(hasSelectedText() ? QString(character) : text() + character);
    if (text().length() == maxLength()) {
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
        default:
            EntryBox::keyPressEvent(event);
    }
}

}  // namespace controls
