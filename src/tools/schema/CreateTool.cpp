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
    return QStringLiteral(R"(Usage: hearthbook-create-database FILE [--format jet|sqlite]

Makes a fresh Hearthbook database with empty tables, the options, a chart of accounts, a sample payee and
two sample contractors. An existing file is never overwritten. A FILE whose name begins with - is told with
its folder, as in ./-FILE.

  --format jet|sqlite   the format of the file: Jet 4, which is Hearthbook's own (the default), or SQLite
  --help                show this text
  --version             show the version

Exit status: 0 done; 1 the file could not be written; 2 bad usage, or the file is there already, or this text
could not be printed.
)");
}

int Create(const QString& path, engine::FileFormat format) {
    // It takes a moment. Ended halfway, it would leave what is unfinished.
    platform::HandleEndSignals();
    if (engine::IsNameTaken(path)) {
        return Say(ExitStatus::NothingDone, path + QStringLiteral(" is there already"));
    }
    try {
        CreateHearthbookDatabase(path, format);
    } catch (const platform::Failure& failure) {
        const bool isThere = failure.Number() == engine::ErrorNumber::DatabaseExists;
        return Say(isThere ? ExitStatus::NothingDone : ExitStatus::DoneWithFailures,
                   QStringLiteral("%1 can't be made: %2 - %3")
                       .arg(path, QString::number(failure.Number()), failure.Description()));
    }
    return ExitStatus::Done;
}

std::optional<engine::FileFormat> FormatNamed(const QString& name) {
    if (name == QLatin1String("jet")) {
        return engine::FileFormat::Jet;
    }
    return name == QLatin1String("sqlite") ? std::optional(engine::FileFormat::Sqlite) : std::nullopt;
}

// Takes the option out of the arguments. None for a format that nobody knows.
std::optional<engine::FileFormat> TakeFormat(QStringList& arguments) {
    const qsizetype option = arguments.indexOf(QStringLiteral("--format"));
    if (option < 0) {
        return engine::FileFormat::Jet;
    }
    const QString name = arguments.value(option + 1);
    arguments.remove(option, std::min<qsizetype>(2, arguments.size() - option));
    return FormatNamed(name);
}

}  // namespace

void CreateHearthbookDatabase(const QString& path, engine::FileFormat format) {
    engine::DBEngine::Instance().CreateDatabase(path, format, HearthbookTables(), FillFreshDatabase);
}

int RunCreateTool(QStringList arguments) {
    if (arguments.contains(QStringLiteral("--help"))) {
        return Show(HelpText());
    }
    if (arguments.contains(QStringLiteral("--version"))) {
        return Show(QStringLiteral("hearthbook-create-database " WRENFIELD_VERSION "\n"));
    }
    const std::optional<engine::FileFormat> format = TakeFormat(arguments);
    if (!format) {
        return Say(ExitStatus::NothingDone, QStringLiteral("--format needs jet or sqlite; see --help"));
    }
    if (arguments.size() != 1 || arguments.front().isEmpty() ||
        arguments.front().startsWith(QLatin1Char('-'))) {
        return Say(ExitStatus::NothingDone, QStringLiteral("one file name is needed; see --help"));
    }
    const std::optional<QString> path = platform::AbsoluteName(arguments.front());
    return path ? Create(*path, *format)
                : Say(ExitStatus::NothingDone,
                      arguments.front() + QStringLiteral(": ") + platform::WhyNoName());
}

}  // namespace tools
