#include "IndexTreeTest.h"
#include "engine/jet/ColumnKey.h"
#include "support/AddressSanitizer.h"

#include <rapidcheck/gtest.h>

#include <random>

namespace engine::jet {

namespace {

/// An index and, beside it, a plain set of what must be in it.
class ComparedIndex : public OwnIndex {
public:
    void Insert(const Key& key, std::uint32_t row) {
        if (plain.insert(WithRow(key, row)).second) {
            tree->Insert(key, row);
        }
    }

    void Remove(const Key& entry) {
        const KeyView view(entry);
        const std::uint32_t row = NumberOf(view.last(4));
        ASSERT_EQ(tree->Remove(view.first(entry.size() - 4), row), plain.erase(entry) == 1);
    }

    void Compare() {
        const TreeFindings found = Check();
        EXPECT_EQ(found.faults, std::vector<std::string>());
        EXPECT_TRUE(std::equal(found.entries.begin(), found.entries.end(), plain.begin(), plain.end()));
        EXPECT_EQ(store.UsedCount(), pages.pages.size() + 2);
        deepest = std::max(deepest, found.levels);
        mostPrefixes = std::max(mostPrefixes, found.pagesWithPrefix);
        tailsSeen += found.tails;
    }

    /// Takes a change back behind the tree's back.
    template <class Change>
    void Undone(Change change) {
        const WatchedPages::State state = store.Save();
        const std::set<PageNumber> pagesBefore = pages.pages;
        const std::set<Key> plainBefore = plain;
        change();
        store.Restore(state);
        pages.pages = pagesBefore;
        plain = plainBefore;
    }

    void CompareWalks() {
        auto expected = plain.begin();
        IndexCursor cursor = tree->First();
        for (; cursor.HasEntry(); cursor.Next(), ++expected) {
            ASSERT_EQ(WithRow(Key(cursor.EntryKey().begin(), cursor.EntryKey().end()), cursor.Row()),
                      *expected);
        }
        EXPECT_EQ(expected, plain.end());
        auto backwards = plain.rbegin();
        for (IndexCursor back = tree->Last(); back.HasEntry(); back.Previous(), ++backwards) {
            ASSERT_EQ(WithRow(Key(back.EntryKey().begin(), back.EntryKey().end()), back.Row()), *backwards);
        }
        EXPECT_EQ(backwards, plain.rend());
    }

    void CompareSearch(const Key& key) {
        const auto expected = plain.lower_bound(key);
        const IndexCursor found = tree->AtLeast(key);
        ASSERT_EQ(found.HasEntry(), expected != plain.end());
        if (found.HasEntry()) {
            EXPECT_EQ(WithRow(Key(found.EntryKey().begin(), found.EntryKey().end()), found.Row()), *expected);
        }
        const IndexCursor before = tree->Before(key);
        ASSERT_EQ(before.HasEntry(), expected != plain.begin());
        if (before.HasEntry()) {
            EXPECT_EQ(WithRow(Key(before.EntryKey().begin(), before.EntryKey().end()), before.Row()),
                      *std::prev(expected));
        }
    }

    std::set<Key> plain;
    int deepest = 0;
    int mostPrefixes = 0;
    int tailsSeen = 0;
};

using Random = std::mt19937_64;

int Below(Random& random, int limit) {
    return static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

QString RandomText(Random& random, int longest) {
    static const QString units =
        QStringLiteral("aAbBzZ09 '-_\u00E9\u00C4\u00C6\u0301\u3042\u304C\u4E00\u05F0\u01E3");
    QString text;
    for (int count = Below(random, longest + 1); count > 0; --count) {
        text += units[Below(random, static_cast<int>(units.size()))];
    }
    return text;
}

/// Kinds of keys that lead to trees of different shapes.
enum class Kind { Numbers, FewNumbers, ShortTexts, LongTexts, SharedBeginnings, Compound, LongestKeys };

Key RandomKey(Random& random, Kind kind, Order order) {
    Key key;
    switch (kind) {
        case Kind::Numbers:
            AppendColumnKey(key, {ColumnType::Long, order}, qint64(Below(random, 2000000) - 1000000));
            break;
        case Kind::FewNumbers:
            AppendColumnKey(key, {ColumnType::Byte, order}, qint64(Below(random, 4)));
            break;
        case Kind::ShortTexts:
            AppendColumnKey(key, {ColumnType::Text, order}, RandomText(random, 12));
            break;
        case Kind::LongTexts:
            AppendColumnKey(key, {ColumnType::Text, order}, RandomText(random, 255));
            break;
        case Kind::SharedBeginnings:
            AppendColumnKey(
                key, {ColumnType::Text, order},
                QString(40 * Below(random, 5), QLatin1Char('x')) + QString::number(Below(random, 50000)));
            break;
        case Kind::Compound:
            AppendColumnKey(key, {ColumnType::Text, order}, RandomText(random, 2));
            AppendColumnKey(key, {ColumnType::Double}, double(Below(random, 1000)));
            AppendColumnKey(key, {ColumnType::Long},
                            Below(random, 5) == 0 ? Value() : Value(qint64(Below(random, 9))));
            break;
        case Kind::LongestKeys:
            key.assign(1196, static_cast<std::uint8_t>(Below(random, 2)));
            for (int changes = Below(random, 3); changes >= 0; --changes) {
                key[static_cast<std::size_t>(Below(random, 1196))] =
                    static_cast<std::uint8_t>(Below(random, 256));
            }
            key.resize(static_cast<std::size_t>(Below(random, 20) == 0 ? 1196 : 1 + Below(random, 1196)));
            break;
    }
    return key;
}

void InsertSome(ComparedIndex& index, Random& random, Kind kind, Order order, int count) {
    for (int times = 0; times < count; ++times) {
        index.Insert(RandomKey(random, kind, order), static_cast<std::uint32_t>(random()));
    }
}

// Some one by one from anywhere, others in a row.
void RemoveSome(ComparedIndex& index, Random& random, int count) {
    while (count > 0 && !index.plain.empty()) {
        Key from(4);
        for (std::uint8_t& byte : from) {
            byte = static_cast<std::uint8_t>(random());
        }
        from[0] = Below(random, 2) == 0 ? (*index.plain.begin())[0] : from[0];
        auto at = index.plain.lower_bound(from);
        for (int run = Below(random, 4) == 0 ? 200 : 1; run > 0 && count > 0; --run, --count) {
            at = at == index.plain.end() ? index.plain.begin() : at;
            if (at == index.plain.end()) {
                return;
            }
            const Key entry = *at++;
            index.Remove(entry);
        }
    }
}

void TryAtRandom(Kind kind, Order order, std::uint64_t seed, int operations) {
    SCOPED_TRACE("kind " + std::to_string(static_cast<int>(kind)) + ", seed " + std::to_string(seed));
    Random random(seed);
    ComparedIndex index;
    while (operations > 0 && !::testing::Test::HasFailure()) {
        const int count = 1 + Below(random, 1500);
        operations -= count;
        const auto change = [&] {
            if (Below(random, 5) < 3) {
                InsertSome(index, random, kind, order, count);
            } else {
                RemoveSome(index, random, count);
            }
        };
        if (Below(random, 4) == 0) {
            index.Undone(change);
        }
        change();
        index.Compare();
        for (int times = 0; times < 5; ++times) {
            index.CompareSearch(RandomKey(random, kind, order));
        }
    }
    index.CompareWalks();
    RemoveSome(index, random, 1000000);
    index.Compare();
    EXPECT_EQ(index.pages.pages.size(), 1U);
}

class RandomTrees : public ::testing::TestWithParam<Kind> {};

TEST_P(RandomTrees, HoldWhatAPlainSetHolds) {
    // Long keys make as many pages of fewer entries.
    const bool isLong = GetParam() == Kind::LongTexts || GetParam() == Kind::LongestKeys;
    const int operations = CasesToTry(isLong ? 20000 : 60000, 3);
    TryAtRandom(GetParam(), Order::Ascending, 1, operations);
    TryAtRandom(GetParam(), Order::Descending, 2, operations);
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, RandomTrees,
                         ::testing::Values(Kind::Numbers, Kind::FewNumbers, Kind::ShortTexts, Kind::LongTexts,
                                           Kind::SharedBeginnings, Kind::Compound, Kind::LongestKeys));

RC_GTEST_PROP(IndexTreeProperty, SmallTreesHoldWhatAPlainSetHolds, ()) {
    const auto kind =
        *rc::gen::map(rc::gen::inRange(0, 7), [](int number) { return static_cast<Kind>(number); });
    const Order order = *rc::gen::element(Order::Ascending, Order::Descending);
    TryAtRandom(kind, order, *rc::gen::arbitrary<std::uint64_t>(), *rc::gen::inRange(1, 4000));
    RC_ASSERT(!::testing::Test::HasFailure());
}

}  // namespace

}  // namespace engine::jet
