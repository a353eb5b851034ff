#include "engine/execution/Dynaset.h"

#include "engine/Error.h"
#include "engine/execution/FileDatabase.h"
#include "engine/execution/FindField.h"
#include "engine/execution/KeysInOrder.h"
#include "engine/execution/ValueBinding.h"

namespace engine::execution {

Dynaset::Dynaset(FileDatabase& database, const PreparedStatement& prepared,
                 const dialect::ShapedStatement& shaped, bool readOnly)
    : database_(database), table_(prepared.table), readOnly_(readOnly), held_(database.group_.Held()) {
    ChooseFields(prepared);
    ReadKeys(prepared, shaped);
}

DataType Dynaset::DynasetField::Type() const {
    return set_.table_->columns[column_].type;
}

void Dynaset::ChooseFields(const PreparedStatement& prepared) {
    std::string columns;
    const auto choose = [this, &columns](size_t column, const QString& name) {
        columns += (columns.empty() ? "" : ", ") + table_->columns[column].sqlName;
        fields_.emplace_back(*this, fields_.size(), column, name);
    };
    if (prepared.parsed.items.empty()) {
        for (size_t column = 0; column < table_->columns.size(); ++column) {
            choose(column, table_->columns[column].name);
        }
    }
    for (const dialect::SelectItem& item : prepared.parsed.items) {
        if (item.column.empty()) {
            throw Error(
                ErrorNumber::InvalidOperation,
                QStringLiteral("Invalid operation: a row set that can be changed shows columns only."));
        }
        const std::string& name = item.alias.empty() ? item.column : item.alias;
        choose(table_->PlaceOf(item.column), QString::fromStdString(name));
    }
    readRowSql_ = "select " + columns + " from " + table_->sqlName + " where " + table_->rowKey + " = ?";
    row_.resize(fields_.size());
    edited_.resize(fields_.size());
}

void Dynaset::ReadKeys(const PreparedStatement& prepared, const dialect::ShapedStatement& shaped) {
    held_.table = table_.get();
    held_.readAt = database_.group_.Size();
    held_.keys = KeysInOrder(*database_.connection_, database_.statements_).Read(prepared, shaped);
}

bool Dynaset::Bof() const {
    return held_.keys.empty();
}

bool Dynaset::Eof() const {
    return current_ >= held_.keys.size();
}

void Dynaset::RequireCurrentRow() const {
    if (Eof()) {
        throw Error(ErrorNumber::NoCurrentRecord, QStringLiteral("No current record."));
    }
}

void Dynaset::RequireWritable() const {
    if (readOnly_) {
        throw Error(ErrorNumber::ReadOnlyDatabase,
                    QStringLiteral("Cannot update. Database or object is read-only."));
    }
}

void Dynaset::MoveNext() {
    RequireCurrentRow();
    StopEditing();
    ++current_;
    rowState_ = RowState::Unread;
}

void Dynaset::ReadRow() {
    RequireCurrentRow();
    if (rowState_ == RowState::Unread) {
        database_.group_.BeforeReading();
        const RunningStatement reading(database_.statements_.ForSql(readRowSql_));
        sqlite3_bind_int64(reading.get(), 1, held_.keys[current_]);
        const int step = sqlite3_step(reading.get());
        if (step != SQLITE_ROW && step != SQLITE_DONE) {
            database_.connection_->Raise(step);
        }
        if (step == SQLITE_ROW) {
            for (size_t place = 0; place < fields_.size(); ++place) {
                row_[place] = ReadValue(reading.get(), static_cast<int>(place), fields_[place].Type());
            }
        }
        rowState_ = step == SQLITE_ROW ? RowState::Read : RowState::Deleted;
    }
    if (rowState_ == RowState::Deleted) {
        throw Error(ErrorNumber::RecordDeleted, QStringLiteral("Record is deleted."));
    }
}

void Dynaset::AddNew() {
    RequireWritable();
    StopEditing();
    editing_ = Editing::NewRow;
    const auto defaults = database_.connection_->DefaultsOf(table_->name);
    for (size_t place = 0; place < fields_.size() && !defaults.empty(); ++place) {
        edited_[place] = defaults[fields_[place].Column()];
    }
}

void Dynaset::Edit() {
    RequireWritable();
    StopEditing();
    // Always what the row holds now: another program may have changed it since it was looked at.
    if (rowState_ == RowState::Read) {
        rowState_ = RowState::Unread;
    }
    ReadRow();
    editing_ = Editing::CurrentRow;
}

void Dynaset::Update(short /*type*/, bool /*force*/) {
    if (editing_ == Editing::Nothing) {
        throw Error(ErrorNumber::NoEditStarted,
                    QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
    }
    const bool newRow = editing_ == Editing::NewRow;
    database_.group_.BeforeChangingRow();
    RowWrite write = newRow ? RowWrite{RowWrite::Kind::Insert, table_, 0, {}, {}}
                            : ChangeOfCurrentRow(RowWrite::Kind::Update);
    for (size_t place = 0; place < fields_.size(); ++place) {
        if (edited_[place]) {
            write.values.emplace_back(fields_[place].Column(), *edited_[place]);
        }
    }
    if (newRow || !write.values.empty()) {
        database_.group_.ChangeRow(std::move(write));
    }
    if (!newRow) {
        rowState_ = RowState::Unread;
    }
    StopEditing();
}

RowWrite Dynaset::ChangeOfCurrentRow(RowWrite::Kind kind) {
    RowWrite write{kind, table_, held_.keys[current_], {}, {}};
    if (rowState_ == RowState::Read) {
        for (size_t place = 0; place < fields_.size(); ++place) {
            write.held.emplace_back(fields_[place].Column(), row_[place]);
        }
    }
    return write;
}

void Dynaset::CancelUpdate(short /*type*/) {
    if (editing_ == Editing::Nothing) {
        throw Error(ErrorNumber::NoEditStarted,
                    QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
    }
    StopEditing();
}

void Dynaset::StopEditing() {
    editing_ = Editing::Nothing;
    edited_.assign(edited_.size(), std::nullopt);
}

void Dynaset::Delete() {
    RequireWritable();
    RequireCurrentRow();
    if (rowState_ == RowState::Deleted) {
        throw Error(ErrorNumber::RecordDeleted, QStringLiteral("Record is deleted."));
    }
    StopEditing();
    database_.group_.BeforeRemovingRow(*table_, held_.keys[current_]);
    database_.group_.ChangeRow(ChangeOfCurrentRow(RowWrite::Kind::Delete));
    rowState_ = RowState::Deleted;
}

int Dynaset::FieldCount() const {
    return static_cast<int>(fields_.size());
}

Field& Dynaset::Fields(int place) {
    return FieldAt(fields_, place);
}

Field& Dynaset::Fields(const QString& name) {
    return FieldNamed(fields_, name);
}

Value Dynaset::Get(size_t place) {
    if (editing_ != Editing::Nothing && edited_[place]) {
        return *edited_[place];
    }
    if (editing_ == Editing::NewRow) {
        return Null();
    }
    ReadRow();
    return row_[place];
}

void Dynaset::Set(size_t place, const Value& value) {
    if (editing_ == Editing::Nothing) {
        throw Error(ErrorNumber::NoEditStarted,
                    QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
    }
    edited_[place] = value;
}

}  // namespace engine::execution
