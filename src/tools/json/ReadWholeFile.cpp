#include "platform/Files.h"
#include "tools/json/JsonDocument.h"

#include <QFile>
#include <QFileInfo>

namespace tools {

namespace {

std::nullopt_t RefuseUnread(Faults& faults, const QString& reason) {
    faults.push_back({QString(), QStringLiteral("The file can't be read: ") + reason, QString()});
    return std::nullopt;
}

}  // namespace

std::optional<QByteArray> ReadWholeFile(const QString& path, Faults& faults) {
    const std::optional<QString> name = platform::AbsoluteName(path);
    if (!name) {
        return RefuseUnread(faults, platform::WhyNoName());
    }
    const QFileInfo info(*name);
    if (info.isDir()) {
        return RefuseUnread(faults, QStringLiteral("it is a folder"));
    }
    // A pipe may be waited at for ever, and a device may never end.
    if (info.exists() && !info.isFile()) {
        return RefuseUnread(faults, QStringLiteral("it is not a regular file"));
    }
    QFile file(*name);
    if (!file.open(QIODevice::ReadOnly)) {
        return RefuseUnread(faults, file.errorString());
    }
    // Bounded reading rather than a look at the size, which some file systems don't tell.
    QByteArray bytes = file.read(LargestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        return RefuseUnread(faults, file.errorString());
    }
    if (bytes.size() > LargestFile) {
        faults.push_back(
            {QString(), QStringLiteral("A portfolio is at most 256 MB"), QStringLiteral("more")});
        return std::nullopt;
    }
    return bytes;
}

}  // namespace tools
