#pragma once

#include "engine/Error.h"
#include "engine/dialect/Tokenizer.h"

#include <sstream>
#include <string>

/// All that a tokenizer makes of a text, or its failure, for comparing.
template <typename Tokenizer>
std::string TakenApart(const QString& text, Tokenizer tokenize) {
    engine::dialect::ShapedStatement statement;
    try {
        tokenize(text, statement);
    } catch (const engine::Error& error) {
        return std::to_string(error.Number()) + ": " + error.Description().toStdString();
    }
    std::ostringstream told;
    told << std::hexfloat << statement.Shape();
    for (const auto& literal : statement.literals) {
        told << "\n  kind " << static_cast<int>(literal.kind) << ", " << literal.integer << ", "
             << literal.real << ", " << literal.characters << " characters, from " << literal.begin << " to "
             << literal.end << ": " << statement.Text(literal);
    }
    return told.str();
}

inline std::string TakenApartAlone(const QString& text) {
    return TakenApart(text, engine::dialect::Tokenize);
}

inline std::string TakenApartAfterOthers(engine::dialect::RepeatTokenizer& tokenizer, const QString& text) {
    return TakenApart(text, [&tokenizer](const QString& statement, engine::dialect::ShapedStatement& shaped) {
        tokenizer.Tokenize(statement, shaped);
    });
}
