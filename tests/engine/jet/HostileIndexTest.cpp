#include "IndexTreeTest.h"
#include "engine/jet/PageNumbers.h"

#include <functional>
#include <random>

namespace engine::jet {

namespace {

Key LongKey(int number) {
    Key key(100);
    key[0] = 0x7F;
    key[1] = static_cast<std::uint8_t>(number >> 8);
    key[2] = static_cast<std::uint8_t>(number);
    return key;
}

/// Of how many entries a tree of three levels is made.
constexpr int Entries = 3400;

/// An index of three levels, to be damaged.
class HostileIndex : public ::testing::Test {
protected:
    HostileIndex() {
        for (int number = 0; number < Entries; ++number) {
            index.tree->Insert(LongKey(number), 1);
        }
        EXPECT_EQ(index.Check().levels, 3);
        node = index.tree->First().HasEntry() ? ChildOf(index.root) : 0;
        leaf = ChildOf(node);
        index.store.isDamaged = true;
        index.pages.isDamaged = true;
    }

    PageNumber ChildOf(PageNumber page) { return ViewOf(page).ChildAt(0); }
    IndexPage ViewOf(PageNumber page) { return {index.store.Read(page), page, index.table}; }

    /// Of the first entry of a leaf.
    int NumberIn(PageNumber page) {
        const Key entry = ViewOf(page).EntryAt(0);
        return entry[1] << 8 | entry[2];
    }

    void Put(PageNumber page, std::size_t field, std::size_t size, std::uint32_t number) {
        PutNumber(index.store.Change(page), field, size, number);
    }

    /// Fails with DatabaseDamaged, in a sentence that names the page.
    void ExpectDamaged(PageNumber page, const std::function<void()>& action) {
        try {
            action();
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::DatabaseDamaged);
            EXPECT_TRUE(error.Description().contains(QStringLiteral("page %1 ").arg(page)))
                << error.Description().toStdString() << " should name page " << page;
            return;
        }
        ADD_FAILURE() << "the damage of page " << page << " was not noticed";
    }

    void ExpectAllDamaged(PageNumber page) {
        ExpectDamaged(page, [this] { index.tree->AtLeast(LongKey(0)); });
        ExpectDamaged(page, [this] { index.tree->Insert(LongKey(0), 2); });
        ExpectDamaged(page, [this] { (void)index.tree->Remove(LongKey(0), 1); });
        ExpectDamaged(page, [this] { index.tree->Clear(); });
    }

    void WalkForwards() {
        for (IndexCursor cursor = index.tree->First(); cursor.HasEntry(); cursor.Next()) {
        }
    }
    void WalkBackwards() {
        for (IndexCursor cursor = index.tree->Last(); cursor.HasEntry(); cursor.Previous()) {
        }
    }

    OwnIndex index;
    PageNumber node = 0;
    PageNumber leaf = 0;
};

TEST_F(HostileIndex, APageOfAnotherKindIsNoPageOfAnIndex) {
    Put(leaf, 0, 1, 1);
    ExpectAllDamaged(leaf);
}

TEST_F(HostileIndex, APageOfAnotherTableIsRefused) {
    Put(node, 4, 4, index.table + 1);
    ExpectAllDamaged(node);
}

TEST_F(HostileIndex, MoreFreeBytesThanAPageHasAreRefused) {
    Put(leaf, 2, 2, 3617);
    ExpectAllDamaged(leaf);
}

TEST_F(HostileIndex, FreeBytesThatDontFitTheEntriesAreRefused) {
    Put(leaf, 2, 2, NumberAt(index.store.Read(leaf), 2, 2) + 1);
    ExpectAllDamaged(leaf);
    Put(leaf, 2, 2, 0);
    ExpectAllDamaged(leaf);
}

TEST_F(HostileIndex, AnEntryThatEndsBehindTheOthersIsRefused) {
    Put(leaf, 27 + 452, 1, 0x80);
    ExpectAllDamaged(leaf);
}

TEST_F(HostileIndex, AnEntryWithoutABeginningIsRefused) {
    Put(leaf, 27, 1, 1);
    ExpectAllDamaged(leaf);
}

TEST_F(HostileIndex, APrefixLongerThanTheFirstEntryIsRefused) {
    Put(leaf, 24, 2, 104);
    ExpectAllDamaged(leaf);
    Put(node, 24, 2, 0xFFFF);
    ExpectAllDamaged(node);
}

TEST_F(HostileIndex, AnEntryTooShortForARowIsRefused) {
    // The first entry ends after two bytes.
    Put(leaf, 27, 1, 4);
    ExpectDamaged(leaf, [this] { index.tree->AtLeast({}); });
    Put(node, 27, 1, 4);
    ExpectDamaged(node, [this] { index.tree->AtLeast({}); });
    ExpectDamaged(node, [this] { index.tree->Clear(); });
}

TEST_F(HostileIndex, ANodeThatLeadsNowhereIsRefused) {
    BeginIndexPage(index.store.Change(node), IndexForm::Node, index.table, 1);
    ExpectDamaged(node, [this] { index.tree->AtLeast({}); });
    ExpectDamaged(node, [this] { index.tree->Insert(LongKey(0), 2); });
}

TEST_F(HostileIndex, LevelsThatDontEndAreRefused) {
    BeginIndexPage(index.store.Change(node), IndexForm::Node, index.table, 1);
    Put(node, 20, 4, node);
    ExpectDamaged(index.root, [this] { index.tree->AtLeast({}); });
    ExpectDamaged(index.root, [this] { index.tree->Insert(LongKey(0), 2); });
    ExpectDamaged(node, [this] { index.tree->Clear(); });
}

TEST_F(HostileIndex, AChildBehindTheEndOfTheFileIsRefused) {
    Put(node, 20, 4, 0xFFFFFFFF);
    try {
        index.tree->Clear();
        ADD_FAILURE() << "the damage was not noticed";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseDamaged);
    }
}

TEST_F(HostileIndex, LeavesThatLeadInACircleEnd) {
    PageNumber end = leaf;
    while (ViewOf(end).Next() != 0) {
        end = ViewOf(end).Next();
    }
    Put(end, 16, 4, leaf);
    Put(leaf, 12, 4, end);
    EXPECT_THROW(WalkForwards(), Error);
    EXPECT_THROW(WalkBackwards(), Error);
}

TEST_F(HostileIndex, ALeafWhoseNeighbourDoesntKnowItIsRefused) {
    const PageNumber second = ViewOf(leaf).Next();
    Put(second, 12, 4, 0);
    ExpectDamaged(leaf, [this] { WalkForwards(); });
    Put(second, 12, 4, node);
    ExpectDamaged(second, [this] { WalkBackwards(); });
}

TEST_F(HostileIndex, ALeafWhoseNeighbourIsNoneIsNotDividedOrGivenUp) {
    const PageNumber second = ViewOf(leaf).Next();
    const int first = NumberIn(second);
    const int behind = NumberIn(ViewOf(second).Next());
    Put(second, 12, 4, node);
    ExpectDamaged(second, [&] {
        for (std::uint32_t row = 2; row < 100; ++row) {
            index.tree->Insert(LongKey(first), row);
        }
    });
    ExpectDamaged(second, [&] {
        for (std::uint32_t row = 2; row < 100; ++row) {
            (void)index.tree->Remove(LongKey(first), row);
        }
        for (int number = first; number < behind; ++number) {
            (void)index.tree->Remove(LongKey(number), 1);
        }
    });
}

TEST_F(HostileIndex, APageThatIsMetTwiceIsGivenBackByNobody) {
    Put(node, 20, 4, leaf);
    const std::size_t used = index.store.UsedCount();
    ExpectDamaged(leaf, [this] { index.tree->Clear(); });
    EXPECT_EQ(index.store.UsedCount(), used);
}

TEST(OnlyChildren, ThatLeadInACircleAreRefused) {
    OwnIndex index;
    index.store.isDamaged = true;
    index.pages.isDamaged = true;
    const PageNumber leaf = index.store.Take();
    const PageNumber first = index.store.Take();
    const PageNumber second = index.store.Take();
    const auto put = [&](PageNumber page, int number, PageNumber child) {
        Key entry = WithRow(LongKey(number), 1);
        if (child != 0) {
            AppendNumber(entry, child);
        }
        Page& bytes = index.store.Change(page);
        const IndexPage view(bytes, page, index.table);
        ASSERT_TRUE(TryInsert(bytes, view, view.Used(), entry));
    };
    BeginIndexPage(index.store.Change(index.root), IndexForm::Node, index.table, 1);
    BeginIndexPage(index.store.Change(leaf), IndexForm::Leaf, index.table, 0);
    BeginIndexPage(index.store.Change(first), IndexForm::Node, index.table, 1);
    BeginIndexPage(index.store.Change(second), IndexForm::Node, index.table, 1);
    put(index.root, 1, leaf);
    put(index.root, 2, first);
    put(leaf, 1, 0);
    put(first, 2, second);
    put(second, 2, first);
    EXPECT_THROW((void)index.tree->Remove(LongKey(1), 1), Error);
}

// Whatever is flipped, everything ends, with an engine error or without.
TEST_F(HostileIndex, FlippedBytesNeverDoMore) {
    std::mt19937 random(1);
    for (int times = 0; times < 400; ++times) {
        OwnIndex damaged;
        for (int number = 0; number < 700; ++number) {
            damaged.tree->Insert(LongKey(number * 3 % 700), 1);
        }
        damaged.store.isDamaged = true;
        damaged.pages.isDamaged = true;
        for (int flips = 1 + static_cast<int>(random() % 6); flips > 0; --flips) {
            const auto page = static_cast<PageNumber>(2 + random() % (damaged.store.Count() - 2));
            const std::size_t limit = random() % 2 == 0 ? 32 : 700;
            damaged.store.Change(page)[random() % limit] = static_cast<std::uint8_t>(random());
        }
        const auto survives = [](const std::function<void()>& action) {
            try {
                action();
            } catch (const Error& error) {
                EXPECT_TRUE(error.Number() == ErrorNumber::DatabaseDamaged ||
                            error.Number() == ErrorNumber::Other);
            }
        };
        survives([&] {
            for (IndexCursor cursor = damaged.tree->First(); cursor.HasEntry(); cursor.Next()) {
            }
        });
        survives([&] {
            for (IndexCursor cursor = damaged.tree->Last(); cursor.HasEntry(); cursor.Previous()) {
            }
        });
        for (int number = 0; number < 700; number += 1 + static_cast<int>(random() % 5)) {
            survives([&] { damaged.tree->Insert(LongKey(number), 2); });
            survives([&] { (void)damaged.tree->Remove(LongKey(number), 1); });
            survives([&] { damaged.tree->RowWith(LongKey(number)); });
        }
        survives([&] { damaged.tree->Clear(); });
    }
}

}  // namespace

}  // namespace engine::jet
