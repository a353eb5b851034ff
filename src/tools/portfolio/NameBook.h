#pragma once

#include "records/RecordCollection.h"

#include <QSet>
#include <QString>

namespace tools {

/// The names of one collection. They clash without regard to letter case, but are referred to exactly. A
/// collection asks its list at every name; a file of thousands needs a quicker answer.
class NameBook {
public:
    bool Clashes(const QString& name) const { return keys_.contains(records::NameKey(name)); }

    void Add(const QString& name) {
        keys_.insert(records::NameKey(name));
        names_.insert(name);
    }

    /// A name that couldn't be read may be the one that others refer to.
    void MissOne() { isComplete_ = false; }

    /// False if it is certain that no record bears this name.
    bool MayHold(const QString& name) const { return !isComplete_ || names_.contains(name); }

    bool Holds(const QString& name) const { return names_.contains(name); }

private:
    QSet<QString> keys_;
    QSet<QString> names_;
    bool isComplete_ = true;
};

}  // namespace tools
