#include "engine/jet/ColumnValue.h"

#include "engine/Error.h"
#include "engine/jet/Damage.h"
#include "engine/jet/DateNumber.h"
#include "engine/jet/Text.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace engine::jet {

namespace {

[[noreturn]] void RaiseTooLong(const Column& column, qsizetype size, int limit, const QString& unit) {
    throw Error(ErrorNumber::FieldTooSmall,
                QStringLiteral("The field '%1' is too small to accept the amount of data: %2 %3, of which it "
                               "takes %4.")
                    .arg(column.name)
                    .arg(size)
                    .arg(unit)
                    .arg(limit));
}

void RequireSize(const Column& column, const Bytes& bytes) {
    if (bytes.Size() != SizeOfType(column.type)) {
        RaiseDamaged(bytes.OfPage(), QStringLiteral("has a row with %1 bytes in the column '%2'")
                                         .arg(static_cast<qulonglong>(bytes.Size()))
                                         .arg(column.name));
    }
}

Value ReadDate(const Column& column, const Bytes& bytes) {
    const auto moment = FromDateNumber(std::bit_cast<double>(bytes.U64(0)));
    if (!moment) {
        RaiseDamaged(bytes.OfPage(),
                     QStringLiteral("has a row with no date in the column '%1'").arg(column.name));
    }
    return *moment;
}

// A text in the fixed part is filled up with blanks.
QString ReadText(const Column& column, const Bytes& bytes) {
    QString text = StoredText(bytes);
    while (column.isFixed && text.endsWith(QLatin1Char(' '))) {
        text.chop(1);
    }
    return text;
}

Value ReadValue(const Column& column, const Bytes& whole) {
    const std::size_t size = SizeOfType(column.type);
    const Bytes bytes = column.isFixed && size > 0 ? whole.Part(0, size) : whole;
    if (size > 0) {
        RequireSize(column, bytes);
    }
    switch (column.type) {
        case ColumnType::Byte:
            return qint64{bytes.U8(0)};
        case ColumnType::Short:
            return qint64{static_cast<std::int16_t>(bytes.U16(0))};
        case ColumnType::Long:
            return qint64{static_cast<std::int32_t>(bytes.U32(0))};
        case ColumnType::Currency:
            return Currency::FromScaled(static_cast<qint64>(bytes.U64(0)));
        case ColumnType::Single:
            return double{std::bit_cast<float>(bytes.U32(0))};
        case ColumnType::Double:
            return std::bit_cast<double>(bytes.U64(0));
        case ColumnType::DateTime:
            return ReadDate(column, bytes);
        case ColumnType::Text:
            return ReadText(column, bytes);
        default:
            return bytes.Copy();
    }
}

template <class Number>
QByteArray BytesOfNumber(Number number) {
    static_assert(std::endian::native == std::endian::little, "the file's order of bytes is the machine's");
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

double NumberIn(const Column& column, const Value& value) {
    const bool isNumber = std::holds_alternative<bool>(value) || std::holds_alternative<qint64>(value) ||
                          std::holds_alternative<double>(value) || std::holds_alternative<Currency>(value);
    if (!isNumber) {
        RaiseWrongType(column.name);
    }
    return ToDouble(value);
}

template <class Whole>
QByteArray WholeNumber(const Column& column, const Value& value) {
    const double number = NumberIn(column, value);
    if (!(number >= double{std::numeric_limits<Whole>::min()} &&
          number <= double{std::numeric_limits<Whole>::max()}) ||
        number != std::trunc(number)) {
        RaiseWrongType(column.name);
    }
    return BytesOfNumber(static_cast<Whole>(number));
}

QByteArray Money(const Column& column, const Value& value) {
    if (const auto* amount = std::get_if<Currency>(&value)) {
        return BytesOfNumber(amount->Scaled());
    }
    const double number = NumberIn(column, value);
    const double most = std::ldexp(1.0, 63) / static_cast<double>(Currency::Scale);
    if (!(std::abs(number) < most)) {
        RaiseWrongType(column.name);
    }
    return BytesOfNumber(Currency::FromKept(number).Scaled());
}

QByteArray SingleNumber(const Column& column, const Value& value) {
    const double number = NumberIn(column, value);
    if (std::isfinite(number) && std::abs(number) > double{std::numeric_limits<float>::max()}) {
        RaiseWrongType(column.name);
    }
    return BytesOfNumber(static_cast<float>(number));
}

QByteArray Date(const Column& column, const Value& value) {
    const auto* moment = std::get_if<QDateTime>(&value);
    if (moment == nullptr || !moment->isValid() || !FromDateNumber(ToDateNumber(*moment))) {
        RaiseWrongType(column.name);
    }
    return BytesOfNumber(ToDateNumber(*moment));
}

QByteArray TextBytes(const Column& column, const Value& value) {
    const auto* text = std::get_if<QString>(&value);
    if (text == nullptr) {
        RaiseWrongType(column.name);
    }
    const int limit = column.size / 2;
    if (text->size() > limit) {
        RaiseTooLong(column, text->size(), limit, QStringLiteral("characters"));
    }
    if (column.isFixed) {
        return ToPlainText(text->leftJustified(limit, QLatin1Char(' ')));
    }
    return ToStoredText(*text, column.isCompressed);
}

QByteArray PlainBytes(const Column& column, const Value& value) {
    const auto* bytes = std::get_if<QByteArray>(&value);
    if (bytes == nullptr) {
        RaiseWrongType(column.name);
    }
    const auto exact = static_cast<qsizetype>(SizeOfType(column.type));
    if (exact > 0 && bytes->size() != exact) {
        RaiseWrongType(column.name);
    }
    if (bytes->size() > column.size) {
        RaiseTooLong(column, bytes->size(), column.size, QStringLiteral("bytes"));
    }
    return column.isFixed ? bytes->leftJustified(column.size, '\0') : *bytes;
}

QByteArray BytesForColumn(const Column& column, const Value& value) {
    switch (column.type) {
        case ColumnType::Byte:
            return WholeNumber<std::uint8_t>(column, value);
        case ColumnType::Short:
            return WholeNumber<std::int16_t>(column, value);
        case ColumnType::Long:
            return WholeNumber<std::int32_t>(column, value);
        case ColumnType::Currency:
            return Money(column, value);
        case ColumnType::Single:
            return SingleNumber(column, value);
        case ColumnType::Double:
            return BytesOfNumber(NumberIn(column, value));
        case ColumnType::DateTime:
            return Date(column, value);
        case ColumnType::Text:
            return TextBytes(column, value);
        case ColumnType::Binary:
        case ColumnType::Guid:
        case ColumnType::Decimal:
            return PlainBytes(column, value);
        default:
            RaiseWrongType(column.name);
    }
}

}  // namespace

Value ValueOf(const Column& column, const StoredRow& row, int place) {
    if (column.type == ColumnType::Boolean) {
        return row.Has(place);
    }
    return row.Has(place) ? ReadValue(column, row.BytesOf(place)) : Value();
}

Cell ToCell(const Column& column, const Value& value) {
    if (IsNull(value)) {
        return std::nullopt;
    }
    if (column.type == ColumnType::Boolean) {
        return NumberIn(column, value) != 0 ? Cell(QByteArray()) : std::nullopt;
    }
    return BytesForColumn(column, value);
}

std::optional<Value> NumberAsHeld(const Column& column, const Value& number) {
    try {
        const QByteArray bytes = BytesForColumn(column, number);
        constexpr PageNumber OfNoPage = 0;
        return ReadValue(column, {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                  static_cast<std::size_t>(bytes.size()), OfNoPage});
    } catch (const Error&) {
        return std::nullopt;
    }
}

QString DecimalText(const Bytes& decimal, int scale) {
    // The words of the number, the highest first; divided by ten again and again they give its digits.
    std::array<std::uint32_t, 4> words{};
    for (std::size_t place = 0; place < words.size(); ++place) {
        words[place] = decimal.U32(1 + 4 * place);
    }
    QString digits;
    while (digits.size() <= scale ||
           std::any_of(words.begin(), words.end(), [](auto word) { return word != 0; })) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            const std::uint64_t part = rest << 32 | word;
            word = static_cast<std::uint32_t>(part / 10);
            rest = part % 10;
        }
        digits.prepend(QChar(static_cast<char16_t>(u'0' + rest)));
    }
    if (scale > 0) {
        digits.insert(digits.size() - scale, QLatin1Char('.'));
    }
    const bool isNegative = (decimal.U8(0) & 0x80) != 0;
    return isNegative ? QLatin1Char('-') + digits : digits;
}

}  // namespace engine::jet
