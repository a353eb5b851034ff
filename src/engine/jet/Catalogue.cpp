#include "engine/jet/Catalogue.h"

#include "engine/Error.h"
#include "engine/jet/Damage.h"

namespace engine::jet {

namespace {

// An object's number, of a table, is that of its first page; the bits above say other things.
constexpr qint64 PageBits = 0xFFFFFF;

int ColumnOf(const Table& objects, const char* name) {
    const auto column = objects.Layout().FindColumn(QLatin1String(name));
    if (!column) {
        RaiseDamaged(Catalogue::FirstPage,
                     QStringLiteral("defines a catalogue without the column '%1'").arg(QLatin1String(name)));
    }
    return *column;
}

qint64 NumberIn(const Table& objects, const StoredRow& row, int column) {
    const Value value = objects.ValueOf(row, column);
    const auto* number = std::get_if<qint64>(&value);
    return number == nullptr ? 0 : *number;
}

QString TextIn(const Table& objects, const StoredRow& row, int column) {
    const Value value = objects.ValueOf(row, column);
    const auto* text = std::get_if<QString>(&value);
    return text == nullptr ? QString() : *text;
}

}  // namespace

Catalogue::Catalogue(PageStore& pages)
    : pages_(pages),
      objects_(pages, ReadTableLayout(pages, FirstPage)),
      properties_(ColumnOf(objects_, "LvProp")) {
    const int id = ColumnOf(objects_, "Id");
    const int name = ColumnOf(objects_, "Name");
    const int kind = ColumnOf(objects_, "Type");
    const int flags = ColumnOf(objects_, "Flags");
    for (auto key = objects_.FirstRow(); key; key = objects_.RowBehind(*key)) {
        const StoredRow row = objects_.Read(*key);
        const qint64 kindOfRow = NumberIn(objects_, row, kind);
        const bool isLinked = kindOfRow == ObjectKind::Linked || kindOfRow == ObjectKind::LinkedByDriver;
        if (kindOfRow != ObjectKind::Table && !isLinked) {
            continue;
        }
        const qint64 bits = NumberIn(objects_, row, flags);
        tables_.push_back({TextIn(objects_, row, name),
                           isLinked ? 0 : static_cast<PageNumber>(NumberIn(objects_, row, id) & PageBits),
                           (bits & (ObjectFlag::System | ObjectFlag::SystemToo)) != 0, isLinked, *key});
    }
}

const CatalogueTable& Catalogue::Find(const QString& name) const {
    for (const CatalogueTable& table : tables_) {
        if (table.name.compare(name, Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (table.isLinked) {
            throw Error(ErrorNumber::InvalidOperation,
                        QStringLiteral("Invalid operation: the table '%1' lies in another file.").arg(name));
        }
        return table;
    }
    throw Error(ErrorNumber::NoSuchTable, QStringLiteral("Could not find table '%1'.").arg(name));
}

Table Catalogue::Open(const QString& name) const {
    return {pages_, ReadTableLayout(pages_, Find(name).page)};
}

std::optional<QByteArray> Catalogue::Properties(const CatalogueTable& table) const {
    const Value value = objects_.ValueOf(objects_.Read(table.row), properties_);
    const auto* block = std::get_if<QByteArray>(&value);
    return block == nullptr ? std::nullopt : std::optional(*block);
}

}  // namespace engine::jet
