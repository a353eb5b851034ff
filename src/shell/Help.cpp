#include "shell/Help.h"

#include "platform/Failure.h"
#include "platform/Files.h"
#include "platform/Launch.h"
#include "platform/MessageBox.h"

#include <optional>

namespace shell {

namespace {

/// Topic 2 is not in use.
std::optional<int> TopicOfPage(int tabIndex) {
    switch (tabIndex) {
        case 1:
            return 1;  // Bank Accounts
        case 2:
            return 6;  // User Type
        case 3:
            return 3;  // Owners
        case 4:
            return 4;  // Properties
        case 5:
            return 5;  // Tenants
        default:
            return std::nullopt;
    }
}

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

void ShowHelpForPage(int tabIndex) {
    if (const std::optional<int> topic = TopicOfPage(tabIndex)) {
        ShowHelpTopic(*topic);
    } else {
        ShowHelpContents();
    }
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
