#include "platform/Files.h"

#include "platform/FilesOfSystem.h"
#include "platform/Utf8.h"

#include <QDir>
#include <QFileInfo>

namespace platform {

namespace {
QString directoryInstead;
}

QString ProgramDirectory() {
    if (!directoryInstead.isEmpty()) {
        return directoryInstead;
    }
    QString directory = FolderOfProgram();
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
    const std::optional<QString> name = AbsoluteName(path);
    return name && QFileInfo(*name).isFile();
}

bool AppendLine(const QString& path, const QString& text) {
    const std::optional<QString> name = AbsoluteName(path);
    return name && AppendBytes(*name, Utf8FromText(text) + '\n');
}

}  // namespace platform
