#include "LongPieces.h"

#include "Rows.h"

#include <algorithm>

namespace engine::jet::filecheck {

namespace {

constexpr std::uint32_t LvalMark = 0x4C41564C;
constexpr std::size_t ReferenceSize = 12;
constexpr std::uint32_t LengthBits = 0x3FFFFFFF;

enum Kind : std::uint32_t { Chain = 0, OnePiece = 1, InRow = 2 };

}  // namespace

LongPieces::LongPieces(const Image& image, const std::string& table, const ColumnOfFile& column,
                       PageOwners& owners, Findings& findings)
    : image_(image),
      column_(column),
      whose_("long values of " + table + "." + column.name),
      owners_(owners),
      findings_(findings) {
    if (column_.longPages) {
        pages_ = owners_.Map(*column_.longPages, whose_);
    }
    if (column_.longPagesWithRoom) {
        room_ = owners_.Map(*column_.longPagesWithRoom, whose_ + " with room");
    }
    CheckPages();
}

void LongPieces::CheckPages() {
    if (!std::includes(pages_.begin(), pages_.end(), room_.begin(), room_.end())) {
        findings_.Fault(whose_, "has pages with room that aren't its own");
    }
    for (const std::uint32_t page : pages_) {
        owners_.Own(page, whose_);
        if (page >= image_.Count()) {
            continue;
        }
        if (image_.Kind(page) != 1 || image_.Page(page).Low(4, 4) != LvalMark) {
            findings_.Fault(whose_, "has page " + std::to_string(page) + ", which has none");
            continue;
        }
        image_.CheckDataPage(page, findings_);
        if (column_.longPagesWithRoom && HasKnownRoom(image_, page) && !room_.contains(page)) {
            findings_.Oddity(whose_, "forgets that page " + std::to_string(page) + " has room");
        }
    }
}

std::vector<std::uint8_t> LongPieces::Read(const View& reference, const Place& row) {
    const std::size_t size = reference.Low(0, 4) & LengthBits;
    const std::uint32_t kind = reference.Low(0, 4) >> 30;
    if (reference.Low(8, 4) != 0) {
        findings_.Oddity(whose_, "has something behind a reference of row " + ToString(row));
    }
    if (kind == InRow) {
        const auto bytes = reference.Part(ReferenceSize, size).Bytes();
        return {bytes.begin(), bytes.end()};
    }
    std::vector<std::uint8_t> value;
    Place next = PlaceAt(reference, 4);
    while (value.size() < size) {
        const Slot piece = Take(next, row);
        const auto bytes = piece.bytes.From(kind == Chain ? 4 : 0).Bytes();
        value.insert(value.end(), bytes.begin(), bytes.end());
        if (kind == OnePiece) {
            break;
        }
        next = PlaceAt(piece.bytes, 0);
    }
    if (kind > InRow || value.size() < size) {
        throw Unreadable(column_.name + " has " + std::to_string(value.size()) + " of " +
                         std::to_string(size) + " bytes");
    }
    if (value.size() > size || (kind == Chain && next != Place{})) {
        findings_.Oddity(whose_, "goes on behind the value of row " + ToString(row));
    }
    value.resize(size);
    return value;
}

Slot LongPieces::Take(const Place& place, const Place& row) {
    const Slot piece = image_.RowAt(place);
    if (!pages_.contains(place.page) || image_.Page(place.page).Low(4, 4) != LvalMark) {
        throw Unreadable(column_.name + " leads to page " + std::to_string(place.page) +
                         ", which isn't in its map");
    }
    if (piece.flags != 0) {
        throw Unreadable(column_.name + " leads to " + ToString(place) + ", which is deleted");
    }
    if (!rows_.emplace(place, row).second) {
        throw Unreadable(column_.name + " has a piece at " + ToString(place) + " with row " +
                         ToString(rows_[place]));
    }
    return piece;
}

void LongPieces::CheckAllNamed() const {
    for (const std::uint32_t page : pages_) {
        if (page >= image_.Count() || image_.Kind(page) != 1) {
            continue;
        }
        const std::uint32_t rows = std::min<std::uint32_t>(image_.Page(page).Low(12, 2), 255);
        for (std::uint32_t row = 0; row < rows; ++row) {
            const Place place{page, row};
            if ((image_.Page(page).Low(14 + 2 * std::size_t{row}, 2) & SlotFlag::Deleted) !=
                    SlotFlag::Deleted &&
                !rows_.contains(place)) {
                findings_.Oddity(whose_, "has a piece at " + ToString(place) + " that nobody names");
            }
        }
    }
}

}  // namespace engine::jet::filecheck
