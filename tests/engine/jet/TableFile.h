#pragma once

#include "IsSound.h"
#include "ModelDisk.h"
#include "TableWithIndexes.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"

namespace engine::jet {

/// A database with one table: a number that counts up, a yes or no, a text of 255 characters that may be
/// compressed, a memo and a picture. There may be indexes over all of them but the picture.
class TableFile {
public:
    enum class Indexes { None, Some };

    explicit TableFile(Indexes indexes = Indexes::None) {
        MakeDatabase(disk, path, {Things(indexes)}, QDateTime(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC),
                     KeepAllIndexes);
        Open();
        layout = table->Layout();
    }

    /// Opens the file anew, as another program would find it.
    void Open() {
        rows_.reset();
        pages.reset();
        pages = std::make_unique<PagedFile>(disk, path);
        const PageNumber page = Catalogue(*pages).Find(QStringLiteral("things")).page;
        rows_ = std::make_unique<TableWithIndexes>(*pages, ReadTableLayout(*pages, page));
        table = &rows_->table;
    }

    /// What has reached the disk.
    const QByteArray& Content() const { return disk.files[path]->bytes; }

    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    std::unique_ptr<PagedFile> pages;
    TableLayout layout;
    Table* table = nullptr;

private:
    static NewColumn Make(const char* name, std::uint8_t type, int size = 0) {
        NewColumn column;
        column.name = QLatin1String(name);
        column.type = type;
        column.size = size;
        return column;
    }

    static NewTable Things(Indexes indexes) {
        NewTable things;
        things.name = QStringLiteral("things");
        things.columns = {Make("id", ColumnType::Long), Make("yes", ColumnType::Boolean),
                          Make("name", ColumnType::Text, 255), Make("memo", ColumnType::Memo),
                          Make("picture", ColumnType::LongBinary)};
        things.columns[0].countsUp = true;
        if (indexes == Indexes::None) {
            return things;
        }
        things.indexes.resize(3);
        things.indexes[0].columns = {{QStringLiteral("id"), true}};
        things.indexes[1].columns = {{QStringLiteral("name"), false}, {QStringLiteral("yes"), true}};
        things.indexes[2].columns = {{QStringLiteral("memo"), true}};
        things.indexes[2].ignoresNulls = true;
        for (std::size_t index = 0; index < things.indexes.size(); ++index) {
            things.indexes[index].name = QStringLiteral("index %1").arg(index);
        }
        return things;
    }

    std::unique_ptr<TableWithIndexes> rows_;
};

}  // namespace engine::jet
