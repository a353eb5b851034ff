#include "tools_core/import/CommandLine.h"

#include "platform/Utf8.h"
#include "tools_core/import/ImportTool.h"
#include "tools_core/import/Terminal.h"

namespace tools {

namespace {

/// What can be shown of bytes that are no text.
QString Shown(QByteArrayView bytes) {
    QString shown;
    for (const char byte : bytes) {
        const bool isPrintable = byte >= ' ' && byte <= '~';
        shown += isPrintable
                     ? QString(QLatin1Char(byte))
                     : QStringLiteral("\\x%1").arg(static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0'));
    }
    return shown;
}

}  // namespace

int RunTool(const char* name, int (*tool)(const QStringList& arguments), int argc, char** argv) {
    QStringList arguments;
    for (int place = 1; place < argc; ++place) {
        const QByteArrayView argument(argv[place]);
        if (!argument.isValidUtf8()) {
            PrintError(QStringLiteral("%1: an argument is no text in UTF-8: %2\n")
                           .arg(QLatin1String(name), Shown(argument)));
            return ExitStatus::NothingDone;
        }
        arguments += platform::TextFromUtf8(argument);
    }
    return tool(arguments);
}

}  // namespace tools
