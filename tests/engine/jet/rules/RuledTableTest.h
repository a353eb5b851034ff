#pragma once

#include "RulesFile.h"
#include "engine/jet/rules/RuledTables.h"

namespace engine::jet {

inline NewTable Owners() {
    NewTable table;
    table.name = QStringLiteral("owner");
    table.columns = {ColumnOf("code", ColumnType::Text, 10), ColumnOf("name", ColumnType::Text, 50)};
    table.indexes = {PrimaryKeyOver({"code"})};
    return table;
}

inline NewTable Houses() {
    NewTable table;
    table.name = QStringLiteral("house");
    table.columns = {ColumnOf("code", ColumnType::Text, 20), ColumnOf("owner", ColumnType::Text, 10),
                     ColumnOf("part_of", ColumnType::Text, 20), ColumnOf("notes", ColumnType::Memo)};
    table.indexes = {PrimaryKeyOver({"code"}), IndexOver("by owner", {"owner"}),
                     IndexOver("by part_of", {"part_of"})};
    return table;
}

inline NewTable Periods() {
    NewTable table;
    table.name = QStringLiteral("period");
    table.columns = {ColumnOf("house", ColumnType::Text, 20), ColumnOf("begins", ColumnType::DateTime),
                     ColumnOf("rent", ColumnType::Currency)};
    table.indexes = {PrimaryKeyOver({"house", "begins"}), IndexOver("by house", {"house"})};
    return table;
}

inline NewTable Letters() {
    NewTable table;
    table.name = QStringLiteral("letter");
    table.columns = {ColumnOf("id", ColumnType::Long), ColumnOf("house", ColumnType::Text, 20),
                     ColumnOf("begins", ColumnType::DateTime)};
    table.columns[0].countsUp = true;
    table.indexes = {PrimaryKeyOver({"id"}), IndexOver("by period", {"house", "begins"}),
                     IndexOver("by house", {"house"})};
    return table;
}

constexpr std::uint8_t Cascade = 1;
constexpr std::uint8_t SetNull = 2;

inline const QDate January(2026, 1, 1);

inline Value Text(const char* text) {
    return QString(QLatin1String(text));
}

class JetRuledTable : public ::testing::Test {
protected:
    void Relate(const RulesFile::Link& link) { file.Relate(link); }
    void RelateHouses(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"ownerhouse", "owner", "PrimaryKey", "house", "by owner", onDelete, cascadesUpdates});
    }
    void RelatePeriods(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"houseperiod", "house", "PrimaryKey", "period", "by house", onDelete, cascadesUpdates});
    }
    void RelateLetters(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"periodletter", "period", "PrimaryKey", "letter", "by period", onDelete, cascadesUpdates});
    }
    void RelateParts(std::uint8_t onDelete = 0, bool cascadesUpdates = false) {
        Relate({"househouse", "house", "PrimaryKey", "house", "by part_of", onDelete, cascadesUpdates});
    }

    RuledTables& Tables() {
        if (!tables) {
            catalogue.emplace(*file.pages);
            tables.emplace(*file.pages, *catalogue);
        }
        return *tables;
    }
    RuledTable& Open(const char* table) { return Tables().Open(QLatin1String(table)); }

    // As a statement does: what fails leaves nothing behind.
    template <class Action>
    Failing Try(Action action) {
        const PagedFile::Mark mark = file.pages->SetMark();
        const Failing failing = FailureOf(action);
        if (failing.number != 0) {
            file.pages->UndoTo(mark);
        }
        file.pages->EndStatement();
        return failing;
    }
    Failing Insert(const char* table, std::initializer_list<std::pair<const char*, Value>> values) {
        RuledTable& to = Open(table);
        const std::vector<Value> row = RulesFile::RowOf(to.Layout(), values);
        return Try([&] { to.Insert(row, std::vector<bool>(row.size(), true)); });
    }
    int AddOwner(const char* code) { return Insert("owner", {{"code", Text(code)}}).number; }
    int AddHouse(const char* code, const Value& owner, const Value& partOf = Null()) {
        return Insert("house", {{"code", Text(code)}, {"owner", owner}, {"part_of", partOf}}).number;
    }
    int AddPeriod(const Value& house, int month) {
        return Insert("period", {{"house", house}, {"begins", FromDate(January.addMonths(month))}}).number;
    }
    int AddLetter(const Value& house, const Value& begins) {
        return Insert("letter", {{"house", house}, {"begins", begins}}).number;
    }

    // The rows of a table whose first column has this value, and all rows.
    RowPlace Find(const char* table, const Value& first) {
        const Table& rows = Open(table).Rows();
        for (auto key = rows.FirstRow(); key; key = rows.RowBehind(*key)) {
            if (rows.ValueOf(rows.Read(*key), 0) == first) {
                return *key;
            }
        }
        ADD_FAILURE() << "no such row in " << table;
        return {};
    }
    Failing Delete(const char* table, const char* code) {
        return Try([&] { Open(table).Delete(Find(table, Text(code))); });
    }
    Failing Change(const char* table, const char* code,
                   std::initializer_list<std::pair<const char*, Value>> values) {
        std::vector<CellChange> changes;
        for (const auto& [column, value] : values) {
            changes.push_back({Open(table).Layout().FindColumn(QLatin1String(column)).value(), value});
        }
        return Try([&] { Open(table).Update(Find(table, Text(code)), changes); });
    }
    Failing Wipe(const char* table) {
        return Try([&] { Open(table).Wipe(); });
    }

    // What a column of all rows holds, in their order, with "-" for null.
    QString Column(const char* table, const char* column) {
        const Table& rows = Open(table).Rows();
        QStringList texts;
        for (auto key = rows.FirstRow(); key; key = rows.RowBehind(*key)) {
            const Value value =
                rows.ValueOf(rows.Read(*key), rows.Layout().FindColumn(QLatin1String(column)).value());
            texts += IsNull(value) ? QStringLiteral("-") : ToText(value);
        }
        return texts.join(QLatin1Char(' '));
    }
    int RowsOf(const char* table) { return static_cast<int>(Open(table).Rows().Figures().Rows()); }

    static bool Tells(const Failing& failing, std::initializer_list<const char*> words) {
        return std::all_of(words.begin(), words.end(), [&failing](const char* word) {
            return failing.sentence.contains(QLatin1String(word));
        });
    }

    RulesFile file{{Owners(), Houses(), Periods(), Letters()}};
    std::optional<Catalogue> catalogue;
    std::optional<RuledTables> tables;
};

}  // namespace engine::jet
