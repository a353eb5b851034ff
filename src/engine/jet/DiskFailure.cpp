#include "engine/jet/DiskFailure.h"

#include "engine/Error.h"

namespace engine::jet {

namespace {

struct Complaint {
    int number;
    const char* words;
};

Complaint ComplaintOf(const std::error_code& reason, bool isFull) {
    if (isFull) {
        return {ErrorNumber::DiskFull, "Disk full"};
    }
    if (IsForbidden(reason)) {
        return {ErrorNumber::ReadOnlyDatabase, "Cannot update. Database or object is read-only"};
    }
    return {ErrorNumber::DiskError, "Disk error"};
}

QString Words(const std::error_code& reason) {
    return QString::fromStdString(reason.message());
}

[[noreturn]] void RaiseUnopened(const QString& path, const QString& why) {
    throw Error(ErrorNumber::DiskError,
                QStringLiteral("Disk error: '%1' can't be opened: %2.").arg(path, why));
}

}  // namespace

void RaiseDiskFailure(const QString& path, const char* what, const std::error_code& reason, bool isFull) {
    const Complaint complaint = ComplaintOf(reason, isFull);
    throw Error(complaint.number,
                QStringLiteral("%1: '%2' can't be %3: %4.")
                    .arg(QLatin1String(complaint.words), path, QLatin1String(what), Words(reason)));
}

void RaiseUnopenedLockFile(const QString& path, const std::error_code& reason) {
    if (!IsForbidden(reason)) {
        RaiseUnopened(path, Words(reason));
    }
    throw Error(
        ErrorNumber::ReadOnlyDatabase,
        QStringLiteral(
            "Cannot update. Database or object is read-only: its lock file '%1' can't be written: %2.")
            .arg(path, Words(reason)));
}

void RaiseNoLockFile(const QString& path) {
    RaiseUnopened(path, QStringLiteral("it is no lock file of a database"));
}

bool IsForbidden(const std::error_code& reason) {
    return reason == std::errc::permission_denied || reason == std::errc::operation_not_permitted ||
           reason == std::errc::read_only_file_system || reason == std::errc::filename_too_long;
}

}  // namespace engine::jet
