#include "platform/Files.h"

#include "platform/Utf8.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

namespace platform {

namespace {
QString directoryInstead;
}

QString ProgramDirectory() {
    if (!directoryInstead.isEmpty()) {
        return directoryInstead;
    }
    QString directory = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    // A program at the root: names are joined to the directory with a separator of their own.
    if (directory.endsWith(QDir::separator())) {
        directory.chop(1);
    }
    return directory;
}

void SetProgramDirectory(const QString& directory) {
    directoryInstead = directory;
}

QString WithPlatformSeparators(QString path) {
    path.replace(QLatin1Char('\\'), QDir::separator());
    return path;
}

bool FileExists(const QString& path) {
    return QFileInfo(path).isFile();
}

bool AppendLine(const QString& path, const QString& text) {
    // A pipe of this name must not hold the program up until somebody reads it.
    const int opened = ::open(QFile::encodeName(path).constData(),
                              O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    QFile file;
    if (opened < 0 ||
        !file.open(opened, QIODevice::WriteOnly | QIODevice::Append, QFileDevice::AutoCloseHandle)) {
        return false;
    }
    const QByteArray line = Utf8FromText(text) + '\n';
    // A full disk shows only when the bytes leave the buffer.
    return file.write(line) == line.size() && file.flush();
}

}  // namespace platform
