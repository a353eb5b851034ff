#include "platform/Clock.h"

#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

namespace {

// Two zones that never have the same day stand for midnight.
TEST(Clock, TheNextDayIsNoticedWithinTwoSeconds) {
    const QByteArray zone = qgetenv("TZ");
    const bool hadZone = qEnvironmentVariableIsSet("TZ");
    qputenv("TZ", "WEST+12");
    const QDate before = QDate::currentDate();
    QElapsedTimer timer;
    timer.start();
    while (platform::Today() != before && timer.elapsed() < 2000) {
        QThread::msleep(10);
    }
    EXPECT_EQ(platform::Today(), before);
    qputenv("TZ", "EAST-14");
    timer.restart();
    while (platform::Today() == before && timer.elapsed() < 2000) {
        QThread::msleep(10);
    }
    EXPECT_GT(platform::Today(), before);
    if (hadZone) {
        qputenv("TZ", zone);
    } else {
        qunsetenv("TZ");
    }
    // What the zone was is known again by the next second.
    QThread::msleep(1100);
}

}  // namespace
