#include "controls/base/Colour.h"
#include "controls/base/Palette.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace {

using namespace controls;

TEST(Colour, HoldsRedInTheLowByte) {
    EXPECT_EQ(RGB(1, 2, 3), 0x030201U);
    EXPECT_EQ(ToQColor(RGB(1, 2, 3)), QColor(1, 2, 3));
    EXPECT_EQ(ToQColor(9895935), QColor(255, 255, 150));
}

TEST(Colour, SystemColoursAreThoseOfTheDesktop) {
    const QPalette before = QGuiApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Mid, QColor(1, 1, 1));
    palette.setColor(QPalette::Highlight, QColor(2, 2, 2));
    palette.setColor(QPalette::Button, QColor(3, 3, 3));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(4, 4, 4));
    palette.setColor(QPalette::Shadow, QColor(5, 5, 5));
    palette.setColor(QPalette::Midlight, QColor(6, 6, 6));
    QGuiApplication::setPalette(palette);
    EXPECT_EQ(ToQColor(SystemColour(12)), QColor(1, 1, 1));
    EXPECT_EQ(ToQColor(SystemColour(13)), QColor(2, 2, 2));
    EXPECT_EQ(ToQColor(SystemColour(15)), QColor(3, 3, 3));
    EXPECT_EQ(ToQColor(SystemColour(17)), QColor(4, 4, 4));
    EXPECT_EQ(ToQColor(SystemColour(21)), QColor(5, 5, 5));
    EXPECT_EQ(ToQColor(SystemColour(22)), QColor(6, 6, 6));
    EXPECT_EQ(ToQColor(SystemColour(99)), QColor(Qt::black));
    QGuiApplication::setPalette(before);
}

TEST(Colour, TextThatCanBeReadStaysAsItIs) {
    EXPECT_EQ(ReadableOn(Qt::white, QColor(100, 100, 100)), QColor(100, 100, 100));
    EXPECT_EQ(ReadableOn(QColor(37, 79, 167), Qt::white), QColor(Qt::white));
}

TEST(Colour, TextThatCannotBeReadBecomesDarkerOrLighter) {
    EXPECT_LT(ReadableOn(Qt::white, QColor(230, 230, 230)).lightness(), 150);
    EXPECT_GT(ReadableOn(QColor(40, 40, 40), Qt::black).lightness(), 100);
}

TEST(Palette, HasTheWizardsTwelveColours) {
    ThePalette() = {};
    InitialiseColours();
    InitialiseColours();
    const Palette& palette = ThePalette();
    EXPECT_EQ(palette.Window, RGB(255, 255, 255));
    EXPECT_EQ(palette.SelectedRow, RGB(204, 220, 252));
    EXPECT_EQ(palette.SelectedTab, RGB(204, 220, 252));
    EXPECT_EQ(palette.Heading, RGB(221, 234, 243));
    EXPECT_EQ(palette.TitleEnd, RGB(221, 234, 243));
    EXPECT_EQ(palette.TitleStart, RGB(163, 195, 224));
    EXPECT_EQ(palette.ButtonFace, RGB(134, 172, 238));
    EXPECT_EQ(palette.ButtonOutline, RGB(37, 79, 167));
    EXPECT_EQ(palette.Row, RGB(231, 244, 249));
    EXPECT_EQ(palette.BannerStart, RGB(102, 154, 204));
    EXPECT_EQ(palette.BannerEnd, RGB(193, 219, 244));
    EXPECT_EQ(palette.Frame, RGB(121, 151, 177));
}

}  // namespace
