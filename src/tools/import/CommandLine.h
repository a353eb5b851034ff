#pragma once

#include <QStringList>

namespace tools {

/// Runs a tool, one of those below, on the arguments of the process, and gives its exit status. Arguments
/// that are no text in UTF-8 are refused as bad usage: they would mean other files than those that were
/// named.
int RunTool(const char* name, int (*tool)(const QStringList& arguments), int argc, char** argv);

}  // namespace tools
