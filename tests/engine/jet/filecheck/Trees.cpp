#include "Trees.h"

#include "engine/jet/IndexForm.h"

#include <algorithm>
#include <map>

namespace engine::jet::filecheck {

using namespace IndexForm;

namespace {

constexpr int MostLevels = 20;
constexpr std::size_t MostTold = 3;

std::string Hex(const KeyBytes& bytes) {
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string hex;
    for (const std::uint8_t byte : bytes) {
        hex += Digits[byte / 16];
        hex += Digits[byte % 16];
    }
    return hex;
}

std::uint32_t High(const KeyBytes& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t byte = at; byte < at + 4; ++byte) {
        number = number * 256 + bytes[byte];
    }
    return number;
}

KeyBytes WithoutEnd(const KeyBytes& entry, std::size_t size) {
    return {entry.begin(), entry.end() - static_cast<std::ptrdiff_t>(size)};
}

/// The whole entries of a page, and how many bytes they take there.
struct Entries {
    std::vector<KeyBytes> all;
    std::size_t stored = 0;
};

Entries EntriesOf(const View& page) {
    const std::size_t prefix = page.Low(PrefixAt, 2);
    Entries entries;
    for (std::size_t end = 0; end < EndsSize * 8; ++end) {
        if ((end % 8 == 0 && page.Byte(EndsAt + end / 8) == 0)) {
            end += 7;
            continue;
        }
        if (!page.From(EndsAt).Bit(end)) {
            continue;
        }
        if (end <= entries.stored) {
            throw Unreadable("has an entry without bytes");
        }
        const auto bytes = page.Part(EntriesAt + entries.stored, end - entries.stored).Bytes();
        KeyBytes entry;
        if (!entries.all.empty()) {
            entry.assign(entries.all[0].begin(),
                         entries.all[0].begin() + static_cast<std::ptrdiff_t>(prefix));
        }
        entry.insert(entry.end(), bytes.begin(), bytes.end());
        if (entry.size() <= prefix || entry.size() <= RowSize) {
            throw Unreadable("has an entry of " + std::to_string(entry.size()) + " bytes");
        }
        entries.all.push_back(std::move(entry));
        entries.stored = end;
    }
    return entries;
}

class TreeWalk {
public:
    TreeWalk(const Image& image, std::uint32_t table, std::string where, Findings& findings)
        : image_(image), table_(table), where_(std::move(where)), findings_(findings) {}

    void Walk(std::uint32_t root) {
        Visit(root, 0, true);
        CheckNeighbours();
    }

    Pages pages;
    std::vector<KeyBytes> found;

private:
    // Returns the last entry below the page, nothing if there is none.
    KeyBytes Visit(std::uint32_t number, int depth, bool isRightmost) {
        const View page = image_.Page(number);
        const std::uint8_t kind = page.Byte(KindAt);
        if ((kind != Leaf && kind != Node) || page.Byte(MarkAt) != Mark) {
            throw Unreadable("page " + std::to_string(number) + " is no page of an index");
        }
        if (!pages.insert(number).second || depth > MostLevels) {
            throw Unreadable("page " + std::to_string(number) + " is met twice, or too deep");
        }
        levels_[depth].push_back(number);
        if (page.Low(OwnerAt, 4) != table_ || page.Low(OwnerAt + 4, 4) != 0) {
            findings_.Fault(Where(number), "belongs to another table");
        }
        const Entries entries = ReadEntries(number, page);
        return kind == Leaf ? VisitLeaf(number, page, depth, entries.all)
                            : VisitNode(number, page, depth, entries.all, isRightmost);
    }

    Entries ReadEntries(std::uint32_t number, const View& page) {
        try {
            Entries entries = EntriesOf(page);
            if (page.Low(FreeBytesAt, 2) + entries.stored != Room) {
                findings_.Fault(Where(number), "counts its free bytes wrongly");
            }
            return entries;
        } catch (const Unreadable& error) {
            throw Unreadable("page " + std::to_string(number) + " " + error.what());
        }
    }

    KeyBytes VisitLeaf(std::uint32_t number, const View& page, int depth,
                       const std::vector<KeyBytes>& entries) {
        if (leafDepth_ >= 0 && leafDepth_ != depth) {
            findings_.Fault(Where(number), "is a leaf on another level than the first");
        }
        leafDepth_ = depth;
        OddUnless(page.Low(TailAt, 4) == 0 && page.Byte(HeightAt) == 0, number, "is a leaf as no other");
        OddUnless(!entries.empty() || depth == 0, number, "is a leaf without entries");
        found.insert(found.end(), entries.begin(), entries.end());
        return entries.empty() ? KeyBytes() : entries.back();
    }

    KeyBytes VisitNode(std::uint32_t number, const View& page, int depth,
                       const std::vector<KeyBytes>& entries, bool isRightmost) {
        const std::uint32_t tail = page.Low(TailAt, 4);
        if (entries.empty() && tail == 0) {
            throw Unreadable("page " + std::to_string(number) + " is a node without children");
        }
        OddUnless(!entries.empty(), number, "is a node without entries");
        KeyBytes last;
        for (std::size_t place = 0; place < entries.size(); ++place) {
            const bool isLastChild = tail == 0 && place + 1 == entries.size();
            last = VisitChild(number, entries[place], depth, isRightmost && isLastChild);
        }
        if (tail != 0) {
            OddUnless(isRightmost && image_.Page(tail).Byte(KindAt) == Leaf, number,
                      "has a tail where none belongs");
            const KeyBytes end = Visit(tail, depth + 1, isRightmost);
            last = end.empty() ? last : end;
        }
        OddUnless(page.Byte(HeightAt) == leafDepth_ - depth, number, "has another height");
        return last;
    }

    KeyBytes VisitChild(std::uint32_t number, const KeyBytes& entry, int depth, bool isRightmost) {
        if (entry.size() <= RowSize + ChildSize) {
            throw Unreadable("page " + std::to_string(number) + " has an entry of " +
                             std::to_string(entry.size()) + " bytes");
        }
        const KeyBytes last = Visit(High(entry, entry.size() - ChildSize), depth + 1, isRightmost);
        const KeyBytes told = WithoutEnd(entry, ChildSize);
        if (last > told) {
            findings_.Fault(Where(number), "tells " + Hex(told) + " of a child that ends with " + Hex(last));
        } else if (last != told) {
            findings_.Oddity(Where(number), "tells " + Hex(told) + " of a child that ends with " + Hex(last));
        }
        return last;
    }

    void CheckNeighbours() {
        for (const auto& [depth, level] : levels_) {
            for (std::size_t place = 0; place < level.size(); ++place) {
                const View page = image_.Page(level[place]);
                const bool agree = page.Low(PreviousAt, 4) == (place > 0 ? level[place - 1] : 0) &&
                                   page.Low(NextAt, 4) == (place + 1 < level.size() ? level[place + 1] : 0);
                if (!agree && depth == leafDepth_) {
                    findings_.Fault(Where(level[place]), "has other neighbours");
                }
                OddUnless(agree || depth == leafDepth_, level[place], "has other neighbours");
            }
        }
    }

    void OddUnless(bool holds, std::uint32_t number, const char* what) {
        if (!holds) {
            findings_.Oddity(Where(number), what);
        }
    }

    std::string Where(std::uint32_t number) const { return where_ + " page " + std::to_string(number); }

    const Image& image_;
    std::uint32_t table_;
    std::string where_;
    Findings& findings_;
    std::map<int, std::vector<std::uint32_t>> levels_;
    int leafDepth_ = -1;
};

class IndexCheck {
public:
    IndexCheck(const Image& image, const Definition& table, const IndexOfFile& index, PageOwners& owners,
               Findings& findings)
        : image_(image),
          table_(table),
          index_(index),
          owners_(owners),
          findings_(findings),
          where_("index " + table.name + "." + index.name),
          tree_(image, table.FirstPage(), where_, findings) {}

    void Check(const std::vector<RowOfFile>& rows) {
        tree_.Walk(index_.root);
        CheckMap();
        CheckOrder();
        CheckNulls(rows);
        CompareWithRows(rows);
    }

private:
    void CheckMap() {
        for (const std::uint32_t page : tree_.pages) {
            owners_.Own(page, where_);
        }
        const Pages mapped = owners_.Map(index_.pages, where_);
        for (const std::uint32_t page : tree_.pages) {
            if (!mapped.contains(page)) {
                findings_.Fault(where_, "uses page " + std::to_string(page) + ", which isn't in its map");
            }
        }
        for (const std::uint32_t page : mapped) {
            if (!tree_.pages.contains(page)) {
                findings_.Oddity(where_, "has page " + std::to_string(page) + " in its map alone");
                OwnIfUnused(page);
            }
        }
    }

    // The page of an index that was given up and is in the map still.
    void OwnIfUnused(std::uint32_t page) {
        if (page < image_.Count() && (image_.Kind(page) == Leaf || image_.Kind(page) == Node)) {
            owners_.Own(page, where_);
        }
    }

    void CheckOrder() {
        const auto disorder = std::adjacent_find(tree_.found.begin(), tree_.found.end(),
                                                 [](const KeyBytes& a, const KeyBytes& b) { return a >= b; });
        if (disorder != tree_.found.end()) {
            findings_.Fault(where_, "has entries out of order, at " + Hex(*disorder));
        }
    }

    void CheckNulls(const std::vector<RowOfFile>& rows) {
        for (const RowOfFile& row : rows) {
            if (index_.refusesNulls && HasNull(table_, index_, row)) {
                findings_.Oddity(where_, "takes no nulls, and row " + ToString(row.key) + " has one");
            }
        }
    }

    void CompareWithRows(const std::vector<RowOfFile>& rows) {
        std::vector<KeyBytes> expected;
        std::vector<KeyBytes> keys;
        bool areKeysKnown = true;
        for (const RowOfFile& row : rows) {
            rows_.insert(NumberOf(row.key));
            const bool isAllNull = IsAllNull(table_, index_, row);
            if (index_.ignoresNulls && isAllNull) {
                continue;
            }
            auto key = areKeysKnown ? KeyOf(table_, index_, row) : std::nullopt;
            areKeysKnown = key.has_value();
            if (index_.isUnique && key && !isAllNull) {
                keys.push_back(*key);
            }
            expected.push_back(std::move(key).value_or(KeyBytes()));
            AppendPlace(expected.back(), row.key);
        }
        if (areKeysKnown) {
            Compare(std::move(expected), tree_.found);
            CheckUnique(std::move(keys));
        } else {
            // Nobody knows how some value is ordered: then by the rows alone.
            Compare(RowsAlone(expected), RowsAlone(tree_.found));
        }
    }

    // As entries name a row.
    static std::uint32_t NumberOf(const Place& row) { return row.page * 256 + row.row; }

    static void AppendPlace(KeyBytes& entry, const Place& row) {
        const std::uint32_t number = NumberOf(row);
        for (const unsigned shift : {24U, 16U, 8U, 0U}) {
            entry.push_back(static_cast<std::uint8_t>(number >> shift));
        }
    }

    static std::vector<KeyBytes> RowsAlone(const std::vector<KeyBytes>& entries) {
        std::vector<KeyBytes> rows;
        for (const KeyBytes& entry : entries) {
            rows.emplace_back(entry.end() - RowSize, entry.end());
        }
        return rows;
    }

    void Compare(std::vector<KeyBytes> expected, std::vector<KeyBytes> found) {
        std::sort(expected.begin(), expected.end());
        std::sort(found.begin(), found.end());
        Tell("lacks an entry", Difference(expected, found));
        std::vector<KeyBytes> tooMany = Difference(found, expected);
        const auto ofNoRow = std::partition(tooMany.begin(), tooMany.end(), [this](const KeyBytes& entry) {
            return rows_.contains(High(entry, entry.size() - RowSize));
        });
        Tell("has an entry of no row", {ofNoRow, tooMany.end()});
        Tell("has an entry that isn't its row's", {tooMany.begin(), ofNoRow});
    }

    static std::vector<KeyBytes> Difference(const std::vector<KeyBytes>& left,
                                            const std::vector<KeyBytes>& right) {
        std::vector<KeyBytes> difference;
        std::set_difference(left.begin(), left.end(), right.begin(), right.end(),
                            std::back_inserter(difference));
        return difference;
    }

    void Tell(const std::string& what, const std::vector<KeyBytes>& entries) {
        for (std::size_t place = 0; place < std::min(entries.size(), MostTold); ++place) {
            findings_.Fault(where_, what + ": " + Hex(entries[place]));
        }
        if (entries.size() > MostTold) {
            findings_.Fault(where_, what + ", in all " + std::to_string(entries.size()));
        }
    }

    void CheckUnique(std::vector<KeyBytes> keys) {
        std::sort(keys.begin(), keys.end());
        const auto twice = std::adjacent_find(keys.begin(), keys.end());
        if (twice != keys.end()) {
            findings_.Fault(where_, "is unique and has twice " + Hex(*twice));
        }
    }

    const Image& image_;
    const Definition& table_;
    const IndexOfFile& index_;
    PageOwners& owners_;
    Findings& findings_;
    std::string where_;
    TreeWalk tree_;
    std::set<std::uint32_t> rows_;
};

}  // namespace

void CheckIndex(const Image& image, const Definition& table, const IndexOfFile& index,
                const std::vector<RowOfFile>& rows, PageOwners& owners, Findings& findings) {
    IndexCheck(image, table, index, owners, findings).Check(rows);
}

}  // namespace engine::jet::filecheck
