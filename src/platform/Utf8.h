#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

namespace platform {

/// The text of UTF-8 bytes, whole. The toolkit's own conversion takes a byte order mark at the front for a
/// sign of the encoding and drops it; in a value it is a character like any other, and a name must not lose
/// one.
QString TextFromUtf8(QByteArrayView bytes);

/// The UTF-8 bytes of a text. Half of a surrogate pair, which is left where a name is cut in the middle of a
/// character, becomes the replacement character U+FFFD.
QByteArray Utf8FromText(QStringView text);

}  // namespace platform
