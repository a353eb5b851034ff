#include "shell/Help.h"

#include "platform/Failure.h"
#include "platform/Files.h"
#include "platform/Launch.h"
#include "platform/MessageBox.h"

#include <optional>

namespace shell {

namespace {

const QLatin1String HelpFileName("WrenfieldHelp.chm");

HelpSetting& Setting() {
    static HelpSetting setting;
    return setting;
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

void InitialiseHelp(quint32 windowHandle) {
    Setting().WindowHandle = windowHandle;
    QString file = platform::WithPlatformSeparators(platform::ProgramDirectory().trimmed());
    const QString separator = platform::WithPlatformSeparators(QStringLiteral("\\"));
    if (!file.endsWith(separator)) {
        file += separator;
    }
    Setting().HelpFile = file + HelpFileName;
}

const HelpSetting& CurrentHelpSetting() {
    return Setting();
}

QString HelpFilePath() {
    return platform::WithPlatformSeparators(platform::ProgramDirectory() + QLatin1Char('\\') + HelpFileName);
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
