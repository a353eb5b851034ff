#pragma once

#include "engine/jet/Key.h"

#include <QStringView>

namespace engine::jet {

enum class Order { Ascending, Descending };

/// Of how many UTF-16 units of a text its key is made.
inline constexpr qsizetype UnitsInKey = 255;

/// Adds the key of a text in the General order (number 0x0409, version 0), without the byte in front that
/// tells it from null. Texts that differ only in the case of letters, in blanks at their end, or in what
/// stands behind the first 255 units have the same key; so whoever looks for a text exactly has to compare
/// what an index leads to.
void AppendTextKey(Key& key, QStringView text, Order order);

}  // namespace engine::jet
