#include "engine/dialect/Grammar.h"
#include "support/TakenApart.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void RequireLiteralsAccountedFor(const QString& text) {
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
        return;
    }
}

void RequireTheSameOneAfterTheOther(const QStringList& statements) {
    engine::dialect::RepeatTokenizer tokenizer;
    for (const QString& statement : statements) {
        if (TakenApartAfterOthers(tokenizer, statement) != TakenApartAlone(statement)) {
            std::abort();
        }
    }
}

}  // namespace

// Any text is either a statement of the dialect, whose literals are all accounted for, or an engine error.
// And what a statement is doesn't hang on those before it: each line is one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    RequireLiteralsAccountedFor(text);
    RequireTheSameOneAfterTheOther(text.split(QLatin1Char('\n')));
    return 0;
}
