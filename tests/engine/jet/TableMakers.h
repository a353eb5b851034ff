#pragma once

#include "engine/jet/NewTable.h"

namespace engine::jet {

inline NewColumn ColumnOf(const char* name, std::uint8_t type, int size = 0) {
    NewColumn column;
    column.name = QLatin1String(name);
    column.type = type;
    column.size = size;
    return column;
}

inline NewIndex IndexOver(const char* name, std::initializer_list<const char*> columns) {
    NewIndex index;
    index.name = QLatin1String(name);
    for (const char* column : columns) {
        index.columns.push_back({QLatin1String(column), true});
    }
    return index;
}

inline NewIndex PrimaryKeyOver(std::initializer_list<const char*> columns) {
    NewIndex index = IndexOver("PrimaryKey", columns);
    index.isPrimaryKey = true;
    return index;
}

}  // namespace engine::jet
