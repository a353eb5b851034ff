#include "RandomValues.h"

#include <QTimeZone>

#include <algorithm>
#include <array>
#include <limits>

namespace engine::jet {

namespace {

// Letters and figures, what other characters hang on to or are joined of, what counts little or not at all,
// surrogates with and without their other half, and what looks like the mark of a compressed text.
constexpr std::array<char16_t, 32> Units = {
    u'a',      u'A',      u'b',      u'z',      u'0',      u'9',      u' ',      u'\'',
    u'-',      u'"',      u'\0',     u'\t',     u'\n',     u'\x7F',   u'\xAD',   u'\xE9',
    u'\xDF',   u'\xC6',   u'\x0100', u'\x0152', u'\x0301', u'\x0416', u'\x05D0', u'\x0660',
    u'\x200D', u'\x3042', u'\x4E00', u'\xAC00', u'\xD83D', u'\xDE00', u'\xFEFF', u'\xFFFF'};

}  // namespace

qint64 RandomValues::Whole(qint64 least, qint64 most) {
    switch (Below(8)) {
        case 0:
            return least;
        case 1:
            return most;
        case 2:
        case 3:
            return std::max<qint64>(least, Below(21) - 10);
        default:
            return std::uniform_int_distribution<qint64>(least, most)(random_);
    }
}

double RandomValues::Fraction() {
    static constexpr std::array<double, 8> Ends = {0.0,   -0.0, 1.0,    -1.0,
                                                   1e-30, 1e30, -1e-30, std::numeric_limits<float>::max()};
    return OneIn(3) ? Ends[static_cast<std::size_t>(Below(8))] : (Below(200'001) - 100'000) / 64.0;
}

QDateTime RandomValues::Moment() {
    static const QDate First(100, 1, 1);
    static const QDate Last(9999, 12, 31);
    static const QDate DayZero(1899, 12, 30);
    const QDate someDay = OneIn(2) ? DayZero.addDays(Below(41) - 20)
                                   : First.addDays(Below(static_cast<int>(First.daysTo(Last))));
    const QDate day = OneIn(20) ? Last : someDay;
    const QTime time = OneIn(2) ? QTime(0, 0) : QTime(0, 0).addSecs(Below(86'400));
    return {day, time, Qt::UTC};
}

QString RandomValues::Text(int most) {
    const int length = OneIn(12) ? most : Below(1 + std::min(most, OneIn(4) ? 60 : 5));
    const int units = OneIn(3) ? 4 : static_cast<int>(Units.size());
    QString text;
    for (int place = 0; place < length; ++place) {
        text += QChar(Units[static_cast<std::size_t>(Below(units))]);
    }
    return text;
}

QByteArray RandomValues::Bytes(int size) {
    QByteArray bytes(size, '\0');
    const int kinds = OneIn(2) ? 3 : 256;
    std::generate(bytes.begin(), bytes.end(), [this, kinds] { return static_cast<char>(Below(kinds)); });
    return bytes;
}

// Most of them in the row or on one page, some on several.
Value RandomValues::LongText() {
    return OneIn(20) ? QString(Text(200).repeated(1 + Below(40))) : Text(300);
}

Value RandomValues::ValueFor(const Column& column) {
    if (column.type == ColumnType::Boolean) {
        return OneIn(2);
    }
    if (OneIn(6)) {
        return Null();
    }
    switch (column.type) {
        case ColumnType::Byte:
            return Whole(0, 255);
        case ColumnType::Short:
            return Whole(-32768, 32767);
        case ColumnType::Long:
            return Whole(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
        case ColumnType::Currency:
            return Currency::FromScaled(
                Whole(std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max()));
        case ColumnType::Single:
            return double{static_cast<float>(Fraction())};
        case ColumnType::Double:
            return Fraction() / 3;
        case ColumnType::DateTime:
            return Moment();
        case ColumnType::Binary:
            return Bytes(1 + Below(column.size));
        case ColumnType::Text:
            return Text(column.size / 2);
        case ColumnType::Memo:
            return LongText();
        case ColumnType::LongBinary:
            return Bytes(OneIn(10) ? Below(9000) : Below(200));
        case ColumnType::Guid:
            return Bytes(16);
        default:
            return (OneIn(2) ? QByteArray(1, '\0') : QByteArray("\x80")) + Bytes(16);
    }
}

bool IsStorable(const Value& value) {
    const auto* text = std::get_if<QString>(&value);
    return text == nullptr || !text->startsWith(QChar(u'\xFEFF')) ||
           std::none_of(text->begin(), text->end(), [](QChar unit) { return unit.cell() == 0; });
}

}  // namespace engine::jet
