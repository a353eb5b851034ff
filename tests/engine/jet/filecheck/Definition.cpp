#include "Definition.h"

#include "Texts.h"
#include "engine/jet/DefinitionForm.h"

#include <QStringView>

#include <algorithm>
#include <set>

namespace engine::jet::filecheck {

using namespace DefinitionForm;

namespace {

// The first byte of the page and the second.
constexpr std::uint32_t PageMark = 0x0102;
constexpr std::size_t LongestName = 128;
constexpr std::uint32_t LongestRow = 4060;
constexpr std::size_t MostIndexes = 200;

class DefinitionReader {
public:
    DefinitionReader(const Image& image, const std::string& name, Findings& findings)
        : image_(image), findings_(findings) {
        read_.name = name;
    }

    Definition Read(std::uint32_t first) {
        JoinPages(first);
        ReadHead();
        ReadColumns();
        ReadIndexes();
        ReadLongMaps();
        CheckEnd();
        CheckColumns();
        return read_;
    }

private:
    void JoinPages(std::uint32_t first) {
        for (std::uint32_t page = first; page != 0;) {
            const View bytes = image_.Page(page);
            if (bytes.Low(0, 2) != PageMark) {
                throw Unreadable("page " + std::to_string(page) + " is no definition");
            }
            if (std::count(read_.ownPages.begin(), read_.ownPages.end(), page) > 0) {
                throw Unreadable("the pages of the definition lead in a circle");
            }
            const auto body = bytes.From(read_.ownPages.empty() ? 0 : HeadSize).Bytes();
            joined_.insert(joined_.end(), body.begin(), body.end());
            read_.ownPages.push_back(page);
            page = bytes.Low(HeadNextPageAt, 4);
        }
        all_ = View(joined_);
    }

    void ReadHead() {
        read_.rows = all_.Low(RowsAt, 4);
        read_.lastNumber = static_cast<std::int32_t>(all_.Low(AutonumberAt, 4));
        read_.rowColumns = all_.Low(RowColumnsAt, 2);
        read_.variableColumns = all_.Low(VariableColumnsAt, 2);
        read_.pages = PlaceAt(all_, PagesAt);
        read_.pagesWithRoom = PlaceAt(all_, PagesWithRoomAt);
        read_.isSystem = all_.Byte(KindAt) == SystemTable;
        Require(read_.isSystem || all_.Byte(KindAt) == UserTable, "is of no known kind");
        Require(all_.Low(MarkAt, 4) == Mark, "lacks the mark at its front");
        Require(read_.rowColumns <= 255, "has too many columns");
    }

    void ReadColumns() {
        const std::size_t count = all_.Low(ColumnCountAt, 2);
        at_ = StatisticsAt + StatisticSize * IndexCount(RealCountAt);
        for (std::size_t place = 0; place < count; ++place) {
            ReadColumn(Take(ColumnSize));
        }
        for (ColumnOfFile& column : read_.columns) {
            column.name = TakeName();
        }
    }

    void ReadColumn(const View& entry) {
        ColumnOfFile column;
        column.type = entry.Byte(0);
        column.number = entry.Low(ColumnNumberAt, 2);
        column.variablePlace = entry.Low(ColumnVariablePlaceAt, 2);
        column.sortOrder = entry.Low(ColumnSortOrderAt, 2);
        column.sortVersion = entry.Byte(ColumnSortVersionAt);
        column.isFixed = (entry.Byte(ColumnFlagsAt) & ColumnFlag::Fixed) != 0;
        column.countsUp = (entry.Byte(ColumnFlagsAt) & ColumnFlag::CountsUp) != 0;
        column.mayBeCompressed = (entry.Byte(ColumnMoreFlagsAt) & ColumnFlag::Compressed) != 0;
        column.fixedAt = entry.Low(ColumnFixedAt, 2);
        column.size = entry.Low(ColumnSizeAt, 2);
        Require(entry.Low(ColumnMarkAt, 4) == Mark, "has a column without the mark");
        if (entry.Low(ColumnNumberAgainAt, 2) != column.number) {
            findings_.Oddity(Where(), "numbers a column in two ways");
        }
        read_.columns.push_back(column);
    }

    void ReadIndexes() {
        for (std::size_t count = IndexCount(RealCountAt); count > 0; --count) {
            ReadRealIndex(Take(RealIndexSize));
        }
        std::vector<std::uint32_t> named;
        std::set<std::uint32_t> numbers;
        for (std::size_t count = IndexCount(LogicalCountAt); count > 0; --count) {
            const View entry = Take(LogicalIndexSize);
            named.push_back(entry.Low(LogicalRealAt, 4));
            Require(named.back() < read_.indexes.size(), "names an index that isn't there");
            Require(numbers.insert(entry.Low(LogicalNumberAt, 4)).second, "gives two indexes one number");
            Require(entry.Byte(LogicalKindAt) <= 2, "has an index of no known kind");
        }
        std::set<std::string> names;
        for (const std::uint32_t real : named) {
            const std::string name = TakeName();
            Require(names.insert(WithoutCase(name)).second, "has two indexes called " + name);
            if (real < read_.indexes.size() && read_.indexes[real].name.empty()) {
                read_.indexes[real].name = name;
            }
        }
    }

    void ReadRealIndex(const View& entry) {
        IndexOfFile index;
        for (std::size_t place = 0; place < std::size_t{RealColumnCount}; ++place) {
            const std::size_t at = RealColumnsAt + RealColumnSize * place;
            if (entry.Low(at, 2) != None) {
                index.parts.push_back({ColumnNumbered(entry.Low(at, 2)), (entry.Byte(at + 2) & 1) != 0});
            }
        }
        index.pages = PlaceAt(entry, RealPagesAt);
        index.root = entry.Low(RealRootAt, 4);
        const std::uint8_t flags = entry.Byte(RealFlagsAt);
        index.isUnique = (flags & IndexFlag::Unique) != 0;
        index.ignoresNulls = (flags & IndexFlag::IgnoresNulls) != 0;
        index.refusesNulls = (flags & IndexFlag::RefusesNulls) != 0;
        Require((flags & IndexFlag::Always) != 0 && !index.parts.empty(), "has an index that can't be one");
        read_.indexes.push_back(index);
    }

    std::size_t ColumnNumbered(std::uint32_t number) const {
        const auto found = std::find_if(read_.columns.begin(), read_.columns.end(),
                                        [&](const ColumnOfFile& column) { return column.number == number; });
        if (found == read_.columns.end()) {
            throw Unreadable("an index has a column number " + std::to_string(number));
        }
        return static_cast<std::size_t>(found - read_.columns.begin());
    }

    void ReadLongMaps() {
        for (std::uint32_t number = Take(2).Low(0, 2); number != None; number = Take(2).Low(0, 2)) {
            const View entry = Take(LongMapSize - 2);
            const auto column = std::find_if(
                read_.columns.begin(), read_.columns.end(),
                [&](const ColumnOfFile& other) { return other.number == number && IsLong(other.type); });
            if (column == read_.columns.end() || column->longPages) {
                // Those of deleted columns stay.
                findings_.Oddity(Where(), "has maps for a column number " + std::to_string(number));
                continue;
            }
            column->longPages = NoneOrPlace(entry, 0);
            column->longPagesWithRoom = NoneOrPlace(entry, 4);
        }
    }

    static std::optional<Place> NoneOrPlace(const View& entry, std::size_t at) {
        return entry.Low(at, 4) == 0 ? std::nullopt : std::optional(PlaceAt(entry, at));
    }

    void CheckEnd() {
        Require(all_.Low(LengthAt, 4) == at_, "says it ends at " + std::to_string(all_.Low(LengthAt, 4)) +
                                                  ", and ends at " + std::to_string(at_));
        if (read_.ownPages.size() == 1) {
            Require(all_.Low(HeadFreeBytesAt, 2) + at_ == Image::PageSize - HeadSize,
                    "counts its free bytes wrongly");
        }
        // The last 8 bytes of a page are never the last of a definition.
        Require(joined_.size() >= at_ + HeadSize && joined_.size() < at_ + Image::PageSize,
                "has a page too many or too few");
    }

    void CheckColumns() {
        std::set<std::string> names;
        std::set<std::uint32_t> numbers;
        std::set<std::uint32_t> places;
        for (const ColumnOfFile& column : read_.columns) {
            Require(names.insert(WithoutCase(column.name)).second, "has two columns called " + column.name);
            Require(numbers.insert(column.number).second && column.number < read_.rowColumns,
                    column.name + " has a number that can't be");
            if (!column.isFixed && column.type != ColumnType::Boolean) {
                Require(places.insert(column.variablePlace).second &&
                            column.variablePlace < read_.variableColumns,
                        column.name + " has a place that can't be");
            }
            CheckType(column);
            Require(!column.isFixed || (column.fixedAt + column.size <= LongestRow && !IsLong(column.type)),
                    column.name + " is fixed where it can't be");
            Require(SizeOf(column.type) == 0 || SizeOf(column.type) == column.size,
                    column.name + " has a size that can't be");
            Require((column.type != ColumnType::Text && column.type != ColumnType::Binary) || column.size > 0,
                    column.name + " has no room");
            Require(!IsLong(column.type) || column.longPages || column.size == 0,
                    column.name + " has a size that can't be");
        }
        CheckCounts(numbers.size(), places.size());
    }

    // Types that nobody knows are in system tables, and other orders in files from elsewhere.
    void CheckType(const ColumnOfFile& column) {
        constexpr std::uint32_t GeneralOrder = 0x0409;
        if (SizeOf(column.type) == 0 && column.type != ColumnType::Binary &&
            column.type != ColumnType::Text && !IsLong(column.type)) {
            findings_.Oddity(Where(), column.name + " is of no known type");
        }
        if ((column.type == ColumnType::Text || column.type == ColumnType::Memo) &&
            (column.sortOrder != GeneralOrder || column.sortVersion != 0)) {
            findings_.Oddity(Where(), column.name + " has another order");
        }
    }

    // Columns that were deleted leave gaps.
    void CheckCounts(std::size_t numbers, std::size_t places) {
        if (numbers != read_.rowColumns || places != read_.variableColumns) {
            findings_.Oddity(Where(), "counts its columns otherwise");
        }
    }

    std::size_t IndexCount(std::size_t at) const {
        const std::size_t count = all_.Low(at, 4);
        if (count > MostIndexes) {
            throw Unreadable("it says it has " + std::to_string(count) + " indexes");
        }
        return count;
    }

    View Take(std::size_t size) {
        const View taken = all_.Part(at_, size);
        at_ += size;
        return taken;
    }

    std::string TakeName() {
        const std::size_t size = Take(2).Low(0, 2);
        Require(size % 2 == 0 && size > 0 && size <= LongestName, "has a name that can't be");
        const std::u16string units = PlainUnits(Take(size));
        Require(QStringView(units).isValidUtf16(), "has a name that isn't text");
        return ToUtf8(units);
    }

    std::string Where() const { return "definition of " + read_.name; }
    void Require(bool holds, const std::string& what) {
        if (!holds) {
            findings_.Fault(Where(), what);
        }
    }

    const Image& image_;
    Findings& findings_;
    Definition read_;
    std::vector<std::uint8_t> joined_;
    View all_;
    std::size_t at_ = 0;
};

}  // namespace

std::uint32_t SizeOf(int type) {
    constexpr std::uint32_t Sizes[] = {0, 1, 1, 2, 4, 8, 4, 8, 8, 0, 0, 0, 0, 0, 0, 16, 17};
    return type >= 0 && type <= 16 ? Sizes[type] : 0;
}

std::size_t Definition::ColumnCalled(const std::string& called) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const ColumnOfFile& column) { return column.name == called; });
    if (found == columns.end()) {
        throw Unreadable("there is no column " + called);
    }
    return static_cast<std::size_t>(found - columns.begin());
}

Definition ReadDefinition(const Image& image, const std::string& name, std::uint32_t first,
                          Findings& findings) {
    return DefinitionReader(image, name, findings).Read(first);
}

}  // namespace engine::jet::filecheck
