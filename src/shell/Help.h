#pragma once

#include <QString>

/// Module Help: the compiled help file that lies beside the program, opened at the topic of the page.
namespace shell {

/// "WrenfieldHelp.chm" in the program's directory. It may lie nowhere else, and whether it is there is not
/// asked: the program that shows help says so itself.
QString HelpFilePath();

/// Opens the help for a page, by its place among the tabs: the topic of that page, or the contents on the
/// first and the last one. The page of a landlord's own name shares its topic with the list of owners.
///
/// A program for showing help that can't be started is told in a message box where the contents were asked
/// for; where a topic was, the failure goes on to the caller.
void ShowHelpForPage(int tabIndex);

void ShowHelpContents();
void ShowHelpTopic(int topic);

}  // namespace shell
