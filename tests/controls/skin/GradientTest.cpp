#include "controls/skin/Gradient.h"
#include "controls/skin/GradientBands.h"
#include "platform/Failure.h"
#include "support/NaiveGradient.h"
#include "support/RecordingMessageBoxes.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace {

using namespace controls;

Gradient Prepared(Colour start, Colour end) {
    Gradient gradient(start, end);
    gradient.Prepare();
    return gradient;
}

int FailureNumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}

std::vector<int> PlacesUpTo(int limit, int step) {
    std::vector<int> places;
    ForEachBand(limit, static_cast<qint16>(step), [&](qint16 place) { places.push_back(place); });
    return places;
}

TEST(Gradient, BeginsAndEndsWithItsColours) {
    const Gradient gradient = Prepared(RGB(102, 154, 204), RGB(193, 219, 244));
    EXPECT_EQ(gradient.At(0), RGB(102, 154, 204));
    EXPECT_EQ(gradient.At(1), RGB(193, 219, 244));
}

TEST(Gradient, TakesEveryGreenAndBlueApartExactly) {
    // The divisor for blue is 65535 and the multiplier for green 255: no byte may show that.
    for (const Colour red : {0U, 1U, 127U, 128U, 255U}) {
        for (Colour green = 0; green < 256; ++green) {
            for (Colour blue = 0; blue < 256; ++blue) {
                const Colour colour = RGB(red, green, blue);
                ASSERT_EQ(Prepared(colour, Black).At(0), colour);
                ASSERT_EQ(Prepared(Black, colour).At(1), colour);
            }
        }
    }
}

TEST(Gradient, TakesEveryRedApartExactly) {
    for (Colour red = 0; red < 256; ++red) {
        ASSERT_EQ(Prepared(RGB(red, 255, 255), Black).At(0), RGB(red, 255, 255));
    }
}

TEST(Gradient, ADesktopColourCountsAsTheLowBytesOfItsNumber) {
    EXPECT_EQ(Prepared(SystemColour(15), White).At(0), RGB(15, 0, 0));
}

TEST(Gradient, RoundsTiesToTheEvenNeighbour) {
    EXPECT_EQ(Prepared(RGB(0, 1, 2), RGB(1, 2, 5)).At(0.5F), RGB(0, 2, 4));
    EXPECT_EQ(Prepared(RGB(5, 2, 1), RGB(2, 1, 0)).At(0.5F), RGB(4, 2, 0));
}

TEST(Gradient, GoesDownAsWellAsUp) {
    EXPECT_EQ(Prepared(White, RGB(255, 255, 0)).At(0.2F), RGB(255, 255, 204));
}

TEST(Gradient, AFractionOutsideStopsAtTheEndsOfAChannel) {
    const Gradient gradient = Prepared(RGB(100, 200, 50), RGB(200, 100, 50));
    EXPECT_EQ(gradient.At(2), RGB(255, 0, 50));
    EXPECT_EQ(gradient.At(-2), RGB(0, 255, 50));
    EXPECT_EQ(gradient.At(1.25F), RGB(225, 75, 50));
}

TEST(Gradient, ColoursWrittenAfterwardsDontShowUntilForget) {
    Gradient gradient = Prepared(RGB(10, 10, 10), RGB(20, 20, 20));
    gradient.StartColour = RGB(90, 90, 90);
    gradient.EndColour = RGB(80, 80, 80);
    gradient.Prepare();
    EXPECT_EQ(gradient.At(0), RGB(10, 10, 10));
    EXPECT_EQ(gradient.At(1), RGB(20, 20, 20));
    gradient.Forget();
    gradient.Prepare();
    EXPECT_EQ(gradient.At(0), RGB(90, 90, 90));
    EXPECT_EQ(gradient.At(1), RGB(80, 80, 80));
}

RC_GTEST_PROP(GradientProperty, EachColourIsWhatWholeNumbersGive, ()) {
    const auto channel = rc::gen::inRange(0, 256);
    const NaiveColours colours{*channel, *channel, *channel, *channel, *channel, *channel};
    const int whole = *rc::gen::inRange(1, 32768);
    const int part = *rc::gen::inRange(-whole, 3 * whole);
    const float fraction = static_cast<float>(static_cast<double>(part) / whole);
    const auto byte = [](int value) { return static_cast<std::uint32_t>(value); };
    const Gradient gradient =
        Prepared(RGB(byte(colours.startRed), byte(colours.startGreen), byte(colours.startBlue)),
                 RGB(byte(colours.endRed), byte(colours.endGreen), byte(colours.endBlue)));
    RC_CLASSIFY(fraction < 0 || fraction > 1, "outside");
    RC_ASSERT(gradient.At(fraction) == NaiveColourAt(colours, fraction));
}

TEST(GradientProperty, EveryHalfIsATie) {
    // Random fractions seldom meet a tie, halves always do.
    for (int from = 0; from < 256; ++from) {
        for (int to = 0; to < 256; ++to) {
            const auto start = static_cast<std::uint32_t>(from);
            const auto end = static_cast<std::uint32_t>(to);
            const NaiveColours colours{from, from, from, to, to, to};
            ASSERT_EQ(Prepared(RGB(start, start, start), RGB(end, end, end)).At(0.5F),
                      NaiveColourAt(colours, 0.5F));
        }
    }
}

TEST(GradientBands, AreCutFromTheSidesOfTheArea) {
    const Bands bands = CutIntoBands(100, 200, 11995, 1295, 49);
    EXPECT_EQ(bands.left, 100);
    EXPECT_EQ(bands.top, 200);
    EXPECT_EQ(bands.width, 11895);
    EXPECT_EQ(bands.height, 1095);
    EXPECT_EQ(bands.across, 243);
    EXPECT_EQ(bands.down, 22);
}

TEST(GradientBands, TheirSizeIsRoundedWithTiesToEven) {
    EXPECT_EQ(CutIntoBands(0, 0, 5, 15, 10).across, 0);
    EXPECT_EQ(CutIntoBands(0, 0, 5, 15, 10).down, 2);
    EXPECT_EQ(CutIntoBands(0, 0, 25, 26, 10).across, 2);
    EXPECT_EQ(CutIntoBands(0, 0, 25, 26, 10).down, 3);
}

TEST(GradientBands, NoneAtAllIsADivisionByZero) {
    EXPECT_EQ(FailureNumberOf([] { CutIntoBands(0, 0, 10, 10, 0); }), 11);
}

TEST(GradientBands, ThatDontFitTheirBitsOverflow) {
    EXPECT_EQ(CutIntoBands(0, 0, 32767, 32767, 1).across, 32767);
    EXPECT_EQ(FailureNumberOf([] { CutIntoBands(0, 0, 32768, 1, 1); }), 6);
    EXPECT_EQ(FailureNumberOf([] { CutIntoBands(0, 0, 1, 32768, 1); }), 6);
    constexpr qint32 Most = std::numeric_limits<qint32>::max();
    EXPECT_EQ(FailureNumberOf([] { CutIntoBands(-Most, 0, Most, 1, 19); }), 6);
    EXPECT_EQ(FailureNumberOf([] { CutIntoBands(0, -Most, 1, Most, 19); }), 6);
}

TEST(GradientBands, BeginAtOneAndReachTheLimit) {
    EXPECT_EQ(PlacesUpTo(10, 3), (std::vector<int>{1, 4, 7, 10}));
    EXPECT_EQ(PlacesUpTo(9, 3), (std::vector<int>{1, 4, 7}));
    EXPECT_EQ(PlacesUpTo(1, 100), (std::vector<int>{1}));
}

TEST(GradientBands, ALimitBelowTheFirstGivesNoneWhateverTheStep) {
    EXPECT_TRUE(PlacesUpTo(0, 3).empty());
    EXPECT_TRUE(PlacesUpTo(0, 0).empty());
    EXPECT_TRUE(PlacesUpTo(-10, -3).empty());
}

TEST(GradientBands, OfNoSizeFailInsteadOfGoingOnForever) {
    int painted = 0;
    for (const int step : {0, -1, -32768}) {
        EXPECT_EQ(
            FailureNumberOf([&] { ForEachBand(5, static_cast<qint16>(step), [&](qint16) { ++painted; }); }),
            5);
    }
    EXPECT_EQ(painted, 0);
}

TEST(GradientBands, BeyondSixteenBitsFailAfterTheLastPlaceThatFits) {
    std::vector<int> places;
    const auto note = [&](qint16 place) { places.push_back(place); };
    EXPECT_EQ(FailureNumberOf([&] { ForEachBand(40000, 16000, note); }), 6);
    EXPECT_EQ(places, (std::vector<int>{1, 16001, 32001}));
    places.clear();
    EXPECT_EQ(FailureNumberOf([&] { ForEachBand(32767, 32766, note); }), 6);
    EXPECT_EQ(places, (std::vector<int>{1, 32767}));
}

TEST(GradientBands, AFractionIsAFloatOfThirtyTwoBits) {
    EXPECT_EQ(FractionOf(1, 3), 0.333333343F);
    EXPECT_EQ(FailureNumberOf([] { FractionOf(1, 0); }), 11);
}

TEST(GradientBands, AFailureIsToldWithNumberAndDescription) {
    RecordingMessageBoxes boxes;
    try {
        platform::RaiseOverflow();
    } catch (...) {
        ReportDrawingFailure();
    }
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(boxes.requests[0].text, QStringLiteral("6 - Overflow"));
    EXPECT_EQ(boxes.requests[0].title, QStringLiteral("Wrenfield Wizard"));
    EXPECT_EQ(boxes.requests[0].buttons, platform::Buttons::Ok);
    ReportDrawingFailure();
    EXPECT_EQ(boxes.requests.size(), 1U);
}

}  // namespace
