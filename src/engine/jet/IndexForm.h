#pragma once

#include <cstddef>
#include <cstdint>

namespace engine::jet::IndexForm {

/// What lies where in a page of an index. Numbers have their lowest byte first, but for those within entries.
inline constexpr std::uint8_t Node = 3;
inline constexpr std::uint8_t Leaf = 4;

inline constexpr std::size_t KindAt = 0;
inline constexpr std::size_t MarkAt = 1;
inline constexpr std::uint8_t Mark = 1;
inline constexpr std::size_t FreeBytesAt = 2;
inline constexpr std::size_t OwnerAt = 4;
inline constexpr std::size_t PreviousAt = 12;
inline constexpr std::size_t NextAt = 16;
inline constexpr std::size_t TailAt = 20;
inline constexpr std::size_t PrefixAt = 24;
inline constexpr std::size_t HeightAt = 26;
/// A bit for each place behind the first entry's beginning: whether an entry ends there.
inline constexpr std::size_t EndsAt = 27;
inline constexpr std::size_t EndsSize = 453;
inline constexpr std::size_t EntriesAt = EndsAt + EndsSize;
inline constexpr std::size_t Room = 4096 - EntriesAt;

/// Behind the key of each entry: the row's page in 3 bytes and the row in 1. In a node the child's page
/// follows.
inline constexpr std::size_t RowSize = 4;
inline constexpr std::size_t ChildSize = 4;

/// The longest entry that is written, its row included. Where each takes less than a third of a page, those
/// of any page and two more can be divided between two pages.
inline constexpr std::size_t LongestEntry = 1200;

}  // namespace engine::jet::IndexForm
