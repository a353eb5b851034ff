#pragma once

#include "FailureOf.h"
#include "RandomValues.h"
#include "TableMakers.h"
#include "engine/jet/DateNumber.h"
#include "engine/jet/IndexForm.h"
#include "engine/jet/IndexedTable.h"
#include "engine/jet/PagedFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace engine::jet {

/// A column of each type. The indexes are over all types that can have one, all in one direction: some keys
/// are of many columns, some too long for any index, some unique.
inline NewTable TableOfAllTypes(const char* name, bool ascending) {
    NewTable table;
    table.name = QLatin1String(name);
    table.columns = {ColumnOf("id", ColumnType::Long),
                     ColumnOf("yes", ColumnType::Boolean),
                     ColumnOf("byte", ColumnType::Byte),
                     ColumnOf("short", ColumnType::Short),
                     ColumnOf("money", ColumnType::Currency),
                     ColumnOf("single", ColumnType::Single),
                     ColumnOf("double", ColumnType::Double),
                     ColumnOf("date", ColumnType::DateTime),
                     ColumnOf("binary", ColumnType::Binary, 200),
                     ColumnOf("name", ColumnType::Text, 255),
                     ColumnOf("code", ColumnType::Text, 6),
                     ColumnOf("memo", ColumnType::Memo),
                     ColumnOf("picture", ColumnType::LongBinary),
                     ColumnOf("guid", ColumnType::Guid),
                     ColumnOf("decimal", ColumnType::Decimal)};
    table.columns[0].countsUp = true;
    table.indexes = {PrimaryKeyOver({"id"}),
                     IndexOver("long", {"name", "memo", "binary"}),
                     IndexOver("name", {"name"}),
                     IndexOver("memo", {"memo"}),
                     IndexOver("numbers", {"yes", "byte", "money", "single"}),
                     IndexOver("moments", {"date", "double"}),
                     IndexOver("others", {"guid", "decimal"}),
                     IndexOver("binary", {"binary"}),
                     IndexOver("unique", {"short", "code"})};
    table.indexes[7].ignoresNulls = true;
    table.indexes[8].isUnique = true;
    for (NewIndex& index : table.indexes) {
        std::for_each(index.columns.begin(), index.columns.end(),
                      [ascending](NewIndexColumn& column) { column.ascending = ascending; });
    }
    return table;
}

/// A table, and plain maps that are to hold the same.
class TableAndMaps {
public:
    using Row = std::vector<Value>;
    using Rows = std::map<RowPlace, Row>;
    /// What an index has: keys with their rows, in order.
    using Entries = std::set<std::pair<Key, std::uint32_t>>;

    TableAndMaps(const char* name, RandomValues& values) : name_(QLatin1String(name)), values_(values) {}

    void Open(PagedFile& pages) {
        pages_ = &pages;
        table_ = OpenTable(pages, Catalogue(pages).Find(name_));
        kept_.entries.resize(Layout().indexes.size());
    }

    void DoSomething() {
        const int rows = static_cast<int>(kept_.rows.size());
        if (values_.OneIn(4000)) {
            target_ = std::array{40, 400, 1500}[static_cast<std::size_t>(values_.Below(3))];
        }
        const int action = values_.Below(100);
        if (rows == 0 || action < (rows < target_ ? 40 : 10)) {
            Insert();
        } else if (action < 50) {
            Delete();
        } else if (action < 75) {
            Update();
        } else if (action < 85) {
            CompareRow(SomeRow()->first);
        } else if (values_.OneIn(3000)) {
            Wipe();
        } else {
            Seek();
        }
    }

    void AddOrChange() { kept_.rows.empty() || values_.OneIn(2) ? Insert() : Update(); }
    void RemoveSome() {
        if (values_.OneIn(40)) {
            Wipe();
        } else if (!kept_.rows.empty()) {
            Delete();
        }
    }

    /// Some of it together, and all taken back.
    void DoInVain() {
        const Kept before = kept_;
        const PagedFile::Mark mark = pages_->SetMark();
        for (int step = values_.Below(6); step >= 0; --step) {
            DoSomething();
        }
        pages_->UndoTo(mark);
        kept_ = before;
    }

    /// What the table holds.
    struct Kept {
        Rows rows;
        std::vector<Entries> entries;
        qint64 lastNumber = 0;
    };
    const Kept& All() const { return kept_; }

    /// In a file that is on its way from what was kept before to what is now: rows that stay as they were can
    /// be read, and are found by each of their keys.
    void FindAllThatStays(PagedFile& pages, const Kept& before) const {
        const std::unique_ptr<IndexedTable> found = OpenTable(pages, Catalogue(pages).Find(name_));
        for (const auto& [place, row] : before.rows) {
            EXPECT_TRUE(!Keeps(place, row) || found->Rows().Find(place))
                << name_.toStdString() << " " << ToNumber(place);
        }
        for (std::size_t index = 0; index < kept_.entries.size(); ++index) {
            for (const auto& entry : before.entries[index]) {
                const RowPlace place = ToRowPlace(entry.second);
                EXPECT_TRUE(!Keeps(place, before.rows.at(place)) || Finds(*found, index, entry))
                    << name_.toStdString() << " " << index << " " << entry.second;
            }
        }
    }

    void CompareAll() {
        std::size_t rows = 0;
        for (auto key = Stored().FirstRow(); key; key = Stored().RowBehind(*key)) {
            CompareRow(*key);
            ++rows;
        }
        EXPECT_EQ(rows, kept_.rows.size());
        EXPECT_EQ(Stored().Figures().Rows(), rows);
        for (std::size_t index = 0; index < kept_.entries.size(); ++index) {
            CompareFrom(index, {}, static_cast<int>(rows) + 1);
        }
    }

private:
    static constexpr int Id = 0;
    /// So high no number is that is given.
    static constexpr int HighestGiven = 1'000'000;

    bool Keeps(RowPlace place, const Row& row) const {
        const auto now = kept_.rows.find(place);
        return now != kept_.rows.end() && now->second == row;
    }

    static bool Finds(IndexedTable& table, std::size_t index, const Entries::value_type& entry) {
        IndexCursor cursor = table.IndexAt(static_cast<int>(index)).Tree().AtLeast(entry.first);
        while (cursor.HasEntry() && std::ranges::equal(cursor.EntryKey(), entry.first)) {
            if (cursor.Row() == entry.second) {
                return true;
            }
            cursor.Next();
        }
        return false;
    }

    Table& Stored() { return table_->Rows(); }
    const TableLayout& Layout() const { return table_->Layout(); }
    IndexObserver& Index(std::size_t index) { return table_->IndexAt(static_cast<int>(index)); }

    Rows::const_iterator SomeRow() {
        // In the order of the places, the one behind some place.
        const RowPlace last = std::prev(kept_.rows.end())->first;
        const auto some = static_cast<std::uint32_t>(values_.Below(static_cast<int>(ToNumber(last)) + 1));
        return kept_.rows.lower_bound(ToRowPlace(some));
    }

    Value SomeValue(std::size_t column) {
        if (column == Id) {
            return values_.OneIn(4) ? Value(qint64{values_.Below(HighestGiven)}) : Null();
        }
        return values_.ValueFor(Layout().columns[column]);
    }

    RowKey KeyOf(std::size_t index, const Row& row) {
        Row values;
        for (const IndexColumn& column : Index(index).Definition().columns) {
            const Value& value = row[static_cast<std::size_t>(column.column)];
            const auto* moment = std::get_if<QDateTime>(&value);
            values.push_back(moment == nullptr ? value : Value(ToDateNumber(*moment)));
        }
        RowKey key;
        MakeRowKey(key, Index(index).Columns(), values);
        return key;
    }

    // The first index that has something against a row decides.
    int RefusalOf(const Row& row, const Row* old) {
        for (std::size_t index = 0; index < kept_.entries.size(); ++index) {
            const RealIndex& definition = Index(index).Definition();
            const RowKey key = KeyOf(index, row);
            if (old != nullptr && key.bytes == KeyOf(index, *old).bytes) {
                continue;
            }
            if (key.bytes.size() + IndexForm::RowSize > IndexForm::LongestEntry) {
                return ErrorNumber::Other;
            }
            if (key.hasNull && definition.refusesNulls) {
                return ErrorNumber::NullInPrimaryKey;
            }
            const auto found = kept_.entries[index].lower_bound({key.bytes, 0});
            if (definition.isUnique && !key.isAllNull && found != kept_.entries[index].end() &&
                found->first == key.bytes) {
                return ErrorNumber::DuplicateKey;
            }
        }
        return 0;
    }

    void NoteEntries(RowPlace place, const Row& row, bool isThere) {
        for (std::size_t index = 0; index < kept_.entries.size(); ++index) {
            const RowKey key = KeyOf(index, row);
            if (key.isAllNull && Index(index).Definition().ignoresNulls) {
                continue;
            }
            const std::pair entry(key.bytes, ToNumber(place));
            if (isThere) {
                kept_.entries[index].insert(entry);
            } else {
                kept_.entries[index].erase(entry);
            }
        }
    }

    // As a statement: one that fails is undone.
    template <class Action>
    bool Succeeds(int expected, Action action) {
        const PagedFile::Mark mark = pages_->SetMark();
        const int failure = FailureOf(action);
        if (failure != 0) {
            pages_->UndoTo(mark);
        }
        EXPECT_EQ(failure, expected);
        return failure == 0;
    }

    void Insert() {
        Row row;
        for (std::size_t column = 0; column < Layout().columns.size(); ++column) {
            row.push_back(SomeValue(column));
        }
        Row stored = row;
        if (IsNull(row[Id])) {
            stored[Id] = kept_.lastNumber + 1;
        }
        const bool isStorable = std::all_of(row.begin(), row.end(), IsStorable);
        RowPlace place;
        if (Succeeds(isStorable ? RefusalOf(stored, nullptr) : ErrorNumber::WrongType,
                     [&] { place = Stored().Insert(row); })) {
            EXPECT_FALSE(kept_.rows.contains(place));
            Note(place, stored);
        }
    }

    void Update() {
        const auto [place, old] = *SomeRow();
        Row row = old;
        std::vector<CellChange> changes;
        bool isStorable = true;
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (!values_.OneIn(4)) {
                continue;
            }
            row[column] = SomeValue(column);
            isStorable = isStorable && IsStorable(row[column]);
            changes.push_back({static_cast<int>(column), row[column]});
        }
        if (Succeeds(isStorable ? RefusalOf(row, &old) : ErrorNumber::WrongType,
                     [&, key = place] { Stored().Update(key, changes); })) {
            NoteEntries(place, old, false);
            Note(place, row);
        }
    }

    void Note(RowPlace place, const Row& row) {
        kept_.rows[place] = row;
        kept_.lastNumber = std::max(kept_.lastNumber, std::get<qint64>(row[Id]));
        NoteEntries(place, row, true);
    }

    void Delete() {
        const auto [place, row] = *SomeRow();
        if (Succeeds(0, [&, key = place] { Stored().Delete(key); })) {
            NoteEntries(place, row, false);
            kept_.rows.erase(place);
            EXPECT_FALSE(Stored().Find(place));
        }
    }

    void Wipe() {
        if (Succeeds(0, [&] { Stored().Wipe(); })) {
            kept_.rows.clear();
            std::for_each(kept_.entries.begin(), kept_.entries.end(), [](Entries& all) { all.clear(); });
        }
    }

    void CompareRow(RowPlace place) {
        const StoredRow stored = Stored().Read(place);
        for (std::size_t column = 0; column < Layout().columns.size(); ++column) {
            EXPECT_EQ(Stored().ValueOf(stored, static_cast<int>(column)), kept_.rows[place][column])
                << Layout().columns[column].name.toStdString();
        }
    }

    // A key that some row has, or that one might have.
    void Seek() {
        const auto index = static_cast<std::size_t>(values_.Below(static_cast<int>(kept_.entries.size())));
        Row row = SomeRow()->second;
        if (values_.OneIn(2)) {
            const auto column = static_cast<std::size_t>(Index(index).Definition().columns[0].column);
            row[column] = SomeValue(column);
        }
        const Key key = KeyOf(index, row).bytes;
        CompareFrom(index, key, 4);
        CompareBefore(index, key, 4);
    }

    void CompareFrom(std::size_t index, const Key& key, int most) {
        auto entry = kept_.entries[index].lower_bound({key, 0});
        IndexCursor cursor = Index(index).Tree().AtLeast(key);
        for (; most > 0 && cursor.HasEntry() && entry != kept_.entries[index].end(); --most) {
            CompareEntry(cursor, *entry);
            cursor.Next();
            ++entry;
        }
        EXPECT_TRUE(most == 0 || cursor.HasEntry() == (entry != kept_.entries[index].end()));
    }

    void CompareBefore(std::size_t index, const Key& key, int most) {
        auto entry = kept_.entries[index].lower_bound({key, 0});
        IndexCursor cursor = Index(index).Tree().Before(key);
        for (; most > 0 && cursor.HasEntry() && entry != kept_.entries[index].begin(); --most) {
            CompareEntry(cursor, *--entry);
            cursor.Previous();
        }
        EXPECT_TRUE(most == 0 || cursor.HasEntry() == (entry != kept_.entries[index].begin()));
    }

    static void CompareEntry(const IndexCursor& cursor, const Entries::value_type& entry) {
        EXPECT_TRUE(std::ranges::equal(cursor.EntryKey(), entry.first));
        EXPECT_EQ(cursor.Row(), entry.second);
    }

    QString name_;
    RandomValues& values_;
    PagedFile* pages_ = nullptr;
    std::unique_ptr<IndexedTable> table_;
    Kept kept_;
    int target_ = 400;
};

}  // namespace engine::jet
