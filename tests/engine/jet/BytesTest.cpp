#include "JetTest.h"
#include "engine/jet/Bytes.h"
#include "engine/jet/RowPlace.h"

namespace engine::jet {
namespace {

TEST(JetBytes, NumbersAreLittleEndian) {
    const std::uint8_t bytes[] = {1, 2, 3, 4, 5, 6, 7, 8};
    const Bytes part(bytes, sizeof bytes, 7);
    EXPECT_EQ(part.U8(1), 2);
    EXPECT_EQ(part.U16(1), 0x0302);
    EXPECT_EQ(part.U24(1), 0x040302U);
    EXPECT_EQ(part.U32(1), 0x05040302U);
    EXPECT_EQ(part.U64(0), 0x0807060504030201U);
}

TEST(JetBytes, NothingIsReadBesideThePart) {
    const std::uint8_t bytes[] = {1, 2, 3, 4};
    const Bytes part(bytes, sizeof bytes, 7);
    EXPECT_NO_THROW(part.U32(0));
    EXPECT_TRUE(FindsDamage(7, [&] { part.U32(1); }));
    EXPECT_TRUE(FindsDamage(7, [&] { part.U8(4); }));
    EXPECT_TRUE(FindsDamage(7, [&] { part.Part(2, 3); }));
    EXPECT_TRUE(FindsDamage(7, [&] { part.From(5); }));
}

TEST(JetBytes, ALengthThatOverflowsLeadsNowhere) {
    const std::uint8_t bytes[] = {1, 2, 3, 4};
    const Bytes part(bytes, sizeof bytes, 7);
    EXPECT_TRUE(FindsDamage(7, [&] { part.Part(2, ~std::size_t{0}); }));
    EXPECT_TRUE(FindsDamage(7, [&] { part.U16(~std::size_t{0}); }));
}

TEST(JetBytes, NothingIsWrittenBesideThePart) {
    Page page{};
    ChangeableBytes bytes = ChangeableBytes(page, 9).ChangeablePart(10, 4);
    bytes.Put32(0, 0x04030201);
    EXPECT_EQ(page[10], 1);
    EXPECT_EQ(page[13], 4);
    EXPECT_TRUE(FindsDamage(9, [&] { bytes.Put32(1, 0); }));
    EXPECT_TRUE(FindsDamage(9, [&] { bytes.Fill(0, 5, 0); }));
    EXPECT_TRUE(FindsDamage(9, [&] { bytes.PutBytes(3, Bytes(page, 9).Part(0, 2)); }));
    EXPECT_EQ(page[14], 0);
}

TEST(JetBytes, ARowPlaceIsTheRowThenThePage) {
    Page page{};
    PutRowPlace(ChangeableBytes(page, 1), 0, {0x030201, 9});
    EXPECT_EQ(Bytes(page, 1).U32(0), 0x03020109U);
    EXPECT_EQ(ReadRowPlace(Bytes(page, 1), 0), (RowPlace{0x030201, 9}));
    EXPECT_EQ(ToRowPlace(ToNumber({5, 255}) + 1), (RowPlace{6, 0}));
}

}  // namespace
}  // namespace engine::jet
