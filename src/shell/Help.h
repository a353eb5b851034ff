#pragma once

#include <QString>

/// Module Help: the compiled help file that lies beside the program, opened at the topic of the page.
namespace shell {

/// What the platform's help is told once, and by whom it is asked.
struct HelpSetting {
    quint32 WindowHandle = 0;  ///< The wizard's main window.
    QString HelpFile;          ///< Empty before InitialiseHelp.
};

/// Keeps the main window and the place of the help file for as long as the process lives. Never fails.
void InitialiseHelp(quint32 windowHandle);
const HelpSetting& CurrentHelpSetting();

/// "WrenfieldHelp.chm" in the program's directory. It may lie nowhere else, and whether it is there is not
/// asked: the program that shows help says so itself.
QString HelpFilePath();

/// Opens the help at its contents. A program for showing help that can't be started is told in a message box.
void ShowHelpContents();

/// Opens the help at a topic, as each page that has one does. A failure goes on to the caller.
void ShowHelpTopic(int topic);

}  // namespace shell
