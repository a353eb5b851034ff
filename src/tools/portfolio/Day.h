#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace tools {

/// A real day in the form YYYY-MM-DD, and in no other: a file that is read in several countries can't leave
/// the order of day and month open.
std::optional<QDate> ParseDay(const QString& text);

}  // namespace tools
