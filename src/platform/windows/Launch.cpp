#include "platform/Launch.h"

#include "platform/Failure.h"
#include "platform/windows/Handle.h"

#include <QDir>
#include <QProcess>

#include <shellapi.h>

namespace platform {

namespace {

constexpr const char* HelpLibrary = "hhctrl.ocx";
constexpr UINT ShowContents = 1;
constexpr UINT ShowTopic = 15;

using HelpCall = HWND(WINAPI*)(HWND, const char*, UINT, DWORD_PTR);

// Only when help is asked for: not every system has the library, and the batch tool has no use for it.
HelpCall FindHelpCall() {
    const HMODULE library = LoadLibraryA(HelpLibrary);
    const FARPROC call = library == nullptr ? nullptr : GetProcAddress(library, "HtmlHelpA");
    return reinterpret_cast<HelpCall>(reinterpret_cast<void*>(call));
}

}  // namespace

bool OpenWebPage(const QString& address) {
    // Above 32 is no error but a handle of old times.
    const HINSTANCE opened = ShellExecuteA(GetActiveWindow(), "open", ToSystemBytes(address).constData(), "",
                                           "C:\\", SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(opened) > 32;
}

// The program runs from the root, so that it keeps no folder of ours in use.
bool StartProgram(const QString& file) {
    return QProcess::startDetached(file, {}, QDir::rootPath());
}

void OpenHelp(const QString& file, std::optional<int> topic) {
    static const HelpCall htmlHelp = FindHelpCall();
    if (htmlHelp == nullptr) {
        throw Failure(FailureNumber::FileNotFound,
                      QStringLiteral("File not found: ") + QLatin1String(HelpLibrary));
    }
    const QByteArray name = ToSystemBytes(QDir::toNativeSeparators(file));
    htmlHelp(GetActiveWindow(), name.constData(), topic ? ShowTopic : ShowContents,
             static_cast<DWORD_PTR>(topic.value_or(0)));
}

}  // namespace platform
