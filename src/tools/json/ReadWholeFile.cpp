#include "tools_core/json/JsonDocument.h"

#include <QFile>
#include <QFileInfo>

namespace tools {

namespace {

std::nullopt_t Refuse(Faults& faults, const QString& rule, const QString& found) {
    faults.push_back({QString(), rule, found});
    return std::nullopt;
}

}  // namespace

std::optional<QByteArray> ReadWholeFile(const QString& path, Faults& faults) {
    if (QFileInfo(path).isDir()) {
        return Refuse(faults, QStringLiteral("The file can't be read"), QStringLiteral("a folder"));
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Refuse(faults, QStringLiteral("The file can't be read"), file.errorString());
    }
    // Bounded reading rather than a look at the size: a pipe has none.
    QByteArray bytes = file.read(LargestFile + 1);
    if (file.error() != QFileDevice::NoError) {
        return Refuse(faults, QStringLiteral("The file can't be read"), file.errorString());
    }
    if (bytes.size() > LargestFile) {
        return Refuse(faults, QStringLiteral("A portfolio is at most 256 MB"), QStringLiteral("more"));
    }
    return bytes;
}

}  // namespace tools
