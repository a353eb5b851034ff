#include "engine/jet/ColumnKey.h"

#include "engine/Error.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>

namespace engine::jet {

namespace {

constexpr std::uint8_t NullAscending = 0x00;
constexpr std::uint8_t NullDescending = 0xFF;
constexpr std::uint8_t ValueAscending = 0x7F;
constexpr std::uint8_t ValueDescending = 0x80;

[[noreturn]] void RefuseType() {
    throw Error(ErrorNumber::WrongType, QStringLiteral("A value doesn't fit the type of an indexed column."));
}

template <class Held>
const Held& Expect(const Value& value) {
    const auto* held = std::get_if<Held>(&value);
    if (held == nullptr) {
        RefuseType();
    }
    return *held;
}

void InvertFrom(Key& key, std::size_t begin) {
    std::transform(key.begin() + static_cast<std::ptrdiff_t>(begin), key.end(),
                   key.begin() + static_cast<std::ptrdiff_t>(begin),
                   [](std::uint8_t byte) { return static_cast<std::uint8_t>(~byte); });
}

template <class Number>
void AppendBigEndian(Key& key, Number number) {
    for (std::size_t shift = sizeof(Number) * 8; shift > 0; shift -= 8) {
        key.push_back(static_cast<std::uint8_t>(number >> (shift - 8)));
    }
}

// The top bit inverted, negative numbers come first.
template <class Signed>
void AppendSigned(Key& key, qint64 number) {
    if (number < std::numeric_limits<Signed>::min() || number > std::numeric_limits<Signed>::max()) {
        RefuseType();
    }
    using Unsigned = std::make_unsigned_t<Signed>;
    constexpr auto Top = static_cast<Unsigned>(Unsigned{1} << (sizeof(Signed) * 8 - 1));
    AppendBigEndian(key, static_cast<Unsigned>(static_cast<Unsigned>(number) ^ Top));
}

template <class Unsigned>
void AppendFloating(Key& key, Unsigned bits) {
    constexpr auto Top = static_cast<Unsigned>(Unsigned{1} << (sizeof(Unsigned) * 8 - 1));
    AppendBigEndian(key, static_cast<Unsigned>((bits & Top) != 0 ? ~bits : bits ^ Top));
}

void AppendByte(Key& key, qint64 number) {
    if (number < 0 || number > 0xFF) {
        RefuseType();
    }
    key.push_back(static_cast<std::uint8_t>(number));
}

KeyView ViewOf(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

constexpr std::size_t PieceSize = 8;
constexpr std::uint8_t MorePieces = 9;

// In pieces, so that a value comes before all that begin with it. The mark that another piece follows is the
// same in both orders.
void AppendPieces(Key& key, KeyView bytes, Order order) {
    for (; !bytes.empty(); bytes = bytes.subspan(std::min(PieceSize, bytes.size()))) {
        const KeyView piece = bytes.first(std::min(PieceSize, bytes.size()));
        const bool isLast = piece.size() == bytes.size();
        const std::size_t begin = key.size();
        Append(key, piece);
        key.resize(begin + PieceSize);
        if (isLast) {
            key.push_back(static_cast<std::uint8_t>(piece.size()));
        }
        if (order == Order::Descending) {
            InvertFrom(key, begin);
        }
        if (!isLast) {
            key.push_back(MorePieces);
        }
    }
}

void AppendBinary(Key& key, const QByteArray& bytes, Order order) {
    if (bytes.isEmpty()) {
        throw Error(ErrorNumber::WrongType,
                    QStringLiteral("An indexed column of bytes can't hold an empty value."));
    }
    AppendPieces(key, ViewOf(bytes), order);
}

// Rows store the first three numbers with the lowest byte first, texts write them with the highest first.
void AppendGuid(Key& key, const QByteArray& stored, Order order) {
    if (stored.size() != 16) {
        RefuseType();
    }
    QByteArray written = stored;
    std::reverse(written.begin(), written.begin() + 4);
    std::reverse(written.begin() + 4, written.begin() + 6);
    std::reverse(written.begin() + 6, written.begin() + 8);
    AppendPieces(key, ViewOf(written), order);
}

// The sign in front is the same in both orders.
void AppendDecimal(Key& key, const QByteArray& stored, Order order) {
    if (stored.size() != 17) {
        RefuseType();
    }
    const bool isNegative = (ViewOf(stored)[0] & 0x80) != 0;
    const std::size_t begin = key.size();
    Append(key, ViewOf(stored));
    for (std::size_t word = begin + 1; word < key.size(); word += 4) {
        const auto at = key.begin() + static_cast<std::ptrdiff_t>(word);
        std::reverse(at, at + 4);
    }
    if (isNegative == (order == Order::Ascending)) {
        InvertFrom(key, begin);
    }
    key[begin] = isNegative ? 0x00 : 0xFF;
}

// Of types whose bytes in descending order are those in ascending order, inverted.
void AppendNumber(Key& key, std::uint8_t type, const Value& value) {
    switch (type) {
        case ColumnType::Boolean:
            key.push_back(Expect<bool>(value) ? 0x00 : 0xFF);
            return;
        case ColumnType::Byte:
            AppendByte(key, Expect<qint64>(value));
            return;
        case ColumnType::Short:
            AppendSigned<qint16>(key, Expect<qint64>(value));
            return;
        case ColumnType::Long:
            AppendSigned<qint32>(key, Expect<qint64>(value));
            return;
        case ColumnType::Currency:
            AppendSigned<qint64>(key, Expect<engine::Currency>(value).Scaled());
            return;
        case ColumnType::Single:
            AppendFloating(key, std::bit_cast<quint32>(static_cast<float>(Expect<double>(value))));
            return;
        case ColumnType::Double:
        case ColumnType::DateTime:
            AppendFloating(key, std::bit_cast<quint64>(Expect<double>(value)));
            return;
        default:
            RefuseType();
    }
}

void AppendValue(Key& key, const KeyColumn& column, const Value& value) {
    key.push_back(column.order == Order::Ascending ? ValueAscending : ValueDescending);
    const std::size_t begin = key.size();
    switch (column.type) {
        case ColumnType::Text:
        case ColumnType::Memo:
            AppendTextKey(key, Expect<QString>(value), column.order);
            return;
        case ColumnType::Binary:
            AppendBinary(key, Expect<QByteArray>(value), column.order);
            return;
        case ColumnType::Guid:
            AppendGuid(key, Expect<QByteArray>(value), column.order);
            return;
        case ColumnType::Decimal:
            AppendDecimal(key, Expect<QByteArray>(value), column.order);
            return;
        default:
            AppendNumber(key, column.type, value);
    }
    if (column.order == Order::Descending) {
        InvertFrom(key, begin);
    }
}

}  // namespace

void AppendColumnKey(Key& key, const KeyColumn& column, const Value& value) {
    if (IsNull(value) && column.type != ColumnType::Boolean) {
        key.push_back(column.order == Order::Ascending ? NullAscending : NullDescending);
        return;
    }
    const std::size_t before = key.size();
    try {
        AppendValue(key, column, value);
    } catch (const Error&) {
        key.resize(before);
        throw;
    }
}

}  // namespace engine::jet
