#include "Hex.h"
#include "engine/Error.h"
#include "engine/jet/ColumnKey.h"

#include <gtest/gtest.h>

#include <limits>

namespace engine::jet {

namespace {

std::string KeyOf(std::uint8_t type, const Value& value, Order order = Order::Ascending) {
    Key key;
    AppendColumnKey(key, {type, order}, value);
    return HexOf(key);
}

std::string Down(std::uint8_t type, const Value& value) {
    return KeyOf(type, value, Order::Descending);
}

Value Raw(const char* digits) {
    return QByteArray::fromHex(digits);
}

bool IsRefused(std::uint8_t type, const Value& value) {
    Key key = {1, 2, 3};
    try {
        AppendColumnKey(key, {type}, value);
    } catch (const Error& error) {
        return error.Number() == ErrorNumber::WrongType && key.size() == 3;
    }
    return false;
}

TEST(ColumnKey, NullComesBeforeAllValuesAndBehindThemInDescendingOrder) {
    EXPECT_EQ(KeyOf(ColumnType::Long, Null()), "00");
    EXPECT_EQ(Down(ColumnType::Long, Null()), "FF");
    EXPECT_EQ(KeyOf(ColumnType::Text, Null()), "00");
    EXPECT_EQ(Down(ColumnType::Guid, Null()), "FF");
}

TEST(ColumnKey, TrueComesBeforeFalse) {
    EXPECT_EQ(KeyOf(ColumnType::Boolean, true), "7F00");
    EXPECT_EQ(KeyOf(ColumnType::Boolean, false), "7FFF");
    EXPECT_EQ(Down(ColumnType::Boolean, true), "80FF");
    EXPECT_EQ(Down(ColumnType::Boolean, false), "8000");
}

TEST(ColumnKey, WholeNumbersHaveTheirTopBitInverted) {
    EXPECT_EQ(KeyOf(ColumnType::Byte, qint64(200)), "7FC8");
    EXPECT_EQ(Down(ColumnType::Byte, qint64(200)), "8037");
    EXPECT_EQ(KeyOf(ColumnType::Short, qint64(-2)), "7F7FFE");
    EXPECT_EQ(KeyOf(ColumnType::Short, qint64(32767)), "7FFFFF");
    EXPECT_EQ(KeyOf(ColumnType::Long, qint64(1)), "7F80000001");
    EXPECT_EQ(Down(ColumnType::Long, qint64(1)), "807FFFFFFE");
    EXPECT_EQ(KeyOf(ColumnType::Long, qint64(-1)), "7F7FFFFFFF");
    EXPECT_EQ(KeyOf(ColumnType::Currency, Currency::FromScaled(15000)), "7F8000000000003A98");
    EXPECT_EQ(KeyOf(ColumnType::Currency, Currency::FromScaled(std::numeric_limits<qint64>::min())),
              "7F0000000000000000");
}

TEST(ColumnKey, NumbersBeyondTheTypeAreRefused) {
    EXPECT_TRUE(IsRefused(ColumnType::Byte, qint64(-1)));
    EXPECT_TRUE(IsRefused(ColumnType::Byte, qint64(256)));
    EXPECT_TRUE(IsRefused(ColumnType::Short, qint64(32768)));
    EXPECT_TRUE(IsRefused(ColumnType::Short, qint64(-32769)));
    EXPECT_TRUE(IsRefused(ColumnType::Long, qint64(2147483648)));
    EXPECT_TRUE(IsRefused(ColumnType::Long, qint64(-2147483649)));
}

TEST(ColumnKey, NegativeFloatingNumbersAreInvertedAsAWhole) {
    EXPECT_EQ(KeyOf(ColumnType::Double, -2.5), "7F3FFBFFFFFFFFFFFF");
    EXPECT_EQ(KeyOf(ColumnType::Double, 0.0), "7F8000000000000000");
    EXPECT_EQ(KeyOf(ColumnType::Single, 1.0), "7FBF800000");
    EXPECT_EQ(KeyOf(ColumnType::Single, -1.0), "7F407FFFFF");
    EXPECT_EQ(Down(ColumnType::Single, -1.0), "80BF800000");
    // The first day of 2024.
    EXPECT_EQ(KeyOf(ColumnType::DateTime, 45292.0), "7FC0E61D8000000000");
    EXPECT_EQ(Down(ColumnType::DateTime, 45292.0), "803F19E27FFFFFFFFF");
}

TEST(ColumnKey, BytesComeInPiecesThatTellWhetherMoreFollow) {
    EXPECT_EQ(KeyOf(ColumnType::Binary, Raw("0102")), "7F010200000000000002");
    EXPECT_EQ(KeyOf(ColumnType::Binary, Raw("0102030405060708")), "7F010203040506070808");
    EXPECT_EQ(KeyOf(ColumnType::Binary, Raw("010203040506070809")), "7F010203040506070809090000000000000001");
    EXPECT_EQ(Down(ColumnType::Binary, Raw("010203040506070809")), "80FEFDFCFBFAF9F8F709F6FFFFFFFFFFFFFFFE");
}

TEST(ColumnKey, NoBytesAtAllAreRefused) {
    EXPECT_TRUE(IsRefused(ColumnType::Binary, QByteArray()));
}

TEST(ColumnKey, AGuidIsOrderedAsItIsWritten) {
    // {00112233-4455-6677-8899-AABBCCDDEEFF}
    const Value guid = Raw("33221100554477668899AABBCCDDEEFF");
    EXPECT_EQ(KeyOf(ColumnType::Guid, guid), "7F0011223344556677098899AABBCCDDEEFF08");
    EXPECT_EQ(Down(ColumnType::Guid, guid), "80FFEEDDCCBBAA9988097766554433221100F7");
    EXPECT_TRUE(IsRefused(ColumnType::Guid, Raw("3322")));
}

TEST(ColumnKey, ADecimalHasItsSignInFrontInBothOrders) {
    const Value seven = Raw("0000000000000000000000000007000000");
    const Value minusSeven = Raw("8000000000000000000000000007000000");
    const Value large = Raw("0004030201000000000000000000000000");
    EXPECT_EQ(KeyOf(ColumnType::Decimal, seven), "7FFF00000000000000000000000000000007");
    EXPECT_EQ(KeyOf(ColumnType::Decimal, minusSeven), "7F00FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF8");
    EXPECT_EQ(KeyOf(ColumnType::Decimal, large), "7FFF01020304000000000000000000000000");
    EXPECT_EQ(Down(ColumnType::Decimal, seven), "80FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF8");
    EXPECT_EQ(Down(ColumnType::Decimal, minusSeven), "800000000000000000000000000000000007");
    EXPECT_TRUE(IsRefused(ColumnType::Decimal, Raw("00")));
}

TEST(ColumnKey, TextsAndMemosHaveTheSameKey) {
    EXPECT_EQ(KeyOf(ColumnType::Text, QStringLiteral("O'Brien")), "7F644C6959516201010101800B068000");
    EXPECT_EQ(KeyOf(ColumnType::Memo, QStringLiteral("O'Brien")), "7F644C6959516201010101800B068000");
    EXPECT_EQ(Down(ColumnType::Text, QStringLiteral("Rent")), "8096AE9D92FEFF00");
}

TEST(ColumnKey, ValuesOfAnotherNatureAreRefused) {
    EXPECT_TRUE(IsRefused(ColumnType::Boolean, Null()));
    EXPECT_TRUE(IsRefused(ColumnType::Boolean, qint64(1)));
    EXPECT_TRUE(IsRefused(ColumnType::Long, 1.0));
    EXPECT_TRUE(IsRefused(ColumnType::Currency, qint64(1)));
    EXPECT_TRUE(IsRefused(ColumnType::DateTime, QDateTime()));
    EXPECT_TRUE(IsRefused(ColumnType::Text, qint64(1)));
    EXPECT_TRUE(IsRefused(ColumnType::LongBinary, Raw("01")));
}

TEST(ColumnKey, SeveralColumnsStandOneBehindTheOther) {
    Key key;
    AppendColumnKey(key, {ColumnType::Text}, QStringLiteral("a"));
    AppendColumnKey(key, {ColumnType::Long, Order::Descending}, qint64(1));
    AppendColumnKey(key, {ColumnType::Byte}, Null());
    EXPECT_EQ(HexOf(key), "7F4A0100807FFFFFFE00");
}

}  // namespace

}  // namespace engine::jet
