#include "engine/dialect/Tokenizer.h"

#include "engine/dialect/Scanner.h"

#include <algorithm>
#include <cstring>

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
// "-" or "." would be part of a number.
char16_t BeginningOf(char16_t first) {
    return IsDigit(first) ? u'0' : first;
}

bool IsSame(std::u16string_view one, std::u16string_view other) {
    return one.size() == other.size() && std::equal(one.begin(), one.end(), other.begin());
}

size_t LengthOfSameBeginning(std::u16string_view one, std::u16string_view other) {
    constexpr size_t Block = sizeof(quint64) / sizeof(char16_t);
    const size_t most = std::min(one.size(), other.size());
    const auto blockAt = [](std::u16string_view text, size_t place) {
        quint64 block = 0;
        std::memcpy(&block, text.data() + place, sizeof block);
        return block;
    };
    size_t same = 0;
    while (same + Block <= most && blockAt(one, same) == blockAt(other, same)) {
        same += Block;
    }
    while (same < most && one[same] == other[same]) {
        ++same;
    }
    return same;
}

}  // namespace

void Tokenize(const QString& text, ShapedStatement& statement) {
    StartOver(text, statement);
    Scanner(text, statement).Run();
}

void RepeatTokenizer::Tokenize(const QString& text, ShapedStatement& statement) {
    StartOver(text, statement);
    if (TakeAsBefore(text, statement)) {
        statement.shape.StartOver(0);
        statement.shape.Put({shape_.data(), static_cast<qsizetype>(shape_.size())});
    } else {
        dialect::Tokenize(text, statement);
        shape_ = statement.Shape();
    }
    Remember(text, statement);
}

bool RepeatTokenizer::TakeAsBefore(const QString& text, ShapedStatement& statement) const {
    const std::u16string_view before(text_);
    const std::u16string_view now(QStringView(text).utf16(), static_cast<size_t>(text.size()));
    const auto same = static_cast<qsizetype>(LengthOfSameBeginning(before, now));
    // Where a literal ends is told by the character behind it, which has to be the same as well.
    size_t next = 0;
    while (next < literals_.size() && literals_[next].end < same) {
        ++next;
    }
    Copy(0, next, 0, statement);

    qsizetype passedBefore = next == 0 ? 0 : literals_[next - 1].end;
    Scanner scanner(text, statement, passedBefore);
    for (; next < literals_.size(); ++next) {
        const Literal& literal = literals_[next];
        const auto passed = static_cast<size_t>(passedBefore);
        if (IsSame(now.substr(static_cast<size_t>(scanner.Passed())), before.substr(passed))) {
            Copy(next, literals_.size(), scanner.Passed() - passedBefore, statement);
            return true;
        }
        const auto begin = static_cast<size_t>(literal.begin);
        if (!scanner.Skip(before.substr(passed, begin - passed)) ||
            BeginningOf(scanner.Next()) != BeginningOf(before[begin]) || !scanner.TakeLiteral()) {
            return false;
        }
        passedBefore = literal.end;
    }
    return scanner.Skip(before.substr(static_cast<size_t>(passedBefore))) && scanner.AtEnd();
}

// Takes literals over that stand so many characters further on in this statement.
void RepeatTokenizer::Copy(size_t firstLiteral, size_t endLiteral, qsizetype shift,
                           ShapedStatement& statement) const {
    for (size_t place = firstLiteral; place < endLiteral; ++place) {
        const Literal& literal = literals_[place];
        Literal& copy = statement.literals.emplace_back(literal);
        copy.begin += shift;
        copy.end += shift;
        copy.offset = statement.texts.Size();
        statement.texts.Put({texts_.data() + literal.offset, static_cast<qsizetype>(literal.length)});
    }
}

void RepeatTokenizer::Remember(const QString& text, const ShapedStatement& statement) {
    text_.assign(QStringView(text).utf16(), static_cast<size_t>(text.size()));
    literals_ = statement.literals;
    texts_ = statement.texts.View();
}

}  // namespace engine::dialect
