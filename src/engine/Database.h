#pragma once

#include "engine/Error.h"
#include "engine/Recordset.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace engine {

/// An open database.
///
/// Each statement and each row written is final on its own: one that fails undoes itself alone. The engine
/// brings them to the disk in groups of at most 50 milliseconds, in the order in which they were made.
class Database {
public:
    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    virtual ~Database() = default;

    /// Runs one statement of the dialect (see docs/database.md) that changes data.
    virtual void Execute(const QString& statement) = 0;

    /// Opens the rows of a select statement. Type is a RecordsetType, lockEdit a LockType.
    virtual std::unique_ptr<Recordset> OpenRecordset(const QString& statement, short type,
                                                     short lockEdit) = 0;

    /// Brings all that was written to the disk.
    virtual void Flush() = 0;

    /// The same, unless another program holds the file up: what was written then stays in memory for a later
    /// try. For a program that only pauses.
    virtual void FlushUnlessHeldUp() { Flush(); }

    /// Keeps imports in other processes from writing to the file until all databases of this process that are
    /// open on it are closed, or the process ends. Writing does the same; an import that is to change nothing
    /// unless it can change all asks first. Fails at once with 3260, naming who keeps this one out; then all
    /// writes fail so until this succeeds.
    virtual void LockForImport() = 0;

    /// For an import, which had better not begin than end halfway: fails with 3219 if a table lies in another
    /// file, or if the file asks something of its rows that isn't understood here. The words name the table.
    /// Tables that aren't there are passed over.
    virtual void RequireWritable(const QStringList& /*tables*/) {}

    /// Lets all writes of this process into the file fail for this reason until LockForImport succeeds: an
    /// import that may not begin must not go on halfway either.
    virtual void RefuseWrites(const Error& /*why*/) {}

    /// Brings all that was written to the disk and looks whether the file is still the one that was opened,
    /// and whether each table holds at least the rows that this database has added to it. One failure for
    /// each difference; none if nothing was added. What is read afterwards comes from the file itself.
    /// Fails if the file can't be read.
    virtual std::vector<Error> CheckWritten() = 0;

    /// Copies the whole database, as it stands now, to a new file. Fails with 3044 if no file can have
    /// this name, 3204 if the file is there already, 3219 under a name that the database uses for itself.
    virtual void CopyTo(const QString& path) = 0;

    /// A write that had succeeded and then could not be stored when its group was brought to the disk: the
    /// failure, and what was to be written. Without a listener such losses are told as message boxes.
    using LostWriteListener = std::function<void(const Error& error, const QString& write)>;
    virtual void OnLostWrite(LostWriteListener listener) = 0;
};

}  // namespace engine
