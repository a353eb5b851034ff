#include "controls/date/NoneBox.h"

namespace controls {

NoneBox::NoneBox(QWidget* parent) : EntryBox(QStringLiteral("<None>"), parent) {
    setReadOnly(true);
    setAcceptDrops(false);
}

bool NoneBox::TakeKey(const QString& character) {
    Q_EMIT DateWanted(character);
    return true;
}

}  // namespace controls
