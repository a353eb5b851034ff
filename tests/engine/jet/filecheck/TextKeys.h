#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace engine::jet::filecheck {

/// The key of a text by the rules told plainly, without the byte in front. Slow; the table of weights is the
/// engine's.
std::vector<std::uint8_t> TextKeyOf(std::u16string text, bool ascending);

}  // namespace engine::jet::filecheck
