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

TEST_F(CanvasTest, ATextStandsAlikeOnADesktopThatWritesFromRightToLeft) {
    const auto printed = [](Qt::LayoutDirection direction) {
        QImage wide(150, 20, QImage::Format_RGB32);
        wide.fill(Qt::white);
        QPainter on(&wide);
        on.setLayoutDirection(direction);
        PaintedCanvas surface(&on, 150, 20);
        surface.SetFont(ControlFont());
        surface.Print(0, 0, QStringLiteral(" 1/12 Main Road "), Qt::black);
        return wide;
    };
    EXPECT_EQ(printed(Qt::RightToLeft), printed(Qt::LeftToRight));
}

/// Scale factors of the display, on which a surface of 30 by 20 pixels stands somewhere in a window.
class CanvasScaleTest : public ::testing::TestWithParam<double> {
protected:
    static constexpr int Width = 30;
    static constexpr int Height = 20;

    template <class Draw>
    static QImage Drawn(int offset, Draw draw) {
        const double factor = GetParam();
        QImage image(QSizeF(factor * 60, factor * 50).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(factor);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(offset, offset);
        PaintedCanvas canvas(&painter, Width, Height);
        draw(canvas);
        return image;
    }

    static int Thickness(int pixels = 1) { return static_cast<int>(pixels * GetParam()); }
    static int MiddleOf(int offset, int length) {
        return static_cast<int>((offset + length / 2) * GetParam());
    }
    static QColor Red() { return ToQColor(red); }
};

INSTANTIATE_TEST_SUITE_P(Factors, CanvasScaleTest, ::testing::Values(1.0, 1.25, 1.5, 1.75, 2.0));

TEST_P(CanvasScaleTest, ALineIsAsThickOnEveryPixel) {
    for (int offset = 0; offset < 8; ++offset) {
        for (int pixel = 0; pixel < Height; ++pixel) {
            const QImage upright = Drawn(offset, [&](PaintedCanvas& canvas) {
                canvas.Line(15 * pixel, 0, 15 * pixel, 15 * (Height - 1), red, LineForm::Line);
            });
            EXPECT_EQ(RunsInRow(upright, MiddleOf(offset, Height), Red()), std::vector{Thickness()}) << pixel;
            const QImage level = Drawn(offset, [&](PaintedCanvas& canvas) {
                canvas.Line(0, 15 * pixel, 15 * (Width - 1), 15 * pixel, red, LineForm::Line);
            });
            EXPECT_EQ(RunsInColumn(level, MiddleOf(offset, Width), Red()), std::vector{Thickness()}) << pixel;
        }
    }
}

TEST_P(CanvasScaleTest, TheFourSidesOfAnOutlineAreAsThick) {
    for (int offset = 0; offset < 8; ++offset) {
        for (int size = 8; size <= Height; ++size) {
            for (int pixels = 1; pixels <= 2; ++pixels) {
                const QImage image = Drawn(offset, [&](PaintedCanvas& canvas) {
                    canvas.SetDrawWidth(pixels);
                    canvas.Line(0, 0, 15 * (size - 1), 15 * (size - 1), red, LineForm::Outline);
                });
                const std::vector both{Thickness(pixels), Thickness(pixels)};
                EXPECT_EQ(RunsInRow(image, MiddleOf(offset, size), Red()), both) << offset << ", " << size;
                EXPECT_EQ(RunsInColumn(image, MiddleOf(offset, size), Red()), both) << offset << ", " << size;
            }
        }
    }
}

TEST_P(CanvasScaleTest, NothingOfABoxStandsOutBeyondItsOutline) {
    for (int offset = 0; offset < 8; ++offset) {
        for (int size = 8; size <= Height; ++size) {
            const auto draw = [&](PaintedCanvas& canvas) {
                const int end = 15 * (size - 1);
                canvas.Line(0, 0, end, end, RGB(0, 0, 255), LineForm::FilledBox);
                canvas.Line(0, 0, end, end, red, LineForm::Outline);
            };
            const QImage image = Drawn(offset, draw);
            for (const bool isRow : {true, false}) {
                const int middle = MiddleOf(offset, size);
                const auto runs = [&](const QColor& colour) {
                    return isRow ? RunsInRow(image, middle, colour) : RunsInColumn(image, middle, colour);
                };
                EXPECT_EQ(runs(Qt::blue).size(), 1U);
                EXPECT_EQ(runs(Red()).size(), 2U) << offset << ", " << size;
                // White before and behind, and none between.
                EXPECT_EQ(runs(Qt::white).size(), offset == 0 ? 1U : 2U) << offset << ", " << size;
            }
        }
    }
}

TEST_P(CanvasScaleTest, TwoLinesOnOnePixelAreOneLine) {
    for (int offset = 0; offset < 8; ++offset) {
        for (int pixel = 1; pixel < Width; ++pixel) {
            const QImage image = Drawn(offset, [&](PaintedCanvas& canvas) {
                canvas.Line(15 * pixel, 0, 15 * pixel, 15 * (Height - 1), Black, LineForm::Line);
                canvas.Line(15 * pixel, 15 * (Height - 1), 15 * pixel, 0, red, LineForm::Line);
            });
            EXPECT_EQ(RunsInRow(image, MiddleOf(offset, Height), Red()), std::vector{Thickness()});
            EXPECT_TRUE(RunsInRow(image, MiddleOf(offset, Height), Qt::black).empty());
        }
    }
}

}  // namespace
