#pragma once

#include "engine/jet/rules/RuledTable.h"

#include <QStringList>

#include <map>
#include <memory>

namespace engine::jet {

/// The tables of a file, each opened when it is first asked for, and bound to one another by their relations.
class RuledTables {
public:
    /// Both must outlive this.
    RuledTables(PageStore& pages, const Catalogue& catalogue)
        : pages_(pages), catalogue_(catalogue), relations_(pages, catalogue) {}

    /// Fails as Catalogue::Find does.
    RuledTable& Open(const QString& name) { return Open(catalogue_.Find(name)); }
    /// By the first page of its definition.
    RuledTable& At(PageNumber page);

    /// Whether rows of one table may change with those of another.
    bool HaveRelations() const { return !relations_.AreNone(); }

    /// Whether all is understood that the file asks of the rows of these tables, and of those that change
    /// with them by relations. For whoever wants to know before he begins to write: fails with
    /// InvalidOperation, in a sentence that names the table, and with 3078 for one that isn't there.
    void RequireUnderstood(const QStringList& tables);

private:
    RuledTable& Open(const CatalogueTable& table);

    PageStore& pages_;
    const Catalogue& catalogue_;
    Relations relations_;
    std::map<PageNumber, std::unique_ptr<RuledTable>> opened_;
};

}  // namespace engine::jet
