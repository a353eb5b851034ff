#include "platform/Files.h"

#include "platform/FilesOfSystem.h"
#include "platform/Utf8.h"

#include <QCoreApplication>
#include <QFile>

#include <fcntl.h>

#include <filesystem>

namespace platform {

QString FolderOfProgram() {
    // The toolkit's answer is empty, and so means the root, if the name is no text in UTF-8.
    std::error_code cannotBeAsked;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", cannotBeAsked);
    return cannotBeAsked ? QCoreApplication::applicationDirPath()
                         : TextFromUtf8(program.parent_path().native());
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

bool IsSameName(const QString& one, const QString& other) {
    return one == other;
}

bool AppendBytes(const QString& absoluteName, const QByteArray& bytes) {
    // A pipe of this name must not hold the program up until somebody reads it.
    const int opened = ::open(QFile::encodeName(absoluteName).constData(),
                              O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    QFile file;
    if (opened < 0 ||
        !file.open(opened, QIODevice::WriteOnly | QIODevice::Append, QFileDevice::AutoCloseHandle)) {
        return false;
    }
    // A full disk shows only when the bytes leave the buffer.
    return file.write(bytes) == bytes.size() && file.flush();
}

}  // namespace platform
