#pragma once

#include "engine/jet/Bytes.h"

#include <compare>

namespace engine::jet {

/// Where a row is: on which page, and as which of its rows. As the key of a row of a table it is where the
/// row was put first. It stays the same for as long as the row lives, also when its bytes have to move, and
/// no later row gets it before the table is wiped.
struct RowPlace {
    PageNumber page = 0;
    std::uint8_t row = 0;

    // clang-tidy takes the zero of the comparison made here for a pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const RowPlace&, const RowPlace&) = default;
};

/// A place as one number, and back. Numbers have the order of the places.
constexpr std::uint32_t ToNumber(RowPlace place) {
    return place.page << 8 | place.row;
}
constexpr RowPlace ToRowPlace(std::uint32_t number) {
    return {number >> 8, static_cast<std::uint8_t>(number)};
}

/// How table definitions, moved rows and long values name a row: the row, then the page in 3 bytes.
inline constexpr std::size_t RowPlaceSize = 4;

inline RowPlace ReadRowPlace(const Bytes& bytes, std::size_t at) {
    return ToRowPlace(bytes.U24(at + 1) << 8 | bytes.U8(at));
}
inline void PutRowPlace(ChangeableBytes bytes, std::size_t at, RowPlace place) {
    bytes.Put8(at, place.row);
    bytes.Put24(at + 1, place.page);
}

}  // namespace engine::jet
