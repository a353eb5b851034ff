#pragma once

#include "engine/dialect/Tokenizer.h"

#include <span>

namespace engine::execution {

struct Column;

/// Rows that a file takes without a statement of SQLite: the literals of inserts of one shape, which has
/// nothing but literals for its columns.
class LiteralRows {
public:
    LiteralRows() = default;
    LiteralRows(const LiteralRows&) = delete;
    LiteralRows& operator=(const LiteralRows&) = delete;
    virtual ~LiteralRows() = default;

    /// Keeps the row at a place (from 0), in place of the one that was kept there, with a literal for each
    /// column. `columns` are these, as BindLiteral wants them. Fails as that does, and keeps nothing then.
    virtual void Keep(size_t place, std::span<const Column* const> columns,
                      const dialect::ShapedStatement& row) = 0;

    /// Puts in as many of the rows that are kept, from the first one on: all or, where it fails, none. The
    /// connection notes their keys.
    virtual void Put(size_t count) = 0;
};

}  // namespace engine::execution
