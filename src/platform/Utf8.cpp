#include "platform/Utf8.h"

namespace platform {

QString TextFromUtf8(QByteArrayView bytes) {
    constexpr QByteArrayView Mark("\xEF\xBB\xBF");
    qsizetype marks = 0;
    while (bytes.sliced(marks * Mark.size()).startsWith(Mark)) {
        ++marks;
    }
    return QString(marks, QChar(QChar::ByteOrderMark)) + QString::fromUtf8(bytes.sliced(marks * Mark.size()));
}

QByteArray Utf8FromText(QStringView text) {
    if (text.isValidUtf16()) {
        return text.toUtf8();
    }
    QString whole;
    whole.reserve(text.size());
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar character = text[place];
        const bool pair =
            character.isHighSurrogate() && place + 1 < text.size() && text[place + 1].isLowSurrogate();
        if (pair) {
            whole += text.sliced(place++, 2);
        } else {
            whole += character.isSurrogate() ? QChar(QChar::ReplacementCharacter) : character;
        }
    }
    return whole.toUtf8();
}

}  // namespace platform
