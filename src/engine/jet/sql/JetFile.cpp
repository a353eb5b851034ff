#include "engine/jet/sql/JetFile.h"

#include "engine/Error.h"
#include "engine/ImportLock.h"
#include "platform/FileLock.h"
#include "platform/Files.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

namespace engine::jet {

namespace {

using FilesByIdentity = std::map<platform::FileIdentity, std::weak_ptr<JetFile>>;

// Asked for as long as the process lives, its end included.
FilesByIdentity& OpenFiles() {
    static FilesByIdentity& files = *new FilesByIdentity;
    return files;
}

// A link may lead to a file elsewhere, and what is kept beside a file lies beside that one.
QString PlaceOf(const QString& path) {
    QString place = QFileInfo(path).canonicalFilePath();
    if (place.isEmpty()) {
        throw Error(ErrorNumber::CannotOpenDatabase, QStringLiteral("Could not find file '%1'.").arg(path));
    }
    if (!platform::AbsoluteName(place)) {
        RaiseNoName();
    }
    return place;
}

// A journal that stands there is that of a killed program, unless one that is alone is just writing it. Only
// who is alone himself may play it back.
std::unique_ptr<FileUsers> Enter(const QString& path) {
    auto users = std::make_unique<FileUsers>(path);
    try {
        if (DiskInUse().IsThere(Journal::NameFor(path))) {
            users->BeAlone();
        } else {
            users->Join();
        }
    } catch (const Error& failure) {
        if (failure.Number() == ErrorNumber::Locked) {
            ImportLock::RequireNoOther(path);
        }
        throw;
    }
    return users;
}

}  // namespace

std::shared_ptr<JetFile> JetFile::Of(const QString& path) {
    const QString place = PlaceOf(path);
    std::weak_ptr<JetFile>& known =
        OpenFiles()[platform::IdentityOf(place).value_or(platform::FileIdentity())];
    std::shared_ptr<JetFile> file = known.lock();
    if (!file) {
        file = std::make_shared<JetFile>(place);
        known = file;
    }
    return file;
}

void JetFile::LeaveAll() {
    for (const auto& [identity, known] : OpenFiles()) {
        if (const std::shared_ptr<JetFile> file = known.lock()) {
            file->users_.reset();
        }
    }
}

JetFile::JetFile(const QString& path) : path_(path), users_(Enter(path)), pages_(DiskInUse(), path) {
    // Better known now than at the first of many writes.
    pages_.TryJournal();
}

bool JetFile::HasTable(const QString& name) const {
    const std::vector<CatalogueTable>& tables = catalogue_.Tables();
    return std::any_of(tables.begin(), tables.end(), [&name](const CatalogueTable& table) {
        return !table.isSystem && table.name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

// Others may have written as long as they were let in.
void JetFile::BeAlone() {
    if (users_ && !users_->IsAlone()) {
        users_->BeAlone();
        pages_.Reopen();
    }
}

void JetFile::EndPart() {
    part_.reset();
    LetGoOfPages();
}

void JetFile::LetGoOfPages() {
    if (!isWriting_ && !part_) {
        pages_.EndStatement();
    }
}

}  // namespace engine::jet
