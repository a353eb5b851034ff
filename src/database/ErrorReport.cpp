#include "database/ErrorReport.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/MessageBox.h"

namespace database {

namespace {

int reportedErrors = 0;
bool isLogWritable = true;

/// Hearthbook's users were never shown the engine's own sentences: an error that comes from an engine of this
/// name has no text.
bool IsTold(const std::optional<platform::Failure>& failure) {
    return failure && failure->Number() != 0 &&
           failure->Source() != QLatin1String("Microsoft JET Database Engine");
}

QString MessageOf(const std::optional<platform::Failure>& failure) {
    if (!IsTold(failure)) {
        return {};
    }
    return QStringLiteral("General Errors...\n\n") + QString::number(failure->Number()) +
           QLatin1String(" - ") + failure->Description() + QLatin1String("\n\n");
}

/// One file a month.
QString LogFileName(const QDateTime& now) {
    return platform::ProgramDirectory() +
           platform::WithPlatformSeparators(QStringLiteral("\\err") +
                                            platform::ShortMonthName(now.date().month()) +
                                            now.toString(QStringLiteral("yy")) + QLatin1String(".log"));
}

}  // namespace

void ReportFailure(const std::optional<platform::Failure>& failure, const QString& label,
                   const QString& extra) {
    ++reportedErrors;
    const QString message = MessageOf(failure);
    platform::ShowMessageBox(message, label);
    WriteLog(message + extra);
}

void ReportError(const QString& label, const QString& extra) {
    ReportFailure(platform::CurrentFailure(), label, extra);
}

void WriteLog(const QString& text) {
    try {
        const QDateTime now = platform::Now();
        isLogWritable = platform::AppendLine(
            LogFileName(now), now.toString(QStringLiteral("dd/MM/yy hh:mm:ss")) + QLatin1Char(' ') + text);
    } catch (...) {
        // A program that may not write beside itself works all the same: the user has seen the box.
        isLogWritable = false;
    }
}

bool IsLogWritable() {
    return isLogWritable;
}

int ReportedErrors() {
    return reportedErrors;
}

}  // namespace database
