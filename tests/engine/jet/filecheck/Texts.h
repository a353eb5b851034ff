#pragma once

#include "Image.h"

#include <string>

namespace engine::jet::filecheck {

/// UTF-16, as names and texts that aren't compressed have it. Unreadable if a unit is cut.
std::u16string PlainUnits(const View& bytes);

bool IsCompressed(const View& bytes);

/// The text of a value, compressed or not. Unreadable if a unit is cut.
std::u16string TextUnits(const View& bytes);

/// Whether a text is stored as the original engine stores it: compressed wherever it may be, from three
/// characters on, if none is beyond the first 255.
bool IsStoredAsUsual(const View& bytes, bool mayBeCompressed);

std::string ToUtf8(const std::u16string& text);
std::string WithoutCase(const std::string& text);

}  // namespace engine::jet::filecheck
