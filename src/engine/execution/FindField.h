#pragma once

#include "engine/Error.h"
#include "engine/Recordset.h"
#include "engine/dialect/Names.h"

#include <algorithm>

namespace engine::execution {

/// The field at a place from 0. Fails with 3265.
template <class Fields>
Field& FieldAt(Fields& fields, int place) {
    if (place < 0 || static_cast<size_t>(place) >= fields.size()) {
        throw Error(ErrorNumber::NoSuchItem,
                    QStringLiteral("Item not found in this collection: field %1.").arg(place));
    }
    return fields[static_cast<size_t>(place)];
}

/// The field of a name, without regard to case. Fails with 3265.
template <class Fields>
Field& FieldNamed(Fields& fields, const QString& name) {
    const auto field = std::find_if(fields.begin(), fields.end(), [&name](const Field& candidate) {
        return dialect::IsSameName(candidate.Name(), name);
    });
    if (field == fields.end()) {
        throw Error(ErrorNumber::NoSuchItem,
                    QStringLiteral("Item not found in this collection: field '%1'.").arg(name));
    }
    return *field;
}

}  // namespace engine::execution
