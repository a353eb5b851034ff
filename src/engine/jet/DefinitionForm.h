#pragma once

#include <cstddef>
#include <cstdint>

namespace engine::jet::DefinitionForm {

/// Where things lie in the definition of a table, its pages joined. The head stands on each of them.
inline constexpr std::size_t HeadFreeBytesAt = 2;
inline constexpr std::size_t HeadNextPageAt = 4;
inline constexpr std::size_t HeadSize = 8;

inline constexpr std::size_t LengthAt = 8;
inline constexpr std::size_t MarkAt = 12;
inline constexpr std::size_t RowsAt = 16;
inline constexpr std::size_t AutonumberAt = 20;
inline constexpr std::size_t UnknownOneAt = 24;
inline constexpr std::size_t KindAt = 40;
inline constexpr std::size_t RowColumnsAt = 41;
inline constexpr std::size_t VariableColumnsAt = 43;
inline constexpr std::size_t ColumnCountAt = 45;
inline constexpr std::size_t LogicalCountAt = 47;
inline constexpr std::size_t RealCountAt = 51;
inline constexpr std::size_t PagesAt = 55;
inline constexpr std::size_t PagesWithRoomAt = 59;
inline constexpr std::size_t StatisticsAt = 63;

/// Behind one another from there on: a statistic for each real index, the columns, their names, the real
/// indexes, the logical ones, their names, the maps of long values.
inline constexpr std::size_t StatisticSize = 12;
inline constexpr std::size_t DistinctKeysAt = 4;

inline constexpr std::size_t ColumnSize = 25;
inline constexpr std::size_t ColumnMarkAt = 1;
inline constexpr std::size_t ColumnNumberAt = 5;
inline constexpr std::size_t ColumnVariablePlaceAt = 7;
inline constexpr std::size_t ColumnNumberAgainAt = 9;
inline constexpr std::size_t ColumnSortOrderAt = 11;
inline constexpr std::size_t ColumnScaleAt = 12;
inline constexpr std::size_t ColumnSortVersionAt = 14;
inline constexpr std::size_t ColumnFlagsAt = 15;
inline constexpr std::size_t ColumnMoreFlagsAt = 16;
inline constexpr std::size_t ColumnFixedAt = 21;
inline constexpr std::size_t ColumnSizeAt = 23;

inline constexpr std::size_t RealIndexSize = 52;
inline constexpr std::size_t RealColumnsAt = 4;
inline constexpr int RealColumnCount = 10;
inline constexpr std::size_t RealColumnSize = 3;
inline constexpr std::size_t RealPagesAt = 34;
inline constexpr std::size_t RealRootAt = 38;
inline constexpr std::size_t RealFlagsAt = 46;

inline constexpr std::size_t LogicalIndexSize = 28;
inline constexpr std::size_t LogicalNumberAt = 4;
inline constexpr std::size_t LogicalRealAt = 8;
inline constexpr std::size_t LogicalSideAt = 12;
inline constexpr std::size_t LogicalOtherAt = 13;
inline constexpr std::size_t LogicalOtherTableAt = 17;
inline constexpr std::size_t LogicalUpdatesAt = 21;
inline constexpr std::size_t LogicalDeletesAt = 22;
inline constexpr std::size_t LogicalKindAt = 23;

inline constexpr std::size_t LongMapSize = 10;
inline constexpr std::uint16_t None = 0xFFFF;

inline constexpr std::uint32_t Mark = 1625;  ///< Stands in every definition, and in each of its columns.
inline constexpr std::uint8_t UserTable = 0x4E;
inline constexpr std::uint8_t SystemTable = 0x53;

namespace ColumnFlag {
inline constexpr std::uint8_t Fixed = 1;
inline constexpr std::uint8_t Changeable = 2;
inline constexpr std::uint8_t CountsUp = 4;
inline constexpr std::uint8_t OfSystem = 0x10;
inline constexpr std::uint8_t Masked = 0x20;
inline constexpr std::uint8_t MakesGuids = 0x40;
inline constexpr std::uint8_t Compressed = 1;  ///< In the second byte of flags.
}  // namespace ColumnFlag

namespace IndexFlag {
inline constexpr std::uint8_t Unique = 1;
inline constexpr std::uint8_t IgnoresNulls = 2;
inline constexpr std::uint8_t RefusesNulls = 8;
inline constexpr std::uint8_t Always = 0x80;
}  // namespace IndexFlag

}  // namespace engine::jet::DefinitionForm
