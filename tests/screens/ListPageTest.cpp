#include "controls/akGrid.h"
#include "controls/base/Display.h"
#include "controls/ctlButton.h"
#include "controls/ctlTextBox.h"
#include "screens/ListPages.h"
#include "support/OnScreen.h"
#include "support/RecordsTest.h"

#include <QTest>
#include <QTimer>

namespace {

using namespace screens;
using records::TheCollections;

/// The four list pages, worked as their user does.
template <typename Page>
class ListPageTest : public RecordsTest {
protected:
    ListPageTest() {
        page.Initialise();
        ShowAndActivate(page);
    }

    controls::akGrid& Grid() { return *page.template findChild<controls::akGrid*>(); }

    void Press(const char* button) {
        page.template findChild<controls::ctlButton*>(QLatin1String(button))->DoClick();
    }
    void Add() { Press("ctlButton1"); }
    void Edit() { Press("ctlButton2"); }
    void Remove() { Press("ctlButton3"); }

    /// Prepares what to do in the next dialog that opens.
    template <typename Work>
    static void InDialog(Work work) {
        QTimer::singleShot(0, [work] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            work(*dialog);
        });
    }

    static void SetText(const QWidget& dialog, const char* box, const QString& text) {
        dialog.findChild<controls::ctlTextBox*>(QLatin1String(box))->SetText(text);
    }
    static QString TextIn(const QWidget& dialog, const char* box) {
        return dialog.findChild<controls::ctlTextBox*>(QLatin1String(box))->Text();
    }
    static void PressIn(const QWidget& dialog, const char* button) {
        dialog.findChild<controls::ctlButton*>(QLatin1String(button))->DoClick();
    }

    /// The rows, the cells separated by "|".
    QStringList Rows() {
        QStringList rows;
        for (int row = 1; row <= Grid().Rows(); ++row) {
            QStringList cells;
            for (int column = 1; column <= Grid().Cols(); ++column) {
                cells += Grid().TextMatrix(row, column);
            }
            rows += cells.join(QLatin1Char('|'));
        }
        return rows;
    }

    void Select(int row) {
        int column = 1;
        Grid().SetCurrentCell(row, column, true);
        ASSERT_EQ(Grid().AbsoluteRow(), row);
    }

    Page page{nullptr, records::TheCollections()};
};

using AccountsPageTest = ListPageTest<ctlPageAccounts>;
using OwnerPageTest = ListPageTest<ctlPageOwner>;
using PropertyPageTest = ListPageTest<ctlPageProperty>;
using TenantPageTest = ListPageTest<ctlPageTenant>;

TEST_F(AccountsPageTest, ShowsTheCollectionInItsOwnOrderHoweverOftenItIsFilled) {
    AddAccount(u"Merlin"_s);
    AddAccount(u"Kestrel"_s);
    page.Initialise();
    page.Initialise();
    EXPECT_EQ(Rows(), (QStringList{u"Merlin"_s, u"Kestrel"_s}));
    EXPECT_EQ(Grid().ColumnHeading(1), u"Bank Account Name"_s);
    EXPECT_EQ(Grid().ColumnWidths(), u"8000|"_s);
}

TEST_F(AccountsPageTest, AddShowsWhatTheDialogMade) {
    InDialog([](const QWidget& dialog) {
        SetText(dialog, "txtName", u"Kestrel"_s);
        PressIn(dialog, "cmdSave");
    });
    Add();
    EXPECT_EQ(TheCollections().bankAccounts.Count(), 1);
    EXPECT_EQ(Rows(), QStringList{u"Kestrel"_s});
    InDialog([](const QWidget& dialog) {
        SetText(dialog, "txtName", u"Merlin"_s);
        PressIn(dialog, "cmdCancel");
    });
    Add();
    EXPECT_EQ(Rows(), QStringList{u"Kestrel"_s});
}

TEST_F(AccountsPageTest, WithoutACurrentRowEditAndRemoveDoNothing) {
    AddAccount(u"Kestrel"_s);
    page.Initialise();
    ASSERT_EQ(Grid().AbsoluteRow(), 0);
    Edit();
    Remove();
    EXPECT_TRUE(boxes_.requests.empty());
    EXPECT_EQ(TheCollections().bankAccounts.Count(), 1);
}

TEST_F(AccountsPageTest, EditChangesTheFirstRecordOfTheExactName) {
    AddAccount(u"kestrel"_s);
    const auto account = AddAccount(u"Kestrel"_s);
    const auto second = AddAccount(u"Kestrel"_s);
    page.Initialise();
    Select(3);
    InDialog([](const QWidget& dialog) {
        EXPECT_EQ(TextIn(dialog, "txtName"), u"Kestrel"_s);
        SetText(dialog, "txtName", u"Merlin"_s);
        PressIn(dialog, "cmdSave");
    });
    Edit();
    EXPECT_TRUE(boxes_.requests.empty()) << boxes_.requests.front().text.toStdString();
    EXPECT_EQ(account->BankAccountName, u"Merlin"_s);
    EXPECT_EQ(second->BankAccountName, u"Kestrel"_s);
    EXPECT_EQ(Rows(), (QStringList{u"kestrel"_s, u"Merlin"_s, u"Kestrel"_s}));
}

TEST_F(AccountsPageTest, WhatAnEditOfNobodyMakesIsNotPickedUp) {
    const auto account = AddAccount(u"Kestrel"_s);
    page.Initialise();
    Select(1);
    account->BankAccountName = u"Renamed behind the page's back"_s;
    InDialog([](const QWidget& dialog) {
        EXPECT_EQ(TextIn(dialog, "txtName"), QString()) << "the dialog adds";
        SetText(dialog, "txtName", u"Merlin"_s);
        PressIn(dialog, "cmdSave");
    });
    Edit();
    EXPECT_EQ(Rows(), QStringList{u"Renamed behind the page's back"_s});
}

TEST_F(AccountsPageTest, RemoveAsksAndTakesTheFirstOfTheName) {
    AddAccount(u"Kestrel"_s);
    const auto second = AddAccount(u"Kestrel"_s);
    page.Initialise();
    Select(2);
    Remove();
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].text, u"Delete Kestrel?"_s);
    EXPECT_EQ(boxes_.requests[0].buttons, platform::Buttons::YesNo);
    EXPECT_EQ(TheCollections().bankAccounts.Count(), 2);
    boxes_.answers = {platform::Answer::Yes};
    Remove();
    ASSERT_EQ(TheCollections().bankAccounts.Count(), 1);
    EXPECT_EQ(TheCollections().bankAccounts.Item(1), second);
    EXPECT_EQ(Rows(), QStringList{u"Kestrel"_s});
}

TEST_F(AccountsPageTest, WithoutTheOnlyAccountThePageIsNotLeft) {
    AddAccount(u"Kestrel"_s);
    page.Initialise();
    EXPECT_TRUE(page.IsValid());
    Select(1);
    boxes_.answers = {platform::Answer::Yes};
    Remove();
    EXPECT_EQ(Rows(), QStringList());
    boxes_.requests.clear();
    EXPECT_FALSE(page.IsValid());
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].text, u"You need to have at least one bank account"_s);
}

TEST_F(OwnerPageTest, AsksAboutNoOwners) {
    EXPECT_FALSE(page.IsValid());
    boxes_.answers = {platform::Answer::Yes};
    EXPECT_TRUE(page.IsValid());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[0].text,
              u"You have not entered any owners.  Are you sure you want to continue with no owners?"_s);
    EXPECT_EQ(boxes_.requests[0].buttons, platform::Buttons::YesNo);
    AddOwner(u"A. Smith"_s);
    EXPECT_TRUE(page.IsValid());
    EXPECT_EQ(boxes_.requests.size(), 2U);
}

TEST_F(OwnerPageTest, RemovingAnOwnerTouchesNoProperty) {
    AddOwner(u"A. Smith"_s);
    const auto property = AddProperty(u"12 Main Road"_s, {}, u"A. Smith"_s);
    page.Initialise();
    Select(1);
    boxes_.answers = {platform::Answer::Yes};
    Remove();
    EXPECT_EQ(TheCollections().Owners.Count(), 0);
    EXPECT_EQ(property->Owner, u"A. Smith"_s);
}

TEST_F(PropertyPageTest, ShowsABuildingWithItsUnitsOnceTheDialogHasAddedThem) {
    AddOwner(u"A. Smith"_s);
    EXPECT_FALSE(page.IsValid());
    EXPECT_EQ(boxes_.requests.at(0).text, u"You have not entered any properties"_s);
    boxes_.requests.clear();
    InDialog([](const QWidget& dialog) {
        SetText(dialog, "txtAddress1", u"12 Main Road"_s);
        SetText(dialog, "txtUnitNumbers", u"1,2"_s);
        PressIn(dialog, "cmdSave");
    });
    Add();
    EXPECT_EQ(Rows(), (QStringList{u"12 Main Road|A. Smith"_s, u"1/12 Main Road|A. Smith"_s,
                                   u"2/12 Main Road|A. Smith"_s}));
    EXPECT_TRUE(page.IsValid());
    EXPECT_EQ(Grid().ColumnWidths(), u"4000|4000|"_s);
    EXPECT_EQ(Grid().ColumnHeading(2), u"Owner"_s);
}

TEST_F(TenantPageTest, ShowsTheTenantsWithTheirProperties) {
    EXPECT_FALSE(page.IsValid());
    EXPECT_EQ(boxes_.requests.at(0).text, u"You have not entered any tenants"_s);
    AddTenant(u"T. Enant"_s, u"12 Main Road"_s);
    page.Initialise();
    EXPECT_EQ(Rows(), QStringList{u"T. Enant|12 Main Road"_s});
    EXPECT_EQ(Grid().ColumnHeading(1), u"Tenant"_s);
    EXPECT_EQ(Grid().ColumnHeading(2), u"Property"_s);
    EXPECT_TRUE(page.IsValid());
}

template <typename Page>
QString LabelOf() {
    const Page page(nullptr, records::TheCollections());
    return page.template findChild<QLabel*>(QStringLiteral("Label1"))->text();
}

// So that long names have room, and the white page ends where the list begins.
TEST_F(TenantPageTest, TheListIsAsWideAsThePageAndItsColumnsShareThat) {
    page.resize(766, 433);
    EXPECT_EQ(Grid().width(), 766);
    EXPECT_EQ(Grid().ColWidth(1), Grid().ColWidth(2));
    constexpr int StripAndScrollBar = 41;
    EXPECT_NEAR(controls::ToPixels(Grid().ColWidth(1) + Grid().ColWidth(2)), 766 - StripAndScrollBar, 3);
    EXPECT_EQ(PixelAt(Grid(), 300, Grid().height() - 10), QColor(238, 243, 248)) << "below a short list";
}

TEST_F(OwnerPageTest, TheOnlyColumnHasAllTheWidth) {
    constexpr int StripAndScrollBar = 41;
    EXPECT_NEAR(controls::ToPixels(Grid().ColWidth(1)), Grid().width() - StripAndScrollBar, 3);
}

TEST(ListPages, SayWhatToEnter) {
    EXPECT_EQ(LabelOf<ctlPageAccounts>(),
              u"Enter your list of bank accounts used for properties or your business."_s);
    EXPECT_EQ(LabelOf<ctlPageOwner>(),
              u"Enter your list of people/companies who own the properties you are managing."_s);
    EXPECT_EQ(LabelOf<ctlPageProperty>(), u"Enter the list of properties you manage."_s);
    EXPECT_EQ(LabelOf<ctlPageTenant>(), u"Enter the list of tenants you manage."_s);
}

}  // namespace
