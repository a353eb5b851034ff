#include "button/ButtonForm.h"
#include "controls/base/Font.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

using namespace controls;

const QColor ground(255, 255, 255);

/// The smallest rectangle around all pixels that the test finds inked, within the outline.
QRect InkIn(const QImage& picture, const std::function<bool(QColor)>& isInk) {
    QRect ink;
    for (int y = 1; y < picture.height() - 1; ++y) {
        for (int x = 1; x < picture.width() - 1; ++x) {
            if (isInk(picture.pixelColor(x, y))) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

bool IsDark(QColor colour) {
    return colour.red() < 110 && colour.green() < 110 && colour.blue() < 110;
}

bool IsBlue(QColor colour) {
    return colour.blue() > 200 && colour.red() < 150 && colour.green() < 150;
}

double Luminance(const QColor& colour) {
    const auto linear = [](double channel) {
        return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// How much the text stands out from its ground at its strongest pixel.
double StrongestContrast(const QImage& picture) {
    const double under = Luminance(picture.pixelColor(2, 2)) + 0.05;
    double strongest = 1;
    for (int y = 2; y < picture.height() - 2; ++y) {
        for (int x = 2; x < picture.width() - 2; ++x) {
            const double over = Luminance(picture.pixelColor(x, y)) + 0.05;
            strongest = std::max(strongest, std::max(over, under) / std::min(over, under));
        }
    }
    return strongest;
}

class ButtonCaptionTest : public ::testing::Test, protected ButtonForm {
protected:
    ButtonCaptionTest() {
        button.SetCaption(QStringLiteral("HIH"));
        MoveToGround();
    }

    void MakeLink() {
        button.SetLinkButton(true);
        button.SetBackColor(White);
    }

    int Baseline() const {
        const QFontMetrics metrics(button.font());
        return (button.height() - metrics.height() + 1) / 2 + metrics.ascent();
    }

    bool IsUnderlined() {
        const QRect ink = InkIn(Picture(button), [](QColor colour) { return colour != ground; });
        return ink.bottom() >= Baseline();
    }
};

TEST_F(ButtonCaptionTest, IsLetteredInTheUsualFont) {
    EXPECT_EQ(button.font().family(), ControlFont().family());
    EXPECT_EQ(button.font().pixelSize(), ControlFont().pixelSize());
    EXPECT_FALSE(button.font().bold());
}

TEST_F(ButtonCaptionTest, IsBlackInTheMiddle) {
    const QRect ink = InkIn(Picture(button), IsDark);
    ASSERT_FALSE(ink.isNull());
    EXPECT_NEAR(ink.left(), button.width() - 1 - ink.right(), 1);
    EXPECT_EQ(ink.bottom(), Baseline() - 1);
}

TEST_F(ButtonCaptionTest, IsInTheMiddleAtAnotherDensityToo) {
    const AnotherDensity density(12);
    ctlButton dense({.Caption = QStringLiteral("HIH")});
    dense.resize(131, 31);
    const QRect ink = InkIn(Picture(dense), IsDark);
    ASSERT_FALSE(ink.isNull());
    EXPECT_NEAR(ink.left(), dense.width() - 1 - ink.right(), 1);
    const QFontMetrics metrics(dense.font());
    EXPECT_NEAR(ink.bottom() + 1, (31 - metrics.height()) / 2.0 + metrics.ascent(), 0.5);
}

TEST_F(ButtonCaptionTest, StaysBlackInAllStatesOfAnEnabledButton) {
    mouse.MoveTo(button);
    EXPECT_FALSE(InkIn(Picture(button), IsDark).isNull());
    mouse.Press();
    EXPECT_FALSE(InkIn(Picture(button), IsDark).isNull());
}

TEST_F(ButtonCaptionTest, AnAmpersandShowsAsItIs) {
    button.SetCaption(QStringLiteral("&&&&&&"));
    const int six = InkIn(Picture(button), IsDark).width();
    button.SetCaption(QStringLiteral("&"));
    const int one = InkIn(Picture(button), IsDark).width();
    EXPECT_GT(one, 0);
    EXPECT_GT(six, 5 * one);
}

TEST_F(ButtonCaptionTest, TooLongItIsCutOffOnBothSides) {
    button.SetCaption(QString(200, QLatin1Char('H')));
    const QRect ink = InkIn(Picture(button), IsDark);
    EXPECT_LE(ink.left(), 8);
    EXPECT_GE(ink.right(), button.width() - 9);
}

TEST_F(ButtonCaptionTest, OfALinkIsBlueAtTheLeftWithoutPictureOrOutline) {
    MakeLink();
    const QImage picture = Picture(button);
    EXPECT_EQ(picture.pixelColor(0, 0), ground);
    EXPECT_EQ(picture.pixelColor(104, 24), ground);
    EXPECT_EQ(picture.pixelColor(100, 12), ground);
    const QRect ink = InkIn(picture, IsBlue);
    ASSERT_FALSE(ink.isNull());
    EXPECT_LE(ink.left(), 3);
    EXPECT_EQ(ink.bottom(), Baseline() - 1);
}

TEST_F(ButtonCaptionTest, OfALinkIsUnderlinedUnderTheMouseAndHeldDown) {
    MakeLink();
    EXPECT_FALSE(IsUnderlined());
    mouse.MoveTo(button);
    EXPECT_TRUE(IsUnderlined());
    EXPECT_FALSE(InkIn(Picture(button), IsBlue).isNull());
    mouse.Press();
    ASSERT_EQ(button.ButtonState(), ButtonStates::Down);
    EXPECT_TRUE(IsUnderlined());
    mouse.Release();
    MoveToGround();
    EXPECT_FALSE(IsUnderlined());
}

TEST_F(ButtonCaptionTest, OfADisabledLinkIsGreyWithoutUnderlineOnTheGround) {
    MakeLink();
    button.SetEnabled(false);
    for (const bool hovered : {false, true}) {
        if (hovered) {
            mouse.MoveTo(button);
            ASSERT_EQ(button.ButtonState(), ButtonStates::Hover);
        }
        const QImage picture = Picture(button);
        EXPECT_EQ(picture.pixelColor(0, 0), ground);
        EXPECT_EQ(picture.pixelColor(104, 24), ground);
        EXPECT_TRUE(InkIn(picture, IsBlue).isNull());
        EXPECT_FALSE(InkIn(picture, [](QColor colour) { return colour != ground; }).isNull());
        EXPECT_FALSE(IsUnderlined());
    }
}

/// The desktop's theme is dark, with a grey for text that its own light surfaces hardly show.
class ButtonDarkThemeTest : public ButtonCaptionTest {
protected:
    ButtonDarkThemeTest() : usual(QApplication::palette()) {
        QPalette dark(QColor(40, 40, 40), QColor(30, 30, 30));
        dark.setColor(QPalette::All, QPalette::Midlight, QColor(70, 70, 70));
        dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(90, 90, 90));
        dark.setColor(QPalette::All, QPalette::WindowText, Qt::white);
        QApplication::setPalette(dark);
        button.SetEnabled(false);
    }
    ~ButtonDarkThemeTest() override { QApplication::setPalette(usual); }

    QPalette usual;
};

TEST_F(ButtonDarkThemeTest, GreyTextCanBeReadOnTheDesktopsLight) {
    EXPECT_EQ(PixelAt(button, 2, 2), QColor(70, 70, 70));
    EXPECT_GT(StrongestContrast(Picture(button)), 2.9);
}

TEST_F(ButtonDarkThemeTest, GreyTextOfALinkCanBeReadOnItsGround) {
    MakeLink();
    button.SetBackColor(RGB(80, 80, 80));
    EXPECT_GT(StrongestContrast(Picture(button)), 2.9);
}

TEST_F(ButtonDarkThemeTest, EnabledTextStaysBlackOnThePicture) {
    button.SetEnabled(true);
    EXPECT_FALSE(InkIn(Picture(button), IsDark).isNull());
    EXPECT_EQ(PixelAt(button, 3, 12), QColor(175, 203, 240));
}

}  // namespace
