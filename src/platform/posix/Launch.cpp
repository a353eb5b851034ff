#include "platform/Launch.h"

#include "platform/Failure.h"

#include <QProcess>
#include <QStringList>

namespace platform {

namespace {

/// The programs run from the root, so that they keep no folder of ours in use.
bool StartDetached(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments, QStringLiteral("/"));
}

}  // namespace

bool OpenWebPage(const QString& address) {
    return StartDetached(QStringLiteral("xdg-open"), {address});
}

bool StartProgram(const QString& file) {
    return StartDetached(file, {});
}

void OpenHelp(const QString& file, std::optional<int> topic) {
    QStringList arguments;
    if (topic) {
        arguments << QStringLiteral("--contextid=%1").arg(*topic);
    }
    arguments << file;
    const QString viewer = QStringLiteral("xchm");
    if (!StartDetached(viewer, arguments)) {
        throw Failure(FailureNumber::FileNotFound, QStringLiteral("File not found: ") + viewer);
    }
}

}  // namespace platform
