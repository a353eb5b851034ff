#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace engine::jet {

/// What an index is ordered by: bytes of which each counts from 0 to 255, the first that differs decides, and
/// of two where none does the shorter one comes first.
using Key = std::vector<std::uint8_t>;

using KeyView = std::span<const std::uint8_t>;

inline void Append(Key& key, KeyView bytes) {
    key.insert(key.end(), bytes.begin(), bytes.end());
}

/// How pages and rows are named in entries: 4 bytes, the highest first, so that they are ordered as bytes.
inline std::uint32_t NumberOf(KeyView bytes) {
    return static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
           static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
}

inline void AppendNumber(Key& key, std::uint32_t number) {
    key.insert(key.end(), {static_cast<std::uint8_t>(number >> 24), static_cast<std::uint8_t>(number >> 16),
                           static_cast<std::uint8_t>(number >> 8), static_cast<std::uint8_t>(number)});
}

/// Below 0 if the left one comes first, above 0 if the right one does, 0 if they are the same.
inline int Compare(KeyView left, KeyView right) {
    const std::size_t shared = left.size() < right.size() ? left.size() : right.size();
    const int order = shared == 0 ? 0 : std::memcmp(left.data(), right.data(), shared);
    if (order != 0 || left.size() == right.size()) {
        return order;
    }
    return left.size() < right.size() ? -1 : 1;
}

}  // namespace engine::jet
