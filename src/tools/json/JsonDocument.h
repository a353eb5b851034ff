#pragma once

#include "tools/json/Fault.h"
#include "tools/json/JsonValue.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tools {

/// No portfolio comes near these; they keep a file that was made to do harm from filling the memory.
inline constexpr int DeepestNesting = 64;
inline constexpr qint64 LargestFile = 256LL * 1024 * 1024;
inline constexpr qsizetype MostValues = 4'000'000;

/// Reads a JSON document into a tree. Members given twice (the first one is kept), texts that can't be stored
/// and numbers without end are faults that leave the rest readable. Nothing is returned if the document can't
/// be read to its end; the faults then say where it broke off.
std::optional<JsonValue> ParseJson(QByteArray bytes, Faults& faults);

/// The bytes of the file, or nothing with a fault that says why.
std::optional<QByteArray> ReadWholeFile(const QString& path, Faults& faults);

}  // namespace tools
