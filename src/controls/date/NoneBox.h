#pragma once

#include "controls/base/EntryBox.h"

namespace controls {

/// The box with "<None>" that lies over the boxes of a date while there is none. Its text can be copied and
/// not changed: any character typed on it wants the date back, and is meant for that.
class NoneBox : public EntryBox {
    Q_OBJECT

public:
    explicit NoneBox(QWidget* parent);

    bool TakeKey(const QString& character) override;

Q_SIGNALS:
    void DateWanted(const QString& Character);

protected:
    void inputMethodEvent(QInputMethodEvent* event) override { TakeOneByOne(*event); }
};

}  // namespace controls
