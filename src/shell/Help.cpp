#include "shell/Help.h"

#include "platform/Failure.h"
#include "platform/Files.h"
#include "platform/Launch.h"
#include "platform/MessageBox.h"

#include <optional>

namespace shell {

namespace {

void CallHelpContents() {
    platform::OpenHelp(HelpFilePath(), std::nullopt);
}

void CallHelpTopic(int topic) {
    platform::OpenHelp(HelpFilePath(), topic);
}

void TellPendingFailure() {
    if (const std::optional<platform::Failure> failure = platform::CurrentFailure()) {
        platform::ShowMessageBox(QStringLiteral("Error showing help file\n%1 - %2")
                                     .arg(failure->Number())
                                     .arg(failure->Description()));
    }
}

}  // namespace

QString HelpFilePath() {
    return platform::WithPlatformSeparators(platform::ProgramDirectory() +
                                            QStringLiteral("\\WrenfieldHelp.chm"));
}

void ShowHelpContents() {
    try {
        CallHelpContents();
    } catch (...) {
        TellPendingFailure();
    }
}

void ShowHelpTopic(int topic) {
    CallHelpTopic(topic);
    TellPendingFailure();
}

}  // namespace shell
