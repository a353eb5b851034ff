#include "platform/Files.h"

#include "platform/Utf8.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

#include <filesystem>

namespace platform {

namespace {
QString directoryInstead;
}

QString ProgramDirectory() {
    if (!directoryInstead.isEmpty()) {
        return directoryInstead;
    }
    // The toolkit's answer is empty, and so means the root, if the name is no text in UTF-8.
    std::error_code cannotBeAsked;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", cannotBeAsked);
    QString directory =
        cannotBeAsked ? QCoreApplication::applicationDirPath() : TextFromUtf8(program.parent_path().native());
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

std::optional<QString> AbsoluteName(const QString& name) {
    QString absolute = name;
    if (!name.startsWith(QLatin1Char('/'))) {
        std::error_code isGone;
        const std::string folder = std::filesystem::current_path(isGone).native();
        if (isGone || name.isEmpty()) {
            return std::nullopt;
        }
        absolute = TextFromUtf8(folder) + QLatin1Char('/') + name;
    }
    // The replacement character stands where bytes have got lost. Which ones, nobody knows.
    const bool isTold = absolute.isValidUtf16() && !absolute.contains(QChar::ReplacementCharacter) &&
                        !absolute.contains(QChar::Null);
    return isTold ? std::optional(absolute) : std::nullopt;
}

QString WhyNoName() {
    return QStringLiteral(
        "a file is told by a name in UTF-8 without U+FFFD, from a folder that is there and has one too");
}

bool FileExists(const QString& path) {
    const std::optional<QString> name = AbsoluteName(path);
    return name && QFileInfo(*name).isFile();
}

bool AppendLine(const QString& path, const QString& text) {
    const std::optional<QString> name = AbsoluteName(path);
    // A pipe of this name must not hold the program up until somebody reads it.
    const int opened = name ? ::open(QFile::encodeName(*name).constData(),
                                     O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666)
                            : -1;
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
