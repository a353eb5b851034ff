#pragma once

#include "engine/jet/Bytes.h"

namespace engine::jet {

/// What a row's place says of it. Bits of their own in a file, of which these four combinations occur.
enum class RowState : std::uint16_t {
    Here = 0x0000,       ///< A row.
    MovedAway = 0x4000,  ///< The key of a row whose bytes are elsewhere: where, say the first 4 bytes.
    MovedHere = 0x8000,  ///< Bytes of a row whose key is elsewhere.
    Deleted = 0xC000,
};

/// The kinds of pages, as the first byte of each tells them.
namespace PageKind {
inline constexpr std::uint8_t Data = 1;
inline constexpr std::uint8_t Definition = 2;
inline constexpr std::uint8_t IndexNode = 3;
inline constexpr std::uint8_t IndexLeaf = 4;
inline constexpr std::uint8_t UsageBits = 5;
}  // namespace PageKind

/// Who a data page belongs to: the first page of a table's definition, or one of these.
namespace PageOwner {
inline constexpr std::uint32_t Nobody = 0;  ///< Usage maps lie here, those of many tables side by side.
inline constexpr std::uint32_t FreeMap =
    1;  ///< The map of all free pages, on page 1, calls itself its owner.
inline constexpr std::uint32_t LongValues = 0x4C41564C;  ///< "LVAL" in the file.
}  // namespace PageOwner

/// No page has more rows, deleted ones counted: the last number stands for none in some places.
inline constexpr int MostRowsOfPage = 255;

/// What a page takes up to list its rows, and so the longest row that fits an empty page.
inline constexpr std::size_t DataPageHead = 14;
inline constexpr std::size_t RowListEntry = 2;
inline constexpr std::size_t MostBytesOfPage = PageSize - DataPageHead - RowListEntry;

/// A page of rows: the rows of a table, parts of long values, or usage maps. Rows lie from the end of the
/// page towards its front, each before the one with the number below, without gaps.
///
/// Fails with DatabaseDamaged wherever the page doesn't keep to that.
class DataPage {
public:
    /// Fails if it is no data page, or one of another owner.
    DataPage(const Page& page, PageNumber number, std::uint32_t owner);

    /// Whom a data page says it belongs to.
    static std::uint32_t OwnerOf(const Page& page, PageNumber number);

    int RowCount() const { return rows_; }
    /// Fails for a row that the page doesn't have, and so do all that name a row.
    RowState State(int row) const { return static_cast<RowState>(Entry(row) & StateBits); }
    /// The bytes of the row, also of a deleted one.
    Bytes Row(int row) const;
    std::size_t FreeBytes() const;
    /// Whether a further row of this length has room.
    bool HasRoomFor(std::size_t size) const;
    /// Whether this row could have this length.
    bool CanResize(int row, std::size_t size) const;
    bool IsAllDeleted() const;

protected:
    static constexpr std::uint16_t OffsetBits = 0x1FFF;
    static constexpr std::uint16_t StateBits = 0xC000;

    std::size_t RowBegin(int row) const { return Entry(row) & OffsetBits; }
    std::size_t RowEnd(int row) const { return row == 0 ? PageSize : RowBegin(row - 1); }
    std::uint16_t Entry(int row) const {
        if (row < 0 || row >= rows_) {
            RaiseNoRow(row);
        }
        return bytes_.U16(EntryAt(row));
    }
    static constexpr std::size_t EntryAt(int row) {
        return DataPageHead + RowListEntry * static_cast<std::size_t>(row);
    }
    [[noreturn]] void RaiseNoRow(int row) const;

    Bytes bytes_;
    int rows_;
};

/// The same, for changing the rows. Keeps the page's own count of free bytes right.
class ChangeableDataPage : public DataPage {
public:
    /// Fails for a page in which rows overlap or leave the page, before anything is moved. That they don't
    /// may be known (PageShape).
    ChangeableDataPage(Page& page, PageNumber number, std::uint32_t owner, bool isKnown = false);

    /// Makes a page without rows of whatever it was.
    static ChangeableDataPage Begin(Page& page, PageNumber number, std::uint32_t owner);

    /// Gives the row the next number. There must be room for it.
    int Add(const Bytes& row, RowState state);
    /// Puts other bytes in the place of a row's. There must be room for them.
    void Replace(int row, const Bytes& with, RowState state);
    /// The row's bytes go; its number stays taken.
    void Delete(int row);
    void SetState(int row, RowState state);
    /// Grows or shrinks a row at its end. What it gets is zeros.
    void Resize(int row, std::size_t size);
    ChangeableBytes ChangeableRow(int row);

private:
    void CheckAllRows() const;
    void PutEntry(int row, std::size_t begin, RowState state);
    void PutFreeBytes();

    ChangeableBytes changeable_;
};

}  // namespace engine::jet
