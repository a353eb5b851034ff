#include "controls/heading/HeadingTabs.h"
#include "platform/Failure.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

HeadingTabs Parsed(const QString& text) {
    HeadingTabs tabs;
    tabs.ParseTabs(text);
    return tabs;
}

const QString wizardTabs = u"Introduction|Bank Accounts|User Type|Owners|Properties|Tenants|Finished|"_s;

int FailureNumberOfPlace(const HeadingTabs& tabs, int place) {
    try {
        tabs.CheckPlace(place);
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(HeadingTabs, StartWithOneEmptyEntryThatIsNoTab) {
    const HeadingTabs tabs;
    EXPECT_EQ(tabs.TabNames, QStringList(QString()));
    EXPECT_EQ(tabs.TabEnabled, QList<bool>{false});
    EXPECT_EQ(tabs.Count(), 0);
    EXPECT_EQ(tabs.CurrentTabIndex(), 0);
}

TEST(HeadingTabs, TheBarBehindTheLastTabGivesAnEmptyEntryThatIsNoTab) {
    const HeadingTabs tabs = Parsed(wizardTabs);
    EXPECT_EQ(tabs.TabNames.size(), 8);
    EXPECT_EQ(tabs.TabEnabled, QList<bool>(8, false));
    EXPECT_EQ(tabs.Count(), 7);
    EXPECT_EQ(tabs.TabNames[6], u"Finished"_s);
    EXPECT_EQ(tabs.TabNames[7], QString());
}

TEST(HeadingTabs, WithoutTheBarTheLastTextIsNoTab) {
    const HeadingTabs tabs = Parsed(u"A|B"_s);
    EXPECT_EQ(tabs.TabNames, (QStringList{u"A"_s, u"B"_s}));
    EXPECT_EQ(tabs.Count(), 1);
}

TEST(HeadingTabs, AnEmptyTextGivesNoEntryAtAll) {
    const HeadingTabs tabs = Parsed(QString());
    EXPECT_TRUE(tabs.TabNames.isEmpty());
    EXPECT_TRUE(tabs.TabEnabled.isEmpty());
    EXPECT_EQ(tabs.Count(), 0);
    EXPECT_EQ(tabs.CurrentTabIndex(), -1);
}

TEST(HeadingTabs, EmptyTextsBetweenBarsAreTabs) {
    const HeadingTabs tabs = Parsed(u"||"_s);
    EXPECT_EQ(tabs.Count(), 2);
    EXPECT_EQ(tabs.CurrentTabIndex(), 0);
}

TEST(HeadingTabs, TheFirstBecomesCurrentIfNoneIs) {
    EXPECT_EQ(Parsed(wizardTabs).CurrentTab, u"Introduction"_s);
    EXPECT_EQ(Parsed(wizardTabs).CurrentTabIndex(), 0);
    EXPECT_EQ(Parsed(QString()).CurrentTab, QString());
}

TEST(HeadingTabs, TheCurrentTextStaysEvenIfNoTabHasIt) {
    HeadingTabs tabs = Parsed(u"A|B|"_s);
    tabs.CurrentTab = u"B"_s;
    tabs.ParseTabs(u"B|C|"_s);
    EXPECT_EQ(tabs.CurrentTab, u"B"_s);
    EXPECT_EQ(tabs.CurrentTabIndex(), 0);
    tabs.ParseTabs(u"C|D|"_s);
    EXPECT_EQ(tabs.CurrentTab, u"B"_s);
    EXPECT_EQ(tabs.CurrentTabIndex(), -1);
    EXPECT_FALSE(tabs.IsCurrent(0));
    EXPECT_FALSE(tabs.IsCurrent(1));
}

TEST(HeadingTabs, AnEmptyCurrentTextIsThatOfTheEntryBehindTheLastTab) {
    HeadingTabs tabs = Parsed(u"A|B|"_s);
    tabs.CurrentTab = QString();
    EXPECT_EQ(tabs.CurrentTabIndex(), 2);
}

TEST(HeadingTabs, OfTwoWithOneTextTheLowerIsTheCurrentIndexAndBothLookCurrent) {
    HeadingTabs tabs = Parsed(u"A|B|B|"_s);
    tabs.CurrentTab = u"B"_s;
    EXPECT_EQ(tabs.CurrentTabIndex(), 1);
    EXPECT_FALSE(tabs.IsCurrent(0));
    EXPECT_TRUE(tabs.IsCurrent(1));
    EXPECT_TRUE(tabs.IsCurrent(2));
}

TEST(HeadingTabs, TextsAreComparedExactly) {
    HeadingTabs tabs = Parsed(u"owners|Owners|"_s);
    tabs.CurrentTab = u"Owners"_s;
    EXPECT_EQ(tabs.CurrentTabIndex(), 1);
    EXPECT_FALSE(tabs.IsCurrent(0));
}

TEST(HeadingTabs, WhatCanBeClickedStaysWithItsPlace) {
    HeadingTabs tabs = Parsed(u"A|B|"_s);
    tabs.TabEnabled[1] = true;
    tabs.ParseTabs(u"C|D|E|"_s);
    EXPECT_EQ(tabs.TabEnabled, (QList<bool>{false, true, false, false}));
    tabs.ParseTabs(u"F|"_s);
    EXPECT_EQ(tabs.TabEnabled, (QList<bool>{false, true}));
    tabs.ParseTabs(u"F|G|"_s);
    EXPECT_EQ(tabs.TabEnabled, (QList<bool>{false, true, false}));
}

TEST(HeadingTabs, OnlyEntriesArePlaces) {
    const HeadingTabs tabs = Parsed(u"A|B|"_s);
    EXPECT_EQ(FailureNumberOfPlace(tabs, -1), 9);
    EXPECT_EQ(FailureNumberOfPlace(tabs, 0), 0);
    EXPECT_EQ(FailureNumberOfPlace(tabs, 2), 0);
    EXPECT_EQ(FailureNumberOfPlace(tabs, 3), 9);
    EXPECT_EQ(FailureNumberOfPlace(Parsed(QString()), 0), 9);
}

TEST(HeadingTabs, StandNinetyTwipsApartAndAreFifteenHundredWide) {
    const int lefts[] = {90, 1680, 3270, 4860, 6450, 8040, 9630};
    for (int tab = 0; tab < 7; ++tab) {
        EXPECT_EQ(HeadingTabs::Left(tab), lefts[tab]);
        EXPECT_EQ(HeadingTabs::Right(tab), lefts[tab] + 1500);
    }
}

TEST(HeadingTabs, BeginThreeHundredAndSixtyTwipsAboveTheLowerEdge) {
    EXPECT_EQ(HeadingTabs::Top(1095), 735);
    EXPECT_EQ(HeadingTabs::Top(300), -60);
    EXPECT_EQ(HeadingTabs::Top(33127), 32767);
    EXPECT_EQ(HeadingTabs::Top(50000), 32767);
}

TEST(HeadingTabs, BothEdgesHitAndTheGapsDont) {
    const HeadingTabs tabs = Parsed(wizardTabs);
    for (int tab = 0; tab < 7; ++tab) {
        EXPECT_EQ(tabs.TabAt(HeadingTabs::Left(tab) - 1), std::nullopt) << tab;
        EXPECT_EQ(tabs.TabAt(HeadingTabs::Left(tab)), tab);
        EXPECT_EQ(tabs.TabAt(HeadingTabs::Right(tab)), tab);
        EXPECT_EQ(tabs.TabAt(HeadingTabs::Right(tab) + 1), std::nullopt) << tab;
    }
    EXPECT_EQ(tabs.TabAt(-1), std::nullopt);
    EXPECT_EQ(tabs.TabAt(0), std::nullopt);
    EXPECT_EQ(tabs.TabAt(11895), std::nullopt);
}

TEST(HeadingTabs, TheEntryBehindTheLastTabIsNeverHit) {
    const HeadingTabs tabs = Parsed(u"A|"_s);
    EXPECT_EQ(tabs.TabAt(HeadingTabs::Left(1) + 10), std::nullopt);
}

}  // namespace
