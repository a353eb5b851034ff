#pragma once

#include "engine/jet/Table.h"

#include <QString>

#include <optional>
#include <vector>

namespace engine::jet {

/// A table that the catalogue of a file names.
struct CatalogueTable {
    QString name;
    PageNumber page = 0;  ///< The first one of its definition; 0 for a table of another file.
    bool isSystem = false;
    bool isLinked = false;  ///< Lies in another file.
    RowPlace row;           ///< Its row in the catalogue.
};

/// The tables of a file, as its catalogue (the table MSysObjects) names them.
class Catalogue {
public:
    /// The first page of the catalogue's own definition, in every file.
    static constexpr PageNumber FirstPage = 2;

    /// Reads the catalogue. Fails with DatabaseDamaged if it isn't one.
    explicit Catalogue(PageStore& pages);

    const std::vector<CatalogueTable>& Tables() const { return tables_; }

    /// Without regard to case. Fails with 3078 if there is no such table and with 3219 if it lies in another
    /// file: no other one is ever opened.
    const CatalogueTable& Find(const QString& name) const;
    Table Open(const QString& name) const;

    /// The block of properties of a table, none if it has no properties.
    std::optional<QByteArray> Properties(const CatalogueTable& table) const;

private:
    PageStore& pages_;
    Table objects_;
    int properties_;
    std::vector<CatalogueTable> tables_;
};

/// Kinds of objects in the catalogue, and bits of their flags.
namespace ObjectKind {
inline constexpr qint64 Table = 1;
inline constexpr qint64 Database = 2;
inline constexpr qint64 Container = 3;
inline constexpr qint64 LinkedByDriver = 4;
inline constexpr qint64 Linked = 6;
}  // namespace ObjectKind
namespace ObjectFlag {
inline constexpr qint64 System = 0x80000000;
inline constexpr qint64 SystemToo = 2;
}  // namespace ObjectFlag

}  // namespace engine::jet
