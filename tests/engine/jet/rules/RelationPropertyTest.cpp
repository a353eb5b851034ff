#include "RulesFile.h"
#include "engine/jet/rules/RuledTables.h"

#include <rapidcheck/gtest.h>

#include <array>
#include <set>

namespace engine::jet {
namespace {

// The rule told plainly: rows in lists, relations looked up by walking through all of them.
constexpr int TableCount = 3;
constexpr int References = 2;
constexpr std::array<const char*, TableCount> Names{"t0", "t1", "t2"};
constexpr std::array<const char*, References> ReferenceNames{"r0", "r1"};

using Number = std::optional<int>;
struct PlainRow {
    Number id;
    std::array<Number, References> references;

    auto operator<=>(const PlainRow&) const = default;
};
struct PlainRelation {
    int parent = 0;
    int child = 0;
    int reference = 0;
    int onDelete = 0;
    bool cascadesUpdates = false;
};
using PlainRows = std::vector<PlainRow>;
using PlainTables = std::array<PlainRows, TableCount>;

class PlainModel {
public:
    PlainTables tables;
    std::vector<PlainRelation> relations;

    int Insert(int table, const PlainRow& row) {
        for (const PlainRelation& relation : relations) {
            const Number& reference = row.references[at(relation.reference)];
            const bool isOwn = relation.parent == table && reference == row.id;
            if (relation.child == table && reference && !Has(relation.parent, reference) && !isOwn) {
                return ErrorNumber::NoParent;
            }
        }
        return Place(table, row, std::nullopt);
    }

    int Update(int table, std::size_t place, const PlainRow& row) {
        const PlainRow old = tables[at(table)][place];
        for (const PlainRelation& relation : relations) {
            const Number& reference = row.references[at(relation.reference)];
            if (relation.child != table || !reference ||
                reference == old.references[at(relation.reference)]) {
                continue;
            }
            PlainTables after = tables;
            after[at(table)][place].id = row.id;
            if (!Has(after[at(relation.parent)], reference)) {
                return ErrorNumber::NoParent;
            }
        }
        // Who belonged to it, and does so still when its own references have changed.
        PlainTables after = tables;
        after[at(table)][place].references = row.references;
        std::vector<std::pair<const PlainRelation*, std::size_t>> following;
        for (const PlainRelation& relation : relations) {
            if (relation.parent != table || row.id == old.id) {
                continue;
            }
            for (std::size_t child = 0; child < after[at(relation.child)].size(); ++child) {
                if (after[at(relation.child)][child].references[at(relation.reference)] == old.id) {
                    following.emplace_back(&relation, child);
                    if (!relation.cascadesUpdates) {
                        return ErrorNumber::HasChildren;
                    }
                }
            }
        }
        const PlainTables before = tables;
        if (const int failure = Place(table, row, place); failure != 0) {
            return failure;
        }
        for (const auto& [relation, child] : following) {
            tables[at(relation->child)][child].references[at(relation->reference)] = row.id;
        }
        if (HasOrphan()) {
            tables = before;
            return ErrorNumber::NoParent;
        }
        return 0;
    }

    int Delete(int table, const std::set<std::size_t>& places) {
        std::array<std::set<std::size_t>, TableCount> going;
        going[at(table)] = places;
        while (AddChildren(going)) {
        }
        PlainTables after = tables;
        for (const PlainRelation& relation : relations) {
            for (std::size_t child = 0; child < tables[at(relation.child)].size(); ++child) {
                if (going[at(relation.child)].contains(child) || !BelongsToAny(relation, child, going)) {
                    continue;
                }
                if (relation.onDelete == 0) {
                    return ErrorNumber::HasChildren;
                }
                after[at(relation.child)][child].references[at(relation.reference)].reset();
            }
        }
        for (int number = 0; number < TableCount; ++number) {
            PlainRows left;
            for (std::size_t place = 0; place < after[at(number)].size(); ++place) {
                if (!going[at(number)].contains(place)) {
                    left.push_back(after[at(number)][place]);
                }
            }
            tables[at(number)] = left;
        }
        return 0;
    }

private:
    static std::size_t at(int place) { return static_cast<std::size_t>(place); }
    static bool Has(const PlainRows& rows, const Number& id) {
        return std::any_of(rows.begin(), rows.end(), [&id](const PlainRow& row) { return row.id == id; });
    }
    bool Has(int table, const Number& id) const { return Has(tables[at(table)], id); }

    int Place(int table, const PlainRow& row, std::optional<std::size_t> place) {
        PlainRows others = tables[at(table)];
        if (place) {
            others.erase(others.begin() + static_cast<std::ptrdiff_t>(*place));
        }
        if (!row.id) {
            return ErrorNumber::NullInPrimaryKey;
        }
        if (Has(others, row.id)) {
            return ErrorNumber::DuplicateKey;
        }
        if (place) {
            tables[at(table)][*place] = row;
        } else {
            tables[at(table)].push_back(row);
        }
        return 0;
    }

    bool HasOrphan() const {
        return std::any_of(relations.begin(), relations.end(), [this](const PlainRelation& relation) {
            const PlainRows& children = tables[at(relation.child)];
            return std::any_of(children.begin(), children.end(), [&](const PlainRow& row) {
                const Number& reference = row.references[at(relation.reference)];
                return reference && !Has(relation.parent, reference);
            });
        });
    }

    bool BelongsToAny(const PlainRelation& relation, std::size_t child,
                      const std::array<std::set<std::size_t>, TableCount>& parents) const {
        const Number& reference = tables[at(relation.child)][child].references[at(relation.reference)];
        return reference && std::any_of(parents[at(relation.parent)].begin(),
                                        parents[at(relation.parent)].end(), [&](std::size_t parent) {
                                            return tables[at(relation.parent)][parent].id == reference;
                                        });
    }

    bool AddChildren(std::array<std::set<std::size_t>, TableCount>& going) const {
        bool isMore = false;
        for (const PlainRelation& relation : relations) {
            for (std::size_t child = 0; child < tables[at(relation.child)].size(); ++child) {
                if (relation.onDelete == 1 && BelongsToAny(relation, child, going)) {
                    isMore = going[at(relation.child)].insert(child).second || isMore;
                }
            }
        }
        return isMore;
    }
};

std::vector<NewTable> EmptyTables() {
    std::vector<NewTable> tables;
    for (const char* name : Names) {
        NewTable table;
        table.name = QLatin1String(name);
        table.columns = {ColumnOf("id", ColumnType::Long), ColumnOf("r0", ColumnType::Long),
                         ColumnOf("r1", ColumnType::Long)};
        table.indexes = {PrimaryKeyOver({"id"}), IndexOver("r0", {"r0"}), IndexOver("r1", {"r1"})};
        tables.push_back(table);
    }
    return tables;
}

Number SomeNumber() {
    const int number = *rc::gen::inRange(-2, 6);
    return number < 0 ? std::nullopt : Number(number);
}

Value ValueOf(const Number& number) {
    return number ? Value(qint64{*number}) : Value();
}
Number NumberOf(const Value& value) {
    return IsNull(value) ? std::nullopt : Number(static_cast<int>(std::get<qint64>(value)));
}

/// The same rows in a file and in the model.
class Both {
public:
    Both() {
        static constexpr std::array<const char*, 5> RelationNames{"first", "second", "third", "fourth",
                                                                  "fifth"};
        const int count = *rc::gen::inRange(1, 6);
        for (int relation = 0; relation < count; ++relation) {
            model.relations.push_back({*rc::gen::inRange(0, TableCount), *rc::gen::inRange(0, TableCount),
                                       *rc::gen::inRange(0, References), *rc::gen::inRange(0, 3),
                                       *rc::gen::arbitrary<bool>()});
            const PlainRelation& made = model.relations.back();
            file.Relate({RelationNames[static_cast<std::size_t>(relation)], Name(made.parent), "PrimaryKey",
                         Name(made.child), ReferenceNames[static_cast<std::size_t>(made.reference)],
                         static_cast<std::uint8_t>(made.onDelete), made.cascadesUpdates});
        }
        catalogue.emplace(*file.pages);
        tables.emplace(*file.pages, *catalogue);
    }

    void Step() {
        const int table = *rc::gen::inRange(0, TableCount);
        const PlainRows& rows = model.tables[static_cast<std::size_t>(table)];
        const int action = *rc::gen::inRange(0, 20);
        if (action < 9 || rows.empty()) {
            const PlainRow row{SomeNumber(), {SomeNumber(), SomeNumber()}};
            Compare(model.Insert(table, row), [&] {
                Open(table).Insert({ValueOf(row.id), ValueOf(row.references[0]), ValueOf(row.references[1])},
                                   {true, true, true});
            });
        } else if (action < 19) {
            const auto place = *rc::gen::inRange<std::size_t>(0, rows.size());
            const RowPlace key = Find(table, rows[place].id);
            action < 14 ? Update(table, place, key)
                        : Compare(
                              model.Delete(table, {place}), [&] { Open(table).Delete(key); });
        } else {
            std::set<std::size_t> all;
            for (std::size_t place = 0; place < rows.size(); ++place) {
                all.insert(place);
            }
            Compare(model.Delete(table, all), [&] { Open(table).Wipe(); });
        }
    }

private:
    static const char* Name(int table) { return Names[static_cast<std::size_t>(table)]; }
    RuledTable& Open(int table) { return tables->Open(QLatin1String(Name(table))); }

    void Update(int table, std::size_t place, RowPlace key) {
        PlainRow row = model.tables[static_cast<std::size_t>(table)][place];
        std::vector<CellChange> changes;
        for (const int column : *rc::gen::element(std::vector{0}, std::vector{1}, std::vector{2},
                                                  std::vector{0, 1}, std::vector{0, 1, 2})) {
            const Number number = SomeNumber();
            (column == 0 ? row.id : row.references[static_cast<std::size_t>(column - 1)]) = number;
            changes.push_back({column, ValueOf(number)});
        }
        Compare(model.Update(table, place, row), [&] { Open(table).Update(key, changes); });
    }

    RowPlace Find(int table, const Number& id) {
        const Table& rows = Open(table).Rows();
        auto key = rows.FirstRow();
        while (NumberOf(rows.ValueOf(rows.Read(key.value()), 0)) != id) {
            key = rows.RowBehind(*key);
        }
        return *key;
    }

    template <class Action>
    void Compare(int expected, Action action) {
        const PagedFile::Mark mark = file.pages->SetMark();
        const Failing failing = FailureOf(action);
        if (failing.number != 0) {
            file.pages->UndoTo(mark);
        }
        file.pages->EndStatement();
        RC_ASSERT(failing.number == expected);
        for (int table = 0; table < TableCount; ++table) {
            PlainRows sorted = model.tables[static_cast<std::size_t>(table)];
            std::sort(sorted.begin(), sorted.end());
            RC_ASSERT((RowsOf(table) == sorted));
        }
    }

    PlainRows RowsOf(int table) {
        PlainRows rows;
        const Table& stored = Open(table).Rows();
        for (auto key = stored.FirstRow(); key; key = stored.RowBehind(*key)) {
            const StoredRow row = stored.Read(*key);
            rows.push_back({NumberOf(stored.ValueOf(row, 0)),
                            {NumberOf(stored.ValueOf(row, 1)), NumberOf(stored.ValueOf(row, 2))}});
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    RulesFile file{EmptyTables()};
    PlainModel model;
    std::optional<Catalogue> catalogue;
    std::optional<RuledTables> tables;
};

RC_GTEST_PROP(JetRelationProperty, RelatedTablesHoldWhatPlainListsHold, ()) {
    Both both;
    const int steps = *rc::gen::inRange(1, 80);
    for (int step = 0; step < steps; ++step) {
        both.Step();
    }
}

}  // namespace
}  // namespace engine::jet
