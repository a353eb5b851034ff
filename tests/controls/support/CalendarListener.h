#pragma once

#include <QAccessible>
#include <QStringList>

/// Listens while it lives, as a screen reader does, to what calendars tell of themselves.
class CalendarListener {
public:
    CalendarListener();
    CalendarListener(const CalendarListener&) = delete;
    CalendarListener& operator=(const CalendarListener&) = delete;
    ~CalendarListener();

    /// What has been told since the last call, with the table's name: "shown March 2009", "hidden March
    /// 2009", "name March 2009" (it changed), "cells March 2009" (they changed).
    static QStringList Take();

private:
    QAccessible::UpdateHandler before_;
};
