#pragma once

#include "Image.h"
#include "engine/jet/TableLayout.h"

#include <optional>

namespace engine::jet::filecheck {

struct ColumnOfFile {
    std::string name;
    int type = 0;
    std::uint32_t number = 0;
    std::uint32_t variablePlace = 0;
    std::uint32_t sortOrder = 0;
    std::uint32_t sortVersion = 0;
    bool isFixed = false;
    bool countsUp = false;
    bool mayBeCompressed = false;
    std::uint32_t fixedAt = 0;
    std::uint32_t size = 0;
    std::optional<Place> longPages;
    std::optional<Place> longPagesWithRoom;
};

struct IndexOfFile {
    struct Part {
        std::size_t column = 0;
        bool ascending = true;
    };

    std::string name;
    std::vector<Part> parts;
    Place pages;
    std::uint32_t root = 0;
    bool isUnique = false;
    bool ignoresNulls = false;
    bool refusesNulls = false;
};

/// What the definition of a table says.
struct Definition {
    std::string name;
    bool isSystem = false;
    std::vector<std::uint32_t> ownPages;
    std::uint32_t rows = 0;
    std::int32_t lastNumber = 0;
    std::uint32_t rowColumns = 0;
    std::uint32_t variableColumns = 0;
    std::vector<ColumnOfFile> columns;
    std::vector<IndexOfFile> indexes;
    Place pages;
    Place pagesWithRoom;

    std::uint32_t FirstPage() const { return ownPages.front(); }
    /// Where the column of a name is in the list. Unreadable if there is none.
    std::size_t ColumnCalled(const std::string& called) const;
};

/// Reads a definition and notes what is wrong with it. Unreadable if it can't be told where things are.
Definition ReadDefinition(const Image& image, const std::string& name, std::uint32_t first,
                          Findings& findings);

/// How many bytes a value of the type has; 0 where they differ.
std::uint32_t SizeOf(int type);
inline bool IsLong(int type) {
    return type == ColumnType::LongBinary || type == ColumnType::Memo;
}

}  // namespace engine::jet::filecheck
