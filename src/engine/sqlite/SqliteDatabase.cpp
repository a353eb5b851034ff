#include "engine/sqlite/SqliteDatabase.h"

#include "engine/OpenDatabases.h"
#include "engine/sqlite/CreateDatabase.h"
#include "engine/sqlite/Dynaset.h"
#include "engine/sqlite/ForwardOnlySet.h"

namespace engine::sqlite {

bool IsSqliteHeader(const QByteArray& firstBytes) {
    static const QByteArray signature("SQLite format 3\0", 16);
    return firstBytes.startsWith(signature);
}

SqliteDatabase::SqliteDatabase(const QString& path)
    : path_(path), connection_(path, Connection::Mode::Existing) {
    RegisterDatabase(*this);
}

SqliteDatabase::~SqliteDatabase() {
    UnregisterDatabase(*this);
    group_.Commit();
}

void SqliteDatabase::Execute(const QString& statement) {
    group_.Execute(statement);
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(const QString& statement, short type,
                                                         short lockEdit) {
    group_.BeforeReading();
    std::unique_ptr<Recordset> rows = Open(statement, type, lockEdit);
    group_.AfterReading();
    return rows;
}

std::unique_ptr<Recordset> SqliteDatabase::Open(const QString& statement, short type, short lockEdit) {
    dialect::ShapedStatement shaped;
    const PreparedStatement& prepared = *statements_.ForText(statement, shaped);
    if (prepared.parsed.kind != dialect::StatementKind::Select) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: only a select has rows."));
    }
    if (type == dbOpenDynaset) {
        return std::make_unique<Dynaset>(*this, prepared, shaped, lockEdit == dbReadOnly);
    }
    if (type == dbOpenForwardOnly) {
        return std::make_unique<ForwardOnlySet>(*this, prepared, shaped);
    }
    throw Error(ErrorNumber::InvalidOperation,
                QStringLiteral("Invalid operation: no row set of type %1.").arg(type));
}

void SqliteDatabase::Flush() {
    group_.Commit();
}

void SqliteDatabase::FlushUnlessHeldUp() {
    group_.CommitUnlessHeldUp();
}

void SqliteDatabase::LockForImport() {
    importLock_->Take();
}

void SqliteDatabase::CopyTo(const QString& path) {
    Flush();
    CopyDatabaseFile(connection_, path);
}

void SqliteDatabase::OnLostWrite(LostWriteListener listener) {
    group_.OnLostWrite(std::move(listener));
}

}  // namespace engine::sqlite
