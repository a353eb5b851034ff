#pragma once

#include <QString>

/// Module Help: the compiled help file that lies beside the program, opened at the topic of the page.
namespace shell {

/// "WrenfieldHelp.chm" in the program's directory. It may lie nowhere else, and whether it is there is not
/// asked: the program that shows help says so itself.
QString HelpFilePath();

/// Opens the help at its contents. A program for showing help that can't be started is told in a message box.
void ShowHelpContents();

/// Opens the help at a topic, as each page that has one does. A failure goes on to the caller.
void ShowHelpTopic(int topic);

}  // namespace shell
