#include "engine/NewFile.h"

#include "engine/Error.h"
#include "engine/FileName.h"
#include "platform/FilePlaces.h"
#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace engine {

namespace {

[[noreturn]] void Raise(const QString& name, const std::error_code& failure) {
    if (failure == std::errc::file_exists) {
        throw Error(ErrorNumber::DatabaseExists, QStringLiteral("File '%1' already exists.").arg(name));
    }
    throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: '%1' can't be made: %2.")
                                            .arg(name, QString::fromStdString(failure.message())));
}

void RaiseAny(const QString& name, const std::error_code& failure) {
    if (failure) {
        Raise(name, failure);
    }
}

void RequireFree(const QString& name) {
    const std::error_code answer = platform::LookFor(name);
    if (!answer) {
        Raise(name, std::make_error_code(std::errc::file_exists));
    }
    if (answer == std::errc::filename_too_long) {
        Raise(name, answer);
    }
}

}  // namespace

void RequireOtherName(const QString& name, const QStringList& kept) {
    const QFileInfo file(FileName(name));
    const QString place = file.dir().canonicalPath() + QLatin1Char('/') + file.fileName();
    if (std::any_of(kept.begin(), kept.end(),
                    [&place](const QString& own) { return platform::IsSameName(own, place); })) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: the database uses the name %1 for itself.").arg(name));
    }
}

bool IsNameTaken(const QString& name) {
    return !platform::LookFor(FileName(name));
}

NewFile::NewFile(const QString& name, const QStringList& endsBeside) : name_(FileName(name)) {
    RequireFree(name_);
    for (const QString& end : endsBeside) {
        RequireFree(name_ + end);
    }
    folder_ = name_.left(name_.size() - QFileInfo(name_).fileName().size()) + QStringLiteral(".wrenfield-");
    RaiseAny(name_, platform::MakePrivateFolder(folder_));
    path_ = folder_ + QStringLiteral("/new");
}

NewFile::~NewFile() {
    QDir(folder_).removeRecursively();
}

void NewFile::TakePermissionsOf(const QString& original) {
    RaiseAny(name_, platform::TakePermissions(original, path_));
}

void NewFile::TakePlace() {
    RaiseAny(name_, platform::RenameWithoutReplacing(path_, name_));
    if (const std::error_code failure = platform::SyncFolderOf(name_)) {
        platform::RemoveFile(name_);
        Raise(name_, failure);
    }
}

}  // namespace engine
