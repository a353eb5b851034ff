#include "tools_core/schema/CreateTool.h"

#include "tools_core/import/ImportTool.h"
#include "tools_core/import/Terminal.h"
#include "tools_core/schema/HearthbookSchema.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tools {

namespace {

int Say(int status, const QString& message) {
    PrintError(QStringLiteral("hearthbook-create-database: ") + message + QLatin1Char('\n'));
    return status;
}

QString HelpText() {
    return QStringLiteral(R"(Usage: hearthbook-create-database FILE

Makes a fresh Hearthbook database with empty tables, the options, a chart of accounts, a sample payee and
two sample contractors. An existing file is never overwritten.

  --help      show this text
  --version   show the version

Exit status: 0 done; 1 the file could not be written; 2 bad usage, or the file is there already.
)");
}

bool IsThere(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

int Create(const QString& path) {
    if (IsThere(path)) {
        return Say(ExitStatus::NothingDone, path + QStringLiteral(" is there already"));
    }
    try {
        CreateHearthbookDatabase(path);
    } catch (const platform::Failure& failure) {
        return Say(ExitStatus::DoneWithFailures, QStringLiteral("%1 can't be made: %2 - %3")
                                                     .arg(path)
                                                     .arg(failure.Number())
                                                     .arg(failure.Description()));
    }
    return ExitStatus::Done;
}

}  // namespace

void CreateHearthbookDatabase(const QString& path) {
    const QTemporaryDir workplace(QFileInfo(path).absolutePath() +
                                  QStringLiteral("/.hearthbook-create-XXXXXX"));
    if (!workplace.isValid()) {
        throw engine::Error(engine::ErrorNumber::DiskError, workplace.errorString());
    }
    const QString unfinished = workplace.filePath(QStringLiteral("property.mdb"));
    engine::DBEngine& engine = engine::DBEngine::Instance();
    engine.CreateDatabase(unfinished, HearthbookTables());
    {
        const std::unique_ptr<engine::Database> database = engine.OpenDatabase(unfinished);
        FillFreshDatabase(*database);
        database->Flush();
    }
    QFile finished(unfinished);
    if (!finished.rename(path)) {
        throw engine::Error(engine::ErrorNumber::DatabaseExists, finished.errorString());
    }
}

int RunCreateTool(const QStringList& arguments) {
    if (arguments.contains(QStringLiteral("--help"))) {
        PrintOut(HelpText());
        return ExitStatus::Done;
    }
    if (arguments.contains(QStringLiteral("--version"))) {
        PrintOut(QStringLiteral("hearthbook-create-database " WRENFIELD_VERSION "\n"));
        return ExitStatus::Done;
    }
    if (arguments.size() != 1 || arguments.front().isEmpty() ||
        arguments.front().startsWith(QLatin1Char('-'))) {
        return Say(ExitStatus::NothingDone, QStringLiteral("one file name is needed; see --help"));
    }
    return Create(arguments.front());
}

}  // namespace tools
