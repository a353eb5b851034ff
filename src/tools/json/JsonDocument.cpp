#include "tools/json/JsonDocument.h"

#include "tools/json/PlaceInText.h"
#include "tools/json/SurrogateHalves.h"
#include "tools/json/TreeBuilder.h"

#include <QUtf8StringView>

#include <algorithm>
#include <clocale>

namespace tools {

namespace {

/// The parser asks the process's locale for the decimal mark, but a portfolio has a point in every country.
class PointAsDecimalMark {
public:
    PointAsDecimalMark() : before_(std::setlocale(LC_NUMERIC, nullptr)) { std::setlocale(LC_NUMERIC, "C"); }
    ~PointAsDecimalMark() { std::setlocale(LC_NUMERIC, before_.constData()); }
    PointAsDecimalMark(const PointAsDecimalMark&) = delete;
    PointAsDecimalMark& operator=(const PointAsDecimalMark&) = delete;

private:
    QByteArray before_;
};

qsizetype FirstByteThatIsNotUtf8(const QByteArray& bytes) {
    qsizetype place = 0;
    while (place < bytes.size()) {
        const auto lead = static_cast<unsigned char>(bytes[place]);
        const qsizetype wanted = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        const qsizetype length = std::min(wanted, bytes.size() - place);
        if (!QUtf8StringView(bytes.constData() + place, length).isValidUtf8()) {
            break;
        }
        place += length;
    }
    return place;
}

QString ShownByte(char byte) {
    return QStringLiteral("the byte 0x%1").arg(static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0'));
}

}  // namespace

std::optional<JsonValue> ParseJson(QByteArray bytes, Faults& faults) {
    if (!QUtf8StringView(bytes).isValidUtf8()) {
        const qsizetype place = FirstByteThatIsNotUtf8(bytes);
        faults.push_back({QString(), PlaceInText(bytes, place) + QStringLiteral(": this isn't UTF-8 text"),
                          ShownByte(bytes[place])});
        return std::nullopt;
    }
    NeutraliseLoneSurrogates(bytes);
    const PointAsDecimalMark decimalMark;
    TreeBuilder builder(bytes, faults);
    if (!WideJson::sax_parse(bytes.cbegin(), bytes.cend(), &builder)) {
        return std::nullopt;
    }
    // The parser takes a null character for the end of the file, whatever stands behind it.
    if (const qsizetype end = bytes.indexOf('\0'); end >= 0) {
        faults.push_back({QString(), PlaceInText(bytes, end) + QStringLiteral(": this isn't valid JSON"),
                          ShownQuoted(QChar(QChar::Null))});
        return std::nullopt;
    }
    return builder.Take();
}

}  // namespace tools
