#include "controls/clsSkin.h"
#include "support/NaiveGradient.h"
#include "support/RecordingMessageBoxes.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace controls;

const NaiveColours UsualColours{255, 255, 255, 255, 255, 0};

DrawnLine Box(double x1, double Y1, double X2, double Y2, Colour colour) {
    return {x1, Y1, X2, Y2, colour, LineForm::FilledBox};
}

class SkinTest : public ::testing::Test {
protected:
    QStringList Boxes() const {
        QStringList texts;
        for (const platform::MessageBoxRequest& request : boxes.requests) {
            texts += request.text;
        }
        return texts;
    }

    RecordingMessageBoxes boxes;
    RecordingCanvas canvas{300, 200};
    clsSkin skin;
};

TEST_F(SkinTest, StartsWithAHundredBandsFromWhiteToYellowDownward) {
    EXPECT_EQ(skin.Style, 0);
    EXPECT_EQ(skin.ColourBandCount, 100);
    EXPECT_EQ(skin.StartColour(), 16777215U);
    EXPECT_EQ(skin.EndColour(), 65535U);
}

TEST_F(SkinTest, NoCanvasDoesNothing) {
    skin.DrawGradient(nullptr, 0, 0, 300, 200);
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, StyleZeroGoesFromTopToBottomAcrossTheCanvas) {
    skin.ColourBandCount = 4;
    skin.DrawGradient(&canvas, 10, 20, 110, 100);
    EXPECT_EQ(canvas.lines,
              (std::vector<DrawnLine>{
                  Box(10, 21, 300, 41, RGB(255, 255, 252)), Box(10, 41, 300, 61, RGB(255, 255, 188)),
                  Box(10, 61, 300, 81, RGB(255, 255, 124)), Box(10, 81, 300, 101, RGB(255, 255, 61))}));
}

TEST_F(SkinTest, StyleOneGoesFromLeftToRightAsHighAsTheCanvas) {
    skin.Style = 1;
    skin.ColourBandCount = 4;
    skin.DrawGradient(&canvas, 10, 20, 90, 70);
    EXPECT_EQ(canvas.lines,
              (std::vector<DrawnLine>{
                  Box(11, 20, 31, 220, RGB(255, 255, 252)), Box(31, 20, 51, 220, RGB(255, 255, 188)),
                  Box(51, 20, 71, 220, RGB(255, 255, 124)), Box(71, 20, 91, 220, RGB(255, 255, 61))}));
}

TEST_F(SkinTest, StyleTwoGoesFromTheMiddleToTopAndBottomFromTheCanvasLeftEdge) {
    skin.Style = 2;
    skin.ColourBandCount = 4;
    skin.DrawGradient(&canvas, 10, 20, 90, 100);
    // Half the side is 40, the middle line is 60, and the colour is that of 1/60 and 21/60.
    EXPECT_EQ(canvas.lines,
              (std::vector<DrawnLine>{
                  Box(0, 59, 300, 39, RGB(255, 255, 251)), Box(0, 61, 300, 81, RGB(255, 255, 251)),
                  Box(0, 39, 300, 19, RGB(255, 255, 166)), Box(0, 81, 300, 101, RGB(255, 255, 166))}));
}

TEST_F(SkinTest, StyleThreeGoesFromTheMiddleToLeftAndRightFromTheCanvasTop) {
    skin.Style = 3;
    skin.ColourBandCount = 4;
    skin.DrawGradient(&canvas, 20, 10, 100, 90);
    EXPECT_EQ(canvas.lines,
              (std::vector<DrawnLine>{
                  Box(59, 0, 39, 200, RGB(255, 255, 251)), Box(61, 0, 81, 200, RGB(255, 255, 251)),
                  Box(39, 0, 19, 200, RGB(255, 255, 166)), Box(81, 0, 101, 200, RGB(255, 255, 166))}));
}

TEST_F(SkinTest, StyleFourDrawsSlantingLinesAsThickAsABand) {
    skin.Style = 4;
    skin.ColourBandCount = 2;
    skin.DrawGradient(&canvas, 10, 20, 70, 100);
    EXPECT_EQ(canvas.drawWidths, std::vector<int>{30});
    const auto line = [](double from, Colour colour) {
        return DrawnLine{from, 0, from - 300, 200, colour, LineForm::Line};
    };
    EXPECT_EQ(canvas.lines,
              (std::vector<DrawnLine>{line(1, RGB(255, 255, 253)), line(31, RGB(255, 255, 189)),
                                      line(61, RGB(255, 255, 125)), line(91, RGB(255, 255, 62))}));
}

TEST_F(SkinTest, TheCanvasIsAskedForItsSizeAtEachBand) {
    canvas.growth = 5;
    skin.ColourBandCount = 2;
    skin.DrawGradient(&canvas, 0, 0, 100, 40);
    ASSERT_EQ(canvas.lines.size(), 2U);
    EXPECT_EQ(canvas.lines[0].X2, 305);
    EXPECT_EQ(canvas.lines[1].X2, 310);
}

TEST_F(SkinTest, AnyOtherStylePaintsNothingAndReportsNothing) {
    for (const qint32 style : {-1, 5, 2147483647, -2147483647}) {
        skin.Style = style;
        skin.DrawGradient(&canvas, 0, 0, 300, 200);
    }
    EXPECT_TRUE(canvas.lines.empty());
    EXPECT_TRUE(canvas.drawWidths.empty());
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, ADepthBelowSixteenGivesOneFlatBoxInTheStartColour) {
    skin.SetStartColour(RGB(1, 2, 3));
    for (const qint32 style : {0, 1, 2, 3, 4, 5}) {
        skin.Style = style;
        canvas.lines.clear();
        canvas.bitsPerPixel = 15;
        skin.DrawGradient(&canvas, 10, 20, 110, 100);
        EXPECT_EQ(canvas.lines, std::vector<DrawnLine>{Box(10, 20, 110, 100, RGB(1, 2, 3))}) << style;
        EXPECT_TRUE(canvas.drawWidths.empty());
    }
    canvas.lines.clear();
    canvas.bitsPerPixel = 16;
    skin.Style = 0;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(canvas.lines.size(), 100U);
}

TEST_F(SkinTest, TheDepthIsBitsTimesPlanes) {
    EXPECT_EQ(clsSkin::GetColourCount(&canvas), 32);
    canvas.bitsPerPixel = 4;
    canvas.colourPlanes = 4;
    EXPECT_EQ(clsSkin::GetColourCount(&canvas), 16);
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(canvas.lines.size(), 100U);
    canvas.colourPlanes = 1;
    canvas.lines.clear();
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(canvas.lines.size(), 1U);
}

TEST_F(SkinTest, ADepthThatCantBeToldIsNoFailureAndCountsAsNone) {
    EXPECT_EQ(clsSkin::GetColourCount(nullptr), 0);
    canvas.failsToTellItsDepth = true;
    EXPECT_EQ(clsSkin::GetColourCount(&canvas), 0);
    skin.DrawGradient(&canvas, 1, 2, 3, 4);
    EXPECT_EQ(canvas.lines, std::vector<DrawnLine>{Box(1, 2, 3, 4, White)});
    canvas.failsToTellItsDepth = false;
    canvas.bitsPerPixel = 2147483647;
    canvas.colourPlanes = 2;
    EXPECT_EQ(clsSkin::GetColourCount(&canvas), 0);
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, ANewColourIsTakenApartAtTheNextPainting) {
    skin.ColourBandCount = 1;
    skin.DrawGradient(&canvas, 0, 0, 300, 1000);
    skin.SetStartColour(RGB(0, 0, 200));
    skin.DrawGradient(&canvas, 0, 0, 300, 1000);
    skin.SetEndColour(RGB(0, 0, 100));
    skin.DrawGradient(&canvas, 0, 0, 300, 1000);
    skin.SetStartColour(RGB(0, 0, 200));
    skin.SetEndColour(RGB(0, 0, 100));
    skin.DrawGradient(&canvas, 0, 0, 300, 1000);
    ASSERT_EQ(canvas.lines.size(), 4U);
    EXPECT_EQ(canvas.lines[0].colour, RGB(255, 255, 255));
    EXPECT_EQ(canvas.lines[1].colour, RGB(0, 0, 200));
    EXPECT_EQ(canvas.lines[2].colour, RGB(0, 0, 200));
    EXPECT_EQ(canvas.lines[3].colour, RGB(0, 0, 200));
    skin.Style = 4;
    canvas.lines.clear();
    skin.DrawGradient(&canvas, 0, 0, 1, 1);
    EXPECT_EQ(canvas.lines.back().colour, RGB(0, 0, 100));
}

TEST_F(SkinTest, NoHeightGivesNoBandAndNoFailure) {
    skin.DrawGradient(&canvas, 0, 50, 300, 50);
    EXPECT_TRUE(canvas.lines.empty());
    skin.DrawGradient(&canvas, 300, 200, 0, 0);
    EXPECT_TRUE(canvas.lines.empty());
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, BandsOfNoSizeAreReportedInsteadOfPaintedForever) {
    for (const qint32 style : {0, 1, 2, 3, 4}) {
        boxes.requests.clear();
        skin.Style = style;
        skin.DrawGradient(&canvas, 0, 0, 50, 50);
        EXPECT_EQ(Boxes(), QStringList(QStringLiteral("5 - Invalid procedure call or argument"))) << style;
        EXPECT_TRUE(canvas.lines.empty());
    }
    boxes.requests.clear();
    skin.Style = 0;
    skin.DrawGradient(&canvas, 0, 0, 50, 51);
    EXPECT_EQ(canvas.lines.size(), 51U);
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, OnlyTheDirectionPaintedAlongNeedsBandsOfASize) {
    skin.Style = 0;
    skin.DrawGradient(&canvas, 0, 0, 1, 200);
    EXPECT_EQ(canvas.lines.size(), 100U);
    skin.Style = 1;
    skin.DrawGradient(&canvas, 0, 0, 200, 1);
    EXPECT_EQ(canvas.lines.size(), 200U);
    EXPECT_TRUE(Boxes().isEmpty());
}

TEST_F(SkinTest, NoBandsAtAllIsADivisionByZero) {
    skin.ColourBandCount = 0;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(Boxes(), QStringList(QStringLiteral("11 - Division by zero")));
    EXPECT_TRUE(canvas.lines.empty());
}

TEST_F(SkinTest, AMiddleLineAtZeroIsADivisionByZero) {
    skin.Style = 2;
    skin.DrawGradient(&canvas, 0, -100, 300, 100);
    skin.Style = 3;
    skin.DrawGradient(&canvas, -100, 0, 100, 200);
    EXPECT_EQ(Boxes(), QStringList(2, QStringLiteral("11 - Division by zero")));
    EXPECT_TRUE(canvas.lines.empty());
}

TEST_F(SkinTest, APlaceBeyondSixteenBitsIsAnOverflowAfterTheBandsThatFit) {
    skin.Style = 4;
    skin.ColourBandCount = 20;
    skin.DrawGradient(&canvas, 0, 0, 20000, 200);
    EXPECT_EQ(Boxes(), QStringList(QStringLiteral("6 - Overflow")));
    ASSERT_EQ(canvas.lines.size(), 33U);
    EXPECT_EQ(canvas.lines.back().x1, 32001);
}

TEST_F(SkinTest, ABandBeyondSixteenBitsIsAnOverflowInEveryStyle) {
    for (const qint32 style : {0, 1, 2, 3, 4, 5}) {
        boxes.requests.clear();
        skin.Style = style;
        skin.ColourBandCount = 19;
        skin.DrawGradient(&canvas, 0, 0, 622583, 285);
        EXPECT_EQ(Boxes(), QStringList(QStringLiteral("6 - Overflow"))) << style;
        EXPECT_TRUE(canvas.lines.empty());
    }
}

TEST_F(SkinTest, AreasFarOffTheCanvasDontTroubleIt) {
    constexpr qint32 Most = 2147483647;
    for (const qint32 style : {0, 1, 2, 3, 4}) {
        boxes.requests.clear();
        skin.Style = style;
        skin.DrawGradient(&canvas, Most - 400, Most - 400, Most, Most);
        skin.DrawGradient(&canvas, -Most, -Most, -Most + 400, -Most + 400);
        EXPECT_TRUE(Boxes().isEmpty()) << style;
    }
}

TEST_F(SkinTest, AFailureOfTheCanvasIsToldAndEndsThePainting) {
    const QString text = QStringLiteral("482 - The surface is gone");
    for (const qint32 style : {0, 1, 2, 3, 4}) {
        boxes.requests.clear();
        canvas.lines.clear();
        skin.Style = style;
        canvas.failingLine = 3;
        skin.DrawGradient(&canvas, 0, 0, 300, 200);
        EXPECT_EQ(Boxes(), QStringList(text)) << style;
        EXPECT_EQ(canvas.lines.size(), 2U);
        canvas.lines.clear();
        canvas.failingLine = 0;
        canvas.failsToTellItsSize = true;
        skin.DrawGradient(&canvas, 0, 0, 300, 200);
        EXPECT_EQ(Boxes(), QStringList(2, text)) << style;
        EXPECT_TRUE(canvas.lines.empty());
        canvas.failsToTellItsSize = false;
    }
    boxes.requests.clear();
    canvas.failsToTakeADrawWidth = true;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(Boxes(), QStringList(text));
    boxes.requests.clear();
    canvas.failingLine = 1;
    canvas.bitsPerPixel = 8;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(Boxes(), QStringList(text));
}

TEST_F(SkinTest, AFailureLeavesTheSettingsAndTheNextPaintingAsTheyWere) {
    skin.SetStartColour(RGB(10, 20, 30));
    skin.SetEndColour(RGB(40, 50, 60));
    skin.ColourBandCount = 2;
    canvas.failingLine = 1;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    canvas.failingLine = 0;
    skin.DrawGradient(&canvas, 0, 0, 300, 200);
    EXPECT_EQ(skin.StartColour(), RGB(10, 20, 30));
    EXPECT_EQ(skin.EndColour(), RGB(40, 50, 60));
    EXPECT_EQ(skin.Style, 0);
    EXPECT_EQ(skin.ColourBandCount, 2);
    EXPECT_EQ(canvas.lines, NaiveSkin({0, 2, 0, 0, 300, 200, 300, 200}, {10, 20, 30, 40, 50, 60}));
}

RC_GTEST_PROP(SkinProperty, EveryStyleDrawsWhatThePlainListingHas, ()) {
    NaiveArea area{};
    area.style = *rc::gen::inRange(-1, 6);
    area.bandCount = *rc::gen::inRange(1, 120);
    area.x1 = *rc::gen::inRange(-500, 2000);
    area.Y1 = *rc::gen::inRange(-500, 2000);
    // Bands of no size are refused, so the sides are at least as long as half the number of bands.
    area.X2 = area.x1 + *rc::gen::inRange(area.bandCount, 12000);
    area.Y2 = area.Y1 + *rc::gen::inRange(area.bandCount, 12000);
    area.canvasWidth = *rc::gen::inRange(0, 15000);
    area.canvasHeight = *rc::gen::inRange(0, 15000);
    RC_PRE(NaiveQuotient(area.X2 + area.x1, 2) != 0 && NaiveQuotient(area.Y2 + area.Y1, 2) != 0);
    const auto channel = rc::gen::inRange(0, 256);
    const NaiveColours colours{*channel, *channel, *channel, *channel, *channel, *channel};

    RecordingMessageBoxes boxes;
    RecordingCanvas canvas(area.canvasWidth, area.canvasHeight);
    clsSkin skin;
    skin.Style = area.style;
    skin.ColourBandCount = static_cast<qint16>(area.bandCount);
    skin.SetStartColour(NaiveColourAt(colours, 0));
    skin.SetEndColour(NaiveColourAt(colours, 1));
    skin.DrawGradient(&canvas, area.x1, area.Y1, area.X2, area.Y2);

    RC_CLASSIFY(area.style < 0 || area.style > 4, "no style");
    RC_ASSERT(boxes.requests.empty());
    RC_ASSERT(canvas.lines == NaiveSkin(area, colours));
}

TEST(SkinProperty, EveryStyleOverTheWholeCanvasIsTheSameForEverySize) {
    RecordingMessageBoxes boxes;
    for (int style = 0; style < 5; ++style) {
        for (int side = 100; side <= 4000; side += 37) {
            RecordingCanvas canvas(side, side + 15);
            clsSkin skin;
            skin.Style = style;
            skin.DrawGradient(&canvas, 0, 0, side, side + 15);
            ASSERT_EQ(canvas.lines,
                      NaiveSkin({style, 100, 0, 0, side, side + 15, side, side + 15}, UsualColours));
        }
    }
    EXPECT_TRUE(boxes.requests.empty());
}

}  // namespace
