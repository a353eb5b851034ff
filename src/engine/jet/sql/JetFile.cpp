#include "engine/jet/sql/JetFile.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

namespace engine::jet {

std::shared_ptr<JetFile> JetFile::Of(const QString& path) {
    static std::map<QString, std::weak_ptr<JetFile>> files;
    std::weak_ptr<JetFile>& known = files[QFileInfo(path).canonicalFilePath()];
    std::shared_ptr<JetFile> file = known.lock();
    if (!file) {
        file = std::make_shared<JetFile>(path);
        known = file;
    }
    return file;
}

JetFile::JetFile(const QString& path) : path_(path), pages_(DiskInUse(), path) {
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
