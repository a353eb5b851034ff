#include "engine/jet/DataPage.h"

#include "engine/jet/Damage.h"

#include <algorithm>

namespace engine::jet {

namespace {

constexpr std::size_t FreeBytesAt = 2;
constexpr std::size_t OwnerAt = 4;
constexpr std::size_t RowCountAt = 12;
// A row's number has one byte wherever it is named.
constexpr int HighestRowNumber = 255;

[[noreturn]] void RaiseNoRoom(PageNumber page) {
    RaiseDamaged(page, QStringLiteral("has less room than it says"));
}

}  // namespace

DataPage::DataPage(const Page& page, PageNumber number, std::uint32_t owner)
    : bytes_(page, number), rows_(bytes_.U16(RowCountAt)) {
    if (bytes_.U8(0) != PageKind::Data) {
        RaiseDamaged(number, QStringLiteral("is of kind %1, where rows should be").arg(bytes_.U8(0)));
    }
    if (bytes_.U32(OwnerAt) != owner) {
        RaiseDamaged(number, QStringLiteral("belongs to %1, not to %2").arg(bytes_.U32(OwnerAt)).arg(owner));
    }
    if (rows_ > HighestRowNumber + 1) {
        RaiseDamaged(number, QStringLiteral("says that it has %1 rows").arg(rows_));
    }
}

std::uint32_t DataPage::OwnerOf(const Page& page, PageNumber number) {
    return Bytes(page, number).U32(OwnerAt);
}

void DataPage::RaiseNoRow(int row) const {
    RaiseDamaged(bytes_.OfPage(), QStringLiteral("has %1 rows, and so no row %2").arg(rows_).arg(row));
}

Bytes DataPage::Row(int row) const {
    const std::size_t begin = RowBegin(row);
    const std::size_t end = RowEnd(row);
    if (begin > end || end > PageSize || begin < EntryAt(rows_)) {
        RaiseDamaged(bytes_.OfPage(), QStringLiteral("has a row %1 from %2 to %3")
                                          .arg(row)
                                          .arg(static_cast<qulonglong>(begin))
                                          .arg(static_cast<qulonglong>(end)));
    }
    return bytes_.Part(begin, end - begin);
}

// What the page itself says of it is not asked: another program that got it wrong would mislead us.
std::size_t DataPage::FreeBytes() const {
    const std::size_t lowest = rows_ == 0 ? PageSize : RowBegin(rows_ - 1);
    return lowest > EntryAt(rows_) ? lowest - EntryAt(rows_) : 0;
}

bool DataPage::HasRoomFor(std::size_t size) const {
    return rows_ < MostRowsOfPage && FreeBytes() >= size + RowListEntry;
}

bool DataPage::CanResize(int row, std::size_t size) const {
    return size <= Row(row).Size() + FreeBytes();
}

bool DataPage::IsAllDeleted() const {
    for (int row = 0; row < rows_; ++row) {
        if (State(row) != RowState::Deleted) {
            return false;
        }
    }
    return true;
}

ChangeableDataPage::ChangeableDataPage(Page& page, PageNumber number, std::uint32_t owner, bool isKnown)
    : DataPage(page, number, owner), changeable_(page, number) {
    if (!isKnown) {
        CheckAllRows();
    }
}

ChangeableDataPage ChangeableDataPage::Begin(Page& page, PageNumber number, std::uint32_t owner) {
    page.fill(0);
    ChangeableBytes bytes(page, number);
    bytes.Put8(0, PageKind::Data);
    bytes.Put8(1, 1);
    bytes.Put32(OwnerAt, owner);
    bytes.Put16(FreeBytesAt, static_cast<std::uint16_t>(PageSize - DataPageHead));
    return {page, number, owner};
}

// Quickly; if a row is amiss, asking for it says what.
void ChangeableDataPage::CheckAllRows() const {
    const Bytes entries = bytes_.Part(DataPageHead, EntryAt(rows_) - DataPageHead);
    std::size_t end = PageSize;
    bool areInOrder = true;
    for (std::size_t at = 0; at < entries.Size(); at += RowListEntry) {
        const std::size_t begin = entries.U16(at) & OffsetBits;
        areInOrder &= begin <= end;
        end = begin;
    }
    if (areInOrder && end >= EntryAt(rows_)) {
        return;
    }
    for (int row = 0; row < rows_; ++row) {
        Row(row);
    }
}

int ChangeableDataPage::Add(const Bytes& row, RowState state) {
    if (!HasRoomFor(row.Size())) {
        RaiseNoRoom(bytes_.OfPage());
    }
    const std::size_t begin = (rows_ == 0 ? PageSize : RowBegin(rows_ - 1)) - row.Size();
    const int added = rows_++;
    changeable_.Put16(RowCountAt, static_cast<std::uint16_t>(rows_));
    PutEntry(added, begin, state);
    changeable_.PutBytes(begin, row);
    PutFreeBytes();
    return added;
}

void ChangeableDataPage::Replace(int row, const Bytes& with, RowState state) {
    Resize(row, with.Size());
    changeable_.PutBytes(RowBegin(row), with);
    SetState(row, state);
}

void ChangeableDataPage::Delete(int row) {
    Resize(row, 0);
    SetState(row, RowState::Deleted);
}

void ChangeableDataPage::SetState(int row, RowState state) {
    PutEntry(row, RowBegin(row), state);
}

void ChangeableDataPage::Resize(int row, std::size_t size) {
    if (!CanResize(row, size)) {
        RaiseNoRoom(bytes_.OfPage());
    }
    const Bytes old = Row(row);
    if (size == old.Size()) {
        return;
    }
    const std::size_t begin = RowBegin(row);
    const std::size_t lowest = RowBegin(rows_ - 1);
    const std::size_t kept = std::min(size, old.Size());
    // The rows with higher numbers lie before this one, and move with what is kept of it.
    const std::size_t to = lowest + old.Size() - size;
    const std::size_t keptTo = begin + old.Size() - size;
    changeable_.PutBytes(to, bytes_.Part(lowest, begin + kept - lowest));
    if (size > old.Size()) {
        changeable_.Fill(keptTo + kept, size - kept, 0);
    }
    for (int moved = row; moved < rows_; ++moved) {
        PutEntry(moved, RowBegin(moved) + old.Size() - size, State(moved));
    }
    PutFreeBytes();
}

ChangeableBytes ChangeableDataPage::ChangeableRow(int row) {
    return changeable_.ChangeablePart(RowBegin(row), Row(row).Size());
}

void ChangeableDataPage::PutEntry(int row, std::size_t begin, RowState state) {
    changeable_.Put16(EntryAt(row), static_cast<std::uint16_t>(begin | static_cast<std::uint16_t>(state)));
}

void ChangeableDataPage::PutFreeBytes() {
    changeable_.Put16(FreeBytesAt, static_cast<std::uint16_t>(FreeBytes()));
}

}  // namespace engine::jet
