#include "engine/jet/rules/Relations.h"

#include "engine/Error.h"

#include <algorithm>

namespace engine::jet {

namespace {

namespace Side {
constexpr std::uint8_t Parent = 1;
constexpr std::uint8_t Child = 2;
}  // namespace Side

bool IsEnd(const LogicalIndex& index) {
    return index.kind == LogicalKind::Relation;
}

const RealIndex& IndexOf(const TableLayout& layout, const LogicalIndex& end) {
    return layout.indexes[static_cast<std::size_t>(end.realIndex)];
}

const Column& ColumnOf(const TableLayout& layout, const IndexColumn& column) {
    return layout.columns[static_cast<std::size_t>(column.column)];
}

// Whether columns can be compared by their keys. Nobody relates memos.
bool HaveSameColumns(const TableLayout& parent, const LogicalIndex& parentEnd, const TableLayout& child,
                     const LogicalIndex& childEnd) {
    const auto& ofParent = IndexOf(parent, parentEnd).columns;
    const auto& ofChild = IndexOf(child, childEnd).columns;
    return std::equal(ofParent.begin(), ofParent.end(), ofChild.begin(), ofChild.end(),
                      [&](const IndexColumn& one, const IndexColumn& other) {
                          const Column& column = ColumnOf(parent, one);
                          return column.type == ColumnOf(child, other).type && !IsLongType(column.type);
                      });
}

bool FitTogether(const TableLayout& parent, const LogicalIndex& parentEnd, const TableLayout& child,
                 const LogicalIndex& childEnd) {
    return parentEnd.side == Side::Parent && childEnd.side == Side::Child &&
           parentEnd.otherTable == child.page && childEnd.otherTable == parent.page &&
           parentEnd.cascadesUpdates == childEnd.cascadesUpdates &&
           parentEnd.cascadesDeletes == childEnd.cascadesDeletes &&
           childEnd.cascadesDeletes <= static_cast<std::uint8_t>(OnDelete::SetNull) &&
           IndexOf(parent, parentEnd).isUnique && HaveSameColumns(parent, parentEnd, child, childEnd);
}

// The child's end leads. In a relation of a table with itself other programs have written a wrong number into
// the parent's end.
bool NameEachOther(const TableLayout& parent, const LogicalIndex& parentEnd, const TableLayout& child,
                   const LogicalIndex& childEnd) {
    return childEnd.other == parentEnd.number &&
           (parentEnd.other == childEnd.number || parent.page == child.page);
}

}  // namespace

// A definition that can't be read is a matter of that table alone, and of those related to it.
Relations::Relations(PageStore& pages, const Catalogue& catalogue) {
    for (const CatalogueTable& table : catalogue.Tables()) {
        if (table.isSystem || table.isLinked) {
            continue;
        }
        KnownTable known{table.name, {}, {}};
        try {
            known.layout = ReadTableLayout(pages, table.page);
        } catch (const Error& error) {
            known.fault = error.Description();
        }
        known.layout.page = table.page;
        tables_.emplace(table.page, std::move(known));
    }
    for (const auto& [page, table] : tables_) {
        ReadEnds(table);
    }
}

void Relations::ReadEnds(const KnownTable& table) {
    for (const LogicalIndex& end : table.layout.names) {
        if (!IsEnd(end)) {
            continue;
        }
        if (end.side == Side::Parent) {
            ReadParentEnd(table, end);
        } else if (end.side == Side::Child) {
            ReadChildEnd(table, end);
        } else {
            BlameBoth(table.layout.page, end.otherTable, end);
        }
    }
}

void Relations::ReadChildEnd(const KnownTable& child, const LogicalIndex& end) {
    const auto parent = tables_.find(end.otherTable);
    if (parent != tables_.end()) {
        const TableLayout& layout = parent->second.layout;
        for (const LogicalIndex& other : layout.names) {
            if (IsEnd(other) && NameEachOther(layout, other, child.layout, end) &&
                FitTogether(layout, other, child.layout, end)) {
                relations_.push_back({end.name,
                                      {layout.page, other.realIndex},
                                      {child.layout.page, end.realIndex},
                                      end.cascadesUpdates,
                                      static_cast<OnDelete>(end.cascadesDeletes)});
                return;
            }
        }
    }
    BlameBoth(child.layout.page, end.otherTable, end);
}

// Looks only whether there is a child's end for it.
void Relations::ReadParentEnd(const KnownTable& parent, const LogicalIndex& end) {
    const auto child = tables_.find(end.otherTable);
    if (child != tables_.end()) {
        const TableLayout& layout = child->second.layout;
        const bool isThere = std::any_of(layout.names.begin(), layout.names.end(), [&](const auto& other) {
            return IsEnd(other) && other.side == Side::Child && other.otherTable == parent.layout.page &&
                   NameEachOther(parent.layout, end, layout, other);
        });
        if (isThere) {
            return;
        }
    }
    BlameBoth(parent.layout.page, end.otherTable, end);
}

void Relations::BlameBoth(PageNumber one, PageNumber other, const LogicalIndex& end) {
    const QString fault =
        QStringLiteral("The relation '%1' of '%2' and '%3' has ends that don't fit together.")
            .arg(end.name, NameOf(one), NameOf(other));
    Blame(one, fault);
    Blame(other, fault);
}

void Relations::Blame(PageNumber table, const QString& fault) {
    const auto known = tables_.find(table);
    if (known != tables_.end() && known->second.fault.isEmpty()) {
        known->second.fault = fault;
    }
}

std::vector<const Relation*> Relations::WithParent(PageNumber table) const {
    std::vector<const Relation*> found;
    for (const Relation& relation : relations_) {
        if (relation.parent.table == table) {
            found.push_back(&relation);
        }
    }
    return found;
}

std::vector<const Relation*> Relations::WithChild(PageNumber table) const {
    std::vector<const Relation*> found;
    for (const Relation& relation : relations_) {
        if (relation.child.table == table) {
            found.push_back(&relation);
        }
    }
    return found;
}

QString Relations::NameOf(PageNumber table) const {
    const auto known = tables_.find(table);
    return known == tables_.end() ? QStringLiteral("?") : known->second.name;
}

bool Relations::IsSound(PageNumber table) const {
    const auto known = tables_.find(table);
    return known == tables_.end() || known->second.fault.isEmpty();
}

void Relations::RequireSound(PageNumber table) const {
    if (!IsSound(table)) {
        const auto known = tables_.find(table);
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: the table '%1' can't be written. %2")
                        .arg(known->second.name, known->second.fault));
    }
}

}  // namespace engine::jet
