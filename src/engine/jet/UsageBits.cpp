#include "engine/jet/UsageBits.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace engine::jet {

namespace {

bool IsAnySet(std::uint8_t byte) {
    return byte != 0;
}

std::size_t LowestOf(unsigned bits) {
    return static_cast<std::size_t>(std::countr_zero(bits));
}

std::size_t HighestOf(unsigned bits) {
    return static_cast<std::size_t>(std::bit_width(bits)) - 1;
}

}  // namespace

void SetBits(ChangeableBytes bits, std::size_t from, std::size_t to, bool areSet) {
    for (std::size_t number = from; number < to; ++number) {
        SetBit(bits, number, areSet);
    }
}

std::optional<std::size_t> FirstBit(const Bytes& bits, std::size_t from) {
    if (from / 8 >= bits.Size()) {
        return std::nullopt;
    }
    const unsigned inFirstByte = bits.U8(from / 8) & 0xFFU << from % 8;
    if (inFirstByte != 0) {
        return from / 8 * 8 + LowestOf(inFirstByte);
    }
    const std::uint8_t* const end = bits.Data() + bits.Size();
    const std::uint8_t* const found = std::find_if(bits.Data() + from / 8 + 1, end, IsAnySet);
    return found == end ? std::nullopt
                        : std::optional(static_cast<std::size_t>(found - bits.Data()) * 8 + LowestOf(*found));
}

std::optional<std::size_t> LastBit(const Bytes& bits, std::size_t below) {
    std::size_t behind = bits.Size();
    if (below / 8 < behind) {
        behind = below / 8;
        const unsigned inLastByte = bits.U8(behind) & ((1U << below % 8) - 1);
        if (inLastByte != 0) {
            return behind * 8 + HighestOf(inLastByte);
        }
    }
    const auto begin = std::make_reverse_iterator(bits.Data() + behind);
    const auto end = std::make_reverse_iterator(bits.Data());
    const auto found = std::find_if(begin, end, IsAnySet);
    return found == end ? std::nullopt
                        : std::optional(static_cast<std::size_t>(end - found - 1) * 8 + HighestOf(*found));
}

}  // namespace engine::jet
