#include "engine/execution/StatementCache.h"

namespace engine::execution {

namespace {

// Far more shapes than an application speaks. Texts that break out of their quotes make new ones now and
// then.
constexpr size_t MostStatements = 500;

template <class Map>
void MakeRoom(Map& statements) {
    if (statements.size() >= MostStatements) {
        statements.clear();
    }
}

void RequireColumns(const TableSchema& table, const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        table.PlaceOf(name);
    }
}

}  // namespace

const std::shared_ptr<PreparedStatement>& StatementCache::ForText(const QString& text,
                                                                  dialect::ShapedStatement& shaped) {
    tokenizer_.Tokenize(text, shaped);
    return ForShape(shaped.Shape());
}

const std::shared_ptr<PreparedStatement>& StatementCache::ForShape(std::string_view shape) {
    if (lastPrepared_ && shape == lastShape_) {
        return lastPrepared_;
    }
    auto known = byShape_.find(shape);
    if (known == byShape_.end()) {
        std::shared_ptr<PreparedStatement> prepared = Prepare(shape);
        MakeRoom(byShape_);
        known = byShape_.emplace(shape, std::move(prepared)).first;
    }
    lastShape_ = known->first;
    lastPrepared_ = known->second;
    return lastPrepared_;
}

std::shared_ptr<PreparedStatement> StatementCache::Prepare(std::string_view shape) {
    auto prepared = std::make_shared<PreparedStatement>();
    prepared->parsed = dialect::Parse(shape);
    prepared->table = schemas_.Table(prepared->parsed.table);
    if (!prepared->parsed.sourceTable.empty()) {
        prepared->source = schemas_.Table(prepared->parsed.sourceTable);
    }
    FindColumns(*prepared);
    for (const std::string& column : prepared->parsed.storedIn) {
        prepared->storedIn.push_back(
            column.empty() ? nullptr : &prepared->table->columns[prepared->table->PlaceOf(column)]);
    }
    prepared->compiled = connection_.Prepare(prepared->parsed.sql);
    // Whether a column takes true, false or null is found when the statement runs; of literals it's known
    // before.
    const bool hasLiteralsAlone = prepared->storedIn.size() == prepared->written.size();
    prepared->canWait = prepared->parsed.valuesBegin > 0 && hasLiteralsAlone && prepared->table->takesAnyRow;
    if (prepared->canWait) {
        prepared->rows = connection_.RowsOfLiterals(prepared->table->name, prepared->written);
    }
    return prepared;
}

void StatementCache::FindColumns(PreparedStatement& prepared) {
    for (const std::string& column : prepared.parsed.columnsWritten) {
        prepared.written.push_back(prepared.table->PlaceOf(column));
    }
    RequireColumns(prepared.source ? *prepared.source : *prepared.table, prepared.parsed.columnsRead);
}

sqlite3_stmt* StatementCache::ForSql(const std::string& sql) {
    const auto known = bySql_.find(sql);
    if (known != bySql_.end()) {
        sqlite3_reset(known->second.get());
        return known->second.get();
    }
    StatementHandle compiled = connection_.Prepare(sql);
    MakeRoom(bySql_);
    return bySql_.emplace(sql, std::move(compiled)).first->second.get();
}

}  // namespace engine::execution
