#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace engine::jet {

inline constexpr std::size_t PageSize = 4096;

using Page = std::array<std::uint8_t, PageSize>;

/// Counts from 0, where the header of the file lies; so 0 stands for "no page" wherever one page names
/// another.
using PageNumber = std::uint32_t;

/// What a page was found to be by whoever has looked at the whole of it.
enum class PageShape : std::uint8_t { Unknown, Rows, Entries };

/// The pages of one database file, as its tables, indexes and long values see them.
///
/// A page lies in memory from its first use on, at the same place until the statement is over, so that pages
/// handed out may be held meanwhile. Changes reach the file later, with those of a whole group of statements.
/// Numbers that a damaged file leads to are refused here: a page that isn't in the file is an engine error
/// (DatabaseDamaged), and so is one that can't be read (DiskError).
class PageStore {
public:
    PageStore() = default;
    PageStore(const PageStore&) = delete;
    PageStore& operator=(const PageStore&) = delete;
    virtual ~PageStore() = default;

    /// How many pages the file has, those included that were taken and have not reached it yet.
    virtual PageNumber Count() const = 0;

    virtual const Page& Read(PageNumber number) = 0;

    /// The page, for changing its bytes. What it held before comes back if the statement is undone.
    virtual Page& Change(PageNumber number) = 0;

    /// A page that nobody uses, filled with zeros, which is in use from now on. Fails with DiskFull where the
    /// file has reached the largest size that the format can have.
    virtual PageNumber Take() = 0;
    /// The same, with a higher number than this page has.
    virtual PageNumber TakeBehind(PageNumber page) = 0;

    /// Gives back a page that nobody names any more.
    virtual void GiveBack(PageNumber number) = 0;

    /// What a usage map has said it would say again as long as this number is the same.
    std::uint64_t StateOfMaps() const { return stateOfMaps_; }

    /// Whether a page was looked at as a whole and found in order as one of this shape. Whoever changes a
    /// page leaves it in order, so that it isn't looked at again until its bytes come from elsewhere.
    bool HasShape(PageNumber number, PageShape shape) const {
        return number < shapes_.size() && shapes_[number] == shape;
    }
    void NoteShape(PageNumber number, PageShape shape) {
        if (number >= shapes_.size()) {
            shapes_.resize(number + 1);
        }
        shapes_[number] = shape;
    }

protected:
    /// To be called where other bytes take the place of a page's: from the file, by an undo, for a new page.
    void ForgetShape(PageNumber number) {
        if (number < shapes_.size()) {
            shapes_[number] = PageShape::Unknown;
        }
    }
    void ForgetShapes() { shapes_.clear(); }

    /// To be called before each change of a page that may hold usage maps, by an undo as well.
    void NoteChangeOfMaps() { ++stateOfMaps_; }

private:
    std::uint64_t stateOfMaps_ = 0;
    std::vector<PageShape> shapes_;
};

}  // namespace engine::jet
