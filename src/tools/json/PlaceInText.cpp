#include "tools/json/PlaceInText.h"

#include "platform/Utf8.h"

#include <QByteArrayView>

#include <algorithm>

namespace tools {

QString PlaceInText(const QByteArray& bytes, qsizetype place) {
    const QByteArrayView before = QByteArrayView(bytes).first(std::clamp<qsizetype>(place, 0, bytes.size()));
    const qsizetype lineStart = before.lastIndexOf('\n') + 1;
    const qsizetype column = platform::TextFromUtf8(before.sliced(lineStart)).size() + 1;
    return QStringLiteral("line %1, column %2").arg(before.count('\n') + 1).arg(column);
}

}  // namespace tools
