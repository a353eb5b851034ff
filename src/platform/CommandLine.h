#pragma once

#include <QStringList>

namespace platform {

/// The arguments of the process, without the program's name; not a character is lost. What is no text becomes
/// U+FFFD, which no file is opened or made under.
QStringList Arguments(int argc, char** argv);

}  // namespace platform
