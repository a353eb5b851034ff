#include "tools/json/SurrogateHalves.h"

namespace tools {

namespace {

constexpr qsizetype EscapeLength = 6;  // \uXXXX

/// The code unit of the escape at this place, or -1 if there is no such escape.
int EscapedUnit(const QByteArray& json, qsizetype place) {
    if (place + EscapeLength > json.size() || json.at(place) != '\\' || json.at(place + 1) != 'u') {
        return -1;
    }
    bool isHex = false;
    const int unit = json.mid(place + 2, 4).toInt(&isHex, 16);
    return isHex ? unit : -1;
}

bool IsHighHalf(int unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowHalf(int unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

void NeutraliseLoneSurrogates(QByteArray& json) {
    qsizetype place = json.indexOf('\\');
    while (place >= 0) {
        const int unit = EscapedUnit(json, place);
        qsizetype length = unit < 0 ? 2 : EscapeLength;
        if (IsHighHalf(unit) && IsLowHalf(EscapedUnit(json, place + EscapeLength))) {
            length = 2 * EscapeLength;
        } else if (IsHighHalf(unit) || IsLowHalf(unit)) {
            json.replace(place + 2, 4, "0000");
        }
        place = json.indexOf('\\', place + length);
    }
}

}  // namespace tools
