#pragma once

#include <QString>

namespace tools {

/// False if the text did not arrive on standard output, which has been told on standard error then.
[[nodiscard]] bool PrintOut(const QString& text);
void PrintError(const QString& text);

/// Asks on standard error (results may be piped away) and reads one line. Anything but y or yes is a No.
bool Confirm(const QString& question);

}  // namespace tools
