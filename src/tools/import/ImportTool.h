#pragma once

#include <QStringList>

namespace tools {

/// Exit statuses of the tools.
namespace ExitStatus {
inline constexpr int Done = 0;
inline constexpr int DoneWithFailures = 1;
inline constexpr int NothingDone = 2;
}  // namespace ExitStatus

/// The whole of wrenfield-import, given its arguments without the program's name. Returns the exit status.
int RunImportTool(const QStringList& arguments);

}  // namespace tools
