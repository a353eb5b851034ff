#pragma once

#include <QString>

#include <optional>

/// Starting other programs. None of these waits for the other program, and none of them says whether it works
/// once started: what it has to tell, it tells the user itself.
namespace platform {

/// Opens a web page in the user's browser. False if nothing on this desktop opens links.
bool OpenWebPage(const QString& address);

/// Starts a program without arguments, in a window of its own. False if it can't be started.
bool StartProgram(const QString& file);

/// Opens a compiled help file at the topic with this number, or at its contents. A failure of the platform 53
/// if there is no program that shows help.
void OpenHelp(const QString& file, std::optional<int> topic);

}  // namespace platform
