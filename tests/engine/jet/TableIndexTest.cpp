#include "FailureOf.h"
#include "IndexTreeTest.h"
#include "engine/jet/TableIndex.h"

#include <array>

namespace engine::jet {

namespace {

using Values = std::array<Value, 2>;

/// An index over a number and a text.
class TableIndexTest : public ::testing::Test {
protected:
    TableIndex& Index(const IndexRules& rules) {
        index.emplace(rules, std::vector<KeyColumn>{{ColumnType::Long}, {ColumnType::Text}}, own.store,
                      own.pages, own.table, own.root);
        return *index;
    }

    static Values Of(int number, const char16_t* text) { return {qint64(number), QString::fromUtf16(text)}; }
    static Values Nothing() { return {}; }

    std::size_t EntryCount() { return own.Check().entries.size(); }

    OwnIndex own;
    std::optional<TableIndex> index;
};

const IndexRules Plain{.name = QStringLiteral("plain")};
const IndexRules Unique{.name = QStringLiteral("unique"), .isUnique = true};
const IndexRules Primary{.name = QStringLiteral("primary"), .isUnique = true, .isPrimaryKey = true};

TEST_F(TableIndexTest, RowsComeAndGo) {
    TableIndex& plain = Index(Plain);
    plain.Add(0x101, Of(1, u"a"));
    plain.Add(0x102, Of(1, u"a"));
    EXPECT_EQ(EntryCount(), 2U);
    plain.Remove(0x101, Of(1, u"a"));
    EXPECT_EQ(plain.Tree().First().Row(), 0x102U);
    plain.RemoveAll();
    EXPECT_EQ(EntryCount(), 0U);
}

TEST_F(TableIndexTest, KeysThatAreNewAreTold) {
    TableIndex& plain = Index(Plain);
    EXPECT_TRUE(plain.Add(1, Of(1, u"a")));
    EXPECT_FALSE(plain.Add(2, Of(1, u"A ")));
    EXPECT_TRUE(plain.Add(3, Of(2, u"a")));
    EXPECT_FALSE(plain.Change(3, Of(2, u"a"), Of(2, u"A")));
    EXPECT_TRUE(plain.Change(3, Of(2, u"a"), Of(3, u"a")));
    EXPECT_FALSE(plain.Change(3, Of(3, u"a"), Of(1, u"a")));
}

TEST_F(TableIndexTest, AUniqueIndexRefusesAKeyThatAnotherRowHas) {
    TableIndex& unique = Index(Unique);
    unique.Add(1, Of(1, u"abc"));
    EXPECT_EQ(FailureOf([&] { unique.CheckNew(Of(1, u"ABC ")); }), ErrorNumber::DuplicateKey);
    EXPECT_EQ(FailureOf([&] { unique.CheckNew(Of(2, u"abc")); }), 0);
    EXPECT_EQ(FailureOf([&] { Index(Plain).CheckNew(Of(1, u"abc")); }), 0);
}

TEST_F(TableIndexTest, ARowIsNotInItsOwnWay) {
    TableIndex& unique = Index(Unique);
    unique.Add(1, Of(1, u"abc"));
    unique.Add(2, Of(2, u"abc"));
    EXPECT_EQ(FailureOf([&] { unique.CheckChanged(Of(1, u"abc"), Of(1, u"ABC")); }), 0);
    EXPECT_EQ(FailureOf([&] { unique.CheckChanged(Of(1, u"abc"), Of(2, u"abc")); }),
              ErrorNumber::DuplicateKey);
}

TEST_F(TableIndexTest, SomeNullsCountAsValuesAndNothingButNullsAsNone) {
    TableIndex& unique = Index(Unique);
    unique.Add(1, Nothing());
    unique.Add(2, Values{qint64(1), Null()});
    EXPECT_EQ(FailureOf([&] { unique.CheckNew(Nothing()); }), 0);
    EXPECT_EQ(FailureOf([&] { unique.CheckNew(Values{qint64(1), Null()}); }), ErrorNumber::DuplicateKey);
}

TEST_F(TableIndexTest, APrimaryKeyRefusesNullsBeforeDuplicates) {
    TableIndex& primary = Index(Primary);
    primary.Add(1, Values{qint64(1), Null()});
    EXPECT_EQ(FailureOf([&] { primary.CheckNew(Values{qint64(1), Null()}); }), ErrorNumber::NullInPrimaryKey);
    EXPECT_EQ(FailureOf([&] { primary.CheckChanged(Of(1, u"a"), Nothing()); }),
              ErrorNumber::NullInPrimaryKey);
}

TEST_F(TableIndexTest, AKeyThatIsTooLongIsRefusedBeforeTheRowComes) {
    const QString longest(255, QChar(0x05F0));
    const std::vector<KeyColumn> twice = {{ColumnType::Text}, {ColumnType::Text}};
    TableIndex texts(Plain, twice, own.store, own.pages, own.table, own.root);
    EXPECT_EQ(FailureOf([&] { texts.CheckNew(Values{longest, longest}); }), ErrorNumber::Other);
    EXPECT_EQ(FailureOf([&] { texts.CheckNew(Values{longest, longest.left(40)}); }), 0);
}

TEST_F(TableIndexTest, RowsThatAreIgnoredHaveNoEntryToLose) {
    TableIndex& ignoring = Index({.name = QStringLiteral("ignoring"), .ignoresNulls = true});
    EXPECT_FALSE(ignoring.Add(1, Nothing()));
    EXPECT_EQ(EntryCount(), 0U);
    EXPECT_TRUE(ignoring.Change(1, Nothing(), Of(1, u"a")));
    EXPECT_EQ(EntryCount(), 1U);
    EXPECT_FALSE(ignoring.Change(1, Of(1, u"a"), Nothing()));
    EXPECT_EQ(EntryCount(), 0U);
    ignoring.Remove(1, Nothing());
}

TEST_F(TableIndexTest, ARowWithoutItsEntryIsDamage) {
    TableIndex& plain = Index(Plain);
    EXPECT_EQ(FailureOf([&] { plain.Remove(1, Of(1, u"a")); }), ErrorNumber::DatabaseDamaged);
    EXPECT_EQ(FailureOf([&] { plain.Change(1, Of(1, u"a"), Of(2, u"a")); }), ErrorNumber::DatabaseDamaged);
}

}  // namespace

}  // namespace engine::jet
