#pragma once

#include "engine/jet/Bytes.h"

#include <optional>

namespace engine::jet {

/// Sets of small numbers as usage maps keep them: number n is in the set if bit n is set, the lowest bit of
/// a byte first.
inline bool HasBit(const Bytes& bits, std::size_t number) {
    return (bits.U8(number / 8) >> number % 8 & 1) != 0;
}
inline void SetBit(ChangeableBytes bits, std::size_t number, bool isSet) {
    const auto bit = static_cast<std::uint8_t>(1U << number % 8);
    const std::uint8_t byte = bits.U8(number / 8);
    bits.Put8(number / 8, static_cast<std::uint8_t>(isSet ? byte | bit : byte & ~bit));
}
void SetBits(ChangeableBytes bits, std::size_t from, std::size_t to, bool areSet);
/// The lowest number from `from` on, and the highest one below `below`.
std::optional<std::size_t> FirstBit(const Bytes& bits, std::size_t from);
std::optional<std::size_t> LastBit(const Bytes& bits, std::size_t below);

}  // namespace engine::jet
