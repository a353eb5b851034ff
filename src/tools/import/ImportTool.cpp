#include "tools/import/ImportTool.h"

#include "database/CurrentDatabase.h"
#include "database/ErrorReport.h"
#include "engine/NewFile.h"
#include "platform/Clock.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Process.h"
#include "records/Collections.h"
#include "records/ImportRun.h"
#include "tools/import/ConsoleMessageBoxes.h"
#include "tools/import/NoDatabase.h"
#include "tools/import/Options.h"
#include "tools/import/ProgressBar.h"
#include "tools/import/Terminal.h"
#include "tools/portfolio/PortfolioReader.h"

namespace tools {

namespace {

int Refuse(const QString& message) {
    PrintError(QStringLiteral("wrenfield-import: ") + message + QLatin1Char('\n'));
    return ExitStatus::NothingDone;
}

int RefuseUsage(const QString& fault) {
    Refuse(fault);
    PrintError(QStringLiteral("wrenfield-import --help tells how it is used.\n"));
    return ExitStatus::NothingDone;
}

/// What is to be seen is all there is to do.
int Show(const QString& text) {
    return PrintOut(text) ? ExitStatus::Done : ExitStatus::NothingDone;
}

int ListFaults(const QString& file, const Faults& faults) {
    for (const Fault& fault : faults) {
        PrintError(FaultLine(file, fault) + QLatin1Char('\n'));
    }
    return Refuse(QStringLiteral("the portfolio has faults (%1); nothing was changed").arg(faults.size()));
}

bool OpenDatabase(const ImportOptions& options) {
    if (!options.database.isEmpty()) {
        database::UseDatabaseFile(options.database);
    }
    database::SetCurrentDatabase(std::make_shared<NoDatabase>());
    return database::StartDatabase();
}

/// Why the import may not begin; empty if it may.
QString Objection(const ImportOptions& options) {
    if (!options.backup.isEmpty() && engine::IsNameTaken(options.backup)) {
        return QStringLiteral("the backup file %1 is there already; nothing was changed").arg(options.backup);
    }
    if (options.isDryRun || options.isYes) {
        return {};
    }
    if (!platform::IsInputATerminal()) {
        return QStringLiteral(
            "this deletes existing data, and there is no terminal to ask on; say --yes to go on");
    }
    const bool isConfirmed =
        Confirm(QStringLiteral("This will delete all existing data in %1. Continue? [y/N] ")
                    .arg(database::DatabaseFile()));
    platform::EndIfRequested();
    return isConfirmed ? QString() : QStringLiteral("nothing was changed");
}

int RefuseFor(const platform::Failure& failure, const QString& what) {
    return Refuse(QStringLiteral("%1: %2 - %3").arg(what).arg(failure.Number()).arg(failure.Description()));
}

/// Whether the import can be done. From here on no other one writes to the database.
bool CanImport(const ImportOptions& options) {
    try {
        if (!options.isDryRun) {
            database::CurrentDatabase().LockForImport();
        }
        database::CurrentDatabase().RequireWritable(records::ImportTables());
        return true;
    } catch (const platform::Failure& failure) {
        RefuseFor(failure, QStringLiteral("nothing was changed"));
        return false;
    }
}

bool MakeBackup(const QString& file) {
    try {
        database::CurrentDatabase().CopyTo(file);
        return true;
    } catch (const platform::Failure& failure) {
        RefuseFor(failure, QStringLiteral("the backup could not be made, nothing was changed"));
        return false;
    }
}

/// Lets the progress bar hear of waiting, for a while.
class WaitingIsTold {
public:
    explicit WaitingIsTold(ProgressBar& progressBar) { engine::SetWaitingListener(&progressBar); }
    ~WaitingIsTold() { engine::SetWaitingListener(nullptr); }
    WaitingIsTold(const WaitingIsTold&) = delete;
    WaitingIsTold& operator=(const WaitingIsTold&) = delete;
};

int Import(ProgressBar& progressBar, const ConsoleMessageBoxes& boxes) {
    const int shownBefore = boxes.Shown();
    records::ImportData(records::TheCollections(), [&progressBar](int done, int total) {
        progressBar.Show(done, total);
        platform::EndIfRequested();
    });
    progressBar.Clear();
    const int failures = boxes.Shown() - shownBefore;
    const QString result = records::CountsOf(records::TheCollections()) +
                           records::ImportCompleteMessage(false) + QLatin1Char('\n');
    if (failures == 0) {
        return PrintOut(result) ? ExitStatus::Done : ExitStatus::DoneWithFailures;
    }
    const QString whereTheyAre = database::IsLogWritable()
                                     ? QStringLiteral("The error log lies in %1.")
                                     : QStringLiteral("There is no error log: %1 can't be written to.");
    static_cast<void>(PrintOut(result + QStringLiteral("Failures reported: %1. ").arg(failures) +
                               whereTheyAre.arg(platform::ProgramDirectory()) + QLatin1Char('\n')));
    return ExitStatus::DoneWithFailures;
}

int Run(const ImportOptions& options) {
    if (options.today) {
        platform::PinToday(*options.today);
    }
    if (const Faults faults = ReadPortfolioFile(options.portfolio); !faults.empty()) {
        return ListFaults(options.portfolio, faults);
    }
    ProgressBar progressBar(platform::AreErrorsATerminal());
    const WaitingIsTold waitingIsTold(progressBar);
    ConsoleMessageBoxes boxes(progressBar);
    platform::HandleEndSignals();
    if (!OpenDatabase(options)) {
        return Refuse(QStringLiteral("the database can't be opened; nothing was changed"));
    }
    if (const QString objection = Objection(options); !objection.isEmpty()) {
        return Refuse(objection);
    }
    if (!CanImport(options)) {
        return ExitStatus::NothingDone;
    }
    if (options.isDryRun) {
        return Show(QStringLiteral("The following items will be created.\n") +
                    records::CountsOf(records::TheCollections()) +
                    QStringLiteral("Nothing was changed in %1.\n").arg(database::DatabaseFile()));
    }
    if (!options.backup.isEmpty() && !MakeBackup(options.backup)) {
        return ExitStatus::NothingDone;
    }
    platform::EndIfRequested();
    return Import(progressBar, boxes);
}

}  // namespace

int RunImportTool(const QStringList& arguments) {
    QString fault;
    const std::optional<ImportOptions> options = ParseImportOptions(arguments, fault);
    if (!options) {
        return RefuseUsage(fault);
    }
    if (options->wantsHelp) {
        return Show(ImportHelpText());
    }
    if (options->wantsVersion) {
        return Show(QStringLiteral("wrenfield-import " WRENFIELD_VERSION "\n"));
    }
    if (!options->locale.isEmpty() && !platform::LoadLocale(options->locale)) {
        return RefuseUsage(QStringLiteral("--locale takes a locale that this system has, such as C, not %1")
                               .arg(options->locale));
    }
    return Run(*options);
}

}  // namespace tools
