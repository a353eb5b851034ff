#include "database/CurrentDatabase.h"

#include "database/ErrorReport.h"
#include "database/General.h"
#include "database/IntegerText.h"
#include "engine/OpenDatabases.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"

namespace database {

namespace {

std::shared_ptr<engine::Database> currentDatabase;
std::shared_ptr<engine::Workspace> workspace;
QString startupLog;
QString fileToUse;
QString openedFile;

QString Setting(const char16_t* name, const QString& defaultValue) {
    return GetRegistrySetting(QStringLiteral("Settings"), QString::fromUtf16(name), defaultValue);
}

QString FileIn(const QString& directory) {
    return platform::WithPlatformSeparators(directory + QLatin1String("\\property.mdb"));
}

QString PathOnThisComputer() {
    QString path = FileIn(Setting(u"APPPath", platform::ProgramDirectory()));
    startupLog = QStringLiteral("No networking enabled, using ") + path;
    return path;
}

QString PathInNetwork() {
    const QString besideProgram = FileIn(platform::ProgramDirectory());
    QString path = platform::WithPlatformSeparators(Setting(u"DatabaseLocation", besideProgram));
    startupLog = QStringLiteral("Networking enabled.  Attempting to use ") + path;
    if (platform::FileExists(path)) {
        startupLog += QLatin1String("\nDatabase file found");
        return path;
    }
    const auto unableToAccess = [&] {
        return QStringLiteral("Unable to access \n") + path + QLatin1String("\nReverting back to \n") +
               besideProgram;
    };
    platform::ShowMessageBox(unableToAccess());
    path = besideProgram;
    // The trail names the path that is tried now, as support is used to read it; the box has named the wrong
    // one.
    startupLog += QLatin1Char('\n') + unableToAccess();
    return path;
}

QString FindDatabase() {
    if (!fileToUse.isEmpty()) {
        startupLog = QStringLiteral("Using ") + fileToUse;
        return fileToUse;
    }
    const short networkable = ToInteger(Setting(u"Networkable", QStringLiteral("0")));
    return networkable == 0 ? PathOnThisComputer() : PathInNetwork();
}

// The database object of the earlier call is on the same file. What it takes would be mixed with the old
// rows.
void RequireWritable(engine::Database& opened, const QStringList& tables) {
    try {
        opened.RequireWritable(tables);
    } catch (const engine::Error& failure) {
        opened.RefuseWrites(failure);
        throw;
    }
}

}  // namespace

bool StartDatabase(Opening opening, const QStringList& tables) {
    try {
        const QString path = FindDatabase();
        engine::DBEngine& dbEngine = engine::DBEngine::Instance();
        workspace = dbEngine.Workspaces(0);
        std::unique_ptr<engine::Database> opened = dbEngine.OpenDatabase(path, false, false);
        if (opening == Opening::ForImport) {
            opened->LockForImport();
            RequireWritable(*opened, tables);
        }
        SetCurrentDatabase(std::move(opened));
        openedFile = path;
        return true;
    } catch (...) {
        ReportError(QStringLiteral("Start ADO"), QString());
    }
    platform::ShowMessageBox(startupLog);
    if (currentDatabase == nullptr) {
        platform::EndProcess(1);
    }
    return false;
}

void UseDatabaseFile(const QString& path) {
    fileToUse = path;
}

const QString& DatabaseFile() {
    return openedFile;
}

engine::Database& CurrentDatabase() {
    if (currentDatabase == nullptr) {
        platform::RaiseObjectNotSet();
    }
    return *currentDatabase;
}

void SetCurrentDatabase(std::shared_ptr<engine::Database> database) {
    if (database != nullptr) {
        // The routine that made the write has long returned; only the statement's label is still true of it.
        database->OnLostWrite([](const engine::Error& error, const QString& write) {
            ReportFailure(error, QStringLiteral("Execute SQL"), write);
        });
    }
    currentDatabase = std::move(database);
}

void FlushWrites() {
    engine::FlushOpenDatabasesUnlessHeldUp();
}

}  // namespace database
