#include "controls/base/HandCursor.h"

#include "platform/Files.h"

#include <QFile>
#include <QImageReader>
#include <QPixmap>

namespace controls {

namespace {

/// A cursor file begins with a table of its pictures; the hot spot of the first stands at bytes 10 to 13.
QPoint HotSpotOf(const QString& path) {
    constexpr qint64 HeaderLength = 14;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray header = file.read(HeaderLength);
    if (header.size() < HeaderLength) {
        return {};
    }
    const auto shortAt = [&header](qsizetype place) {
        return static_cast<quint8>(header[place]) | static_cast<quint8>(header[place + 1]) << 8;
    };
    return {shortAt(10), shortAt(12)};
}

}  // namespace

QCursor LoadCursor(const QString& path) {
    QImageReader reader(path, "cur");
    const QPixmap picture = QPixmap::fromImage(reader.read());
    if (picture.isNull()) {
        return {};
    }
    const QPoint hotSpot = HotSpotOf(path);
    return QCursor(picture, hotSpot.x(), hotSpot.y());
}

QCursor HandCursor() {
    const QString path =
        platform::WithPlatformSeparators(platform::ProgramDirectory() + QStringLiteral("\\hand.cur"));
    return platform::FileExists(path) ? LoadCursor(path) : QCursor();
}

}  // namespace controls
