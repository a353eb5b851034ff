#include "engine/jet/sql/JetFile.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

namespace engine::jet {

namespace {

using FilesByPath = std::map<QString, std::weak_ptr<JetFile>>;

FilesByPath& OpenFiles() {
    static FilesByPath files;
    return files;
}

// A journal that stands there is that of a killed program, unless one that is alone is just writing it. Only
// who is alone himself may play it back.
std::unique_ptr<FileUsers> Enter(const QString& path) {
    auto users = std::make_unique<FileUsers>(path);
    if (DiskInUse().IsThere(Journal::NameFor(path))) {
        users->BeAlone();
    } else {
        users->Join();
    }
    return users;
}

}  // namespace

std::shared_ptr<JetFile> JetFile::Of(const QString& path) {
    const QString place = QFileInfo(path).canonicalFilePath();
    std::weak_ptr<JetFile>& known = OpenFiles()[place];
    std::shared_ptr<JetFile> file = known.lock();
    if (!file) {
        file = std::make_shared<JetFile>(place);
        known = file;
    }
    return file;
}

void JetFile::LeaveAll() {
    for (const auto& [path, known] : OpenFiles()) {
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

IndexedTable& JetFile::TableNamed(const QString& name) {
    const CatalogueTable& found = catalogue_.Find(name);
    std::unique_ptr<IndexedTable>& table = tables_[found.page];
    if (!table) {
        table = OpenTable(pages_, found);
    }
    return *table;
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
