#include "PageOwners.h"

namespace engine::jet::filecheck {

namespace {

constexpr std::uint32_t FreeMapPage = 1;
constexpr std::uint32_t HighestPage = 0xFFFFFF;
constexpr std::uint32_t FirstThatMayBeFree = 3;
constexpr std::size_t UsualSize = 69;
constexpr std::uint8_t MapKind = 5;
constexpr std::uint32_t BitsPageHead = 4;
constexpr std::uint32_t BitsOfPage = (Image::PageSize - BitsPageHead) * 8;

void AddBits(const View& bits, std::uint32_t first, Pages& pages) {
    const auto bytes = bits.Bytes();
    for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
        for (unsigned bit = 0; bytes[byte] != 0 && bit < 8; ++bit) {
            if ((bytes[byte] >> bit & 1) != 0) {
                pages.insert(first + static_cast<std::uint32_t>(byte * 8 + bit));
            }
        }
    }
}

}  // namespace

PageOwners::PageOwners(const Image& image, Findings& findings)
    : image_(image), findings_(findings), owners_(image.Count()) {
    owners_[0] = "the header";
    owners_[FreeMapPage] = "the map of free pages";
    maps_[{FreeMapPage, 0}] = owners_[FreeMapPage];
    maps_[{FreeMapPage, 1}] = "the second row of page 1";
    image.CheckDataPage(FreeMapPage, findings);
    if (image.Page(FreeMapPage).Low(4, 4) > FreeMapPage) {
        findings.Oddity(owners_[FreeMapPage], "says it is owned");
    }
}

void PageOwners::Own(std::uint32_t page, const std::string& owner) {
    if (page >= image_.Count()) {
        findings_.Fault(owner, "uses page " + std::to_string(page) + ", which isn't there");
    } else if (owners_[page].empty()) {
        owners_[page] = owner;
    } else if (owners_[page] != owner) {
        findings_.Fault("page " + std::to_string(page), "belongs to " + owners_[page] + " and to " + owner);
    }
}

Pages PageOwners::Map(const Place& place, const std::string& whose) {
    const auto [known, isNew] = maps_.emplace(place, whose);
    if (!isNew) {
        findings_.Fault("map " + ToString(place), "serves " + known->second + " and " + whose);
    }
    if (place.page != FreeMapPage && place.page < image_.Count()) {
        if (owners_[place.page].empty()) {
            image_.CheckDataPage(place.page, findings_);
            if (image_.Page(place.page).Low(4, 4) != 0) {
                findings_.Oddity("page " + std::to_string(place.page), "holds maps and says it is owned");
            }
        }
        Own(place.page, "maps");
    }
    return Read(place, whose, false);
}

Pages PageOwners::Read(const Place& place, const std::string& whose, bool isFreeMap) {
    const Slot row = image_.RowAt(place);
    if (row.flags != 0) {
        throw Unreadable("the map of " + whose + " is deleted");
    }
    if (!isFreeMap && row.bytes.Size() != UsualSize) {
        findings_.Oddity(whose, "has a map of " + std::to_string(row.bytes.Size()) + " bytes");
    }
    if (row.bytes.Byte(0) == 1) {
        return ReadReferences(row.bytes, whose, isFreeMap);
    }
    if (row.bytes.Byte(0) != 0) {
        throw Unreadable("the map of " + whose + " is of no known kind");
    }
    const std::uint32_t first = row.bytes.Low(1, 4);
    if (first % 8 != 0 || first > HighestPage) {
        findings_.Oddity(whose, "has a map that begins at page " + std::to_string(first));
    }
    Pages pages;
    AddBits(row.bytes.From(5), first, pages);
    return pages;
}

Pages PageOwners::ReadReferences(const View& row, const std::string& whose, bool isFreeMap) {
    Pages pages;
    for (std::uint32_t place = 0; 1 + 4 * (place + 1) <= row.Size(); ++place) {
        const std::uint32_t page = row.Low(1 + 4 * std::size_t{place}, 4);
        if (page == 0) {
            continue;
        }
        if (isFreeMap && page >= image_.Count()) {
            findings_.Oddity(whose, "leads behind the end of the file");
            continue;
        }
        if (image_.Page(page).Low(0, 4) != (MapKind | 0x0100U)) {
            throw Unreadable("page " + std::to_string(page) + " has no bits of " + whose);
        }
        Own(page, "bits of " + whose);
        AddBits(image_.Page(page).From(BitsPageHead), place * BitsOfPage, pages);
    }
    return pages;
}

// Such a page may have rows that the table has lost; any other one is waste.
bool PageOwners::IsRowPageOfTable(std::uint32_t page) const {
    const std::uint32_t owner = image_.Page(page).Low(4, 4);
    return image_.Kind(page) == 1 && owner < image_.Count() && owners_[owner].starts_with(Definition);
}

void PageOwners::CheckFreePages() {
    const std::string where = owners_[FreeMapPage];
    Pages free;
    try {
        free = Read({FreeMapPage, 0}, where, true);
    } catch (const Unreadable& error) {
        findings_.Fault(where, error.what());
        return;
    }
    for (std::uint32_t page = 0; page < image_.Count(); ++page) {
        if (free.contains(page) && !owners_[page].empty()) {
            findings_.Fault(
                where, "page " + std::to_string(page) + " counts as free and is used for " + owners_[page]);
        }
        if (page >= FirstThatMayBeFree && owners_[page].empty() && !free.contains(page)) {
            const std::string what = "page " + std::to_string(page) + " is neither free nor used";
            IsRowPageOfTable(page) ? findings_.Fault(where, what) : findings_.Oddity(where, what);
        }
    }
}

}  // namespace engine::jet::filecheck
