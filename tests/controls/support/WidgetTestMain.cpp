#include "controls/base/Palette.h"
#include "support/ProcessLimits.h"

#include <QApplication>
#include <QStyleFactory>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    LimitProcesses();
    // One look for all machines: the style of the desktop would otherwise have a say.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QApplication application(argc, argv);
    controls::InitialiseColours();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
