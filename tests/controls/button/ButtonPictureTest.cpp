#include "button/ButtonForm.h"
#include "controls/base/Canvas.h"
#include "controls/button/frmResources.h"
#include "controls/ctlButton.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace controls;

/// A colour as pixels have it: the theme's own ones may be finer.
QColor OnScreen(Colour colour) {
    return QColor(ToQColor(colour).rgb());
}

struct PictureRow {
    const ButtonPicture& (*picture)();
    int row;
    QColor colour;
};

class PictureRowTest : public ::testing::TestWithParam<PictureRow> {};

TEST_P(PictureRowTest, HasItsColourFromEdgeToEdge) {
    QImage image(160, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintedCanvas canvas(&painter, 160, 30);
    GetParam().picture().DrawOn(canvas);
    painter.end();
    const int y = GetParam().row - 1;
    EXPECT_EQ(image.pixelColor(0, y), GetParam().colour);
    EXPECT_EQ(image.pixelColor(77, y), GetParam().colour);
    EXPECT_EQ(image.pixelColor(149, y), GetParam().colour);
    EXPECT_EQ(image.pixelColor(150, y), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(0, 25), QColor(Qt::white));
}

INSTANTIATE_TEST_SUITE_P(Rows, PictureRowTest,
                         ::testing::Values(PictureRow{frmResources::picButtonNormal, 1, {216, 233, 252}},
                                           PictureRow{frmResources::picButtonNormal, 2, {212, 230, 251}},
                                           PictureRow{frmResources::picButtonNormal, 13, {175, 203, 240}},
                                           PictureRow{frmResources::picButtonNormal, 24, {136, 174, 228}},
                                           PictureRow{frmResources::picButtonNormal, 25, {134, 172, 228}},
                                           PictureRow{frmResources::picButtonHover, 1, {255, 242, 201}},
                                           PictureRow{frmResources::picButtonHover, 2, {255, 241, 198}},
                                           PictureRow{frmResources::picButtonHover, 13, {255, 226, 175}},
                                           PictureRow{frmResources::picButtonHover, 24, {255, 211, 150}},
                                           PictureRow{frmResources::picButtonHover, 25, {255, 210, 148}},
                                           PictureRow{frmResources::picButtonDown, 1, {254, 148, 81}},
                                           PictureRow{frmResources::picButtonDown, 2, {254, 151, 84}},
                                           PictureRow{frmResources::picButtonDown, 13, {255, 178, 110}},
                                           PictureRow{frmResources::picButtonDown, 24, {255, 206, 137}},
                                           PictureRow{frmResources::picButtonDown, 25, {255, 208, 139}}));

TEST(ButtonPictureTest, TheRowsBetweenFollowTheRunOfTheirChannels) {
    for (const auto picture :
         {frmResources::picButtonNormal, frmResources::picButtonHover, frmResources::picButtonDown}) {
        const auto& rows = picture().Rows;
        for (std::size_t row = 1; row < rows.size(); ++row) {
            const QColor above = ToQColor(rows[row - 1]);
            const QColor below = ToQColor(rows[row]);
            const bool darkens = picture == frmResources::picButtonDown ? above.blue() <= below.blue()
                                                                        : above.blue() >= below.blue();
            EXPECT_TRUE(darkens) << row;
            EXPECT_LE(std::abs(above.blue() - below.blue()), 4) << row;
        }
    }
}

TEST(ButtonPictureTest, AreMadeOnce) {
    EXPECT_EQ(&frmResources::picButtonHover(), &frmResources::picButtonHover());
}

/// The button's picture and outline in each state.
class ButtonLookTest : public ::testing::Test, protected ButtonForm {
protected:
    ButtonLookTest() {
        button.SetCaption(QString());
        MoveToGround();
    }

    void ExpectOutline(const QColor& colour) {
        const QImage picture = Picture(button);
        const int right = picture.width() - 1;
        const int bottom = picture.height() - 1;
        for (int x = 0; x <= right; ++x) {
            ASSERT_EQ(picture.pixelColor(x, 0), colour) << x;
            ASSERT_EQ(picture.pixelColor(x, bottom), colour) << x;
        }
        for (int y = 0; y <= bottom; ++y) {
            ASSERT_EQ(picture.pixelColor(0, y), colour) << y;
            ASSERT_EQ(picture.pixelColor(right, y), colour) << y;
        }
        EXPECT_NE(picture.pixelColor(1, 1), colour);
        EXPECT_NE(picture.pixelColor(right - 1, bottom - 1), colour);
    }
};

TEST_F(ButtonLookTest, AtRestItIsBlueWithADarkBlueOutline) {
    EXPECT_EQ(PixelAt(button, 50, 1), QColor(212, 230, 251));
    EXPECT_EQ(PixelAt(button, 50, 12), QColor(175, 203, 240));
    EXPECT_EQ(PixelAt(button, 50, 23), QColor(136, 174, 228));
    ExpectOutline({37, 79, 167});
}

TEST_F(ButtonLookTest, UnderTheMouseItIsYellowWithARedOutline) {
    mouse.MoveTo(button);
    EXPECT_EQ(PixelAt(button, 50, 1), QColor(255, 241, 198));
    EXPECT_EQ(PixelAt(button, 50, 12), QColor(255, 226, 175));
    EXPECT_EQ(PixelAt(button, 50, 23), QColor(255, 211, 150));
    ExpectOutline({255, 0, 0});
}

TEST_F(ButtonLookTest, WithTheFocusItLooksAsUnderTheMouse) {
    button.setFocus();
    EXPECT_EQ(PixelAt(button, 50, 12), QColor(255, 226, 175));
    ExpectOutline({255, 0, 0});
}

TEST_F(ButtonLookTest, HeldDownItIsOrangeWithARedOutline) {
    mouse.MoveTo(button);
    mouse.Press();
    EXPECT_EQ(PixelAt(button, 50, 1), QColor(254, 151, 84));
    EXPECT_EQ(PixelAt(button, 50, 12), QColor(255, 178, 110));
    EXPECT_EQ(PixelAt(button, 50, 23), QColor(255, 206, 137));
    ExpectOutline({255, 0, 0});
}

TEST_F(ButtonLookTest, DraggedOffWithTheButtonHeldItIsYellow) {
    mouse.MoveTo(button);
    mouse.Press();
    MoveToGround();
    EXPECT_EQ(PixelAt(button, 50, 12), QColor(255, 226, 175));
}

TEST_F(ButtonLookTest, BeyondThePictureTheGroundShowsWithinTheOutline) {
    button.SetBackColor(RGB(1, 200, 3));
    button.resize(200, 33);
    EXPECT_EQ(PixelAt(button, 149, 24), QColor(134, 172, 228));
    EXPECT_EQ(PixelAt(button, 150, 24), QColor(1, 200, 3));
    EXPECT_EQ(PixelAt(button, 149, 25), QColor(1, 200, 3));
    EXPECT_EQ(PixelAt(button, 198, 31), QColor(1, 200, 3));
    ExpectOutline({37, 79, 167});
}

TEST_F(ButtonLookTest, DisabledItIsLightWithADarkOutlineInEveryState) {
    button.SetEnabled(false);
    const QColor light = OnScreen(SystemColours::Light);
    EXPECT_EQ(PixelAt(button, 50, 1), light);
    ExpectOutline(OnScreen(SystemColours::DarkShadow));
    mouse.MoveTo(button);
    mouse.Press();
    mouse.MoveTo(button, {7, 7});
    ASSERT_EQ(button.ButtonState(), ButtonStates::Down);
    EXPECT_EQ(PixelAt(button, 50, 1), light);
    EXPECT_EQ(PixelAt(button, 50, 23), light);
    ExpectOutline(OnScreen(SystemColours::DarkShadow));
}

TEST_F(ButtonLookTest, WithItsWindowDisabledNothingButTheGroundShows) {
    button.SetCaption(QStringLiteral("HHHH"));
    button.SetBackColor(RGB(1, 200, 3));
    static_cast<QWidget&>(button).setEnabled(false);
    EXPECT_TRUE(button.Enabled());
    const QImage picture = Picture(button);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ASSERT_EQ(picture.pixelColor(x, y), QColor(1, 200, 3)) << x << ", " << y;
        }
    }
    static_cast<QWidget&>(button).setEnabled(true);
    EXPECT_EQ(PixelAt(button, 50, 1), QColor(212, 230, 251));
}

TEST_F(ButtonLookTest, OnADisabledFormItLooksLikeOneThatIsNotEnabled) {
    button.SetCaption(QStringLiteral("HHHH"));
    button.SetEnabled(false);
    const QImage notEnabled = Picture(button);
    button.SetEnabled(true);
    ASSERT_NE(Picture(button), notEnabled);
    window.setEnabled(false);
    EXPECT_TRUE(button.Enabled());
    EXPECT_EQ(Picture(button), notEnabled);
    window.setEnabled(true);
    EXPECT_EQ(PixelAt(button, 50, 1), QColor(212, 230, 251));
}

/// Sizes of pictures and outlines are pixels, whatever a pixel is in twips.
class ButtonDensityTest : public ::testing::TestWithParam<int> {};

TEST_P(ButtonDensityTest, PictureAndOutlineFollowThePixels) {
    const AnotherDensity density(GetParam());
    ctlButton button({.BackColour = RGB(1, 200, 3)});
    button.resize(200, 33);
    EXPECT_EQ(PixelAt(button, 149, 24), QColor(134, 172, 228));
    EXPECT_EQ(PixelAt(button, 150, 24), QColor(1, 200, 3));
    EXPECT_EQ(PixelAt(button, 100, 25), QColor(1, 200, 3));
    EXPECT_EQ(PixelAt(button, 199, 16), QColor(37, 79, 167));
    EXPECT_EQ(PixelAt(button, 198, 16), QColor(1, 200, 3));
    EXPECT_EQ(PixelAt(button, 100, 32), QColor(37, 79, 167));
    EXPECT_EQ(PixelAt(button, 100, 31), QColor(1, 200, 3));
}

INSTANTIATE_TEST_SUITE_P(Densities, ButtonDensityTest, ::testing::Values(12, 15, 20));

/// Scale factors of the display.
class ButtonScaleTest : public ::testing::TestWithParam<double> {};

TEST_P(ButtonScaleTest, EachRowHasSharpEdgesAndJoinsTheNext) {
    const double ratio = GetParam();
    ctlButton button({.BackColour = RGB(1, 200, 3)});
    button.resize(120, 33);
    const QImage image = Picture(button, ratio);

    QList<QColor> seen;
    for (int y = 0; y < image.height(); ++y) {
        const QColor colour = image.pixelColor(image.width() / 2, y);
        if (seen.isEmpty() || seen.last() != colour) {
            seen.append(colour);
        }
    }
    QList<QColor> expected{QColor(37, 79, 167)};
    // The outline has the thickness of all lines. Where the first row comes out thicker, the rest of it is
    // seen.
    const bool isFirstRowSeen = std::lround(ratio) > static_cast<int>(ratio);
    for (std::size_t row = isFirstRowSeen ? 0 : 1; row < ButtonPicture::PixelHeight; ++row) {
        expected.append(ToQColor(frmResources::picButtonNormal().Rows[row]));
    }
    expected.append(QColor(1, 200, 3));
    expected.append(QColor(37, 79, 167));
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(image.pixelColor(0, image.height() / 2), QColor(37, 79, 167));
    EXPECT_EQ(image.pixelColor(image.width() - 1, image.height() / 2), QColor(37, 79, 167));
}

INSTANTIATE_TEST_SUITE_P(Ratios, ButtonScaleTest, ::testing::Values(1.0, 1.25, 1.5, 2.0));

}  // namespace
