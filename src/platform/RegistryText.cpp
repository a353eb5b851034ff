#include "platform/SettingsStore.h"

#include <QStringDecoder>
#include <QStringList>

#include <map>

namespace platform {

namespace {

/// Thrown at the first thing that an exported-registry text can't hold, and caught by ParseRegistryText.
struct Unparsable {};

QString Decode(const QByteArray& text) {
    const bool wide = text.startsWith("\xFF\xFE") || text.startsWith("\xFE\xFF");
    QStringDecoder decoder(wide ? QStringDecoder::Utf16 : QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless);
    QString decoded = decoder(text);
    if (decoder.hasError() || !decoded.isValidUtf16() || (wide && text.size() % 2 != 0)) {
        throw Unparsable();
    }
    return decoded;
}

QByteArray WithTerminatingZero(QByteArray bytes) {
    bytes.append('\0');
    return bytes;
}

/// Takes a text in quotes from the front of the line.
QString TakeQuoted(QStringView& line) {
    QString text;
    for (qsizetype place = 1; place < line.size(); ++place) {
        QChar character = line[place];
        if (character == QLatin1Char('"')) {
            line = line.sliced(place + 1).trimmed();
            return text;
        }
        if (character == QLatin1Char('\\')) {
            ++place;
            character = place < line.size() ? line[place] : QChar();
            if (character != QLatin1Char('\\') && character != QLatin1Char('"')) {
                throw Unparsable();
            }
        }
        text += character;
    }
    throw Unparsable();
}

/// QStringView's own conversion takes signs and "0x" too.
quint32 HexNumber(QStringView digits, qsizetype mostDigits) {
    if (digits.isEmpty() || digits.size() > mostDigits) {
        throw Unparsable();
    }
    for (const QChar digit : digits) {
        if (!QStringLiteral("0123456789abcdefABCDEF").contains(digit)) {
            throw Unparsable();
        }
    }
    return digits.toUInt(nullptr, 16);
}

RegistryValue DoubleWord(QStringView digits) {
    const quint32 number = HexNumber(digits.trimmed(), 8);
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(static_cast<char>((number >> shift) & 0xFFU));
    }
    return {RegistryType::DoubleWord, bytes};
}

bool HoldsText(quint32 type) {
    constexpr quint32 ExpandableText = 2;
    constexpr quint32 TextList = 7;
    return type == RegistryType::Text || type == ExpandableText || type == TextList;
}

/// Exported texts are two-byte characters; the store hands out UTF-8. What can't be such text stays as it is.
QByteArray TextBytes(const QByteArray& bytes) {
    if (bytes.size() % 2 != 0) {
        return bytes;
    }
    QStringDecoder decoder(QStringDecoder::Utf16LE,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(bytes);
    return text.isValidUtf16() ? text.toUtf8() : bytes;
}

/// "hex:" stands for "hex(3):".
RegistryValue Bytes(QStringView text) {
    quint32 type = RegistryType::Binary;
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    if (colon < 0) {
        throw Unparsable();
    }
    const QStringView typeText = text.first(colon);
    if (!typeText.isEmpty()) {
        if (!typeText.startsWith(QLatin1Char('(')) || !typeText.endsWith(QLatin1Char(')'))) {
            throw Unparsable();
        }
        type = HexNumber(typeText.sliced(1).chopped(1), 8);
    }
    QByteArray bytes;
    const QStringView list = text.sliced(colon + 1).trimmed();
    if (!list.isEmpty()) {
        for (const QStringView element : list.split(QLatin1Char(','))) {
            bytes.append(static_cast<char>(HexNumber(element.trimmed(), 2)));
        }
    }
    return {type, HoldsText(type) ? TextBytes(bytes) : bytes};
}

RegistryValue ReadValue(QStringView data) {
    if (data.startsWith(QLatin1Char('"'))) {
        const QString text = TakeQuoted(data);
        if (!data.isEmpty()) {
            throw Unparsable();
        }
        return {RegistryType::Text, WithTerminatingZero(text.toUtf8())};
    }
    if (data.startsWith(QLatin1String("dword:"), Qt::CaseInsensitive)) {
        return DoubleWord(data.sliced(6));
    }
    if (data.startsWith(QLatin1String("hex"), Qt::CaseInsensitive)) {
        return Bytes(data.sliced(3));
    }
    throw Unparsable();
}

class RegistryTextParser {
public:
    explicit RegistryTextParser(const QString& text) : lines_(text.split(QLatin1Char('\n'))) {}

    QHash<QString, RegistryValues> Parse() {
        if (NextLine() != QLatin1String("Windows Registry Editor Version 5.00")) {
            throw Unparsable();
        }
        while (place_ < lines_.size()) {
            const QString line = NextLine();
            if (line.startsWith(QLatin1Char('['))) {
                BeginKey(line);
            } else if (!line.isEmpty() && !line.startsWith(QLatin1Char(';'))) {
                ReadValueLine(line);
            }
        }
        QHash<QString, RegistryValues> keys;
        for (const auto& [name, values] : keys_) {
            keys.insert(name, values);
        }
        return keys;
    }

private:
    QString NextLine() { return lines_[place_++].trimmed(); }

    /// Bytes may go on in the next lines: a backslash at the end says so.
    QString WithContinuation(QString data) {
        while (data.endsWith(QLatin1Char('\\')) && place_ < lines_.size()) {
            data.chop(1);
            data += NextLine();
        }
        return data;
    }

    void BeginKey(const QString& line) {
        if (!line.endsWith(QLatin1Char(']'))) {
            throw Unparsable();
        }
        QString name = line.sliced(1).chopped(1).toLower();
        const bool deleted = name.startsWith(QLatin1Char('-'));
        if (deleted) {
            name.remove(0, 1);
        }
        if (name.isEmpty()) {
            throw Unparsable();
        }
        if (deleted) {
            Delete(name);
            key_.clear();
            return;
        }
        key_ = name;
        keys_[key_];
    }

    /// With all keys below.
    void Delete(const QString& name) {
        keys_.erase(name);
        const QString below = name + QLatin1Char('\\');
        auto key = keys_.lower_bound(below);
        while (key != keys_.end() && key->first.startsWith(below)) {
            key = keys_.erase(key);
        }
    }

    void ReadValueLine(QStringView line) {
        if (key_.isEmpty()) {
            throw Unparsable();
        }
        QString name;
        if (line.startsWith(QLatin1Char('@'))) {
            line = line.sliced(1).trimmed();
        } else if (line.startsWith(QLatin1Char('"'))) {
            name = TakeQuoted(line).toLower();
        } else {
            throw Unparsable();
        }
        if (!line.startsWith(QLatin1Char('='))) {
            throw Unparsable();
        }
        QString data = line.sliced(1).trimmed().toString();
        if (data.startsWith(QLatin1String("hex"), Qt::CaseInsensitive)) {
            data = WithContinuation(std::move(data));
        }
        if (data == QLatin1String("-")) {
            keys_[key_].remove(name);
        } else {
            keys_[key_].insert(name, ReadValue(data));
        }
    }

    QStringList lines_;
    qsizetype place_ = 0;
    QString key_;
    /// In order, so that a key and those below it are found together however many others there are.
    std::map<QString, RegistryValues> keys_;
};

}  // namespace

QHash<QString, RegistryValues> ParseRegistryText(const QByteArray& text) {
    try {
        return RegistryTextParser(Decode(text)).Parse();
    } catch (const Unparsable&) {
        return {};
    }
}

}  // namespace platform
