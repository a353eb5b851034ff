#include "tools/import/Options.h"

#include "platform/Files.h"
#include "tools/portfolio/Day.h"

#include <QCommandLineParser>

namespace tools {

namespace {

constexpr const char* HelpOption = "help";
constexpr const char* VersionOption = "version";
constexpr const char* DatabaseOption = "database";
constexpr const char* BackupOption = "backup";
constexpr const char* TodayOption = "today";
constexpr const char* LocaleOption = "locale";
constexpr const char* YesOption = "yes";
constexpr const char* DryRunOption = "dry-run";

QCommandLineOption Flag(const char* name) {
    return QCommandLineOption(QLatin1String(name));
}

QCommandLineOption WithValue(const char* name) {
    return {QLatin1String(name), QString(), QStringLiteral("value")};
}

/// The value of an option, empty if it is not given. An empty value is refused: a script's unset variable
/// must not turn "this database" into "the one in use".
QString SingleValue(const QCommandLineParser& parser, const char* name, QString& fault) {
    const QStringList values = parser.values(QLatin1String(name));
    if (values.size() > 1) {
        fault = QStringLiteral("--%1 is given more than once").arg(QLatin1String(name));
    } else if (values.size() == 1 && values.front().isEmpty()) {
        fault = QStringLiteral("--%1 has an empty value").arg(QLatin1String(name));
    }
    return values.value(0);
}

QString FileValue(const QCommandLineParser& parser, const char* name, QString& fault) {
    const QString value = SingleValue(parser, name, fault);
    const std::optional<QString> file = platform::AbsoluteName(value);
    if (!value.isEmpty() && !file) {
        fault = QStringLiteral("--%1 %2: %3").arg(QLatin1String(name), value, platform::WhyNoName());
    }
    return file.value_or(QString());
}

void ReadToday(const QCommandLineParser& parser, ImportOptions& options, QString& fault) {
    const QString text = SingleValue(parser, TodayOption, fault);
    if (text.isEmpty()) {
        return;
    }
    options.today = ParseDay(text);
    if (!options.today) {
        fault = QStringLiteral("--today takes a real day in the form YYYY-MM-DD, not %1").arg(text);
    }
}

void ReadPortfolioName(const QCommandLineParser& parser, ImportOptions& options, QString& fault) {
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1 || files.front().isEmpty()) {
        fault = QStringLiteral("One portfolio file is needed");
    }
    options.portfolio = files.value(0);
}

}  // namespace

std::optional<ImportOptions> ParseImportOptions(const QStringList& arguments, QString& fault) {
    QCommandLineParser parser;
    parser.addOptions({Flag(HelpOption), Flag(VersionOption), Flag(YesOption), Flag(DryRunOption),
                       WithValue(DatabaseOption), WithValue(BackupOption), WithValue(TodayOption),
                       WithValue(LocaleOption)});
    // The parser takes the first one for the program's name.
    if (!parser.parse(QStringList(QString()) + arguments)) {
        fault = parser.errorText();
        return std::nullopt;
    }
    ImportOptions options;
    options.wantsHelp = parser.isSet(QLatin1String(HelpOption));
    options.wantsVersion = parser.isSet(QLatin1String(VersionOption));
    if (options.wantsHelp || options.wantsVersion) {
        return options;
    }
    options.isYes = parser.isSet(QLatin1String(YesOption));
    options.isDryRun = parser.isSet(QLatin1String(DryRunOption));
    ReadPortfolioName(parser, options, fault);
    options.database = FileValue(parser, DatabaseOption, fault);
    options.backup = FileValue(parser, BackupOption, fault);
    ReadToday(parser, options, fault);
    options.locale = SingleValue(parser, LocaleOption, fault);
    return fault.isEmpty() ? std::optional(options) : std::nullopt;
}

}  // namespace tools
