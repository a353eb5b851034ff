#pragma once

#include <cstdint>

/// The types of columns, as a file numbers them.
namespace engine::jet::ColumnType {

inline constexpr std::uint8_t Boolean = 1;
inline constexpr std::uint8_t Byte = 2;
inline constexpr std::uint8_t Short = 3;
inline constexpr std::uint8_t Long = 4;
inline constexpr std::uint8_t Currency = 5;
inline constexpr std::uint8_t Single = 6;
inline constexpr std::uint8_t Double = 7;
inline constexpr std::uint8_t DateTime = 8;
inline constexpr std::uint8_t Binary = 9;
inline constexpr std::uint8_t Text = 10;
inline constexpr std::uint8_t LongBinary = 11;
inline constexpr std::uint8_t Memo = 12;
inline constexpr std::uint8_t Guid = 15;
inline constexpr std::uint8_t Decimal = 16;

}  // namespace engine::jet::ColumnType
