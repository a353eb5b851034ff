#include "Rows.h"

#include "LongPieces.h"
#include "Texts.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <unordered_set>

namespace engine::jet::filecheck {

namespace {

constexpr std::size_t LongestCompressed = 1024;
constexpr std::size_t MostMoves = 20;
// A page with so much room is always known as one with room.
constexpr std::uint32_t KnownRoom = 256;

/// The parts of a row's bytes.
struct RowParts {
    std::uint32_t columns = 0;
    View whole;
    View nullMask;
    std::vector<std::uint32_t> offsets;  ///< Of the variable columns, with the end of the last.
};

RowParts TakeApart(const Definition& table, const View& row) {
    RowParts parts;
    parts.whole = row;
    parts.columns = row.Low(0, 2);
    const std::size_t maskSize = (parts.columns + 7) / 8;
    if (parts.columns > table.rowColumns || row.Size() < 2 + maskSize) {
        throw Unreadable("it says it has " + std::to_string(parts.columns) + " columns");
    }
    std::size_t at = row.Size() - maskSize;
    parts.nullMask = row.From(at);
    if (table.variableColumns > 0) {
        at -= 2;
        const std::uint32_t count = row.Low(at, 2);
        if (count > table.variableColumns || at < 2 + 2 * (std::size_t{count} + 1)) {
            throw Unreadable("it says it has " + std::to_string(count) + " variable columns");
        }
        for (std::uint32_t place = 0; place <= count; ++place) {
            at -= 2;
            parts.offsets.push_back(row.Low(at, 2));
        }
        // The first two bytes are the count of columns.
        if (!std::is_sorted(parts.offsets.begin(), parts.offsets.end()) || parts.offsets.front() < 2 ||
            parts.offsets.back() > at) {
            throw Unreadable("its offsets are out of order");
        }
    }
    return parts;
}

class RowReader {
public:
    RowReader(const Image& image, const Definition& table, PageOwners& owners, Findings& findings)
        : image_(image), table_(table), owners_(owners), findings_(findings) {}

    RowsOfTable Read() {
        const Pages pages = ReadMaps();
        for (const ColumnOfFile& column : table_.columns) {
            numbers_.insert(column.number);
            if (IsLong(column.type)) {
                pieces_.emplace(column.number, LongPieces(image_, table_.name, column, owners_, findings_));
            }
        }
        for (const std::uint32_t page : pages) {
            ReadPage(page);
        }
        CheckMovedHere();
        for (auto& [number, pieces] : pieces_) {
            pieces.CheckAllNamed();
        }
        CheckFigures();
        return std::move(found_);
    }

private:
    Pages ReadMaps() {
        const std::string whose = "rows of " + table_.name;
        Pages pages = owners_.Map(table_.pages, whose);
        const Pages room = owners_.Map(table_.pagesWithRoom, whose + " with room");
        if (!std::includes(pages.begin(), pages.end(), room.begin(), room.end())) {
            findings_.Fault(table_.name, "has pages with room that aren't its own");
        }
        std::erase_if(pages, [&](std::uint32_t page) { return !IsOwnPage(page, whose); });
        for (const std::uint32_t page : pages) {
            if (HasKnownRoom(image_, page) && !room.contains(page)) {
                findings_.Oddity(table_.name, "forgets that page " + std::to_string(page) + " has room");
            }
        }
        return pages;
    }

    bool IsOwnPage(std::uint32_t page, const std::string& whose) {
        owners_.Own(page, whose);
        if (page >= image_.Count()) {
            return false;
        }
        if (image_.Kind(page) != 1 || image_.Page(page).Low(4, 4) != table_.FirstPage()) {
            findings_.Fault(table_.name, "has page " + std::to_string(page) + ", which isn't its own");
            return false;
        }
        owned_.insert(page);
        image_.CheckDataPage(page, findings_);
        return true;
    }

    void ReadPage(std::uint32_t page) {
        const std::uint32_t rows = std::min<std::uint32_t>(image_.Page(page).Low(12, 2), 256);
        for (std::uint32_t row = 0; row < rows; ++row) {
            const Place place{page, row};
            try {
                const Slot slot = image_.RowAt(place);
                if ((slot.flags & SlotFlag::Deleted) == SlotFlag::MovedHere) {
                    movedHere_.push_back(place);
                } else if ((slot.flags & SlotFlag::MovedHere) == 0) {
                    ReadRow(place, Follow(place, slot));
                }
            } catch (const Unreadable& error) {
                findings_.Fault(table_.name + " row " + ToString(place), error.what());
            }
        }
    }

    // The bytes of a row, wherever they have moved.
    View Follow(const Place& key, Slot slot) {
        std::size_t moves = 0;
        while ((slot.flags & SlotFlag::MovedAway) != 0) {
            const Place to = PlaceAt(slot.bytes, 0);
            if (!owned_.contains(to.page) || ++moves > MostMoves) {
                throw Unreadable("it has moved to " + ToString(to) + ", which isn't in its table");
            }
            if (!movedTo_.emplace(to, key).second) {
                throw Unreadable("it has moved to " + ToString(to) + ", where another one has moved to");
            }
            slot = image_.RowAt(to);
            if ((slot.flags & SlotFlag::MovedHere) == 0 ||
                (slot.flags & SlotFlag::Deleted) == SlotFlag::Deleted) {
                throw Unreadable("it has moved to " + ToString(to) + ", where no row has moved to");
            }
        }
        if (moves > 1) {
            findings_.Oddity(table_.name + " row " + ToString(key), "has moved in several steps");
        }
        return slot.bytes;
    }

    void ReadRow(const Place& key, const View& bytes) {
        const RowParts parts = TakeApart(table_, bytes);
        RowOfFile row{key, {}};
        row.cells.reserve(table_.columns.size());
        for (const ColumnOfFile& column : table_.columns) {
            CellOfFile cell = CellOf(column, parts);
            if (cell.isThere && column.type != ColumnType::Boolean) {
                CheckValue(column, key, cell);
            }
            row.cells.push_back(cell);
        }
        CheckNullMask(key, parts);
        found_.rows.push_back(std::move(row));
    }

    static CellOfFile CellOf(const ColumnOfFile& column, const RowParts& parts) {
        if (column.number >= parts.columns || !parts.nullMask.Bit(column.number)) {
            return {};
        }
        if (column.type == ColumnType::Boolean) {
            return {true, {}};
        }
        if (column.isFixed) {
            return {true, parts.whole.Part(2 + std::size_t{column.fixedAt}, column.size)};
        }
        if (column.variablePlace + 1 >= parts.offsets.size()) {
            return {};
        }
        const std::uint32_t begin = parts.offsets[column.variablePlace];
        return {true, parts.whole.Part(begin, parts.offsets[column.variablePlace + 1] - begin)};
    }

    // Days from 1 January 100 to 31 December 9999, counted from 30 December 1899, and times within them.
    static bool IsDate(double number) { return number > -657435 && number < 2958466; }

    // Takes the place of a long value's reference, too.
    void CheckValue(const ColumnOfFile& column, const Place& key, CellOfFile& cell) {
        const std::size_t size = cell.bytes.Size();
        const bool isLimited =
            (column.type == ColumnType::Text || column.type == ColumnType::Binary) && column.size > 0;
        if ((SizeOf(column.type) != 0 && size != SizeOf(column.type)) ||
            (isLimited && !IsCompressed(cell.bytes) && size > column.size)) {
            throw Unreadable(column.name + " has " + std::to_string(size) + " bytes");
        }
        if (IsLong(column.type)) {
            found_.longValues.push_back(ReadLong(column, key, cell.bytes));
            cell.bytes = View(found_.longValues.back());
        }
        if (column.type == ColumnType::Text || column.type == ColumnType::Memo) {
            CheckText(column, key, cell.bytes);
        }
        if (column.type == ColumnType::Double || column.type == ColumnType::DateTime) {
            double number = 0;
            std::memcpy(&number, cell.bytes.Bytes().data(), sizeof number);
            if (!std::isfinite(number)) {
                findings_.Fault(WhereIn(key), column.name + " is no number");
            } else if (column.type == ColumnType::DateTime && !IsDate(number)) {
                findings_.Fault(WhereIn(key), column.name + " is no date");
            }
        }
    }

    // The row is one without it, too.
    std::vector<std::uint8_t> ReadLong(const ColumnOfFile& column, const Place& key, const View& reference) {
        try {
            return pieces_.at(column.number).Read(reference, key);
        } catch (const Unreadable& error) {
            findings_.Fault(WhereIn(key),
                            std::string("has a long value that can't be read: ") + error.what());
            return {};
        }
    }

    void CheckText(const ColumnOfFile& column, const Place& key, const View& bytes) {
        const std::u16string text = TextUnits(bytes);
        if (column.type == ColumnType::Text && 2 * text.size() > column.size) {
            findings_.Fault(WhereIn(key), column.name + " is too long");
        }
        if (!IsStoredAsUsual(bytes, column.mayBeCompressed && text.size() <= LongestCompressed)) {
            findings_.Oddity(WhereIn(key), column.name + " isn't stored as usual");
        }
    }

    // Columns that aren't there have no bits.
    void CheckNullMask(const Place& key, const RowParts& parts) {
        for (std::size_t bit = 0; bit < parts.nullMask.Size() * 8; ++bit) {
            if (!numbers_.contains(bit) && parts.nullMask.Bit(bit)) {
                findings_.Oddity(WhereIn(key), "has a value in a column that isn't there");
                return;
            }
        }
    }

    void CheckMovedHere() {
        for (const Place& place : movedHere_) {
            if (!movedTo_.contains(place)) {
                findings_.Oddity(WhereIn(place), "has moved here from nowhere");
            }
        }
    }

    void CheckFigures() {
        const std::string where = "table " + table_.name;
        if (table_.rows != found_.rows.size()) {
            const std::string what = "says it has " + std::to_string(table_.rows) + " rows, and has " +
                                     std::to_string(found_.rows.size());
            // Nobody counts those of system tables well.
            table_.isSystem ? findings_.Oddity(where, what) : findings_.Fault(where, what);
        }
        for (std::size_t column = 0; column < table_.columns.size(); ++column) {
            for (const RowOfFile& row : found_.rows) {
                const CellOfFile& cell = row.cells[column];
                if (table_.columns[column].countsUp && cell.isThere && cell.bytes.Size() == 4 &&
                    static_cast<std::int32_t>(cell.bytes.Low(0, 4)) > table_.lastNumber) {
                    findings_.Oddity(WhereIn(row.key), "has a number that is still to be given");
                }
            }
        }
    }

    std::string WhereIn(const Place& key) const { return table_.name + " row " + ToString(key); }

    const Image& image_;
    const Definition& table_;
    PageOwners& owners_;
    Findings& findings_;
    RowsOfTable found_;
    Pages owned_;
    std::unordered_set<std::size_t> numbers_;  ///< Of the columns.
    std::map<std::uint32_t, LongPieces> pieces_;
    std::vector<Place> movedHere_;
    std::map<Place, Place> movedTo_;
};

}  // namespace

bool HasKnownRoom(const Image& image, std::uint32_t page) {
    return image.Page(page).Low(2, 2) >= KnownRoom + 2 && image.Page(page).Low(12, 2) < 255;
}

RowsOfTable ReadRows(const Image& image, const Definition& table, PageOwners& owners, Findings& findings) {
    return RowReader(image, table, owners, findings).Read();
}

}  // namespace engine::jet::filecheck
