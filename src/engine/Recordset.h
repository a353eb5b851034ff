#pragma once

#include "engine/Value.h"

#include <QString>

#include <memory>

namespace engine {

/// Kinds of row sets (the Type argument of OpenRecordset).
enum RecordsetType : short { dbOpenDynaset = 2, dbOpenForwardOnly = 8 };

/// Ways of locking (the LockEdit argument). Engines here lock row by row while writing, whatever is asked.
enum LockType : short { dbOptimistic = 3, dbReadOnly = 4 };

/// The Type argument of Update and CancelUpdate.
inline constexpr short dbUpdateRegular = 1;

/// One column of a row set, and its value in the current row or in the row being edited.
class Field {
public:
    Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    virtual const QString& Name() const = 0;
    virtual DataType Type() const = 0;
    /// Fails with 3021 when there is no current row and with 3167 when the current row has been deleted.
    virtual Value Get() const = 0;
    /// Fails with 3020 outside of AddNew and Edit. Whether the value suits the column is looked at by Update.
    virtual void Set(const Value& value) = 0;
};

/// The rows of a select statement.
///
/// A dynaset can be changed. Which rows it has, and in which order, is settled when it is opened; what is in
/// a row is read when the row is looked at. Rows are found again by their key, so another program may change
/// or delete them meanwhile: a deleted row gives failure 3167 on use. A forward-only set is read once from
/// the front and refuses changes with 3027.
class Recordset {
public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    virtual ~Recordset() = default;

    virtual bool Bof() const = 0;
    virtual bool Eof() const = 0;
    /// Fails with 3021 at the end.
    virtual void MoveNext() = 0;

    /// Begins a new row. Its columns hold what the file has for new rows, mostly null, until set.
    virtual void AddNew() = 0;
    /// Begins a change of the current row.
    virtual void Edit() = 0;
    /// Writes what AddNew or Edit began. After a failure the row is still being edited (CancelUpdate ends
    /// that). A text longer than its column fails with 3163, a value of another nature with 3421. After
    /// AddNew the current row is the one from before.
    virtual void Update(short type = dbUpdateRegular, bool force = false) = 0;
    virtual void CancelUpdate(short type = dbUpdateRegular) = 0;
    /// Deletes the current row. It stays the current one, and unreadable, until the next move.
    virtual void Delete() = 0;

    virtual int FieldCount() const = 0;
    /// By place from 0. Fails with 3265.
    virtual Field& Fields(int place) = 0;
    /// By name, without regard to case. Fails with 3265.
    virtual Field& Fields(const QString& name) = 0;
};

}  // namespace engine
