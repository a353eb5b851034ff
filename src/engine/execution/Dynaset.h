#pragma once

#include "engine/Recordset.h"
#include "engine/dialect/Tokenizer.h"
#include "engine/execution/HeldKeys.h"
#include "engine/execution/StatementCache.h"
#include "engine/execution/Write.h"

#include <deque>
#include <optional>
#include <vector>

namespace engine::execution {

class FileDatabase;

/// Rows that can be changed, found again by their keys. The keys, and so the rows and their order, are read
/// when the set is opened; rows that are equal in the order asked for come in the order of their keys. A row
/// added through the set is not among its rows.
class Dynaset : public Recordset {
public:
    Dynaset(FileDatabase& database, const PreparedStatement& prepared, const dialect::ShapedStatement& shaped,
            bool readOnly);

    bool Bof() const override;
    bool Eof() const override;
    void MoveNext() override;
    void AddNew() override;
    void Edit() override;
    void Update(short type, bool force) override;
    void CancelUpdate(short type) override;
    void Delete() override;
    int FieldCount() const override;
    Field& Fields(int place) override;
    Field& Fields(const QString& name) override;

private:
    class DynasetField : public Field {
    public:
        DynasetField(Dynaset& set, size_t place, size_t column, QString name)
            : set_(set), place_(place), column_(column), name_(std::move(name)) {}

        const QString& Name() const override { return name_; }
        DataType Type() const override;
        Value Get() const override { return set_.Get(place_); }
        void Set(const Value& value) override { set_.Set(place_, value); }
        size_t Column() const { return column_; }

    private:
        Dynaset& set_;
        size_t place_;
        size_t column_;
        QString name_;
    };

    enum class Editing { Nothing, NewRow, CurrentRow };
    enum class RowState { Unread, Read, Deleted };

    void ChooseFields(const PreparedStatement& prepared);
    void ReadKeys(const PreparedStatement& prepared, const dialect::ShapedStatement& shaped);
    void ReadRow();
    void RequireCurrentRow() const;
    RowWrite ChangeOfCurrentRow(RowWrite::Kind kind);
    void RequireWritable() const;
    void StopEditing();
    Value Get(size_t place);
    void Set(size_t place, const Value& value);

    FileDatabase& database_;
    std::shared_ptr<const TableSchema> table_;
    std::deque<DynasetField> fields_;
    std::string readRowSql_;
    bool readOnly_;

    HeldKeys held_;
    size_t current_ = 0;

    RowState rowState_ = RowState::Unread;
    std::vector<Value> row_;  ///< By place of the field.

    Editing editing_ = Editing::Nothing;
    std::vector<std::optional<Value>> edited_;  ///< By place of the field.
};

}  // namespace engine::execution
