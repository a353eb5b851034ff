#include "platform/Clock.h"

#include <ctime>

namespace platform {

namespace {

QDate pinnedDay;

// Each row asks for the day, and the system then looks for its time zone in a file: once a second is enough.
QDate RealDay() {
    static thread_local std::time_t second = -1;
    static thread_local QDate day;
    const std::time_t now = std::time(nullptr);
    if (now != second) {
        day = QDate::currentDate();
        second = now;
    }
    return day;
}

}  // namespace

QDate Today() {
    return pinnedDay.isValid() ? pinnedDay : RealDay();
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
