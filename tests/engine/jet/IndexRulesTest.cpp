#include "FailureOf.h"
#include "Hex.h"
#include "engine/Error.h"
#include "engine/jet/IndexRules.h"

#include <gtest/gtest.h>

#include <array>

namespace engine::jet {

namespace {

constexpr KeyColumn Columns[] = {{ColumnType::Long}, {ColumnType::Text, Order::Descending}};

RowKey KeyOf(const Value& number, const Value& text) {
    RowKey key;
    MakeRowKey(key, Columns, std::array{number, text});
    return key;
}

const Value One = qint64(1);
const Value Word = QStringLiteral("a");

TEST(IndexRules, AKeyTellsWhichNullsItHas) {
    EXPECT_EQ(HexOf(KeyOf(One, Word).bytes), "7F8000000180B5FEFF00");
    EXPECT_FALSE(KeyOf(One, Word).hasNull);
    EXPECT_FALSE(KeyOf(One, Word).isAllNull);
    EXPECT_TRUE(KeyOf(One, Null()).hasNull);
    EXPECT_FALSE(KeyOf(Null(), Word).isAllNull);
    EXPECT_TRUE(KeyOf(Null(), Null()).isAllNull);
    EXPECT_EQ(HexOf(KeyOf(Null(), Null()).bytes), "00FF");
}

TEST(IndexRules, AKeyThatIsMadeAnewForgetsTheLastOne) {
    RowKey key = KeyOf(Null(), Null());
    MakeRowKey(key, Columns, std::array{One, Word});
    EXPECT_EQ(key.bytes, KeyOf(One, Word).bytes);
    EXPECT_FALSE(key.hasNull);
    EXPECT_FALSE(key.isAllNull);
}

TEST(IndexRules, APrimaryKeyHasNoNull) {
    const IndexRules rules{.name = QStringLiteral("PrimaryKey"), .isPrimaryKey = true};
    EXPECT_EQ(FailureOf([&] { RefuseNulls(rules, KeyOf(One, Null())); }), ErrorNumber::NullInPrimaryKey);
    EXPECT_EQ(FailureOf([&] { RefuseNulls(rules, KeyOf(One, Word)); }), 0);
}

TEST(IndexRules, AnIndexThatRefusesNullsSaysSoWithItsName) {
    const IndexRules rules{.name = QStringLiteral("codes"), .refusesNulls = true};
    EXPECT_EQ(FailureOf([&] { RefuseNulls(rules, KeyOf(Null(), Word)); }), ErrorNumber::NullNotAllowed);
    EXPECT_EQ(FailureOf([&] { RefuseNulls(rules, KeyOf(One, Word)); }), 0);
    EXPECT_EQ(FailureOf([&] { RefuseNulls({}, KeyOf(Null(), Null())); }), 0);
    try {
        RefuseNulls(rules, KeyOf(Null(), Word));
    } catch (const Error& error) {
        EXPECT_TRUE(error.Description().contains(rules.name));
    }
}

TEST(IndexRules, OnlyRowsWithoutAnyValueAreIgnored) {
    const IndexRules rules{.name = QStringLiteral("codes"), .ignoresNulls = true};
    EXPECT_FALSE(HasEntry(rules, KeyOf(Null(), Null())));
    EXPECT_TRUE(HasEntry(rules, KeyOf(One, Null())));
    EXPECT_TRUE(HasEntry({}, KeyOf(Null(), Null())));
}

TEST(IndexRules, RowsWithoutAnyValueAreNoDuplicates) {
    const IndexRules rules{.name = QStringLiteral("codes"), .isUnique = true};
    EXPECT_FALSE(MustBeUnique(rules, KeyOf(Null(), Null())));
    EXPECT_TRUE(MustBeUnique(rules, KeyOf(One, Null())));
    EXPECT_TRUE(MustBeUnique(rules, KeyOf(One, Word)));
    EXPECT_FALSE(MustBeUnique({}, KeyOf(One, Word)));
    EXPECT_TRUE(MustBeUnique({.name = QStringLiteral("key"), .isPrimaryKey = true}, KeyOf(One, Word)));
}

TEST(IndexRules, ADuplicateIsReportedWithTheNameOfTheIndex) {
    const IndexRules rules{.name = QStringLiteral("codes"), .isUnique = true};
    EXPECT_EQ(FailureOf([&] { RefuseDuplicate(rules); }), ErrorNumber::DuplicateKey);
    try {
        RefuseDuplicate(rules);
    } catch (const Error& error) {
        EXPECT_TRUE(error.Description().contains(rules.name));
    }
}

}  // namespace

}  // namespace engine::jet
