#include "engine/dialect/Tokenizer.h"

#include "engine/dialect/Scanner.h"

namespace engine::dialect {

namespace {

void StartOver(const QString& text, ShapedStatement& statement) {
    // A character takes three bytes at most, and a blank may come before it.
    const size_t most = static_cast<size_t>(text.size()) * 4 + 4;
    statement.shape.StartOver(most);
    statement.literals.clear();
    statement.texts.StartOver(most);
}

// All that the reading of what stands before a literal can hang on: a name would go on with a digit, and a
// "-" or
// "." would be part of a number.
char16_t BeginningOf(char16_t first) {
    return IsDigit(first) ? u'0' : first;
}

}  // namespace

void Tokenize(const QString& text, ShapedStatement& statement) {
    StartOver(text, statement);
    Scanner(text, statement).Run();
}

void RepeatTokenizer::Tokenize(const QString& text, ShapedStatement& statement) {
    StartOver(text, statement);
    if (!TakeAsBefore(text, statement)) {
        dialect::Tokenize(text, statement);
        Remember(text, statement);
    }
}

bool RepeatTokenizer::TakeAsBefore(const QString& text, ShapedStatement& statement) const {
    Scanner scanner(text, statement);
    std::u16string_view fixed = fixed_;
    for (const Gap& gap : gaps_) {
        if (!scanner.Skip(fixed.substr(0, gap.size)) || BeginningOf(scanner.Next()) != gap.beginning ||
            !scanner.TakeLiteral()) {
            return false;
        }
        fixed.remove_prefix(gap.size);
    }
    if (!scanner.Skip(fixed) || !scanner.AtEnd()) {
        return false;
    }
    statement.shape.StartOver(0);
    statement.shape.Put({shape_.data(), static_cast<qsizetype>(shape_.size())});
    return true;
}

void RepeatTokenizer::Remember(QStringView text, const ShapedStatement& statement) {
    shape_ = statement.Shape();
    fixed_.clear();
    gaps_.clear();
    const auto keep = [this, &text](qsizetype begin, qsizetype end) {
        fixed_.append(text.utf16() + begin, static_cast<size_t>(end - begin));
    };
    qsizetype place = 0;
    for (const Literal& literal : statement.literals) {
        keep(place, literal.begin);
        gaps_.push_back(
            {static_cast<size_t>(literal.begin - place), BeginningOf(text.utf16()[literal.begin])});
        place = literal.end;
    }
    keep(place, text.size());
}

}  // namespace engine::dialect
