#include "engine/execution/ForwardOnlySet.h"

#include "engine/Error.h"
#include "engine/execution/FileDatabase.h"
#include "engine/execution/FindField.h"
#include "engine/execution/ValueBinding.h"

namespace engine::execution {

namespace {

[[noreturn]] void RaiseReadOnly() {
    throw Error(ErrorNumber::ReadOnlyDatabase,
                QStringLiteral("Cannot update. Database or object is read-only."));
}

[[noreturn]] void RaiseNoCurrentRecord() {
    throw Error(ErrorNumber::NoCurrentRecord, QStringLiteral("No current record."));
}

// A column that isn't one of the table's own, a literal, is read by its nature.
DataType TypeOf(const TableSchema& table, const dialect::SelectItem& item) {
    return item.column.empty() ? dbText : table.columns[table.PlaceOf(item.column)].type;
}

QString NameOf(const dialect::SelectItem& item) {
    return QString::fromStdString(item.alias.empty() ? item.column : item.alias);
}

}  // namespace

// The compiled statement is this set's own: the set keeps it running for as long as it lives.
ForwardOnlySet::ForwardOnlySet(FileDatabase& database, const PreparedStatement& prepared,
                               const dialect::ShapedStatement& shaped)
    : database_(database), statement_(database.connection_->Prepare(prepared.parsed.sql)) {
    const TableSchema& table = *prepared.table;
    if (prepared.parsed.items.empty()) {
        for (const Column& column : table.columns) {
            fields_.emplace_back(*this, fields_.size(), column.name, column.type);
        }
    }
    for (const dialect::SelectItem& item : prepared.parsed.items) {
        fields_.emplace_back(*this, fields_.size(), NameOf(item), TypeOf(table, item));
    }
    row_.resize(fields_.size());
    for (size_t place = 0; place < shaped.literals.size(); ++place) {
        const dialect::Literal& literal = shaped.literals[place];
        // Copied, as the statement outlives the text that it was opened with.
        texts_.emplace_back(shaped.Text(literal));
        BindLiteral(statement_.get(), static_cast<int>(place) + 1, nullptr, literal, texts_.back());
    }
    Step();
    hadRows_ = !atEnd_;
}

void ForwardOnlySet::Step() {
    const int step = sqlite3_step(statement_.get());
    if (step == SQLITE_ROW) {
        for (size_t place = 0; place < fields_.size(); ++place) {
            row_[place] = ReadValue(statement_.get(), static_cast<int>(place), fields_[place].Type());
        }
        return;
    }
    atEnd_ = true;
    sqlite3_reset(statement_.get());
    if (step != SQLITE_DONE) {
        database_.connection_->Raise(step);
    }
}

bool ForwardOnlySet::Bof() const {
    return !hadRows_;
}

bool ForwardOnlySet::Eof() const {
    return atEnd_;
}

void ForwardOnlySet::MoveNext() {
    if (atEnd_) {
        RaiseNoCurrentRecord();
    }
    Step();
}

Value ForwardOnlySet::Get(size_t place) const {
    if (atEnd_) {
        RaiseNoCurrentRecord();
    }
    return row_[place];
}

void ForwardOnlySet::ReadOnlyField::Set(const Value& /*value*/) {
    RaiseReadOnly();
}

void ForwardOnlySet::AddNew() {
    RaiseReadOnly();
}

void ForwardOnlySet::Edit() {
    RaiseReadOnly();
}

void ForwardOnlySet::Update(short /*type*/, bool /*force*/) {
    RaiseReadOnly();
}

void ForwardOnlySet::CancelUpdate(short /*type*/) {
    RaiseReadOnly();
}

void ForwardOnlySet::Delete() {
    RaiseReadOnly();
}

int ForwardOnlySet::FieldCount() const {
    return static_cast<int>(fields_.size());
}

Field& ForwardOnlySet::Fields(int place) {
    return FieldAt(fields_, place);
}

Field& ForwardOnlySet::Fields(const QString& name) {
    return FieldNamed(fields_, name);
}

}  // namespace engine::execution
