#pragma once

#include "engine/jet/NewTable.h"

#include <vector>

namespace engine::jet {

/// The system tables that every file has, in the order of their pages.
enum class SystemTable { Objects, Rights, Queries, Relationships };
std::vector<NewTable> SystemTables();

/// Numbers of objects that aren't tables.
namespace SystemObject {
inline constexpr qint64 Root = 0x0F000000;
inline constexpr qint64 Tables = 0x0F000001;
inline constexpr qint64 Databases = 0x0F000002;
inline constexpr qint64 Relationships = 0x0F000003;
inline constexpr qint64 Database = 0x10000000;
}  // namespace SystemObject

}  // namespace engine::jet
