#include "controls/date/NoneBox.h"

namespace controls {

NoneBox::NoneBox(QWidget* parent) : EntryBox(QStringLiteral("<None>"), parent) {
    setReadOnly(true);
    // There is room for the toolkit's margins.
    setTextMargins(0, 0, 0, 0);
}

void NoneBox::KeyTyped(QChar character) {
    Q_EMIT DateWanted(character);
}

}  // namespace controls
