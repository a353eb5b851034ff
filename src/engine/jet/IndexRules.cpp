#include "engine/jet/IndexRules.h"

#include "engine/Error.h"

#include <cassert>

namespace engine::jet {

void MakeRowKey(RowKey& key, std::span<const KeyColumn> columns, std::span<const Value> values) {
    assert(columns.size() == values.size());
    key.bytes.clear();
    key.hasNull = false;
    key.isAllNull = true;
    for (std::size_t place = 0; place < columns.size(); ++place) {
        AppendColumnKey(key.bytes, columns[place], values[place]);
        const bool isNull = IsNull(values[place]);
        key.hasNull = key.hasNull || isNull;
        key.isAllNull = key.isAllNull && isNull;
    }
}

void RefuseNulls(const IndexRules& rules, const RowKey& key) {
    if (!key.hasNull) {
        return;
    }
    if (rules.isPrimaryKey) {
        throw Error(ErrorNumber::NullInPrimaryKey,
                    QStringLiteral("Index or primary key cannot contain a Null value: %1.").arg(rules.name));
    }
    if (rules.refusesNulls) {
        throw Error(ErrorNumber::NullNotAllowed,
                    QStringLiteral("A field that needs a value has none: it belongs to the index %1.")
                        .arg(rules.name));
    }
}

bool HasEntry(const IndexRules& rules, const RowKey& key) {
    return !rules.ignoresNulls || !key.isAllNull;
}

bool MustBeUnique(const IndexRules& rules, const RowKey& key) {
    return (rules.isUnique || rules.isPrimaryKey) && !key.isAllNull;
}

void RefuseDuplicate(const IndexRules& rules) {
    throw Error(
        ErrorNumber::DuplicateKey,
        QStringLiteral("The changes were not successful because they would create duplicate values in "
                       "an index: %1.")
            .arg(rules.name));
}

}  // namespace engine::jet
