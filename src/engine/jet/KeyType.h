#pragma once

#include <cstdint>

namespace engine::jet {

/// Codes of column types in a Jet file.
enum class KeyType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Short = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    DateTime = 8,
    Binary = 9,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

}  // namespace engine::jet
