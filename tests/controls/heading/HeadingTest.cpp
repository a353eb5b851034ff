#include "controls/ctlPageHeading.h"
#include "heading/HeadingFixture.h"
#include "platform/Failure.h"
#include "support/RecordingCanvas.h"

#include <QLabel>

#include <functional>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class HeadingTest : public HeadingFixture {
protected:
    QWidget* CloseImage() const { return heading->findChild<QWidget*>(u"imgCloseButton"_s); }
    QRect CaptionPlace() const { return heading->findChild<QLabel*>(u"lblCaption"_s)->geometry(); }

    static int FailureNumberOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const platform::Failure& failure) {
            return failure.Number();
        }
        return 0;
    }
};

TEST_F(HeadingTest, ANewOneHasNoTitleNoTabsAndNoCloseImage) {
    ctlPageHeading made;
    EXPECT_EQ(made.Caption(), QString());
    EXPECT_EQ(made.Tabs(), QString());
    EXPECT_FALSE(made.CloseButton());
    EXPECT_EQ(made.CurrentTabIndex(), 0);
    EXPECT_EQ(FailureNumberOf([&] { made.ChangeTabEnabled(0, true); }), 0);
    EXPECT_EQ(FailureNumberOf([&] { made.ChangeTabEnabled(1, true); }), 9);
}

TEST_F(HeadingTest, ALoadedOneStandsOnItsFirstTabAndEnablesNone) {
    ShowWizard();
    EXPECT_EQ(heading->Caption(), u"Hearthbook Wrenfield Wizard"_s);
    EXPECT_EQ(heading->Tabs(), wizardTabs);
    EXPECT_TRUE(heading->CloseButton());
    EXPECT_EQ(heading->CurrentTabIndex(), 0);
    EXPECT_EQ(heading->TabStrip().TabEnabled, QList<bool>(8, false));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, TheSavedDefaultsAreEmpty) {
    const ctlPageHeading::Properties properties;
    EXPECT_EQ(properties.Caption, QString());
    EXPECT_EQ(properties.Tabs, QString());
    EXPECT_FALSE(properties.CloseButton);
    Show(properties);
    EXPECT_EQ(heading->CurrentTabIndex(), -1);
}

TEST_F(HeadingTest, TabsWrittenWithoutTheBarGetIt) {
    ShowWizard();
    heading->SetTabs(u"A|B"_s);
    EXPECT_EQ(heading->Tabs(), u"A|B|"_s);
    EXPECT_EQ(heading->TabStrip().Count(), 2);
    heading->SetTabs(u"A|B|C|"_s);
    EXPECT_EQ(heading->Tabs(), u"A|B|C|"_s);
    EXPECT_EQ(heading->TabStrip().Count(), 3);
    heading->SetTabs(QString());
    EXPECT_EQ(heading->Tabs(), QString());
    EXPECT_EQ(heading->TabStrip().Count(), 0);
}

TEST_F(HeadingTest, TabsLoadedWithoutTheBarDontGetIt) {
    Show({.Caption = QString(), .Tabs = u"A|B"_s});
    EXPECT_EQ(heading->Tabs(), u"A|B"_s);
    EXPECT_EQ(heading->TabStrip().Count(), 1);
}

TEST_F(HeadingTest, NewTabsKeepTheCurrentText) {
    ShowWizard();
    heading->ChangeTab(3);
    TakeEvents();
    heading->SetTabs(u"Owners|Tenants|"_s);
    EXPECT_EQ(heading->CurrentTabIndex(), 0);
    heading->SetTabs(u"A|B|"_s);
    EXPECT_EQ(heading->CurrentTabIndex(), -1);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, ChangeTabSelectsEvenWhatCantBeClickedAndRaisesTheEvent) {
    ShowWizard();
    heading->ChangeTab(3);
    EXPECT_EQ(heading->CurrentTabIndex(), 3);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Owners 3"_s));
    heading->ChangeTab(3);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Owners 3"_s));
}

TEST_F(HeadingTest, ChangeTabReachesTheEmptyEntryBehindTheLastTab) {
    ShowWizard();
    heading->ChangeTab(7);
    EXPECT_EQ(heading->CurrentTabIndex(), 7);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect  7"_s));
}

TEST_F(HeadingTest, AnyOtherPlaceIsAFailureAndChangesNothing) {
    ShowWizard();
    for (const qint16 place : {qint16{-1}, qint16{8}, qint16{32767}, qint16{-32768}}) {
        EXPECT_EQ(FailureNumberOf([&] { heading->ChangeTab(place); }), 9) << place;
        EXPECT_EQ(FailureNumberOf([&] { heading->ChangeTabEnabled(place, true); }), 9) << place;
    }
    EXPECT_EQ(heading->CurrentTabIndex(), 0);
    EXPECT_EQ(heading->TabStrip().TabEnabled, QList<bool>(8, false));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, ADuplicateTextSelectsTheLowestIndexAndTellsTheOneThatWasMeant) {
    Show({.Caption = QString(), .Tabs = u"A|B|B|"_s});
    heading->ChangeTab(2);
    EXPECT_EQ(heading->CurrentTabIndex(), 1);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect B 2"_s));
}

TEST_F(HeadingTest, AHandlerFindsTheNewTabAndCanGoBack) {
    ShowWizard();
    QStringList seen;
    QObject::connect(heading.get(), &ctlPageHeading::TabSelect, heading.get(), [&] {
        seen += QString::number(heading->CurrentTabIndex());
        if (heading->CurrentTabIndex() == 4) {
            heading->ChangeTab(1);
        }
    });
    heading->ChangeTab(4);
    EXPECT_EQ(seen, (QStringList{u"4"_s, u"1"_s}));
    EXPECT_EQ(heading->CurrentTabIndex(), 1);
    EXPECT_EQ(TakeEvents(), (QStringList{u"TabSelect Properties 4"_s, u"TabSelect Bank Accounts 1"_s}));
}

TEST_F(HeadingTest, WhatAHandlerWritesToTheTextStays) {
    ShowWizard();
    QObject::connect(heading.get(), &ctlPageHeading::TabSelect, heading.get(),
                     [](QString& CurrentTab, qint16& CurrentIndex) {
                         CurrentTab = u"Tenants"_s;
                         CurrentIndex = 99;
                     });
    heading->ChangeTab(2);
    EXPECT_EQ(heading->CurrentTabIndex(), 5);
}

TEST_F(HeadingTest, AClickSelectsAnEnabledTabOnly) {
    ShowWizard();
    Click(150, 60);
    EXPECT_EQ(TakeEvents(), QStringList());
    EXPECT_EQ(heading->CurrentTabIndex(), 0);
    heading->ChangeTabEnabled(1, true);
    Click(150, 60);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Bank Accounts 1"_s));
    EXPECT_EQ(heading->CurrentTabIndex(), 1);
    heading->ChangeTabEnabled(1, false);
    Click(150, 60);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, AClickOnTheCurrentTabRaisesTheEventAgain) {
    ShowWizard();
    heading->ChangeTabEnabled(0, true);
    Click(50, 60);
    Click(50, 60);
    EXPECT_EQ(TakeEvents(), QStringList(2, u"TabSelect Introduction 0"_s));
}

TEST_F(HeadingTest, EveryTabIsHitFromEdgeToEdgeAndTheGapsAreNot) {
    ShowWizard();
    for (qint16 tab = 0; tab < 7; ++tab) {
        heading->ChangeTabEnabled(tab, true);
    }
    for (int tab = 0; tab < 7; ++tab) {
        const int left = 6 + 106 * tab;
        const QStringList hit(u"TabSelect %1 %2"_s.arg(heading->TabStrip().TabNames[tab]).arg(tab));
        Click(left - 1, 60);
        EXPECT_EQ(TakeEvents(), QStringList()) << tab;
        Click(left, 60);
        EXPECT_EQ(TakeEvents(), hit);
        Click(left + 100, 60);
        EXPECT_EQ(TakeEvents(), hit);
        Click(left + 101, 60);
        EXPECT_EQ(TakeEvents(), QStringList()) << tab;
    }
}

TEST_F(HeadingTest, TheUpperEdgeItselfIsNotHit) {
    ShowWizard();
    heading->ChangeTabEnabled(0, true);
    Click(50, 49);
    EXPECT_EQ(TakeEvents(), QStringList());
    Click(50, 50);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Introduction 0"_s));
    Click(50, 72);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Introduction 0"_s));
}

TEST_F(HeadingTest, EdgesAreTheSameTwipsOnAnotherDisplay) {
    const AnotherDensity density(12);
    ShowWizard();
    heading->ChangeTabEnabled(0, true);
    const QStringList hit(u"TabSelect Introduction 0"_s);
    // Left 90 and right 1590 twips are pixels 7.5 and 132.5; the upper edge is 1092 - 360 twips, pixel 61.
    Click(7, 70);
    Click(133, 70);
    Click(60, 61);
    EXPECT_EQ(TakeEvents(), QStringList());
    Click(8, 70);
    EXPECT_EQ(TakeEvents(), hit);
    Click(132, 70);
    EXPECT_EQ(TakeEvents(), hit);
    Click(60, 62);
    EXPECT_EQ(TakeEvents(), hit);
}

TEST_F(HeadingTest, AnyButtonClicks) {
    ShowWizard();
    heading->ChangeTabEnabled(0, true);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton}) {
        Click(50, 60, button);
        EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Introduction 0"_s)) << button;
    }
}

TEST_F(HeadingTest, TheReleaseCountsAndThePlaceWhereItHappens) {
    ShowWizard();
    heading->ChangeTabEnabled(0, true);
    heading->ChangeTabEnabled(1, true);
    Press(50, 60);
    EXPECT_EQ(TakeEvents(), QStringList());
    MoveTo(150, 60);
    Release(150, 60);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Bank Accounts 1"_s));
    Press(50, 60);
    MoveTo(50, 20);
    Release(50, 20);
    EXPECT_EQ(TakeEvents(), QStringList());
    Press(50, 20);
    MoveTo(50, 60);
    Release(50, 60);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Introduction 0"_s));
}

TEST_F(HeadingTest, AHeadingWithoutTabsCanBeClicked) {
    Show({.Caption = u"Title"_s});
    Click(50, 60);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, TheTitleIsNotInTheWayOfTabsInALowHeading) {
    Show(Wizard(), WizardWidth, 600);
    heading->ChangeTabEnabled(3, true);
    EXPECT_TRUE(CaptionPlace().contains(400, 18));
    Click(400, 18);
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Owners 3"_s));
}

TEST_F(HeadingTest, TheCloseImageRaisesItsEvent) {
    ShowWizard();
    EXPECT_EQ(CloseImage()->geometry(), QRect(768, 4, 21, 21));
    for (const QPoint& place : {QPoint(768, 4), QPoint(788, 24), QPoint(778, 14)}) {
        Click(place.x(), place.y());
        EXPECT_EQ(TakeEvents(), QStringList(u"CloseButtonClick"_s));
    }
    Click(767, 14);
    Click(789, 14);
    Click(778, 3);
    Click(778, 25);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, ADragOffTheCloseImageClosesNothing) {
    ShowWizard();
    Press(778, 14);
    MoveTo(700, 14);
    Release(700, 14);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, AHiddenCloseImageCantBeClicked) {
    Show({.Caption = u"Title"_s, .Tabs = wizardTabs, .CloseButton = false});
    EXPECT_FALSE(CloseImage()->isVisible());
    Click(778, 14);
    EXPECT_EQ(TakeEvents(), QStringList());
    heading->SetCloseButton(true);
    EXPECT_TRUE(heading->CloseButton());
    Click(778, 14);
    EXPECT_EQ(TakeEvents(), QStringList(u"CloseButtonClick"_s));
    heading->SetCloseButton(false);
    Click(778, 14);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingTest, TheTitleIsCentredInWhatTheTabsLeave) {
    ShowWizard();
    EXPECT_EQ(CaptionPlace(), QRect(8, 12, 793, 25));
    heading->resize(600, 101);
    EXPECT_EQ(CaptionPlace(), QRect(8, 26, 600, 25));
    EXPECT_EQ(CloseImage()->geometry(), QRect(575, 4, 21, 21));
}

TEST_F(HeadingTest, WithoutTabsTheTitleIsCentredOnTheFullHeight) {
    Show({.Caption = u"Title"_s});
    EXPECT_EQ(CaptionPlace(), QRect(8, 24, 793, 25));
}

TEST_F(HeadingTest, TheTitleMovesWithTheNextSizeAndNotWithNewTabs) {
    Show({.Caption = u"Title"_s});
    heading->SetTabs(wizardTabs);
    EXPECT_EQ(CaptionPlace().top(), 24);
    heading->resize(792, 73);
    EXPECT_EQ(CaptionPlace().top(), 12);
}

TEST_F(HeadingTest, ANewOnesEntryCountsAsTabsForTheTitle) {
    heading = std::make_unique<ctlPageHeading>();
    heading->resize(793, 73);
    ShowAndActivate(*heading);
    EXPECT_EQ(CaptionPlace().top(), 12);
}

TEST_F(HeadingTest, TakesNoFocus) {
    ShowWizard();
    EXPECT_EQ(heading->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(CloseImage()->focusPolicy(), Qt::NoFocus);
    Click(50, 60);
    EXPECT_FALSE(heading->hasFocus());
}

TEST_F(HeadingTest, TellsTheDepthOfACanvas) {
    RecordingCanvas canvas(1, 1);
    canvas.bitsPerPixel = 8;
    canvas.colourPlanes = 3;
    EXPECT_EQ(ctlPageHeading::GetColourCount(&canvas), 24);
}

}  // namespace
