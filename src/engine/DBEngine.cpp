#include "engine/DBEngine.h"

#include "engine/FileName.h"
#include "engine/OpenDatabases.h"
#include "engine/jet/sql/JetDatabase.h"
#include "engine/sqlite/CreateDatabase.h"
#include "engine/sqlite/SqliteDatabase.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"

#include <QFile>
#include <QFileInfo>

namespace engine {

namespace {

// What the file says of itself in its first bytes.
QByteArray FirstBytes(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) {
        throw Error(ErrorNumber::CannotOpenDatabase, QStringLiteral("Could not find file '%1'.").arg(path));
    }
    if (info.isDir()) {
        RaiseUnrecognized(path, QStringLiteral("it is a folder"));
    }
    if (!info.isFile()) {
        RaiseUnrecognized(path, QStringLiteral("it is not a regular file"));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Error(ErrorNumber::CannotOpenDatabase,
                    QStringLiteral("Could not open file '%1': %2.").arg(path, file.errorString()));
    }
    return file.read(32);
}

}  // namespace

QString EngineName() {
    return QStringLiteral("Wrenfield database engine");
}

DBEngine::DBEngine() : workspace_(std::make_shared<Workspace>()) {
    platform::BeforeMessageBox(FlushOpenDatabasesUnlessHeldUp);
    // The last first: files are left when everything is in them.
    platform::AtProcessEnd(jet::JetFile::LeaveAll);
    platform::AtProcessEnd(FlushOpenDatabases);
}

DBEngine& DBEngine::Instance() {
    static DBEngine instance;
    return instance;
}

std::shared_ptr<Workspace> DBEngine::Workspaces(int place) {
    if (place != 0) {
        throw Error(ErrorNumber::NoSuchItem,
                    QStringLiteral("Item not found in this collection: workspace %1.").arg(place));
    }
    return workspace_;
}

std::unique_ptr<Database> DBEngine::OpenDatabase(const QString& name, bool exclusive, bool readOnly) {
    // Also because looking into a file lets go of the locks that this process holds on it.
    FlushAll();
    if (exclusive || readOnly) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: databases are opened shared and writable only."));
    }
    const QString path = FileName(name);
    const QByteArray header = FirstBytes(path);
    if (header.isEmpty()) {
        RaiseUnrecognized(path, QStringLiteral("the file is empty"));
    }
    if (sqlite::IsSqliteHeader(header)) {
        return std::make_unique<sqlite::SqliteDatabase>(path);
    }
    if (jet::IsJetHeader(header)) {
        return std::make_unique<jet::JetDatabase>(path);
    }
    RaiseUnrecognized(path, QStringLiteral("it is no database"));
}

void DBEngine::CreateDatabase(const QString& path, FileFormat format,
                              const std::vector<TableDefinition>& tables, const FillDatabase& fill) {
    if (format == FileFormat::Jet) {
        jet::CreateDatabaseFile(path, tables, fill);
    } else {
        sqlite::CreateDatabaseFile(path, tables, fill);
    }
}

void DBEngine::FlushAll() {
    FlushOpenDatabases();
}

}  // namespace engine
