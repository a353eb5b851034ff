#include "JetTest.h"
#include "engine/jet/DataPage.h"

#include <QByteArray>

#include <rapidcheck/gtest.h>

#include <vector>

namespace engine::jet {
namespace {

constexpr PageNumber Number = 17;
constexpr std::uint32_t Owner = 5;

class JetDataPage : public ::testing::Test {
protected:
    Page page{};
    ChangeableDataPage rows = ChangeableDataPage::Begin(page, Number, Owner);

    int Add(const QByteArray& row) { return rows.Add(BytesOf(row, Number), RowState::Here); }
    QByteArray RowOf(int row) const { return rows.Row(row).Copy(); }
    DataPage Again() const { return {page, Number, Owner}; }
};

TEST_F(JetDataPage, RowsGrowFromTheEndAndTheHeadCountsThem) {
    EXPECT_EQ(Add("one"), 0);
    EXPECT_EQ(Add("three"), 1);
    const Bytes bytes(page, Number);
    EXPECT_EQ(bytes.U16(0), 0x0101);
    EXPECT_EQ(bytes.U32(4), Owner);
    EXPECT_EQ(bytes.U16(12), 2);
    EXPECT_EQ(bytes.U16(14), 4096 - 3);
    EXPECT_EQ(bytes.U16(16), 4096 - 8);
    EXPECT_EQ(bytes.U16(2), 4096 - 8 - 14 - 4);
    EXPECT_EQ(std::string(page.end() - 8, page.end()), "threeone");
}

TEST_F(JetDataPage, ADeletedRowKeepsItsNumberAndNoBytes) {
    Add("one");
    Add("two");
    Add("three");
    rows.Delete(1);
    EXPECT_EQ(RowOf(0), "one");
    EXPECT_EQ(RowOf(1), "");
    EXPECT_EQ(RowOf(2), "three");
    EXPECT_EQ(rows.State(1), RowState::Deleted);
    EXPECT_EQ(Bytes(page, Number).U16(16), 0xC000 | (4096 - 3));
    EXPECT_EQ(Bytes(page, Number).U16(2), 4096 - 8 - 14 - 6);
    EXPECT_EQ(Add("four"), 3);
}

TEST_F(JetDataPage, ARowGrowsWhereItIsAndTheOthersMakeRoom) {
    Add("one");
    Add("two");
    Add("three");
    rows.Replace(1, BytesOf("twenty-two", Number), RowState::Here);
    EXPECT_EQ(RowOf(0), "one");
    EXPECT_EQ(RowOf(1), "twenty-two");
    EXPECT_EQ(RowOf(2), "three");
    rows.Replace(0, BytesOf("", Number), RowState::Here);
    EXPECT_EQ(RowOf(1), "twenty-two");
    EXPECT_EQ(RowOf(2), "three");
    EXPECT_EQ(rows.FreeBytes(), 4096U - 15 - 14 - 6);
}

TEST_F(JetDataPage, APageTakesAsManyBytesAsItHas) {
    EXPECT_TRUE(rows.HasRoomFor(MostBytesOfPage));
    EXPECT_FALSE(rows.HasRoomFor(MostBytesOfPage + 1));
    Add(QByteArray(MostBytesOfPage, 'x'));
    EXPECT_EQ(rows.FreeBytes(), 0U);
    EXPECT_FALSE(rows.HasRoomFor(0));
    EXPECT_TRUE(FindsDamage(Number, [&] { Add(""); }));
}

TEST_F(JetDataPage, APageTakes255Rows) {
    for (int row = 0; row < 255; ++row) {
        ASSERT_TRUE(rows.HasRoomFor(3));
        Add("row");
    }
    EXPECT_FALSE(rows.HasRoomFor(3));
}

TEST_F(JetDataPage, APageOfAnotherKindOrOwnerIsDamage) {
    EXPECT_TRUE(FindsDamage(Number, [&] { DataPage(page, Number, Owner + 1); }));
    page[0] = 4;
    EXPECT_TRUE(FindsDamage(Number, [&] { Again(); }));
}

TEST_F(JetDataPage, MoreRowsThanNumbersAreDamage) {
    ChangeableBytes(page, Number).Put16(12, 257);
    EXPECT_TRUE(FindsDamage(Number, [&] { Again(); }));
}

TEST_F(JetDataPage, ARowThatIsNotThereIsDamage) {
    Add("one");
    EXPECT_TRUE(FindsDamage(Number, [&] { rows.Row(1); }));
    EXPECT_TRUE(FindsDamage(Number, [&] { rows.State(-1); }));
}

TEST_F(JetDataPage, ARowThatEndsBeforeItBeginsIsDamage) {
    Add("one");
    Add("two");
    ChangeableBytes(page, Number).Put16(16, 4095);
    EXPECT_TRUE(FindsDamage(Number, [&] { Again().Row(1); }));
}

TEST_F(JetDataPage, ARowThatLiesOverTheListOfRowsIsDamage) {
    Add("one");
    ChangeableBytes(page, Number).Put16(14, 15);
    EXPECT_TRUE(FindsDamage(Number, [&] { Again().Row(0); }));
}

TEST_F(JetDataPage, ARowThatBeginsBehindThePageIsDamage) {
    Add("one");
    Add("two");
    ChangeableBytes(page, Number).Put16(14, 0x1FFF);
    EXPECT_TRUE(FindsDamage(Number, [&] { Again().Row(0); }));
    EXPECT_TRUE(FindsDamage(Number, [&] { Again().Row(1); }));
}

TEST_F(JetDataPage, NothingIsMovedInAPageWhoseRowsOverlap) {
    Add("one");
    Add("two");
    ChangeableBytes(page, Number).Put16(14, 20);
    const Page before = page;
    EXPECT_TRUE(FindsDamage(Number, [&] { ChangeableDataPage(page, Number, Owner); }));
    EXPECT_EQ(page, before);
}

// What a page does to its rows, told by a list of them.
RC_GTEST_PROP(JetDataPageProperty, APageHoldsWhatAListHolds, ()) {
    Page page{};
    ChangeableDataPage rows = ChangeableDataPage::Begin(page, Number, Owner);
    std::vector<QByteArray> list;
    const int steps = *rc::gen::inRange(1, 60);
    for (int step = 0; step < steps; ++step) {
        const QByteArray bytes(*rc::gen::inRange(0, 400), static_cast<char>('a' + step % 26));
        if (list.empty() || *rc::gen::arbitrary<bool>()) {
            if (rows.HasRoomFor(static_cast<std::size_t>(bytes.size()))) {
                RC_ASSERT(rows.Add(BytesOf(bytes, Number), RowState::Here) == static_cast<int>(list.size()));
                list.push_back(bytes);
            }
            continue;
        }
        const int row = *rc::gen::inRange(0, static_cast<int>(list.size()));
        if (*rc::gen::inRange(0, 4) == 0) {
            rows.Delete(row);
            list[static_cast<std::size_t>(row)].clear();
        } else if (rows.CanResize(row, static_cast<std::size_t>(bytes.size()))) {
            rows.Replace(row, BytesOf(bytes, Number), RowState::Here);
            list[static_cast<std::size_t>(row)] = bytes;
        }
    }
    std::size_t used = DataPageHead;
    for (std::size_t row = 0; row < list.size(); ++row) {
        RC_ASSERT(rows.Row(static_cast<int>(row)).Copy() == list[row]);
        used += RowListEntry + static_cast<std::size_t>(list[row].size());
    }
    RC_ASSERT(Bytes(page, Number).U16(2) == PageSize - used);
}

}  // namespace
}  // namespace engine::jet
