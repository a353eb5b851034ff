#include "platform/CommandLine.h"

#include "platform/windows/Handle.h"

#include <shellapi.h>

namespace platform {

// The arguments of main have lost what the code page doesn't have.
QStringList Arguments(int, char**) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int place = 1; place < count; ++place) {
        const QString argument = QString::fromWCharArray(words[place]);
        arguments += argument.isValidUtf16() ? argument : QString(QChar::ReplacementCharacter);
    }
    LocalFree(words);
    return arguments;
}

}  // namespace platform
