#include "tools/schema/CreateTool.h"

#include "engine/NewFile.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "tools/import/ImportTool.h"
#include "tools/import/Terminal.h"
#include "tools/schema/HearthbookSchema.h"

namespace tools {

namespace {

int Say(int status, const QString& message) {
    PrintError(QStringLiteral("hearthbook-create-database: ") + message + QLatin1Char('\n'));
    return status;
}

int Show(const QString& text) {
    return PrintOut(text) ? ExitStatus::Done : ExitStatus::NothingDone;
}

QString HelpText() {
    return QStringLiteral(R"(Usage: hearthbook-create-database FILE

Makes a fresh Hearthbook database with empty tables, the options, a chart of accounts, a sample payee and
two sample contractors. An existing file is never overwritten. A FILE whose name begins with - is told with
its folder, as in ./-FILE.

  --help      show this text
  --version   show the version

Exit status: 0 done; 1 the file could not be written; 2 bad usage, or the file is there already, or this text
could not be printed.
)");
}

int Create(const QString& path) {
    // It takes a moment. Ended halfway, it would leave what is unfinished.
    platform::HandleEndSignals();
    if (engine::IsNameTaken(path)) {
        return Say(ExitStatus::NothingDone, path + QStringLiteral(" is there already"));
    }
    try {
        CreateHearthbookDatabase(path);
    } catch (const platform::Failure& failure) {
        const bool isThere = failure.Number() == engine::ErrorNumber::DatabaseExists;
        return Say(isThere ? ExitStatus::NothingDone : ExitStatus::DoneWithFailures,
                   QStringLiteral("%1 can't be made: %2 - %3")
                       .arg(path, QString::number(failure.Number()), failure.Description()));
    }
    return ExitStatus::Done;
}

}  // namespace

void CreateHearthbookDatabase(const QString& path) {
    engine::DBEngine::Instance().CreateDatabase(path, engine::FileFormat::Sqlite, HearthbookTables(),
                                                FillFreshDatabase);
}

int RunCreateTool(const QStringList& arguments) {
    if (arguments.contains(QStringLiteral("--help"))) {
        return Show(HelpText());
    }
    if (arguments.contains(QStringLiteral("--version"))) {
        return Show(QStringLiteral("hearthbook-create-database " WRENFIELD_VERSION "\n"));
    }
    if (arguments.size() != 1 || arguments.front().isEmpty() ||
        arguments.front().startsWith(QLatin1Char('-'))) {
        return Say(ExitStatus::NothingDone, QStringLiteral("one file name is needed; see --help"));
    }
    const std::optional<QString> path = platform::AbsoluteName(arguments.front());
    return path ? Create(*path)
                : Say(ExitStatus::NothingDone,
                      arguments.front() + QStringLiteral(": ") + platform::WhyNoName());
}

}  // namespace tools
