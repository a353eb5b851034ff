#include "engine/jet/sql/QuickValue.h"

#include "engine/Currency.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

namespace engine::jet {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days DayZero{std::chrono::year{1899} / 12 / 30};
// Of these every form of a date is sure. Days are whole numbers of days from day zero.
constexpr std::chrono::year FirstYear{1000};
constexpr std::chrono::year LastYear{9999};
constexpr double FirstDay = (sys_days{FirstYear / 1 / 1} - DayZero).count();
constexpr double LastDay = (sys_days{LastYear / 12 / 31} - DayZero).count();
constexpr std::size_t LengthOfDay = 10;

constexpr std::string_view CompressedMark = "\xFF\xFE";
// Shorter texts are never compressed.
constexpr std::size_t FewestCompressed = 3;

bool IsAscii(char byte) {
    return byte > 0;
}

// Without zeros, which lead out of compression.
bool IsAllAscii(std::string_view text) {
    // No early end: so the loop takes many bytes at a time.
    bool isAscii = true;
    for (const char byte : text) {
        isAscii &= IsAscii(byte);
    }
    return isAscii;
}

template <class Whole>
bool PutWhole(RowCells& cells, int place, qint64 number) {
    if (number < std::numeric_limits<Whole>::min() || number > std::numeric_limits<Whole>::max()) {
        return false;
    }
    cells.SetNumber(place, static_cast<Whole>(number));
    return true;
}

bool PutWholeAmount(RowCells& cells, int place, qint64 number) {
    constexpr qint64 Most = std::numeric_limits<qint64>::max() / Currency::Scale;
    if (number < -Most || number > Most) {
        return false;
    }
    cells.SetNumber(place, std::int64_t{number} * Currency::Scale);
    return true;
}

// Two digits, or a number that is none of a day or month.
unsigned TwoDigits(std::string_view text, std::size_t at) {
    const auto tens = static_cast<unsigned>(text[at] - '0');
    const auto ones = static_cast<unsigned>(text[at + 1] - '0');
    return tens > 9 || ones > 9 ? std::numeric_limits<std::uint8_t>::max() : tens * 10 + ones;
}

bool PutDay(RowCells& cells, int place, std::string_view text) {
    if (text.size() != LengthOfDay || text[4] != '-' || text[7] != '-') {
        return false;
    }
    constexpr unsigned HighestPair = 99;
    const unsigned century = TwoDigits(text, 0);
    const unsigned yearOfCentury = TwoDigits(text, 2);
    if (century > HighestPair || yearOfCentury > HighestPair) {
        return false;
    }
    const std::chrono::year year{static_cast<int>(century * 100 + yearOfCentury)};
    const year_month_day date{year, std::chrono::month{TwoDigits(text, 5)},
                              std::chrono::day{TwoDigits(text, 8)}};
    if (year < FirstYear || !date.ok()) {
        return false;
    }
    cells.SetNumber(place, static_cast<double>((sys_days{date} - DayZero).count()));
    return true;
}

// Compressed, a text of ASCII is itself behind a mark; a shorter one has two bytes for each character.
bool PutText(RowCells& cells, int place, const Column& column, std::string_view text) {
    if (column.isFixed || !column.isCompressed || text.size() > column.size / 2U || !IsAllAscii(text)) {
        return false;
    }
    if (text.size() >= FewestCompressed) {
        cells.Set(place, CompressedMark.data(), CompressedMark.size());
        cells.Lengthen(place, text.data(), text.size());
        return true;
    }
    cells.Set(place, nullptr, 0);
    for (const char character : text) {
        const auto unit = static_cast<char16_t>(character);
        cells.Lengthen(place, &unit, sizeof unit);
    }
    return true;
}

// As a blob, as it is: SQLite would copy most texts to put a zero behind them. Asked for its length first, a
// text is in UTF-8.
std::string_view TextIn(sqlite3_value* value) {
    const auto size = static_cast<std::size_t>(sqlite3_value_bytes(value));
    return size == 0 ? std::string_view()
                     : std::string_view(static_cast<const char*>(sqlite3_value_blob(value)), size);
}

void GiveText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void GiveAmount(sqlite3_context* context, Currency amount) {
    if (amount.Scaled() % Currency::Scale == 0) {
        sqlite3_result_int64(context, amount.Scaled() / Currency::Scale);
    } else {
        sqlite3_result_double(context, amount.ToDouble());
    }
}

void PutDigits(char* text, std::size_t count, unsigned number) {
    for (char* digit = text + count; digit > text; number /= 10) {
        *--digit = static_cast<char>('0' + number % 10);
    }
}

bool GiveDay(sqlite3_context* context, double number) {
    if (!(number >= FirstDay && number <= LastDay) || number != std::trunc(number)) {
        return false;
    }
    const year_month_day date{DayZero + days{static_cast<int>(number)}};
    std::array<char, LengthOfDay> text{'0', '0', '0', '0', '-', '0', '0', '-', '0', '0'};
    PutDigits(text.data(), 4, static_cast<unsigned>(static_cast<int>(date.year())));
    PutDigits(text.data() + 5, 2, static_cast<unsigned>(date.month()));
    PutDigits(text.data() + 8, 2, static_cast<unsigned>(date.day()));
    GiveText(context, {text.data(), text.size()});
    return true;
}

bool GiveStoredText(sqlite3_context* context, const Column& column, const Bytes& stored) {
    const std::string_view bytes(reinterpret_cast<const char*>(stored.Data()), stored.Size());
    if (column.isFixed || !bytes.starts_with(CompressedMark)) {
        return false;
    }
    const std::string_view text = bytes.substr(CompressedMark.size());
    if (text.size() > column.size / 2U || !IsAllAscii(text)) {
        return false;
    }
    GiveText(context, text);
    return true;
}

bool GiveReal(sqlite3_context* context, double number) {
    if (!std::isfinite(number)) {
        return false;
    }
    sqlite3_result_double(context, number);
    return true;
}

bool GiveBytes(sqlite3_context* context, const Column& column, const Bytes& bytes) {
    switch (column.type) {
        case ColumnType::Byte:
            sqlite3_result_int64(context, bytes.U8(0));
            return true;
        case ColumnType::Short:
            sqlite3_result_int64(context, static_cast<std::int16_t>(bytes.U16(0)));
            return true;
        case ColumnType::Long:
            sqlite3_result_int64(context, static_cast<std::int32_t>(bytes.U32(0)));
            return true;
        case ColumnType::Currency:
            GiveAmount(context, Currency::FromScaled(static_cast<qint64>(bytes.U64(0))));
            return true;
        case ColumnType::Double:
            return GiveReal(context, std::bit_cast<double>(bytes.U64(0)));
        case ColumnType::DateTime:
            return GiveDay(context, std::bit_cast<double>(bytes.U64(0)));
        default:
            return false;
    }
}

}  // namespace

bool PutQuickly(RowCells& cells, int place, const Column& column, qint64 number) {
    switch (column.type) {
        case ColumnType::Boolean:
            if (number != 0) {
                cells.Set(place, nullptr, 0);
            } else {
                cells.SetNull(place);
            }
            return true;
        case ColumnType::Byte:
            return PutWhole<std::uint8_t>(cells, place, number);
        case ColumnType::Short:
            return PutWhole<std::int16_t>(cells, place, number);
        case ColumnType::Long:
            return PutWhole<std::int32_t>(cells, place, number);
        case ColumnType::Currency:
            return PutWholeAmount(cells, place, number);
        case ColumnType::Double:
            cells.SetNumber(place, static_cast<double>(number));
            return true;
        default:
            return false;
    }
}

bool PutQuickly(RowCells& cells, int place, const Column& column, double number) {
    if (column.type == ColumnType::Double) {
        cells.SetNumber(place, number);
        return true;
    }
    if (column.type == ColumnType::Currency && std::abs(number) <= Currency::LastExact) {
        cells.SetNumber(place, std::int64_t{Currency::FromDouble(number).Scaled()});
        return true;
    }
    return false;
}

bool PutQuickly(RowCells& cells, int place, const Column& column, std::string_view text) {
    if (column.type == ColumnType::DateTime) {
        return PutDay(cells, place, text);
    }
    return column.type == ColumnType::Text && PutText(cells, place, column, text);
}

bool PutQuickly(RowCells& cells, int place, const Column& column, sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
        case SQLITE_NULL:
            cells.SetNull(place);
            return true;
        case SQLITE_INTEGER:
            return PutQuickly(cells, place, column, qint64{sqlite3_value_int64(value)});
        case SQLITE_FLOAT:
            return PutQuickly(cells, place, column, sqlite3_value_double(value));
        case SQLITE_TEXT:
            return PutQuickly(cells, place, column, TextIn(value));
        default:
            return false;
    }
}

bool GiveQuickly(sqlite3_context* context, const Column& column, const StoredRow& row, int place) {
    const std::optional<Bytes> bytes = row.FindBytes(place);
    if (column.type == ColumnType::Boolean) {
        sqlite3_result_int64(context, bytes ? -1 : 0);
        return true;
    }
    if (!bytes) {
        sqlite3_result_null(context);
        return true;
    }
    if (column.type == ColumnType::Text) {
        return GiveStoredText(context, column, *bytes);
    }
    return bytes->Size() == SizeOfType(column.type) && GiveBytes(context, column, *bytes);
}

}  // namespace engine::jet
