#pragma once

#include "engine/jet/PageStore.h"

namespace engine::jet {

/// Numbers in a page, the lowest byte first. The place must be within it.
inline std::uint32_t NumberAt(const Page& page, std::size_t place, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t byte = size; byte > 0; --byte) {
        number = number << 8 | page[place + byte - 1];
    }
    return number;
}

inline void PutNumber(Page& page, std::size_t place, std::size_t size, std::uint32_t number) {
    for (std::size_t byte = 0; byte < size; ++byte) {
        page[place + byte] = static_cast<std::uint8_t>(number >> (8 * byte));
    }
}

}  // namespace engine::jet
