#include "Image.h"

#include <algorithm>

namespace engine::jet::filecheck {

namespace {

constexpr std::size_t RowsAt = 12;
constexpr std::size_t ListAt = 14;
constexpr std::uint32_t OffsetBits = 0x1FFF;

}  // namespace

std::uint32_t View::Low(std::size_t at, std::size_t size) const {
    const View part = Part(at, size);
    std::uint32_t number = 0;
    for (std::size_t byte = size; byte > 0; --byte) {
        number = number * 256 + part.bytes_[byte - 1];
    }
    return number;
}

View View::Part(std::size_t at, std::size_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) {
        throw Unreadable("ends at " + std::to_string(bytes_.size()) + ", within " + std::to_string(size) +
                         " bytes at " + std::to_string(at));
    }
    return View(bytes_.subspan(at, size));
}

View View::From(std::size_t at) const {
    return Part(at, at < bytes_.size() ? bytes_.size() - at : 0);
}

Place PlaceAt(const View& bytes, std::size_t at) {
    return {bytes.Low(at + 1, 3), bytes.Low(at, 1)};
}

std::string ToString(const Place& place) {
    return std::to_string(place.page) + "/" + std::to_string(place.row);
}

View Image::Page(std::uint32_t number) const {
    if (number >= Count()) {
        throw Unreadable("page " + std::to_string(number) + " isn't there");
    }
    return file_.Part(std::size_t{number} * PageSize, PageSize);
}

Slot Image::RowAt(const Place& place) const {
    const View page = Page(place.page);
    if (page.Byte(0) != 1) {
        throw Unreadable("page " + std::to_string(place.page) + " is no data page");
    }
    if (place.row >= page.Low(RowsAt, 2)) {
        throw Unreadable("there is no row " + ToString(place));
    }
    const std::size_t at = ListAt + 2 * place.row;
    const std::uint32_t entry = page.Low(at, 2);
    const std::uint32_t begin = entry & OffsetBits;
    const std::uint32_t end = place.row == 0 ? PageSize : page.Low(at - 2, 2) & OffsetBits;
    if (begin > end) {
        throw Unreadable("row " + ToString(place) + " ends before it begins");
    }
    return {entry & ~OffsetBits, page.Part(begin, end - begin)};
}

void Image::CheckDataPage(std::uint32_t number, Findings& findings) const {
    const View page = Page(number);
    const std::string where = "page " + std::to_string(number);
    const std::uint32_t rows = page.Low(RowsAt, 2);
    const std::size_t listEnd = ListAt + 2 * std::size_t{rows};
    if (page.Low(0, 2) != 0x0101 || rows > 255) {
        findings.Fault(where, "begins as no data page does, or has " + std::to_string(rows) + " rows");
        return;
    }
    std::uint32_t lowest = PageSize;
    for (std::size_t at = ListAt; at < listEnd; at += 2) {
        const std::uint32_t entry = page.Low(at, 2);
        const std::uint32_t begin = entry & OffsetBits;
        if (begin > lowest || begin < listEnd || (entry & SlotFlag::Unknown) != 0) {
            findings.Fault(where, "has a row that begins at " + std::to_string(entry));
            return;
        }
        if ((entry & SlotFlag::Deleted) == SlotFlag::Deleted && begin != lowest) {
            findings.Oddity(where, "keeps the bytes of a deleted row");
        }
        lowest = begin;
    }
    if (page.Low(2, 2) != lowest - listEnd) {
        findings.Fault(where, "says " + std::to_string(page.Low(2, 2)) + " bytes are free, and " +
                                  std::to_string(lowest - listEnd) + " are");
    }
    if (page.Low(8, 4) != 0) {
        findings.Oddity(where, "has something at 8");
    }
}

}  // namespace engine::jet::filecheck
