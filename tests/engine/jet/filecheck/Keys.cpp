#include "Keys.h"

#include "TextKeys.h"
#include "Texts.h"

#include <algorithm>

namespace engine::jet::filecheck {

namespace {

constexpr std::uint32_t GeneralOrder = 0x0409;

void Invert(KeyBytes& bytes) {
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(255 - byte);
    }
}

KeyBytes Reversed(const View& bytes) {
    return {bytes.Bytes().rbegin(), bytes.Bytes().rend()};
}

KeyBytes IntegerKey(const View& value) {
    KeyBytes key = Reversed(value);
    key.front() ^= 0x80;
    return key;
}

KeyBytes FloatKey(const View& value) {
    KeyBytes key = Reversed(value);
    if (key.front() >= 0x80) {
        Invert(key);
    } else {
        key.front() |= 0x80;
    }
    return key;
}

// Pieces of 8 bytes; what stands behind each is the same in both orders, but for the last.
KeyBytes PiecesKey(const KeyBytes& value, bool ascending) {
    KeyBytes key;
    for (std::size_t at = 0; at < value.size(); at += 8) {
        const std::size_t size = std::min<std::size_t>(8, value.size() - at);
        const bool isLast = at + size == value.size();
        KeyBytes piece(value.begin() + static_cast<std::ptrdiff_t>(at),
                       value.begin() + static_cast<std::ptrdiff_t>(at + size));
        piece.resize(8);
        if (isLast) {
            piece.push_back(static_cast<std::uint8_t>(size));
        }
        if (!ascending) {
            Invert(piece);
        }
        if (!isLast) {
            piece.push_back(9);
        }
        key.insert(key.end(), piece.begin(), piece.end());
    }
    return key;
}

// As identifiers are written.
KeyBytes GuidInOrder(const View& value) {
    KeyBytes written = Reversed(value.Part(0, 4));
    for (const std::size_t at : {4U, 6U}) {
        const KeyBytes part = Reversed(value.Part(at, 2));
        written.insert(written.end(), part.begin(), part.end());
    }
    const auto rest = value.Part(8, 8).Bytes();
    written.insert(written.end(), rest.begin(), rest.end());
    return written;
}

KeyBytes DecimalKey(const View& value, bool ascending) {
    const bool isNegative = (value.Byte(0) & 0x80) != 0;
    KeyBytes key{0};
    for (std::size_t word = 0; word < 4; ++word) {
        const KeyBytes part = Reversed(value.Part(1 + 4 * word, 4));
        key.insert(key.end(), part.begin(), part.end());
    }
    if (isNegative == ascending) {
        Invert(key);
    }
    key.front() = isNegative ? 0x00 : 0xFF;
    return key;
}

std::optional<KeyBytes> ValueKey(const ColumnOfFile& column, const View& value, bool ascending) {
    KeyBytes key;
    switch (column.type) {
        case ColumnType::Byte:
            key = {value.Byte(0)};
            break;
        case ColumnType::Short:
        case ColumnType::Long:
        case ColumnType::Currency:
            key = IntegerKey(value);
            break;
        case ColumnType::Single:
        case ColumnType::Double:
        case ColumnType::DateTime:
            key = FloatKey(value);
            break;
        case ColumnType::Text:
        case ColumnType::Memo:
            if (column.sortOrder != GeneralOrder || column.sortVersion != 0) {
                return std::nullopt;
            }
            return TextKeyOf(TextUnits(value), ascending);
        case ColumnType::Binary:
            return value.Size() == 0
                       ? std::nullopt
                       : std::optional(PiecesKey({value.Bytes().begin(), value.Bytes().end()}, ascending));
        case ColumnType::Guid:
            return PiecesKey(GuidInOrder(value), ascending);
        case ColumnType::Decimal:
            return DecimalKey(value, ascending);
        default:
            return std::nullopt;
    }
    if (!ascending) {
        Invert(key);
    }
    return key;
}

std::optional<KeyBytes> ColumnKeyOf(const ColumnOfFile& column, const CellOfFile& cell, bool ascending) {
    const std::uint8_t value = ascending ? 0x7F : 0x80;
    if (column.type == ColumnType::Boolean) {
        return KeyBytes{value, cell.isThere == ascending ? std::uint8_t{0x00} : std::uint8_t{0xFF}};
    }
    if (!cell.isThere) {
        return KeyBytes{ascending ? std::uint8_t{0x00} : std::uint8_t{0xFF}};
    }
    auto key = ValueKey(column, cell.bytes, ascending);
    if (key) {
        key->insert(key->begin(), value);
    }
    return key;
}

bool IsNullIn(const Definition& table, const IndexOfFile::Part& part, const RowOfFile& row) {
    return table.columns[part.column].type != ColumnType::Boolean && !row.cells[part.column].isThere;
}

}  // namespace

std::optional<KeyBytes> KeyOf(const Definition& table, const IndexOfFile& index, const RowOfFile& row) {
    KeyBytes key;
    for (const IndexOfFile::Part& part : index.parts) {
        const auto own = ColumnKeyOf(table.columns[part.column], row.cells[part.column], part.ascending);
        if (!own) {
            return std::nullopt;
        }
        key.insert(key.end(), own->begin(), own->end());
    }
    return key;
}

bool IsAllNull(const Definition& table, const IndexOfFile& index, const RowOfFile& row) {
    return std::all_of(index.parts.begin(), index.parts.end(),
                       [&](const IndexOfFile::Part& part) { return IsNullIn(table, part, row); });
}

bool HasNull(const Definition& table, const IndexOfFile& index, const RowOfFile& row) {
    return std::any_of(index.parts.begin(), index.parts.end(),
                       [&](const IndexOfFile::Part& part) { return IsNullIn(table, part, row); });
}

}  // namespace engine::jet::filecheck
