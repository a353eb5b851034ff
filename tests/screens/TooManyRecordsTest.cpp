#include "controls/akGrid.h"
#include "controls/ctlButton.h"
#include "platform/Failure.h"
#include "screens/ListPages.h"
#include "support/OnScreen.h"
#include "support/RecordsTest.h"

#include <functional>

namespace {

using namespace screens;
using records::TheCollections;

/// Places are counted in 16 bits, so a walk over more records than that ends before it begins.
class TooManyRecordsTest : public RecordsTest {
protected:
    static constexpr int One = 1;
    static constexpr int OneTooMany = 32768;

    template <typename Collection>
    static void Fill(Collection& collection, int count) {
        // One record serves for all of them: what is in it isn't looked at.
        const auto record = std::make_shared<typename Collection::Record>();
        while (collection.Count() < count) {
            collection.Add(record);
        }
    }
    static void FillAll(int count) {
        Fill(TheCollections().bankAccounts, count);
        Fill(TheCollections().Owners, count);
        Fill(TheCollections().Properties, count);
        Fill(TheCollections().Tenants, count);
    }

    static int NumberOfFailure(const std::function<void()>& work) {
        try {
            work();
        } catch (const platform::Failure& failure) {
            return failure.Number();
        }
        return 0;
    }
    static constexpr int Overflow = 6;
};

TEST_F(TooManyRecordsTest, EachListPageRaisesTheOverflowWhenItIsRefilled) {
    const auto refill = [](auto page) { return [page] { page->Initialise(); }; };
    const auto refills = {
        std::function<void()>(refill(std::make_shared<ctlPageAccounts>(nullptr, TheCollections()))),
        std::function<void()>(refill(std::make_shared<ctlPageOwner>(nullptr, TheCollections()))),
        std::function<void()>(refill(std::make_shared<ctlPageProperty>(nullptr, TheCollections()))),
        std::function<void()>(refill(std::make_shared<ctlPageTenant>(nullptr, TheCollections())))};
    FillAll(One);
    for (const auto& each : refills) {
        EXPECT_EQ(NumberOfFailure(each), 0);
    }
    FillAll(OneTooMany);
    for (const auto& each : refills) {
        EXPECT_EQ(NumberOfFailure(each), Overflow);
    }
}

TEST_F(TooManyRecordsTest, EachListOfADialogRaisesItAsWell) {
    const auto openProperty = [] { frmProperty(nullptr, TheCollections()).show(); };
    const auto openTenant = [] { frmTenant(nullptr, TheCollections()).show(); };
    FillAll(One);
    EXPECT_EQ(NumberOfFailure(openProperty), 0);
    EXPECT_EQ(NumberOfFailure(openTenant), 0);
    Fill(TheCollections().Owners, OneTooMany);
    EXPECT_EQ(NumberOfFailure(openProperty), Overflow);
    TheCollections().Owners = {};
    Fill(TheCollections().bankAccounts, OneTooMany);
    EXPECT_EQ(NumberOfFailure(openProperty), Overflow);
    Fill(TheCollections().Properties, OneTooMany);
    EXPECT_EQ(NumberOfFailure(openTenant), Overflow);
}

TEST_F(TooManyRecordsTest, SoDoesTheSearchForTheRecordToRemove) {
    AddOwner(u"Ann Owner"_s);
    ctlPageOwner page(nullptr, TheCollections());
    page.Initialise();
    ShowAndActivate(page);
    int row = 1;
    int column = 1;
    page.findChild<controls::akGrid*>()->SetCurrentCell(row, column, true);
    Fill(TheCollections().Owners, OneTooMany);
    boxes_.answers = {platform::Answer::Yes};
    auto& remove = *page.findChild<controls::ctlButton*>(QStringLiteral("ctlButton3"));
    EXPECT_EQ(NumberOfFailure([&] { remove.DoClick(); }), Overflow);
    EXPECT_EQ(TheCollections().Owners.Count(), OneTooMany);
}

}  // namespace
