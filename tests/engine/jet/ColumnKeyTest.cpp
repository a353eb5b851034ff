#include "Hex.h"
#include "engine/Error.h"
#include "engine/jet/ColumnKey.h"

#include <gtest/gtest.h>

#include <limits>

namespace engine::jet {

namespace {

std::string KeyOf(KeyType type, const Value& value, Order order = Order::Ascending) {
    Key key;
    AppendColumnKey(key, {type, order}, value);
    return HexOf(key);
}

std::string Down(KeyType type, const Value& value) {
    return KeyOf(type, value, Order::Descending);
}

Value Raw(const char* digits) {
    return QByteArray::fromHex(digits);
}

bool IsRefused(KeyType type, const Value& value) {
    Key key = {1, 2, 3};
    try {
        AppendColumnKey(key, {type}, value);
    } catch (const Error& error) {
        return error.Number() == ErrorNumber::WrongType && key.size() == 3;
    }
    return false;
}

TEST(ColumnKey, NullComesBeforeAllValuesAndBehindThemInDescendingOrder) {
    EXPECT_EQ(KeyOf(KeyType::Long, Null()), "00");
    EXPECT_EQ(Down(KeyType::Long, Null()), "FF");
    EXPECT_EQ(KeyOf(KeyType::Text, Null()), "00");
    EXPECT_EQ(Down(KeyType::Guid, Null()), "FF");
}

TEST(ColumnKey, TrueComesBeforeFalse) {
    EXPECT_EQ(KeyOf(KeyType::Boolean, true), "7F00");
    EXPECT_EQ(KeyOf(KeyType::Boolean, false), "7FFF");
    EXPECT_EQ(Down(KeyType::Boolean, true), "80FF");
    EXPECT_EQ(Down(KeyType::Boolean, false), "8000");
}

TEST(ColumnKey, WholeNumbersHaveTheirTopBitInverted) {
    EXPECT_EQ(KeyOf(KeyType::Byte, qint64(200)), "7FC8");
    EXPECT_EQ(Down(KeyType::Byte, qint64(200)), "8037");
    EXPECT_EQ(KeyOf(KeyType::Short, qint64(-2)), "7F7FFE");
    EXPECT_EQ(KeyOf(KeyType::Short, qint64(32767)), "7FFFFF");
    EXPECT_EQ(KeyOf(KeyType::Long, qint64(1)), "7F80000001");
    EXPECT_EQ(Down(KeyType::Long, qint64(1)), "807FFFFFFE");
    EXPECT_EQ(KeyOf(KeyType::Long, qint64(-1)), "7F7FFFFFFF");
    EXPECT_EQ(KeyOf(KeyType::Currency, Currency::FromScaled(15000)), "7F8000000000003A98");
    EXPECT_EQ(KeyOf(KeyType::Currency, Currency::FromScaled(std::numeric_limits<qint64>::min())),
              "7F0000000000000000");
}

TEST(ColumnKey, NumbersBeyondTheTypeAreRefused) {
    EXPECT_TRUE(IsRefused(KeyType::Byte, qint64(-1)));
    EXPECT_TRUE(IsRefused(KeyType::Byte, qint64(256)));
    EXPECT_TRUE(IsRefused(KeyType::Short, qint64(32768)));
    EXPECT_TRUE(IsRefused(KeyType::Short, qint64(-32769)));
    EXPECT_TRUE(IsRefused(KeyType::Long, qint64(2147483648)));
    EXPECT_TRUE(IsRefused(KeyType::Long, qint64(-2147483649)));
}

TEST(ColumnKey, NegativeFloatingNumbersAreInvertedAsAWhole) {
    EXPECT_EQ(KeyOf(KeyType::Double, -2.5), "7F3FFBFFFFFFFFFFFF");
    EXPECT_EQ(KeyOf(KeyType::Double, 0.0), "7F8000000000000000");
    EXPECT_EQ(KeyOf(KeyType::Single, 1.0), "7FBF800000");
    EXPECT_EQ(KeyOf(KeyType::Single, -1.0), "7F407FFFFF");
    EXPECT_EQ(Down(KeyType::Single, -1.0), "80BF800000");
    // The first day of 2024.
    EXPECT_EQ(KeyOf(KeyType::DateTime, 45292.0), "7FC0E61D8000000000");
    EXPECT_EQ(Down(KeyType::DateTime, 45292.0), "803F19E27FFFFFFFFF");
}

TEST(ColumnKey, BytesComeInPiecesThatTellWhetherMoreFollow) {
    EXPECT_EQ(KeyOf(KeyType::Binary, Raw("0102")), "7F010200000000000002");
    EXPECT_EQ(KeyOf(KeyType::Binary, Raw("0102030405060708")), "7F010203040506070808");
    EXPECT_EQ(KeyOf(KeyType::Binary, Raw("010203040506070809")), "7F010203040506070809090000000000000001");
    EXPECT_EQ(Down(KeyType::Binary, Raw("010203040506070809")), "80FEFDFCFBFAF9F8F709F6FFFFFFFFFFFFFFFE");
}

TEST(ColumnKey, NoBytesAtAllAreRefused) {
    EXPECT_TRUE(IsRefused(KeyType::Binary, QByteArray()));
}

TEST(ColumnKey, AGuidIsOrderedAsItIsWritten) {
    // {00112233-4455-6677-8899-AABBCCDDEEFF}
    const Value guid = Raw("33221100554477668899AABBCCDDEEFF");
    EXPECT_EQ(KeyOf(KeyType::Guid, guid), "7F0011223344556677098899AABBCCDDEEFF08");
    EXPECT_EQ(Down(KeyType::Guid, guid), "80FFEEDDCCBBAA9988097766554433221100F7");
    EXPECT_TRUE(IsRefused(KeyType::Guid, Raw("3322")));
}

TEST(ColumnKey, ADecimalHasItsSignInFrontInBothOrders) {
    const Value seven = Raw("0000000000000000000000000007000000");
    const Value minusSeven = Raw("8000000000000000000000000007000000");
    const Value large = Raw("0004030201000000000000000000000000");
    EXPECT_EQ(KeyOf(KeyType::Decimal, seven), "7FFF00000000000000000000000000000007");
    EXPECT_EQ(KeyOf(KeyType::Decimal, minusSeven), "7F00FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF8");
    EXPECT_EQ(KeyOf(KeyType::Decimal, large), "7FFF01020304000000000000000000000000");
    EXPECT_EQ(Down(KeyType::Decimal, seven), "80FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF8");
    EXPECT_EQ(Down(KeyType::Decimal, minusSeven), "800000000000000000000000000000000007");
    EXPECT_TRUE(IsRefused(KeyType::Decimal, Raw("00")));
}

TEST(ColumnKey, TextsAndMemosHaveTheSameKey) {
    EXPECT_EQ(KeyOf(KeyType::Text, QStringLiteral("O'Brien")), "7F644C6959516201010101800B068000");
    EXPECT_EQ(KeyOf(KeyType::Memo, QStringLiteral("O'Brien")), "7F644C6959516201010101800B068000");
    EXPECT_EQ(Down(KeyType::Text, QStringLiteral("Rent")), "8096AE9D92FEFF00");
}

TEST(ColumnKey, ValuesOfAnotherNatureAreRefused) {
    EXPECT_TRUE(IsRefused(KeyType::Boolean, Null()));
    EXPECT_TRUE(IsRefused(KeyType::Boolean, qint64(1)));
    EXPECT_TRUE(IsRefused(KeyType::Long, 1.0));
    EXPECT_TRUE(IsRefused(KeyType::Currency, qint64(1)));
    EXPECT_TRUE(IsRefused(KeyType::DateTime, QDateTime()));
    EXPECT_TRUE(IsRefused(KeyType::Text, qint64(1)));
    EXPECT_TRUE(IsRefused(KeyType::LongBinary, Raw("01")));
}

TEST(ColumnKey, SeveralColumnsStandOneBehindTheOther) {
    Key key;
    AppendColumnKey(key, {KeyType::Text}, QStringLiteral("a"));
    AppendColumnKey(key, {KeyType::Long, Order::Descending}, qint64(1));
    AppendColumnKey(key, {KeyType::Byte}, Null());
    EXPECT_EQ(HexOf(key), "7F4A0100807FFFFFFE00");
}

}  // namespace

}  // namespace engine::jet
