#include "engine/jet/Text.h"

#include "engine/Error.h"
#include "engine/jet/Damage.h"

#include <algorithm>

namespace engine::jet {

namespace {

constexpr std::uint16_t CompressedMark = 0xFEFF;
constexpr std::size_t MarkSize = 2;
constexpr qsizetype FewestCompressed = 3;

[[noreturn]] void RaiseCut(const Bytes& stored) {
    RaiseDamaged(stored.OfPage(), QStringLiteral("has a text that ends within a character"));
}

bool IsAllCompressed(const Bytes& stored) {
    return std::find(stored.Data(), stored.Data() + stored.Size(), 0) == stored.Data() + stored.Size();
}

QString Decompressed(const Bytes& stored) {
    if (IsAllCompressed(stored)) {
        return QString::fromLatin1(reinterpret_cast<const char*>(stored.Data()),
                                   static_cast<qsizetype>(stored.Size()));
    }
    QString text;
    bool isPlain = false;
    std::size_t at = 0;
    while (at < stored.Size()) {
        if (stored.U8(at) == 0) {
            isPlain = !isPlain;
            ++at;
        } else if (!isPlain) {
            text += QChar(char16_t{stored.U8(at++)});
        } else if (at + 2 <= stored.Size()) {
            text += QChar(stored.U16(at));
            at += 2;
        } else {
            RaiseCut(stored);
        }
    }
    return text;
}

bool IsByte(QChar character) {
    return character.unicode() >= 0x01 && character.unicode() <= 0xFF;
}

// A zero byte leads from one form to the other, so that no character of a plain part may have one.
QByteArray Compressed(const QString& text) {
    QByteArray stored = QByteArrayLiteral("\xFF\xFE");
    bool isPlain = false;
    for (const QChar character : text) {
        if (character.cell() == 0) {
            throw Error(
                ErrorNumber::WrongType,
                QStringLiteral("Data type conversion error: a text that begins with U+FEFF can't hold "
                               "the character U+%1.")
                    .arg(character.unicode(), 4, 16, QLatin1Char('0')));
        }
        if (isPlain == IsByte(character)) {
            isPlain = !isPlain;
            stored += '\0';
        }
        stored += static_cast<char>(character.cell());
        if (isPlain) {
            stored += static_cast<char>(character.row());
        }
    }
    return stored;
}

}  // namespace

QString StoredText(const Bytes& stored) {
    const bool isCompressed = stored.Size() >= MarkSize && stored.U16(0) == CompressedMark;
    return isCompressed ? Decompressed(stored.From(MarkSize)) : PlainText(stored);
}

QByteArray ToStoredText(const QString& text, bool mayCompress) {
    const bool seemsCompressed = !text.isEmpty() && text[0].unicode() == CompressedMark;
    const bool isCompressed =
        mayCompress && text.size() >= FewestCompressed && std::all_of(text.begin(), text.end(), IsByte);
    return seemsCompressed || isCompressed ? Compressed(text) : ToPlainText(text);
}

QString PlainText(const Bytes& stored) {
    if (stored.Size() % 2 != 0) {
        RaiseCut(stored);
    }
    QString text(static_cast<qsizetype>(stored.Size() / 2), Qt::Uninitialized);
    for (qsizetype at = 0; at < text.size(); ++at) {
        text[at] = QChar(stored.U16(2 * static_cast<std::size_t>(at)));
    }
    return text;
}

QByteArray ToPlainText(const QString& text) {
    QByteArray stored(2 * text.size(), Qt::Uninitialized);
    ChangeableBytes bytes = ChangeableBytesOf(stored, 0);
    for (qsizetype at = 0; at < text.size(); ++at) {
        bytes.Put16(2 * static_cast<std::size_t>(at), text[at].unicode());
    }
    return stored;
}

}  // namespace engine::jet
