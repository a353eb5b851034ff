#include "controls/base/Palette.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>

namespace {

using namespace Qt::StringLiterals;
using namespace controls;

class TextBoxLooksTest : public TextBoxTest {
protected:
    QWidget& TheImage() { return *TheControl().findChild<QWidget*>(u"imgUpDown"_s); }

    /// The darkest pixel of the text, away from the frame.
    QColor Ink() {
        const QImage picture = Picture(TheControl());
        QColor darkest = Qt::white;
        for (int y = 3; y < picture.height() - 3; ++y) {
            for (int x = 3; x < picture.width() - 3; ++x) {
                const QColor colour = picture.pixelColor(x, y);
                darkest = colour.lightness() < darkest.lightness() ? colour : darkest;
            }
        }
        return darkest;
    }
};

TEST_F(TextBoxLooksTest, TheBoxFillsTheControl) {
    Load({});
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 200, 20));
    TheControl().Move(0, 0, 1500, 450);
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 100, 30));
}

TEST_F(TextBoxLooksTest, TheImageStandsAtTheRightEdgeAndTheBoxBesideIt) {
    Load({.ShowUpDown = true});
    EXPECT_TRUE(TheImage().isVisible());
    EXPECT_EQ(TheImage().geometry(), QRect(184, 0, 16, 19));
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 184, 20));
    TheControl().SetWidth(1500);
    EXPECT_EQ(TheImage().geometry(), QRect(84, 0, 16, 19));
    EXPECT_EQ(TheBox().width(), 84);
}

TEST_F(TextBoxLooksTest, ShowingAndHidingTheImageLaysOutAgain) {
    Load({});
    EXPECT_FALSE(TheImage().isVisible());
    TheControl().SetShowUpDown(true);
    EXPECT_TRUE(TheImage().isVisible());
    EXPECT_EQ(TheBox().width(), 184);
    TheControl().SetShowUpDown(false);
    EXPECT_FALSE(TheImage().isVisible());
    EXPECT_EQ(TheBox().width(), 200);
}

TEST_F(TextBoxLooksTest, AControlTooLowForALineOfTextTakesTheHeightOfTheBox) {
    Load({});
    TheControl().SetHeight(60);
    EXPECT_EQ(TheControl().height(), TheBox().minimumSizeHint().height());
    EXPECT_EQ(TheBox().height(), TheControl().height());
    EXPECT_GT(TheControl().height(), TheBox().fontMetrics().height());
    EXPECT_LE(TheControl().Height(), 285) << "a form's usual box must keep its height";
}

TEST_F(TextBoxLooksTest, AControlWithoutAnyRoomIsNotLaidOut) {
    Load({});
    TheControl().SetHeight(15);
    EXPECT_EQ(TheControl().height(), 1);
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 200, 20));
    TheControl().SetHeight(300);
    TheControl().SetWidth(15);
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 200, 20));
    TheControl().SetWidth(30);
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 2, 20));
}

TEST_F(TextBoxLooksTest, AControlNarrowerThanTheImageHasABoxOfNoWidth) {
    Load({.ShowUpDown = true});
    TheControl().SetWidth(150);
    EXPECT_EQ(TheBox().width(), 0);
}

TEST_F(TextBoxLooksTest, LengthsFollowTheDensityOfTheDisplay) {
    const AnotherDensity dense(12);
    Load({.ShowUpDown = true});
    EXPECT_EQ(TheControl().width(), 250);
    EXPECT_EQ(TheBox().geometry(), QRect(0, 0, 234, 25));
    EXPECT_EQ(TheImage().geometry(), QRect(234, 0, 16, 19));
    EXPECT_EQ(TheBox().font().pixelSize(), 14);
    EXPECT_EQ(PixelAt(TheControl(), 0, 0), ToQColor(ThePalette().Frame));
    EXPECT_EQ(PixelAt(TheControl(), 233, 24), ToQColor(ThePalette().Frame));
}

TEST_F(TextBoxLooksTest, TheGroundIsWhiteAndTheTextBlackOnADarkDesktop) {
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Base, Qt::black);
    QApplication::setPalette(dark);
    Load({.Text = u"MMMM"_s});
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), QColor(Qt::white));
    EXPECT_LT(Ink().lightness(), 40);
    TheControl().SetEnabled(false);
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), QColor(232, 232, 232));
    EXPECT_LT(Ink().lightness(), 130);
    EXPECT_GT(Ink().lightness(), 60) << "to be told from text that can be changed";
    QApplication::setPalette(before);
}

TEST_F(TextBoxLooksTest, ADisabledBoxIsGreyAndALockedOneIsNot) {
    const QColor grey(232, 232, 232);
    Load({.Text = u"text"_s});
    TheControl().SetEnabled(false);
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), grey);
    TheControl().SetEnabled(true);
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), QColor(Qt::white));
    window.setEnabled(false);
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), grey) << "on a disabled form, too";
    window.setEnabled(true);
    TheControl().SetLocked(true);
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), QColor(Qt::white));
}

TEST_F(TextBoxLooksTest, AFrameShowsTheFocusInEveryStyle) {
    for (const QString& style : QStyleFactory::keys()) {
        const std::unique_ptr<QStyle> look(QStyleFactory::create(style));
        Load({.Text = u""_s});
        TheBox().setStyle(look.get());
        EXPECT_EQ(PixelAt(TheControl(), 0, 10), ToQColor(ThePalette().Frame)) << style.toStdString();
        EXPECT_EQ(PixelAt(TheControl(), 1, 10), QColor(Qt::white)) << style.toStdString();
        EXPECT_EQ(PixelAt(TheControl(), 199, 19), ToQColor(ThePalette().Frame)) << style.toStdString();
        Focus();
        for (const QPoint place : {QPoint(0, 0), QPoint(1, 1), QPoint(198, 18), QPoint(199, 19)}) {
            EXPECT_EQ(PixelAt(TheControl(), place.x(), place.y()), ToQColor(ThePalette().ButtonOutline))
                << style.toStdString();
        }
        EXPECT_EQ(PixelAt(TheControl(), 2, 2), QColor(Qt::white)) << style.toStdString();
        TheBox().setStyle(nullptr);
    }
}

TEST_F(TextBoxLooksTest, TheFrameIsAsThickOnAllSidesWhereverTheBoxStands) {
    Load({.Text = u""_s});
    const QColor frame = ToQColor(ThePalette().Frame);
    for (const double factor : {1.25, 1.5, 1.75, 2.0}) {
        for (int offset = 1; offset <= 8; ++offset) {
            TheControl().Move(15 * offset, 15 * offset, 15 * (60 + offset), 285);
            // The whole window: the toolkit cuts the box out of it.
            const QImage picture = Picture(window, factor);
            const std::vector both(2, static_cast<int>(factor));
            EXPECT_EQ(RunsInRow(picture, static_cast<int>((offset + 10) * factor), frame), both)
                << factor << ", " << offset;
            EXPECT_EQ(RunsInColumn(picture, static_cast<int>((offset + 30) * factor), frame), both)
                << factor << ", " << offset;
        }
    }
}

/// A style that leaves the ground of an edit box to others.
class BareStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element != PE_PanelLineEdit) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }
};

TEST_F(TextBoxLooksTest, TheGroundIsWhiteInAStyleThatPaintsNone) {
    BareStyle bare;
    Load({.Text = u""_s});
    TheBox().setStyle(&bare);
    QImage picture(TheControl().size(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    TheControl().render(&picture);
    EXPECT_EQ(picture.pixelColor(100, 10), QColor(Qt::white));
    TheBox().setStyle(nullptr);
}

TEST_F(TextBoxLooksTest, TheGroundOfTheControlIsSeenBelowTheImage) {
    Load({.ShowUpDown = true});
    EXPECT_EQ(PixelAt(TheControl(), 190, 19), ToQColor(SystemColours::ButtonFace));
    TheControl().SetBackColor(RGB(255, 0, 0));
    EXPECT_EQ(PixelAt(TheControl(), 190, 19), QColor(255, 0, 0));
    EXPECT_EQ(PixelAt(TheControl(), 100, 10), QColor(Qt::white)) << "the box keeps its own";
}

TEST_F(TextBoxLooksTest, TheImageHasAnArrowInEachHalf) {
    Load({.ShowUpDown = true});
    const QColor arrow = ToQColor(ThePalette().ButtonOutline);
    const QColor face = ToQColor(ThePalette().Heading);
    const QColor frame = ToQColor(ThePalette().Frame);
    const QImage picture = Picture(TheImage());
    EXPECT_EQ(picture.size(), QSize(16, 19));
    EXPECT_EQ(picture.pixelColor(0, 0), frame);
    EXPECT_EQ(picture.pixelColor(15, 18), frame);
    EXPECT_EQ(picture.pixelColor(8, 9), frame);
    for (const int tip : {3, 15}) {
        EXPECT_EQ(picture.pixelColor(7, tip), arrow);
        EXPECT_EQ(picture.pixelColor(8, tip), arrow);
        EXPECT_EQ(picture.pixelColor(6, tip), face);
    }
    for (const int base : {6, 12}) {
        EXPECT_EQ(picture.pixelColor(4, base), arrow);
        EXPECT_EQ(picture.pixelColor(11, base), arrow);
        EXPECT_EQ(picture.pixelColor(3, base), face);
    }
    TheControl().SetEnabled(false);
    EXPECT_NE(Picture(TheImage()).pixelColor(7, 3), arrow);
    EXPECT_NE(Picture(TheImage()).pixelColor(7, 3), face);
}

TEST_F(TextBoxLooksTest, TheLinesOfTheImageAreAsThickWhereverItStands) {
    Load({.ShowUpDown = true});
    const QColor frame = ToQColor(ThePalette().Frame);
    for (const double factor : {1.25, 1.5, 1.75, 2.0}) {
        for (int offset = 1; offset <= 8; ++offset) {
            TheControl().Move(15 * offset, 15 * offset, 15 * 60, 285);
            const QImage picture = Picture(window, factor);
            // Beside the arrows: both edges and the line between the halves.
            const int x = static_cast<int>((offset + 60 - 14 + 0.5) * factor);
            EXPECT_EQ(RunsInColumn(picture, x, frame), std::vector<int>(3, static_cast<int>(factor)))
                << factor << ", " << offset;
        }
    }
}

TEST_F(TextBoxLooksTest, OnADenseDisplayTheEdgesOfTheArrowsAreSmooth) {
    Load({.ShowUpDown = true});
    const QImage coarse = Picture(TheImage());
    const QImage dense = DensePicture(TheImage());
    EXPECT_EQ(Colours(coarse).size(), 3U);
    EXPECT_GT(Colours(dense).size(), 3U);
    for (const QPoint place : {QPoint(7, 5), QPoint(8, 5), QPoint(5, 6), QPoint(10, 6), QPoint(7, 13),
                               QPoint(8, 13), QPoint(5, 12), QPoint(10, 12), QPoint(0, 9), QPoint(2, 6)}) {
        EXPECT_EQ(dense.pixelColor(2 * place), coarse.pixelColor(place)) << place.x() << "," << place.y();
    }
}

TEST_F(TextBoxLooksTest, ATypedKeyPaintsTheBoxAndNothingAroundIt) {
    Enter({.Text = u""_s, .IsNumeric = true, .DecimalPlaces = 2, .ShowUpDown = true});
    PaintCounter box(TheBox());
    PaintCounter control(TheControl());
    PaintCounter image(TheImage());
    box.Take();
    control.Take();
    image.Take();
    for (const QChar key : u"12.345-"_s) {
        Type(key);
        EXPECT_LE(box.Take(), 1) << QString(key).toStdString();
    }
    EXPECT_EQ(control.Take(), 0);
    EXPECT_EQ(image.Take(), 0);
}

}  // namespace
