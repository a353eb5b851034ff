#include "engine/jet/sql/JetConnection.h"

#include "engine/dialect/Names.h"
#include "engine/jet/sql/CellRows.h"
#include "engine/jet/sql/JetTransaction.h"
#include "engine/jet/sql/RepeatedChange.h"
#include "engine/jet/sql/TableModule.h"

#include <algorithm>
#include <numeric>

namespace engine::jet {

namespace {

QString NameOf(const std::string& name) {
    return QString::fromStdString(name);
}

// The longest row that the table could be given.
std::size_t LongestRowOf(const TableLayout& layout) {
    constexpr std::size_t Frame = 64;
    constexpr std::size_t LongestLongValue = 64;
    return std::accumulate(layout.columns.begin(), layout.columns.end(), Frame,
                           [](std::size_t size, const Column& column) {
                               return size + 2 + (IsLongType(column.type) ? LongestLongValue : column.size);
                           });
}

}  // namespace

JetConnection::JetConnection(std::shared_ptr<JetFile> file) : file_(std::move(file)) {
    Open(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    AddTableModule(*this);
}

// Its tables know this object to their end.
JetConnection::~JetConnection() {
    Close();
}

std::unique_ptr<execution::Transaction> JetConnection::MakeTransaction() {
    return std::make_unique<JetTransaction>(*file_);
}

bool JetConnection::HasTable(const std::string& name) {
    const bool isThere = file_->HasTable(NameOf(name));
    if (isThere) {
        Run(("create virtual table if not exists " + dialect::QuotedName(name) + " using " + TableModuleName)
                .c_str());
    }
    return isThere;
}

bool JetConnection::TakesAnyRow(const std::string& table) {
    const RuledTable& known = file_->TableNamed(NameOf(table));
    const TableLayout& layout = known.Layout();
    return known.IsPlain() &&
           std::none_of(layout.indexes.begin(), layout.indexes.end(),
                        [](const RealIndex& index) { return index.isUnique || index.refusesNulls; }) &&
           LongestRowOf(layout) <= LongestRow;
}

std::vector<std::optional<Value>> JetConnection::DefaultsOf(const std::string& table) {
    return file_->TableNamed(NameOf(table)).Rules().KnownDefaults();
}

qint64 JetConnection::Change(sqlite3_stmt* statement, const std::vector<size_t>& written) {
    written_ = written;
    return AsOne([&] { return Connection::Change(statement, written); });
}

std::optional<qint64> JetConnection::Empty(const std::string& table) {
    return AsOne([this, &table] {
        RuledTable& wiped = file_->TableNamed(NameOf(table));
        const auto count = qint64{wiped.Rows().Figures().Rows()};
        wiped.Wipe();
        return count;
    });
}

// All rows are found before the first one is changed, which might move on to where others are looked for.
std::vector<RowPlace> JetConnection::RowsOf(sqlite3_stmt* keys) {
    const execution::RunningStatement found(keys);
    std::vector<RowPlace> rows;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(found.get())) == SQLITE_ROW) {
        rows.push_back(ToRowPlace(static_cast<std::uint32_t>(sqlite3_column_int64(found.get(), 0))));
    }
    if (step != SQLITE_DONE) {
        Raise(step);
    }
    return rows;
}

std::optional<qint64> JetConnection::ChangeEach(const std::string& table, sqlite3_stmt* keys,
                                                const std::vector<size_t>& columns, sqlite3_stmt* values) {
    return AsOne([&] {
        const std::vector<RowPlace> rows = RowsOf(keys);
        const execution::RunningStatement running(values);
        if (sqlite3_step(running.get()) != SQLITE_ROW) {
            Raise(sqlite3_errcode(Handle()));
        }
        RepeatedChange change(file_->TableNamed(NameOf(table)), columns, running.get());
        for (const RowPlace row : rows) {
            change.Make(row);
        }
        return static_cast<qint64>(rows.size());
    });
}

std::unique_ptr<execution::LiteralRows> JetConnection::RowsOfLiterals(const std::string& table,
                                                                      const std::vector<size_t>& columns) {
    RuledTable& known = file_->TableNamed(NameOf(table));
    return CellRows::CanKeep(known, columns) ? std::make_unique<CellRows>(*this, known, columns) : nullptr;
}

void JetConnection::Put(Table& table, std::span<RowCells> rows) {
    AsOne([&] {
        for (RowCells& row : rows) {
            NoteInserted(table.Insert(row));
        }
        return rows.size();
    });
    TellOfRows(rows.size());
}

void JetConnection::BeginPart() {
    file_->BeginPart();
}

void JetConnection::TakeBackPart() {
    file_->TakeBackPart();
}

void JetConnection::EndPart() {
    file_->EndPart();
}

size_t JetConnection::Memory() const {
    return file_->Pages().ChangedBytes();
}

void JetConnection::Forget() {
    file_->Pages().Forget();
}

Error JetConnection::FailureOf(int resultCode) {
    if (failure_) {
        return *std::exchange(failure_, std::nullopt);
    }
    return Connection::FailureOf(resultCode);
}

}  // namespace engine::jet
