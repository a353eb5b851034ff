#include "platform/Clock.h"

namespace platform {

namespace {
QDate pinnedDay;
}

QDate Today() {
    return pinnedDay.isValid() ? pinnedDay : QDate::currentDate();
}

QDateTime Now() {
    QDateTime now = QDateTime::currentDateTime();
    if (pinnedDay.isValid()) {
        now.setDate(pinnedDay);
    }
    return now;
}

void PinToday(QDate day) {
    pinnedDay = day;
}

}  // namespace platform
