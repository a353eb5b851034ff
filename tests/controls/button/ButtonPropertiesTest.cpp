#include "button/ButtonForm.h"
#include "platform/Files.h"
#include "support/CursorFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace controls;

TEST(ButtonPropertiesTest, SavedPropertiesHaveTheirDefaults) {
    const ctlButton::Properties saved;
    EXPECT_TRUE(saved.Caption.isEmpty());
    EXPECT_FALSE(saved.Default);
    EXPECT_FALSE(saved.Cancel);
    EXPECT_TRUE(saved.Enabled);
    EXPECT_FALSE(saved.LinkButton);
    EXPECT_EQ(saved.BackColour, 16777215U);
}

TEST(ButtonPropertiesTest, ASavedButtonHasWhatWasSaved) {
    const ctlButton button({.Caption = QStringLiteral("Save"),
                            .Default = true,
                            .Cancel = true,
                            .Enabled = false,
                            .LinkButton = true,
                            .BackColour = RGB(1, 2, 3)});
    EXPECT_EQ(button.Caption(), QStringLiteral("Save"));
    EXPECT_TRUE(button.Default());
    EXPECT_TRUE(button.Cancel());
    EXPECT_FALSE(button.Enabled());
    EXPECT_TRUE(button.LinkButton());
    EXPECT_EQ(button.BackColor(), RGB(1, 2, 3));
    EXPECT_TRUE(button.isEnabled());
}

TEST(ButtonPropertiesTest, ANewButtonIsEnabledAndEmpty) {
    const ctlButton button;
    EXPECT_TRUE(button.Caption().isEmpty());
    EXPECT_FALSE(button.Default());
    EXPECT_FALSE(button.Cancel());
    EXPECT_TRUE(button.Enabled());
    EXPECT_FALSE(button.LinkButton());
    EXPECT_EQ(button.BackColor(), White);
    EXPECT_TRUE(button.Pic().isNull());
}

TEST(ButtonPropertiesTest, ASavedLinkShowsItsCaptionAtOnce) {
    ctlButton link({.Caption = QStringLiteral("HHHH"), .LinkButton = true});
    link.resize(105, 25);
    const QImage picture = Picture(link);
    bool blue = false;
    for (int x = 0; x < 30; ++x) {
        const QColor pixel = picture.pixelColor(x, 12);
        blue = blue || (pixel.blue() > 200 && pixel.red() < 150);
    }
    EXPECT_TRUE(blue);
}

class ButtonRepaintTest : public ::testing::Test, protected ButtonForm {
protected:
    ButtonRepaintTest() : paints(button) {
        MoveToGround();
        paints.Take();
    }

    bool IsBlank() {
        const QImage picture = Picture(button);
        const QColor ground = ToQColor(button.BackColor());
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != ground) {
                    return false;
                }
            }
        }
        return true;
    }

    PaintCounter paints;
};

TEST_F(ButtonRepaintTest, EnabledWrittenUnchangedDoesNotRepaint) {
    button.SetEnabled(true);
    EXPECT_EQ(paints.Take(), 0);
    button.SetEnabled(false);
    EXPECT_EQ(paints.Take(), 1);
    button.SetEnabled(false);
    EXPECT_EQ(paints.Take(), 0);
}

TEST_F(ButtonRepaintTest, SeveralChangesAreOneRepaint) {
    button.SetCaption(QStringLiteral("Other"));
    button.SetBackColor(RGB(1, 2, 3));
    button.SetEnabled(false);
    EXPECT_EQ(paints.Take(), 1);
}

TEST_F(ButtonRepaintTest, MovingWithinTheButtonRepaintsOnce) {
    mouse.MoveTo(button, {10, 10});
    mouse.MoveTo(button, {20, 10});
    mouse.MoveTo(button, {30, 10});
    EXPECT_EQ(paints.Take(), 1);
}

TEST_F(ButtonRepaintTest, WhatIsWrittenUnchangedDoesNotRepaint) {
    button.SetCaption(button.Caption());
    button.SetBackColor(button.BackColor());
    button.SetDefault(true);
    button.SetCancel(true);
    EXPECT_EQ(paints.Take(), 0);
}

TEST_F(ButtonRepaintTest, BecomingALinkEmptiesTheSurfaceUntilTheNextStateChange) {
    button.SetLinkButton(true);
    EXPECT_TRUE(IsBlank());
    mouse.MoveTo(button);
    EXPECT_FALSE(IsBlank());
    EXPECT_NE(PixelAt(button, 0, 12), QColor(255, 0, 0));
}

TEST_F(ButtonRepaintTest, NoLongerALinkItLooksSoUntilTheNextStateChange) {
    button.SetLinkButton(true);
    button.SetBackColor(White);
    paints.Take();
    button.SetLinkButton(false);
    EXPECT_EQ(paints.Take(), 0);
    EXPECT_EQ(PixelAt(button, 0, 0), QColor(255, 255, 255));
    mouse.MoveTo(button);
    EXPECT_EQ(PixelAt(button, 0, 0), QColor(255, 0, 0));
}

TEST_F(ButtonRepaintTest, DefaultAndResizingDrawALinkAnew) {
    button.SetLinkButton(true);
    button.SetDefault(true);
    EXPECT_FALSE(IsBlank());
    button.SetLinkButton(true);
    ASSERT_TRUE(IsBlank());
    button.SetCancel(true);
    EXPECT_TRUE(IsBlank());
    button.resize(106, 25);
    EXPECT_FALSE(IsBlank());
}

class ButtonIconTest : public ::testing::Test, protected ButtonForm {
protected:
    ButtonIconTest() : icon(15, 9) {
        icon.fill(Qt::green);
        button.SetCaption(QString());
        button.SetPic(icon);
    }

    bool IsIcon(int x, int y) { return PixelAt(button, x, y) == QColor(Qt::green); }

    QPixmap icon;
};

TEST_F(ButtonIconTest, StandsInTheMiddle) {
    EXPECT_TRUE(IsIcon(45, 8));
    EXPECT_TRUE(IsIcon(59, 16));
    EXPECT_FALSE(IsIcon(44, 8));
    EXPECT_FALSE(IsIcon(60, 16));
    EXPECT_FALSE(IsIcon(45, 7));
    EXPECT_FALSE(IsIcon(59, 17));
}

TEST_F(ButtonIconTest, StaysWhereItWasPutWhenTheButtonGrows) {
    button.resize(205, 45);
    EXPECT_TRUE(IsIcon(45, 8));
    EXPECT_FALSE(IsIcon(100, 22));
    button.SetPic(icon);
    EXPECT_TRUE(IsIcon(100, 22));
    EXPECT_FALSE(IsIcon(45, 8));
}

TEST_F(ButtonIconTest, AnEmptyPictureHidesIt) {
    button.SetPic({});
    EXPECT_FALSE(IsIcon(50, 12));
}

TEST_F(ButtonIconTest, StandsInTheMiddleAtAnotherDensityToo) {
    const AnotherDensity density(20);
    ctlButton dense;
    dense.resize(105, 25);
    dense.SetPic(icon);
    EXPECT_EQ(PixelAt(dense, 45, 8), QColor(Qt::green));
    EXPECT_EQ(PixelAt(dense, 59, 16), QColor(Qt::green));
    EXPECT_NE(PixelAt(dense, 44, 8), QColor(Qt::green));
    EXPECT_NE(PixelAt(dense, 60, 16), QColor(Qt::green));
}

class ButtonCursorTest : public ::testing::Test {
protected:
    ButtonCursorTest() { platform::SetProgramDirectory(folder.path()); }
    ~ButtonCursorTest() override { platform::SetProgramDirectory(QString()); }

    void WriteCursorFile() {
        QFile file(folder.filePath(QStringLiteral("hand.cur")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(CursorFile());
    }

    QTemporaryDir folder;
};

TEST_F(ButtonCursorTest, WithoutTheFileItHasTheDefaultPointer) {
    EXPECT_EQ(ctlButton().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ButtonCursorTest, ItHasTheHandPointerWhileEnabled) {
    WriteCursorFile();
    ctlButton button;
    EXPECT_EQ(button.cursor().shape(), Qt::BitmapCursor);
    button.SetEnabled(false);
    EXPECT_EQ(button.cursor().shape(), Qt::ArrowCursor);
    button.SetEnabled(true);
    EXPECT_EQ(button.cursor().shape(), Qt::BitmapCursor);
}

TEST_F(ButtonCursorTest, ASavedButtonHasItIfEnabled) {
    WriteCursorFile();
    EXPECT_EQ(ctlButton({.Enabled = true}).cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(ctlButton({.Enabled = false}).cursor().shape(), Qt::ArrowCursor);
}

}  // namespace
