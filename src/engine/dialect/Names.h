#pragma once

#include <QStringView>

#include <string>
#include <string_view>

namespace engine::dialect {

/// A name as SQL text, whatever characters it has. Every name that goes into a statement passes here: what a
/// file calls its columns must not act as anything but a name.
std::string QuotedName(std::string_view name);

/// Capital letters of ASCII made small, all others left as they are: to SQLite, names that differ in nothing
/// else are one. Unicode's rules would take more for the same, such as the Kelvin sign for a "k".
std::string LowerCase(std::string_view name);
bool IsSameName(QStringView one, QStringView other);

}  // namespace engine::dialect
