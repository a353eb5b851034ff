#include "controls/base/Canvas.h"
#include "controls/base/Font.h"
#include "support/OnScreen.h"

#include <QFontMetrics>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

using namespace controls;

const Colour red = RGB(255, 0, 0);

class CanvasTest : public ::testing::Test {
protected:
    CanvasTest() : image(20, 10, QImage::Format_RGB32), painter(Cleared(image)), canvas(&painter, 20, 10) {}

    static QImage* Cleared(QImage& image) {
        image.fill(Qt::white);
        return &image;
    }

    bool IsRed(int x, int y) const { return image.pixelColor(x, y) == QColor(255, 0, 0); }
    int RedPixels() const {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += IsRed(x, y) ? 1 : 0;
            }
        }
        return count;
    }

    QImage image;
    QPainter painter;
    PaintedCanvas canvas;
};

TEST_F(CanvasTest, TellsItsSizeInTwipsAndTheDepthOfItsDevice) {
    EXPECT_EQ(canvas.Width(), 300);
    EXPECT_EQ(canvas.Height(), 150);
    EXPECT_EQ(canvas.BitsPerPixel() * canvas.ColourPlanes(), 32);
}

TEST_F(CanvasTest, AFilledBoxHasBothItsCorners) {
    canvas.Line(15, 30, 60, 75, red, LineForm::FilledBox);
    EXPECT_TRUE(IsRed(1, 2));
    EXPECT_TRUE(IsRed(4, 5));
    EXPECT_EQ(RedPixels(), 16);
}

TEST_F(CanvasTest, CornersCanBeGivenInAnyOrder) {
    canvas.Line(60, 75, 15, 30, red, LineForm::FilledBox);
    EXPECT_EQ(RedPixels(), 16);
}

TEST_F(CanvasTest, AnOutlineIsOnePixelThick) {
    canvas.Line(15, 30, 60, 75, red, LineForm::Outline);
    EXPECT_TRUE(IsRed(1, 2));
    EXPECT_TRUE(IsRed(4, 5));
    EXPECT_FALSE(IsRed(2, 3));
    EXPECT_EQ(RedPixels(), 12);
}

TEST_F(CanvasTest, AStraightLineHasBothItsEnds) {
    canvas.Line(0, 45, 75, 45, red, LineForm::Line);
    EXPECT_TRUE(IsRed(0, 3));
    EXPECT_TRUE(IsRed(5, 3));
    EXPECT_EQ(RedPixels(), 6);
}

TEST_F(CanvasTest, ALineCanBeThickAndSlanting) {
    canvas.SetDrawWidth(3);
    canvas.Line(0, 0, 285, 135, red, LineForm::Line);
    EXPECT_TRUE(IsRed(0, 0));
    EXPECT_TRUE(IsRed(19, 9));
    EXPECT_GT(RedPixels(), 40);
}

TEST_F(CanvasTest, WhatFallsOutsideIsCutOff) {
    canvas.Line(-150, -150, 3000, 3000, red, LineForm::FilledBox);
    EXPECT_EQ(RedPixels(), 200);
}

TEST_F(CanvasTest, ADiscLiesAroundItsCentre) {
    canvas.Disc(150, 75, 45, red);
    EXPECT_TRUE(IsRed(10, 5));
    EXPECT_TRUE(IsRed(12, 5));
    EXPECT_TRUE(IsRed(8, 5));
    EXPECT_FALSE(IsRed(14, 5));
    EXPECT_FALSE(IsRed(13, 8));
}

TEST_F(CanvasTest, TextIsMeasuredAndPrintedFromItsTopLeft) {
    const QFont font = ControlFont();
    canvas.SetFont(font);
    const QString text = QStringLiteral("I");
    EXPECT_EQ(canvas.TextWidth(text), QFontMetrics(font).horizontalAdvance(text) * 15);
    EXPECT_EQ(canvas.TextHeight(text), QFontMetrics(font).height() * 15);
    canvas.Print(0, -45, text, Qt::black);
    EXPECT_NE(image, QImage());
    bool dark = false;
    for (int y = 0; y < 10; ++y) {
        dark = dark || image.pixelColor(QFontMetrics(font).horizontalAdvance(text) / 2, y).lightness() < 128;
    }
    EXPECT_TRUE(dark);
}

}  // namespace
