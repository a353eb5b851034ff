#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "heading/HeadingFixture.h"
#include "support/NaiveGradient.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QPalette>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

const QColor frame(121, 151, 177);
const QColor enabledFill(221, 234, 243);

/// The desktop in other colours while it lives.
class AnotherDesktop {
public:
    AnotherDesktop(const QColor& face, const QColor& shadow) : before_(QGuiApplication::palette()) {
        QPalette palette = before_;
        palette.setColor(QPalette::Button, face);
        palette.setColor(QPalette::Shadow, shadow);
        QGuiApplication::setPalette(palette);
    }
    AnotherDesktop(const AnotherDesktop&) = delete;
    AnotherDesktop& operator=(const AnotherDesktop&) = delete;
    ~AnotherDesktop() { QGuiApplication::setPalette(before_); }

private:
    QPalette before_;
};

class HeadingPaintTest : public HeadingFixture {
protected:
    /// The bands of the banner in a heading of that many twips.
    static std::vector<DrawnLine> NaiveBands(int height) {
        const auto count = NaiveQuotient(2 * height, 45);
        const auto size = static_cast<int>(NaiveQuotient(height, count));
        std::vector<DrawnLine> bands;
        for (int i = 1; i <= height; i += size) {
            const float fraction = static_cast<float>(static_cast<double>(i) / height);
            const Colour colour = NaiveColourAt({102, 154, 204, 193, 219, 244}, fraction);
            bands.push_back(
                {0, static_cast<double>(i), 0, static_cast<double>(i + size), colour, LineForm::FilledBox});
        }
        return bands;
    }

    /// The colour of a row of pixels where no tab and no base line is.
    static QColor BannerRow(int row, int height) {
        Colour colour = RGB(102, 154, 204);
        for (const DrawnLine& band : NaiveBands(height)) {
            if (ToPixels(band.Y1) <= row && row <= ToPixels(band.Y2)) {
                colour = band.colour;
            }
        }
        return ToQColor(colour);
    }

    struct Look {
        QColor fill;
        QColor outline;
        /// What stands at the middle of the lowest row.
        QColor lowest;
    };

    /// The look of a tab in a picture, from places that its text doesn't reach.
    static void ExpectLook(const QImage& picture, int tab, const Look& look) {
        const auto at = [&picture](int x, int y) { return picture.pixelColor(x, y); };
        const int left = 6 + 106 * tab;
        const int right = left + 100;
        for (const int row : {49, 60, 72}) {
            EXPECT_EQ(at(left, row), look.outline) << tab << " row " << row;
            EXPECT_EQ(at(right, row), look.outline) << tab << " row " << row;
        }
        EXPECT_EQ(at(left + 50, 49), look.outline) << tab;
        EXPECT_EQ(at(left + 1, 50), look.fill) << tab;
        EXPECT_EQ(at(right - 1, 50), look.fill) << tab;
        EXPECT_EQ(at(left + 1, 71), look.fill) << tab;
        EXPECT_EQ(at(right - 1, 71), look.fill) << tab;
        for (const int column : {left + 1, left + 50, right - 1}) {
            EXPECT_EQ(at(column, 72), look.lowest) << tab << " column " << column;
        }
    }

    /// Where a tab's text has ink, relative to the tab.
    QRect Ink(const QImage& picture, int tab) const {
        const QRect place = heading->TabPixels(tab).adjusted(2, 2, -2, -2);
        const QColor fill = picture.pixelColor(place.topLeft());
        QRect ink;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                if (picture.pixelColor(x, y) != fill) {
                    ink |= QRect(x, y, 1, 1);
                }
            }
        }
        return ink.translated(-heading->TabPixels(tab).topLeft());
    }
};

TEST_F(HeadingPaintTest, TheWizardsBannerHasFortyNineBandsOfTwentyTwoTwips) {
    EXPECT_EQ(NaiveQuotient(2 * WizardHeight, 45), 49);
    const std::vector<DrawnLine> bands = NaiveBands(WizardHeight);
    EXPECT_EQ(bands[1].Y1 - bands[0].Y1, 22);
    // The last ones run past the lower edge, as 49 bands of 22 don't fill the height.
    EXPECT_EQ(bands.size(), 50U);
}

TEST_F(HeadingPaintTest, EachTwipOfTheBannerHasTheColourOfItsBand) {
    // A display so fine that each twip is a pixel shows where a band begins.
    const AnotherDensity density(1);
    Show({.Caption = QString(), .Tabs = u"A|"_s}, 1700, WizardHeight);
    const QImage picture = Picture(*heading);
    EXPECT_EQ(picture.pixelColor(1650, 0), QColor(102, 154, 204));
    const std::vector<DrawnLine> bands = NaiveBands(WizardHeight);
    for (int row = 1; row < WizardHeight; ++row) {
        const QColor band = ToQColor(bands[static_cast<size_t>((row - 1) / 22)].colour);
        EXPECT_EQ(picture.pixelColor(1650, row), row == 1080 ? frame : band) << row;
    }
}

TEST_F(HeadingPaintTest, EachRowOfTheWizardsBannerHasTheColourOfItsLastBand) {
    ShowWizard();
    const QImage picture = Picture(*heading);
    ASSERT_EQ(picture.size(), QSize(793, 73));
    for (int row = 0; row < 72; ++row) {
        EXPECT_EQ(picture.pixelColor(755, row), BannerRow(row, WizardHeight)) << row;
        EXPECT_EQ(picture.pixelColor(3, row), BannerRow(row, WizardHeight)) << row;
    }
    EXPECT_EQ(picture.pixelColor(755, 0), QColor(102, 154, 204));
    EXPECT_EQ(picture.pixelColor(755, 71), BannerRow(71, WizardHeight));
    EXPECT_NE(picture.pixelColor(755, 71), BannerRow(60, WizardHeight));
    EXPECT_TRUE(boxes.requests.empty());
}

TEST_F(HeadingPaintTest, TheBaseLineRunsFromEdgeToEdge) {
    ShowWizard();
    const QImage picture = Picture(*heading);
    for (const int column : {0, 5, 107, 111, 749, 792}) {
        EXPECT_EQ(picture.pixelColor(column, 72), frame) << column;
    }
}

TEST_F(HeadingPaintTest, TheGapsBetweenTabsShowTheBanner) {
    ShowWizard();
    const QImage picture = Picture(*heading);
    for (int tab = 0; tab < 7; ++tab) {
        for (const int column : {5 + 106 * tab, 107 + 106 * tab}) {
            EXPECT_EQ(picture.pixelColor(column, 60), BannerRow(60, WizardHeight)) << column;
        }
    }
}

TEST_F(HeadingPaintTest, TheCurrentTabIsWhiteAndOpensDownward) {
    ShowWizard();
    for (qint16 tab = 0; tab < 7; ++tab) {
        for (const bool enabled : {false, true}) {
            heading->ChangeTabEnabled(tab, enabled);
            heading->ChangeTab(tab);
            ExpectLook(Picture(*heading), tab, {Qt::white, frame, Qt::white});
        }
    }
}

TEST_F(HeadingPaintTest, AnEnabledTabIsPaleBlueAndClosedBelow) {
    ShowWizard();
    heading->ChangeTab(7);
    for (qint16 tab = 0; tab < 7; ++tab) {
        heading->ChangeTabEnabled(tab, true);
        ExpectLook(Picture(*heading), tab, {enabledFill, frame, frame});
    }
}

TEST_F(HeadingPaintTest, ADisabledTabHasTheDesktopsFaceAndShadow) {
    const AnotherDesktop desktop(QColor(200, 190, 180), QColor(90, 80, 70));
    ShowWizard();
    heading->ChangeTab(7);
    const QImage picture = Picture(*heading);
    for (int tab = 0; tab < 7; ++tab) {
        ExpectLook(picture, tab, {QColor(200, 190, 180), QColor(90, 80, 70), QColor(90, 80, 70)});
    }
}

TEST_F(HeadingPaintTest, TabsOfOneTextLookCurrentTogether) {
    Show({.Caption = QString(), .Tabs = u"A|B|B|"_s});
    heading->ChangeTab(2);
    const QImage picture = Picture(*heading);
    ExpectLook(picture, 1, {Qt::white, frame, Qt::white});
    ExpectLook(picture, 2, {Qt::white, frame, Qt::white});
}

TEST_F(HeadingPaintTest, NoTabLooksCurrentWhenNoneHasTheText) {
    ShowWizard();
    heading->SetTabs(u"A|B|"_s);
    heading->ChangeTabEnabled(0, true);
    heading->ChangeTabEnabled(1, true);
    const QImage picture = Picture(*heading);
    ExpectLook(picture, 0, {enabledFill, frame, frame});
    ExpectLook(picture, 1, {enabledFill, frame, frame});
    EXPECT_EQ(picture.pixelColor(250, 60), BannerRow(60, WizardHeight));
}

TEST_F(HeadingPaintTest, TabsDontScaleAndAreCutOffAtTheEdge) {
    const AnotherDesktop desktop(QColor(200, 190, 180), QColor(90, 80, 70));
    Show(Wizard(), 3000, WizardHeight);
    const QImage picture = Picture(*heading);
    EXPECT_EQ(picture.pixelColor(6, 60), frame);
    EXPECT_EQ(picture.pixelColor(112, 49), QColor(90, 80, 70));
    EXPECT_EQ(picture.pixelColor(199, 49), QColor(90, 80, 70));
    EXPECT_EQ(picture.pixelColor(199, 50), QColor(200, 190, 180));
}

TEST_F(HeadingPaintTest, TextIsCentredInTheTabAndSharesOneBaseLine) {
    Show({.Caption = QString(), .Tabs = u"xxxx|xgxx|HHHH|"_s});
    for (qint16 tab = 0; tab < 3; ++tab) {
        heading->ChangeTabEnabled(tab, true);
    }
    const QImage picture = Picture(*heading);
    const QFontMetrics metrics(ControlFont());
    const QRect low = Ink(picture, 0);
    const QRect tailed = Ink(picture, 1);
    const QRect high = Ink(picture, 2);
    ASSERT_FALSE(low.isEmpty());
    EXPECT_EQ(low.top(), tailed.top());
    EXPECT_LT(low.bottom(), tailed.bottom());
    EXPECT_EQ(low.bottom(), high.bottom());
    EXPECT_NEAR((high.left() + high.right()) / 2.0, 50, 1.5);
    // The letters stand on the base line of a text whose height is centred in the 24 rows of the tab.
    const double top = 12 - metrics.height() / 2.0;
    EXPECT_NEAR(high.bottom() + 1, top + metrics.ascent(), 1.0);
}

TEST_F(HeadingPaintTest, TextThatIsTooLongForItsTabEndsInIt) {
    Show({.Caption = QString(), .Tabs = u"A||"_s});
    const QImage usual = Picture(*heading);
    heading->SetTabs(u"A||HHHHHHHHHHHHHHHHHHHHHHHHHHHHHHHH|"_s);
    const QImage picture = Picture(*heading);
    // Neither the tab before it nor the banner behind it has any of its ink.
    EXPECT_TRUE(Ink(picture, 1).isEmpty());
    const QRect after(heading->TabPixels(2).right() + 1, 49, 100, 24);
    EXPECT_EQ(picture.copy(after), usual.copy(after));
    const QRect ink = Ink(picture, 2);
    EXPECT_GT(ink.width(), 80);
    EXPECT_EQ(heading->TabStrip().TabNames[2].size(), 32);
}

TEST_F(HeadingPaintTest, TextIsBlackOnTabsThatCanBeUsedAndShadowOnOthers) {
    const AnotherDesktop desktop(QColor(240, 240, 240), QColor(120, 20, 20));
    Show({.Caption = QString(), .Tabs = u"HHHH|HHHH |HHHH  |"_s});
    heading->ChangeTabEnabled(1, true);
    const QImage picture = Picture(*heading);
    const auto darkest = [&](int tab) {
        QColor found(Qt::white);
        const QRect ink = Ink(picture, tab).translated(heading->TabPixels(tab).topLeft());
        for (int y = ink.top(); y <= ink.bottom(); ++y) {
            for (int x = ink.left(); x <= ink.right(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                found = pixel.lightness() < found.lightness() ? pixel : found;
            }
        }
        return found;
    };
    EXPECT_LT(darkest(0).red(), 60);
    EXPECT_LT(darkest(1).red(), 60);
    EXPECT_GE(darkest(2).red(), 120);
    EXPECT_LT(darkest(2).green(), 80);
}

TEST_F(HeadingPaintTest, TextOnADisabledTabIsReadableOnADarkDesktop) {
    const AnotherDesktop desktop(QColor(45, 45, 45), QColor(10, 10, 10));
    Show({.Caption = QString(), .Tabs = u"A|HHHH|"_s});
    const QImage picture = Picture(*heading);
    EXPECT_EQ(picture.pixelColor(114, 52), QColor(45, 45, 45));
    EXPECT_EQ(picture.pixelColor(112, 60), QColor(10, 10, 10));
    int lightest = 0;
    const QRect ink = Ink(picture, 1).translated(heading->TabPixels(1).topLeft());
    for (int y = ink.top(); y <= ink.bottom(); ++y) {
        for (int x = ink.left(); x <= ink.right(); ++x) {
            lightest = std::max(lightest, picture.pixelColor(x, y).lightness());
        }
    }
    EXPECT_GT(lightest, 105);
}

TEST_F(HeadingPaintTest, TheTitleIsWhiteBoldAndCentred) {
    Show({.Caption = QString(), .Tabs = wizardTabs});
    const QImage empty = Picture(*heading);
    heading->SetCaption(u"HHHHHHHH"_s);
    const QImage lettered = Picture(*heading);
    QRect ink;
    bool white = false;
    for (int y = 0; y < empty.height(); ++y) {
        for (int x = 0; x < empty.width(); ++x) {
            if (empty.pixel(x, y) != lettered.pixel(x, y)) {
                ink |= QRect(x, y, 1, 1);
                white = white || lettered.pixelColor(x, y) == QColor(Qt::white);
            }
        }
    }
    EXPECT_TRUE(white);
    EXPECT_NEAR((ink.left() + ink.right()) / 2.0, 8 + 793 / 2.0, 2);
    EXPECT_NEAR((ink.top() + ink.bottom()) / 2.0, 24, 3);
    const auto* label = heading->findChild<QLabel*>(u"lblCaption"_s);
    EXPECT_TRUE(label->font().bold());
    EXPECT_EQ(label->font().pixelSize(), 18);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(HeadingPaintTest, TheCloseImageIsAWhiteCrossOnADarkSquare) {
    ShowWizard();
    const QImage picture = Picture(*heading);
    EXPECT_GT(picture.pixelColor(778, 14).lightness(), 200);
    EXPECT_LT(picture.pixelColor(778, 7).lightness(), 120);
    EXPECT_LT(picture.pixelColor(771, 14).lightness(), 120);
    heading->SetCloseButton(false);
    EXPECT_EQ(PixelAt(*heading, 778, 14), BannerRow(14, WizardHeight));
}

TEST_F(HeadingPaintTest, OneChangePaintsOnce) {
    ShowWizard();
    PaintCounter counter(*heading);
    counter.Take();
    heading->ChangeTab(3);
    EXPECT_EQ(counter.Take(), 1);
    for (qint16 tab = 0; tab < 7; ++tab) {
        heading->ChangeTabEnabled(tab, tab == 0);
    }
    EXPECT_EQ(counter.Take(), 1);
    heading->SetTabs(u"A|"_s);
    EXPECT_EQ(counter.Take(), 1);
    EXPECT_EQ(counter.Take(), 0);
}

TEST_F(HeadingPaintTest, KeepsItsPlacesOnAnotherDisplay) {
    const AnotherDensity density(12);
    ShowWizard();
    const QImage picture = Picture(*heading);
    ASSERT_EQ(picture.size(), QSize(991, 91));
    for (int row = 0; row < 90; ++row) {
        EXPECT_EQ(picture.pixelColor(945, row), BannerRow(row, 1092)) << row;
    }
    EXPECT_EQ(picture.pixelColor(945, 90), frame);
    // The first tab: left 7.5, right 132.5, top 61; white opens it downward between its sides.
    EXPECT_EQ(picture.pixelColor(8, 61), frame);
    EXPECT_EQ(picture.pixelColor(133, 61), frame);
    EXPECT_EQ(picture.pixelColor(8, 90), frame);
    EXPECT_EQ(picture.pixelColor(9, 90), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(70, 90), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(70, 61), frame);
}

TEST_F(HeadingPaintTest, TheColoursOfTheFirstPaintingStay) {
    const AnotherDensity density(1);
    Show({}, 100, 900);
    ThePalette().BannerStart = RGB(1, 2, 3);
    ThePalette().BannerEnd = RGB(4, 5, 6);
    heading->resize(101, 900);
    const QImage picture = Picture(*heading);
    InitialiseColours();
    EXPECT_EQ(picture.pixelColor(50, 0), QColor(1, 2, 3));
    EXPECT_EQ(picture.pixelColor(50, 100), BannerRow(100, 900));
}

TEST_F(HeadingPaintTest, DrawGradientLaysBandsOverAPartUntilTheSizeChanges) {
    ShowWizard();
    heading->DrawGradient(9000, 300, 11895, 600);
    const QImage picture = Picture(*heading);
    // 49 bands of 6 twips over 300 begin at row 20. The last that reaches into that row is the second one.
    const QColor second = ToQColor(NaiveColourAt({102, 154, 204, 193, 219, 244}, 7.0F / 300));
    EXPECT_EQ(picture.pixelColor(599, 30), BannerRow(30, WizardHeight));
    EXPECT_EQ(picture.pixelColor(600, 19), BannerRow(19, WizardHeight));
    EXPECT_EQ(picture.pixelColor(600, 20), second);
    EXPECT_EQ(picture.pixelColor(792, 20), second);
    EXPECT_EQ(picture.pixelColor(755, 45), BannerRow(45, WizardHeight));
    heading->resize(792, 73);
    EXPECT_EQ(PixelAt(*heading, 600, 20), BannerRow(20, WizardHeight));
}

TEST_F(HeadingPaintTest, AGradientThatFailsIsToldWithNumberAndDescription) {
    ShowWizard();
    heading->DrawGradient(0, 0, 11895, 40000);
    EXPECT_EQ(MessageTexts(), QStringList(u"6 - Overflow"_s));
    heading->DrawGradient(0, 0, 11895, 24);
    EXPECT_EQ(MessageTexts().last(), u"5 - Invalid procedure call or argument"_s);
    boxes.requests.clear();
    QWidget window;
    ctlPageHeading flat({}, &window);
    window.show();
    flat.resize(100, 0);
    EXPECT_EQ(MessageTexts(), QStringList(u"11 - Division by zero"_s));
}

TEST_F(HeadingPaintTest, NoSizeThatAScreenHasFails) {
    for (const int twips : {7, 8, 10, 12, 15, 20}) {
        const AnotherDensity density(twips);
        ctlPageHeading sized(Wizard());
        const int least = 12 / twips + 1;
        for (int height = least; height * twips <= 32000 && height < 400; ++height) {
            sized.resize(height % 3 == 0 ? 1 : 793, height);
            Picture(sized);
            ASSERT_TRUE(boxes.requests.empty()) << height << " pixels of " << twips;
        }
    }
}

}  // namespace
