#pragma once

#include "engine/dialect/Tokenizer.h"
#include "engine/execution/StatementCache.h"

#include <optional>
#include <vector>

namespace engine::execution {

/// Reads the keys of a select's rows in the order that it asks for. Rows that are equal in it come in the
/// order of their keys.
class KeysInOrder {
public:
    KeysInOrder(Connection& connection, StatementCache& statements)
        : connection_(connection), statements_(statements) {}

    std::vector<qint64> Read(const PreparedStatement& prepared, const dialect::ShapedStatement& shaped);

private:
    std::optional<std::vector<qint64>> ReadUnsorted(const PreparedStatement& prepared,
                                                    const dialect::ShapedStatement& shaped);
    std::vector<qint64> ReadSorted(const PreparedStatement& prepared, const dialect::ShapedStatement& shaped);

    Connection& connection_;
    StatementCache& statements_;
};

}  // namespace engine::execution
