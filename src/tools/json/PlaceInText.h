#pragma once

#include <QByteArray>
#include <QString>

namespace tools {

/// "line 3, column 7" of a byte in a file. Both count from 1; columns are UTF-16 units of the line, not
/// bytes. A place behind the end counts as the end.
QString PlaceInText(const QByteArray& bytes, qsizetype place);

}  // namespace tools
