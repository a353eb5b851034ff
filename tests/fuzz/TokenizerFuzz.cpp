#include "engine/Error.h"
#include "engine/dialect/Grammar.h"
#include "engine/dialect/Tokenizer.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Any text is either a statement of the dialect, whose literals are all accounted for, or an engine error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    engine::dialect::ShapedStatement statement;
    try {
        engine::dialect::Tokenize(text, statement);
        for (const auto& literal : statement.literals) {
            if (literal.offset + literal.length > statement.texts.Size() ||
                statement.Text(literal).size() != literal.length) {
                std::abort();
            }
        }
        const auto parsed = engine::dialect::Parse(statement.Shape());
        if (parsed.storedIn.size() != statement.literals.size() || parsed.table.empty()) {
            std::abort();
        }
    } catch (const engine::Error&) {
        return 0;
    }
    return 0;
}
