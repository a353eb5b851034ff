#include "controls/akDate.h"
#include "controls/akGrid.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "controls/clsSkin.h"
#include "controls/ctlButton.h"
#include "controls/ctlGroupBox.h"
#include "controls/ctlTextBox.h"
#include "support/NaiveGradient.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>

#include <gtest/gtest.h>

namespace {

using namespace controls;

/// A control that keeps a value of its own, as those of the kit do.
class ControlWithItsOwnValue : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)

public:
    using QWidget::QWidget;
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) {
        ++writes;
        if (fails) {
            throw std::runtime_error("no");
        }
        enabled_ = enabled;
    }

    bool fails = false;
    int writes = 0;

private:
    bool enabled_ = true;
};

class GroupBoxTest : public ::testing::Test {
protected:
    static void Fill(ctlGroupBox& box) {
        box.Move(0, 0, 3000, 1500);
        box.SetCaption(QStringLiteral("Bank"));
    }

    static QWidget* Title(ctlGroupBox& box) { return box.findChild<QWidget*>(QStringLiteral("picTitle")); }

    /// The colour of a row of the title: the last of the bands that cover it.
    static QColor TitleRow(int row) {
        const NaiveArea area{0, 19, 0, 0, 3000, 285, 3000, 285};
        Colour colour = 0;
        for (const DrawnLine& band : NaiveSkin(area, {163, 195, 224, 221, 234, 243})) {
            if (ToPixels(band.Y1) <= row && row <= ToPixels(band.Y2)) {
                colour = band.colour;
            }
        }
        return ToQColor(colour);
    }

    RecordingMessageBoxes boxes;
};

TEST_F(GroupBoxTest, ANewOneIsEnabledAndHasNeitherCaptionNorFrameColour) {
    const ctlGroupBox box;
    EXPECT_TRUE(box.Enabled());
    EXPECT_TRUE(box.isEnabled());
    EXPECT_EQ(box.Caption(), QString());
    EXPECT_EQ(box.FrameColour(), Black);
}

TEST_F(GroupBoxTest, ALoadedOneHasItsCaptionAndTheWizardsColours) {
    const ctlGroupBox box({.Caption = QStringLiteral("Bank")});
    EXPECT_EQ(box.Caption(), QStringLiteral("Bank"));
    EXPECT_EQ(box.FrameColour(), RGB(121, 151, 177));
}

TEST_F(GroupBoxTest, ALoadedOneWorksButReadsAsDisabledUntilTrueIsWritten) {
    ctlGroupBox box({.Caption = QStringLiteral("Bank")});
    QLineEdit child(&box);
    EXPECT_FALSE(box.Enabled());
    EXPECT_TRUE(box.isEnabled());
    box.SetEnabled(false);
    EXPECT_TRUE(box.isEnabled());
    EXPECT_TRUE(child.isEnabled());
    box.SetEnabled(true);
    EXPECT_TRUE(box.Enabled());
    box.SetEnabled(false);
    EXPECT_FALSE(box.Enabled());
    EXPECT_FALSE(box.isEnabled());
    EXPECT_FALSE(child.isEnabled());
}

TEST_F(GroupBoxTest, ANewValueGoesToTheBoxAndToEachChild) {
    ctlGroupBox box;
    QLineEdit plain(&box);
    ControlWithItsOwnValue own(&box);
    box.SetEnabled(false);
    EXPECT_FALSE(box.Enabled());
    EXPECT_FALSE(box.isEnabled());
    EXPECT_FALSE(plain.isEnabledTo(&box));
    EXPECT_FALSE(own.Enabled());
    EXPECT_TRUE(own.isEnabledTo(&box));
    box.SetEnabled(true);
    EXPECT_TRUE(box.isEnabled());
    EXPECT_TRUE(plain.isEnabled());
    EXPECT_TRUE(own.Enabled());
}

TEST_F(GroupBoxTest, TheValueThatItHasAlreadyDoesNothing) {
    ctlGroupBox box;
    ControlWithItsOwnValue own(&box);
    QLineEdit plain(&box);
    plain.setEnabled(false);
    box.SetEnabled(true);
    EXPECT_EQ(own.writes, 0);
    EXPECT_FALSE(plain.isEnabled());
}

TEST_F(GroupBoxTest, TheKitsOwnControlsGetItAsTheirOwnValue) {
    ctlGroupBox box;
    const ctlButton button(&box);
    const ctlTextBox text(&box);
    const akDate date(&box);
    const akGrid grid(&box);
    const auto values = [&] {
        return std::vector<bool>{button.Enabled(), text.Enabled(), date.Enabled(), grid.Enabled()};
    };
    EXPECT_EQ(values(), std::vector<bool>(4, true));
    box.SetEnabled(false);
    EXPECT_EQ(values(), std::vector<bool>(4, false));
    // A button whose own window is disabled would vanish.
    EXPECT_TRUE(button.isEnabledTo(&box));
    box.SetEnabled(true);
    EXPECT_EQ(values(), std::vector<bool>(4, true));
}

TEST_F(GroupBoxTest, AChildThatFailsIsSkipped) {
    ctlGroupBox box;
    ControlWithItsOwnValue failing(&box);
    QLineEdit plain(&box);
    failing.fails = true;
    box.SetEnabled(false);
    EXPECT_EQ(failing.writes, 1);
    EXPECT_TRUE(failing.Enabled());
    EXPECT_FALSE(plain.isEnabledTo(&box));
    box.DisableControls(true);
    EXPECT_EQ(failing.writes, 2);
    EXPECT_TRUE(plain.isEnabledTo(&box));
}

TEST_F(GroupBoxTest, DisableControlsEnablesTheChildrenWithTrueAndLeavesItsOwnValue) {
    ctlGroupBox box({.Caption = QStringLiteral("Bank")});
    QLineEdit plain(&box);
    ControlWithItsOwnValue own(&box);
    box.DisableControls(false);
    EXPECT_FALSE(plain.isEnabledTo(&box));
    EXPECT_FALSE(own.Enabled());
    EXPECT_TRUE(box.isEnabled());
    EXPECT_FALSE(box.Enabled());
    box.DisableControls(true);
    EXPECT_TRUE(plain.isEnabled());
    EXPECT_TRUE(own.Enabled());
    EXPECT_FALSE(box.Enabled());
}

TEST_F(GroupBoxTest, OnlyDirectChildrenAreWalkedAndANestedBoxCarriesItOn) {
    ctlGroupBox outer;
    ctlGroupBox inner(&outer);
    QWidget plain(&outer);
    QLineEdit deepInBox(&inner);
    QLineEdit deepInPlain(&plain);
    outer.DisableControls(false);
    EXPECT_FALSE(inner.Enabled());
    EXPECT_FALSE(deepInBox.isEnabledTo(&inner));
    EXPECT_TRUE(deepInPlain.isEnabledTo(&plain));
}

TEST_F(GroupBoxTest, ControlsOfTheKitGetItInTheirOwnEnabled) {
    ctlGroupBox box;
    const ctlButton button(&box);
    const ctlTextBox text(&box);
    const akDate date(&box);
    const akGrid grid(&box);
    for (const bool enabled : {false, true}) {
        box.DisableControls(enabled);
        EXPECT_EQ(button.Enabled(), enabled);
        EXPECT_EQ(text.Enabled(), enabled);
        EXPECT_EQ(date.Enabled(), enabled);
        EXPECT_EQ(grid.Enabled(), enabled);
    }
}

TEST_F(GroupBoxTest, AButtonInADisabledBoxLooksAsADisabledOneDoes) {
    ctlGroupBox box;
    Fill(box);
    ctlButton button({.Caption = QStringLiteral("Add")}, &box);
    button.setGeometry(10, 30, 105, 25);
    const QImage enabled = Picture(button);
    button.SetEnabled(false);
    const QImage disabled = Picture(button);
    button.SetEnabled(true);
    ASSERT_NE(disabled, enabled);

    box.SetEnabled(false);
    EXPECT_EQ(Picture(button), disabled);
    box.SetEnabled(true);
    EXPECT_EQ(Picture(button), enabled);
    box.DisableControls(false);
    EXPECT_EQ(Picture(button), disabled);
}

TEST_F(GroupBoxTest, TheTitleAndWindowsOfItsOwnAreNotContained) {
    ctlGroupBox box;
    const QDialog dialog(&box);
    box.DisableControls(false);
    EXPECT_TRUE(Title(box)->isEnabled());
    EXPECT_TRUE(dialog.isEnabled());
}

TEST_F(GroupBoxTest, TheTitleIsAsWideAsTheBoxAndNineteenRowsHigh) {
    ctlGroupBox box;
    Fill(box);
    Picture(box);
    EXPECT_EQ(Title(box)->geometry(), QRect(0, 0, 200, 19));
    box.SetWidth(4500);
    Picture(box);
    EXPECT_EQ(Title(box)->geometry(), QRect(0, 0, 300, 19));
}

TEST_F(GroupBoxTest, TheTitleRunsDownInNineteenBands) {
    ctlGroupBox box({.Caption = QString()});
    Fill(box);
    const QImage picture = Picture(box);
    EXPECT_EQ(picture.pixelColor(0, 0), QColor(163, 195, 224));
    for (int row = 0; row < 19; ++row) {
        EXPECT_EQ(picture.pixelColor(0, row), TitleRow(row)) << row;
        EXPECT_EQ(picture.pixelColor(199, row), TitleRow(row)) << row;
    }
    EXPECT_EQ(NaiveSkin({0, 19, 0, 0, 3000, 285, 3000, 285}, {163, 195, 224, 221, 234, 243}).size(), 19U);
    EXPECT_TRUE(boxes.requests.empty());
}

TEST_F(GroupBoxTest, AFrameRunsAroundWhatTheTitleLeaves) {
    ctlGroupBox box({.Caption = QStringLiteral("Bank")});
    Fill(box);
    const QImage picture = Picture(box);
    const QColor frame(121, 151, 177);
    for (const QPoint& place :
         {QPoint(0, 19), QPoint(0, 99), QPoint(199, 19), QPoint(199, 99), QPoint(100, 99)}) {
        EXPECT_EQ(picture.pixelColor(place), frame) << place.x() << "," << place.y();
    }
    EXPECT_EQ(picture.pixelColor(1, 98), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(198, 20), QColor(Qt::white));
}

TEST_F(GroupBoxTest, ANewOnesFrameIsBlack) {
    ctlGroupBox box;
    Fill(box);
    EXPECT_EQ(PixelAt(box, 0, 50), QColor(Qt::black));
}

TEST_F(GroupBoxTest, TheCaptionStandsInTheMiddleOfTheTitleInBlack) {
    ctlGroupBox box;
    Fill(box);
    box.SetCaption(QString());
    const QImage empty = Picture(box);
    box.SetCaption(QStringLiteral("HHHH"));
    const QImage lettered = Picture(box);
    QRect changed;
    bool black = false;
    for (int y = 0; y < lettered.height(); ++y) {
        for (int x = 0; x < lettered.width(); ++x) {
            if (lettered.pixel(x, y) != empty.pixel(x, y)) {
                changed |= QRect(x, y, 1, 1);
                black = black || lettered.pixelColor(x, y).lightness() < 60;
            }
        }
    }
    const QFontMetrics metrics(ControlFont());
    EXPECT_TRUE(black);
    EXPECT_NEAR((changed.left() + changed.right()) / 2.0, 99.5, 1.5);
    EXPECT_LE(changed.width(), metrics.horizontalAdvance(QStringLiteral("HHHH")));
    EXPECT_GE(changed.top(), (19 - metrics.height()) / 2);
    EXPECT_LT(changed.bottom(), 19);
}

TEST_F(GroupBoxTest, ACaptionPaintsTheTitleOnceAndTheSameOneNotAtAll) {
    ctlGroupBox box;
    Fill(box);
    ShowAndActivate(box);
    PaintCounter title(*Title(box));
    title.Take();
    box.SetCaption(QStringLiteral("Owner"));
    EXPECT_EQ(title.Take(), 1);
    box.SetCaption(QStringLiteral("Owner"));
    EXPECT_EQ(title.Take(), 0);
}

TEST_F(GroupBoxTest, AnEmptyPaletteGetsAWhiteOfItsOwn) {
    ThePalette().Window = 0;
    ctlGroupBox box({.Caption = QString()});
    EXPECT_EQ(ThePalette().Window, RGB(245, 245, 245));
    Fill(box);
    EXPECT_EQ(PixelAt(box, 50, 50), QColor(245, 245, 245));
    ThePalette().Window = RGB(1, 2, 3);
    ctlGroupBox another({.Caption = QString()});
    EXPECT_EQ(ThePalette().Window, RGB(1, 2, 3));
    Fill(another);
    EXPECT_EQ(PixelAt(another, 50, 50), QColor(1, 2, 3));
    InitialiseColours();
}

TEST_F(GroupBoxTest, ANewOneLeavesThePaletteAlone) {
    ThePalette().Window = 0;
    const ctlGroupBox box;
    EXPECT_EQ(ThePalette().Window, 0U);
    InitialiseColours();
}

TEST_F(GroupBoxTest, AllTitlesShareOneSkinMadeWithTheFirst) {
    ctlGroupBox first;
    Fill(first);
    Picture(first);
    ThePalette().TitleStart = RGB(1, 1, 1);
    ctlGroupBox second;
    Fill(second);
    EXPECT_EQ(PixelAt(second, 0, 0), QColor(163, 195, 224));
    InitialiseColours();
}

TEST_F(GroupBoxTest, TextIsReadableOnADarkDesktop) {
    const QPalette before = QGuiApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    QGuiApplication::setPalette(dark);
    {
        ctlGroupBox box({.Caption = QString()});
        const QLabel label(&box);
        Fill(box);
        EXPECT_EQ(PixelAt(box, 50, 50), QColor(Qt::white));
        EXPECT_EQ(label.palette().color(QPalette::Active, QPalette::WindowText), QColor(Qt::black));
        EXPECT_EQ(label.palette().color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::black));
        const QColor disabled = label.palette().color(QPalette::Disabled, QPalette::WindowText);
        EXPECT_EQ(disabled, ReadableOn(Qt::white, QColor(230, 230, 230)));
        EXPECT_NE(disabled, QColor(Qt::black));
    }
    QGuiApplication::setPalette(before);
}

TEST_F(GroupBoxTest, KeepsItsPlacesOnAnotherDisplay) {
    const AnotherDensity density(12);
    ctlGroupBox box({.Caption = QString()});
    box.Move(0, 0, 3000, 1500);
    const QImage picture = Picture(box);
    EXPECT_EQ(picture.size(), QSize(250, 125));
    EXPECT_EQ(Title(box)->geometry(), QRect(0, 0, 250, 24));
    for (int row = 0; row < 24; ++row) {
        EXPECT_EQ(picture.pixelColor(0, row), TitleRow(row)) << row;
    }
    EXPECT_EQ(picture.pixelColor(249, 124), QColor(121, 151, 177));
    EXPECT_EQ(picture.pixelColor(248, 123), QColor(Qt::white));
}

TEST_F(GroupBoxTest, NoSizeOfABoxGivesBandsOfNoSize) {
    for (const int twips : {1, 5, 7, 8, 12, 15, 20, 30}) {
        const AnotherDensity density(twips);
        ctlGroupBox box;
        for (const int width : {0, 1, 2, 3, 5, 10, 19, 20, 33, 500, 4000}) {
            for (const int height : {0, 1, 2, 18, 19, 20, 40}) {
                box.resize(width, height);
                if (!box.size().isEmpty()) {
                    Picture(box);
                }
            }
        }
    }
    // The title's bands run downward over its fixed height, so only a width that no screen has can fail.
    for (qint32 width = 0; width <= 622573; width += 97) {
        RecordingCanvas canvas(width, 285);
        clsSkin skin;
        skin.ColourBandCount = 19;
        skin.DrawGradient(&canvas, 0, 0, width, 285);
        ASSERT_EQ(canvas.lines.size(), 19U);
    }
    EXPECT_TRUE(boxes.requests.empty());
}

TEST_F(GroupBoxTest, AScreenReaderFindsAGroupNamedAfterItsCaption) {
    ctlGroupBox box({.Caption = QStringLiteral("Bank")});
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->role(), QAccessible::Grouping);
    EXPECT_EQ(found->text(QAccessible::Name), QStringLiteral("Bank"));
    box.SetCaption(QStringLiteral("Owner"));
    EXPECT_EQ(found->text(QAccessible::Name), QStringLiteral("Owner"));
}

}  // namespace

#include "GroupBoxTest.moc"
