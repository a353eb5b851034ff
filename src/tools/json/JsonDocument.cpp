#include "tools_core/json/JsonDocument.h"

#include "tools_core/json/SurrogateHalves.h"
#include "tools_core/json/TreeBuilder.h"

#include <QUtf8StringView>

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

}  // namespace

std::optional<JsonValue> ParseJson(QByteArray bytes, Faults& faults) {
    if (!QUtf8StringView(bytes).isValidUtf8()) {
        faults.push_back({QString(), QStringLiteral("The file isn't UTF-8 text"), QString()});
        return std::nullopt;
    }
    NeutraliseLoneSurrogates(bytes);
    const PointAsDecimalMark decimalMark;
    TreeBuilder builder(bytes, faults);
    if (!WideJson::sax_parse(bytes.cbegin(), bytes.cend(), &builder)) {
        return std::nullopt;
    }
    return builder.Take();
}

}  // namespace tools
