#include "WizardForm.h"
#include "records/Collections.h"
#include "records/ImportSettings.h"

#include <QRadioButton>

namespace {

class PageFlowTest : public WizardForm {
protected:
    /// Help and Cancel are always enabled.
    void ExpectButtons(bool back, bool next, bool finish) const {
        EXPECT_EQ(Find<controls::ctlButton>("cmdBack").Enabled(), back);
        EXPECT_EQ(Find<controls::ctlButton>("cmdNext").Enabled(), next);
        EXPECT_EQ(Find<controls::ctlButton>("cmdFinish").Enabled(), finish);
    }

    QList<int> EnabledTabs() const {
        QList<int> enabled;
        for (qint16 tab = 0; tab < 7; ++tab) {
            if (Heading().TabStrip().TabEnabled[tab]) {
                enabled += tab;
            }
        }
        return enabled;
    }

    static void AddOneOfEach() {
        auto property = std::make_shared<records::Property>();
        property->Address1 = QStringLiteral("1 Short Street");
        records::TheCollections().Properties.Add(property);
        auto tenant = std::make_shared<records::Tenant>();
        tenant->Name = QStringLiteral("T. Enant");
        records::TheCollections().Tenants.Add(tenant);
    }

    void GoTo(int tab) {
        while (Heading().CurrentTabIndex() < tab) {
            if (Heading().CurrentTabIndex() == 2) {
                Find<QRadioButton>("optLandlord").click();
            }
            Press("cmdNext");
            ASSERT_TRUE(boxes.requests.empty()) << boxes.requests.front().text.toStdString();
        }
    }
};

TEST_F(PageFlowTest, StartsWithTheFirstTabAlone) {
    EXPECT_EQ(EnabledTabs(), QList<int>{0});
    EXPECT_EQ(PagesOnShow(), QStringList{QStringLiteral("ctlPageIntro1")});
    ExpectButtons(false, true, false);
}

TEST_F(PageFlowTest, EachPageHasItsTabAndItsButtons) {
    AddOneOfEach();
    const QStringList pages{QStringLiteral("ctlPageIntro1"),    QStringLiteral("ctlPageAccounts1"),
                            QStringLiteral("ctlPageType1"),     QStringLiteral("ctlSingleOwner1"),
                            QStringLiteral("ctlPageProperty1"), QStringLiteral("ctlPageTenant1"),
                            QStringLiteral("ctlFinish1")};
    QList<int> reached;
    for (int tab = 0; tab < 7; ++tab) {
        GoTo(tab);
        reached += tab;
        EXPECT_EQ(PagesOnShow(), QStringList{pages[tab]});
        EXPECT_EQ(EnabledTabs(), reached);
        ExpectButtons(tab > 0, tab < 6, tab == 6);
    }
}

// Once as the tab changes, and once more by the button; the second time finds what the first has left.
TEST_F(PageFlowTest, AButtonFillsThePageTwiceAndATabOnce) {
    AddOneOfEach();
    EXPECT_EQ(filled, (QHash<QString, int>{{QStringLiteral("ctlPageIntro1"), 1}}));
    const auto fills = [this](const auto& move) {
        filled.clear();
        move();
        return filled;
    };
    const QStringList pages{QStringLiteral("ctlPageIntro1"),    QStringLiteral("ctlPageAccounts1"),
                            QStringLiteral("ctlPageType1"),     QStringLiteral("ctlSingleOwner1"),
                            QStringLiteral("ctlPageProperty1"), QStringLiteral("ctlPageTenant1"),
                            QStringLiteral("ctlFinish1")};
    for (int tab = 1; tab < pages.size(); ++tab) {
        EXPECT_EQ(fills([&] { GoTo(tab); }), (QHash<QString, int>{{pages[tab], 2}}));
    }
    for (int tab = 5; tab >= 0; --tab) {
        EXPECT_EQ(fills([&] { Press("cmdBack"); }), (QHash<QString, int>{{pages[tab], 2}}));
    }
    EXPECT_EQ(fills([&] { Heading().ChangeTab(4); }), (QHash<QString, int>{{pages[4], 1}}));
}

TEST_F(PageFlowTest, APageThatMayNotBeLeftIsNotFilledAnew) {
    GoTo(4);
    filled.clear();
    Press("cmdNext");
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_TRUE(filled.isEmpty());
}

TEST_F(PageFlowTest, BackAsksNothingAndKeepsTabsEnabled) {
    AddOneOfEach();
    GoTo(6);
    for (int tab = 5; tab >= 0; --tab) {
        Press("cmdBack");
        EXPECT_EQ(Heading().CurrentTabIndex(), tab);
        ExpectButtons(tab > 0, true, false);
    }
    EXPECT_EQ(EnabledTabs(), (QList<int>{0, 1, 2, 3, 4, 5, 6}));
    EXPECT_TRUE(boxes.requests.empty());
}

TEST_F(PageFlowTest, AClickOnATabPassesNoCheck) {
    AddOneOfEach();
    GoTo(4);
    Heading().ChangeTab(1);
    while (records::TheCollections().bankAccounts.Count() > 0) {
        records::TheCollections().bankAccounts.Remove(1);
    }
    Heading().ChangeTab(4);
    EXPECT_TRUE(boxes.requests.empty());
    EXPECT_EQ(PagesOnShow(), QStringList{QStringLiteral("ctlPageProperty1")});
    Heading().ChangeTab(1);
    Press("cmdNext");
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(boxes.requests.front().text, QStringLiteral("You need to have at least one bank account"));
    EXPECT_EQ(Heading().CurrentTabIndex(), 1);
}

TEST_F(PageFlowTest, TheChoiceOfTypeCountsWithNextAndNotBefore) {
    GoTo(3);
    EXPECT_EQ(PagesOnShow(), QStringList{QStringLiteral("ctlSingleOwner1")});
    Press("cmdBack");
    Find<QRadioButton>("optManager").click();
    Heading().ChangeTab(3);
    EXPECT_EQ(PagesOnShow(), QStringList{QStringLiteral("ctlSingleOwner1")});
    EXPECT_TRUE(records::CurrentSettings().IsLandlord);
    Heading().ChangeTab(2);
    Press("cmdNext");
    EXPECT_EQ(PagesOnShow(), QStringList{QStringLiteral("ctlPageOwner1")});
    EXPECT_FALSE(records::CurrentSettings().IsLandlord);
}

TEST_F(PageFlowTest, ALandlordHasOneOwnerHoweverOftenHePasses) {
    GoTo(4);
    Press("cmdBack");
    Press("cmdNext");
    EXPECT_EQ(records::TheCollections().Owners.Count(), 1);
    EXPECT_EQ(records::TheCollections().Owners.Item(1)->OwnersName, QString());
}

}  // namespace
