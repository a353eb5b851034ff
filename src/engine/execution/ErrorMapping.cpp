#include "engine/execution/ErrorMapping.h"

namespace engine::execution {

namespace {

QString Detail(sqlite3* connection, int resultCode) {
    // The connection's own words say which column or which index; they are about its last failure only.
    const bool isLastFailure =
        connection != nullptr && (sqlite3_errcode(connection) & 0xFF) == (resultCode & 0xFF);
    return QString::fromUtf8(isLastFailure ? sqlite3_errmsg(connection) : sqlite3_errstr(resultCode));
}

}  // namespace

Error ToError(sqlite3* connection, int resultCode) {
    const QString detail = Detail(connection, resultCode);
    switch (resultCode) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return {ErrorNumber::DuplicateKey,
                    QStringLiteral(
                        "The changes were not successful because they would create duplicate values in "
                        "an index: %1.")
                        .arg(detail)};
        case SQLITE_CONSTRAINT_NOTNULL:
            return {ErrorNumber::NullNotAllowed,
                    QStringLiteral("A field that needs a value has none: %1.").arg(detail)};
        default:
            break;
    }
    switch (resultCode & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {ErrorNumber::Locked,
                    QStringLiteral("Couldn't read or write; the database is locked by another program.")};
        case SQLITE_FULL:
            return {ErrorNumber::DiskFull, QStringLiteral("The disk is full: %1.").arg(detail)};
        case SQLITE_IOERR:
        case SQLITE_CANTOPEN:
            return {ErrorNumber::DiskError, QStringLiteral("Disk error: %1.").arg(detail)};
        case SQLITE_READONLY:
            return {ErrorNumber::ReadOnlyDatabase,
                    QStringLiteral("Cannot update. Database or object is read-only: %1.").arg(detail)};
        case SQLITE_NOTADB:
            return {ErrorNumber::UnrecognizedFormat,
                    QStringLiteral("Unrecognized database format: %1.").arg(detail)};
        case SQLITE_INTERRUPT:
            // Only the budget for reading them ends anything (see Hardening.h).
            return {ErrorNumber::DatabaseDamaged,
                    QStringLiteral("The database is damaged: there is no end to its list of tables.")};
        case SQLITE_CORRUPT:
            return {ErrorNumber::DatabaseDamaged, QStringLiteral("The database is damaged: %1.").arg(detail)};
        default:
            return {ErrorNumber::Other,
                    QStringLiteral("The database refused: %1 (%2).").arg(detail).arg(resultCode)};
    }
}

}  // namespace engine::execution
