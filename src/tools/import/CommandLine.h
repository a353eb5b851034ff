#pragma once

#include <QStringList>

namespace tools {

/// The arguments of the process, without the program's name, as the tools take them: not a character is lost.
/// Bytes that are no text in UTF-8 become U+FFFD, which no file is opened or made under.
QStringList Arguments(int argc, char** argv);

}  // namespace tools
