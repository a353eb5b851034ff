#pragma once

#include "Image.h"

#include <map>
#include <set>

namespace engine::jet::filecheck {

using Pages = std::set<std::uint32_t>;

/// What each page is used for, and the usage maps that say so.
class PageOwners {
public:
    PageOwners(const Image& image, Findings& findings);

    /// How the owner of a definition's pages is called: this, and the table's name.
    static constexpr const char* Definition = "definition of ";

    /// Notes who uses a page. A fault if it is somebody else's, too.
    void Own(std::uint32_t page, const std::string& owner);

    /// The pages in a map, which must not serve anybody else. Those that the map itself lies on are its own.
    Pages Map(const Place& place, const std::string& whose);

    /// The map of the free pages, and what it says against the use that was noted. The last thing to do.
    void CheckFreePages();

private:
    bool IsRowPageOfTable(std::uint32_t page) const;
    Pages Read(const Place& place, const std::string& whose, bool isFreeMap);
    Pages ReadReferences(const View& row, const std::string& whose, bool isFreeMap);

    const Image& image_;
    Findings& findings_;
    std::vector<std::string> owners_;
    std::map<Place, std::string> maps_;
};

}  // namespace engine::jet::filecheck
