#include "engine/jet/rules/ReadCondition.h"

namespace engine::jet {

namespace {

constexpr int MostLevels = 50;

// Ends the reading, wherever it is. Never leaves this file.
struct NotUnderstood {};

void Require(bool isUnderstood) {
    if (!isUnderstood) {
        throw NotUnderstood();
    }
}

Condition Joined(Condition::Kind kind, std::vector<Condition> parts) {
    if (parts.size() == 1) {
        return std::move(parts.front());
    }
    Condition joined;
    joined.kind = kind;
    joined.parts = std::move(parts);
    return joined;
}

Condition Not(Condition condition) {
    Condition opposite;
    opposite.kind = Condition::Kind::Not;
    opposite.parts.push_back(std::move(condition));
    return opposite;
}

Condition Comparing(Condition::Kind kind, const Operand& left, const Operand& right) {
    Require(AreComparable(NatureOf(left), NatureOf(right)));
    Condition comparison;
    comparison.kind = kind;
    comparison.operands = {left, right};
    return comparison;
}

Condition Equal(const Operand& left, const Operand& right) {
    return Comparing(Condition::Kind::Equal, left, right);
}
Condition Below(const Operand& left, const Operand& right) {
    return Comparing(Condition::Kind::Below, left, right);
}

// Each routine reads what its name says from the words that are left; what binds closest is read last.
class ConditionReader {
public:
    ConditionReader(std::vector<Word> words, const TableLayout& layout, std::optional<int> ownColumn)
        : words_(std::move(words)), layout_(layout), ownColumn_(ownColumn) {}

    Condition Read() {
        Condition condition = ReadOr();
        Require(place_ == words_.size());
        return condition;
    }

private:
    Condition ReadOr() {
        std::vector<Condition> parts{ReadAnd()};
        while (TakeKeyword("Or")) {
            parts.push_back(ReadAnd());
        }
        return Joined(Condition::Kind::Or, std::move(parts));
    }

    Condition ReadAnd() {
        std::vector<Condition> parts{ReadNot()};
        while (TakeKeyword("And")) {
            parts.push_back(ReadNot());
        }
        return Joined(Condition::Kind::And, std::move(parts));
    }

    Condition ReadNot() {
        bool isNegated = false;
        while (TakeKeyword("Not")) {
            isNegated = !isNegated;
        }
        Condition condition = ReadParenthesesOrTest();
        return isNegated ? Not(std::move(condition)) : condition;
    }

    Condition ReadParenthesesOrTest() {
        if (!TakeSymbol("(")) {
            return ReadTest();
        }
        Require(++levels_ <= MostLevels);
        Condition condition = ReadOr();
        Require(TakeSymbol(")"));
        --levels_;
        return condition;
    }

    Condition ReadTest() {
        const Operand left = BeginsTestOfOwnColumn() ? OwnColumn() : ReadOperand();
        const bool isNegated = TakeKeyword("Not");
        Condition condition = isNegated ? ReadNamedTest(left).value() : ReadAnyTest(left);
        return isNegated ? Not(std::move(condition)) : condition;
    }

    Condition ReadAnyTest(const Operand& left) {
        if (TakeKeyword("Is")) {
            return ReadIsNull(left);
        }
        auto named = ReadNamedTest(left, IsNeeded::No);
        return named ? std::move(*named) : ReadComparison(left);
    }

    enum class IsNeeded { Yes, No };
    // The tests that may have a Not between them and their left side.
    std::optional<Condition> ReadNamedTest(const Operand& left, IsNeeded isNeeded = IsNeeded::Yes) {
        if (TakeKeyword("Between")) {
            return ReadBetween(left);
        }
        if (TakeKeyword("In")) {
            return ReadIn(left);
        }
        if (TakeKeyword("Like")) {
            return ReadLike(left);
        }
        Require(isNeeded == IsNeeded::No);
        return std::nullopt;
    }

    Condition ReadIsNull(const Operand& left) {
        const bool isNegated = TakeKeyword("Not");
        Require(TakeKeyword("Null"));
        Condition condition;
        condition.kind = Condition::Kind::IsNull;
        condition.operands = {left};
        return isNegated ? Not(std::move(condition)) : condition;
    }

    Condition ReadBetween(const Operand& left) {
        const Operand least = ReadOperand();
        Require(TakeKeyword("And"));
        const Operand most = ReadOperand();
        RequireAscending(least, most);
        return Joined(Condition::Kind::And, {Not(Below(left, least)), Not(Below(most, left))});
    }

    // Whether ends that stand the wrong way round are turned isn't known.
    static void RequireAscending(const Operand& least, const Operand& most) {
        const bool areTerms = std::holds_alternative<Term>(least) && std::holds_alternative<Term>(most);
        if (areTerms) {
            Require(Compare(Evaluate(least, {}), Evaluate(most, {})).value_or(0) <= 0);
        }
    }

    Condition ReadIn(const Operand& left) {
        Require(TakeSymbol("("));
        std::vector<Condition> parts{Equal(left, ReadOperand())};
        while (TakeSymbol(",")) {
            parts.push_back(Equal(left, ReadOperand()));
        }
        Require(TakeSymbol(")"));
        return Joined(Condition::Kind::Or, std::move(parts));
    }

    Condition ReadLike(const Operand& left) {
        Require(NatureOf(left) == Nature::Text && place_ < words_.size());
        const auto* pattern = std::get_if<QString>(&words_[place_++].literal);
        Require(pattern != nullptr);
        Condition condition;
        condition.kind = Condition::Kind::Like;
        condition.operands = {left};
        condition.pattern = LikePattern::Read(*pattern);
        Require(condition.pattern.has_value());
        return condition;
    }

    Condition ReadComparison(const Operand& left) {
        if (TakeSymbol("=")) {
            return Equal(left, ReadOperand());
        }
        if (TakeSymbol("<>")) {
            return Not(Equal(left, ReadOperand()));
        }
        if (TakeSymbol("<")) {
            return Below(left, ReadOperand());
        }
        if (TakeSymbol(">=")) {
            return Not(Below(left, ReadOperand()));
        }
        const bool isAbove = TakeSymbol(">");
        Require(isAbove || TakeSymbol("<="));
        Condition above = Below(ReadOperand(), left);
        return isAbove ? above : Not(std::move(above));
    }

    Operand ReadOperand() {
        if (TakeKeyword("Len")) {
            Require(TakeSymbol("("));
            ColumnOperand column = ReadColumn();
            Require(NatureOf(column) == Nature::Text && TakeSymbol(")"));
            column.isLength = true;
            return column;
        }
        // A column may have the name of anything.
        if (IsColumn()) {
            return ReadColumn();
        }
        const auto term = TakeTerm(words_, place_, Parentheses::Needed);
        Require(term.has_value());
        return *term;
    }

    bool IsColumn() const {
        if (place_ >= words_.size()) {
            return false;
        }
        const Word& word = words_[place_];
        const bool isCall = place_ + 1 < words_.size() && words_[place_ + 1].IsSymbol("(");
        return word.kind == Word::Kind::BracketedName ||
               (word.kind == Word::Kind::Name && !isCall && layout_.FindColumn(word.text));
    }

    ColumnOperand ReadColumn() {
        Require(IsColumn());
        const auto column = layout_.FindColumn(words_[place_++].text);
        Require(column && (!ownColumn_ || *column == *ownColumn_));
        return OperandOf(*column);
    }

    ColumnOperand OwnColumn() const {
        Require(ownColumn_.has_value());
        return OperandOf(*ownColumn_);
    }

    ColumnOperand OperandOf(int column) const {
        const Column& known = layout_.columns[static_cast<std::size_t>(column)];
        return {column, known.type, known.scale, false};
    }

    bool BeginsTestOfOwnColumn() const {
        Require(place_ < words_.size());
        const Word& word = words_[place_];
        const bool isComparison = word.kind == Word::Kind::Symbol && word.text != QLatin1String("-");
        return isComparison || word.IsKeyword("Is") || word.IsKeyword("Between") || word.IsKeyword("In") ||
               word.IsKeyword("Like");
    }

    bool TakeKeyword(const char* keyword) {
        const bool isThere = place_ < words_.size() && words_[place_].IsKeyword(keyword);
        place_ += isThere ? 1 : 0;
        return isThere;
    }

    bool TakeSymbol(const char* symbol) {
        const bool isThere = place_ < words_.size() && words_[place_].IsSymbol(symbol);
        place_ += isThere ? 1 : 0;
        return isThere;
    }

    std::vector<Word> words_;
    const TableLayout& layout_;
    std::optional<int> ownColumn_;
    std::size_t place_ = 0;
    int levels_ = 0;
};

}  // namespace

std::optional<Condition> ReadCondition(const QString& rule, const TableLayout& layout,
                                       std::optional<int> ownColumn) {
    auto words = WordsOf(rule);
    if (!words) {
        return std::nullopt;
    }
    try {
        return ConditionReader(std::move(*words), layout, ownColumn).Read();
    } catch (const NotUnderstood&) {
        return std::nullopt;
    }
}

}  // namespace engine::jet
