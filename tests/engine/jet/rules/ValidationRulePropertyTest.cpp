#include "engine/jet/rules/ValidationRule.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>
#include <ostream>

namespace engine::jet {
namespace {

using Number = std::optional<int>;
using Row = std::array<Number, 2>;

// Yes, no, or nothing at all.
using Plain = std::optional<bool>;

/// A rule as it is written, and what it means, told by itself.
struct Written {
    QString text;
    std::function<Plain(const Row&)> meaning;
};

TableLayout Layout() {
    TableLayout layout;
    for (const char* name : {"a", "b c"}) {
        Column column;
        column.name = QLatin1String(name);
        column.type = ColumnType::Long;
        layout.columns.push_back(column);
    }
    return layout;
}

QString SomeCase(const char* keyword) {
    const QString word = QLatin1String(keyword);
    return *rc::gen::element(word, word.toLower(), word.toUpper());
}

struct WrittenNumber {
    QString text;
    std::function<Number(const Row&)> meaning;
};

WrittenNumber SomeNumber() {
    switch (*rc::gen::inRange(0, 5)) {
        case 0:
            return {QStringLiteral("[b c]"), [](const Row& row) { return row[1]; }};
        case 1:
            return {*rc::gen::element(QStringLiteral("a"), QStringLiteral("[A]")),
                    [](const Row& row) { return row[0]; }};
        case 2:
            return {SomeCase("Null"), [](const Row&) { return Number(); }};
        default:
            const int number = *rc::gen::inRange(-2, 4);
            return {QString::number(number), [number](const Row&) { return Number(number); }};
    }
}

Plain Not(Plain truth) {
    return truth ? Plain(!*truth) : truth;
}
Plain And(Plain one, Plain other) {
    if (one == false || other == false) {
        return false;
    }
    return one && other ? Plain(true) : std::nullopt;
}
Plain Or(Plain one, Plain other) {
    return Not(And(Not(one), Not(other)));
}
template <class Compare>
Plain IfBoth(Number one, Number other, Compare compare) {
    return one && other ? Plain(compare(*one, *other)) : std::nullopt;
}

Written SomeComparison() {
    const WrittenNumber left = SomeNumber();
    const WrittenNumber right = SomeNumber();
    using Operator = std::pair<const char*, bool (*)(int, int)>;
    const Operator symbol =
        *rc::gen::element<Operator>(Operator{"=", [](int one, int other) { return one == other; }},
                                    Operator{"<>", [](int one, int other) { return one != other; }},
                                    Operator{"<", [](int one, int other) { return one < other; }},
                                    Operator{"<=", [](int one, int other) { return one <= other; }},
                                    Operator{">", [](int one, int other) { return one > other; }},
                                    Operator{">=", [](int one, int other) { return one >= other; }});
    return {left.text + *rc::gen::element(QString(), QStringLiteral(" ")) + QLatin1String(symbol.first) +
                right.text,
            [=](const Row& row) { return IfBoth(left.meaning(row), right.meaning(row), symbol.second); }};
}

Written SomeBetween() {
    const WrittenNumber middle = SomeNumber();
    const int least = *rc::gen::inRange(-2, 4);
    const int most = *rc::gen::inRange(least, 5);
    const bool isNegated = *rc::gen::arbitrary<bool>();
    return {QStringLiteral("%1%2 Between %3 And %4")
                .arg(middle.text, isNegated ? QStringLiteral(" Not") : QString())
                .arg(least)
                .arg(most),
            [=](const Row& row) {
                const Number number = middle.meaning(row);
                const Plain inside = number ? Plain(*number >= least && *number <= most) : std::nullopt;
                return isNegated ? Not(inside) : inside;
            }};
}

Written SomeList() {
    const WrittenNumber wanted = SomeNumber();
    const WrittenNumber first = SomeNumber();
    const WrittenNumber second = SomeNumber();
    return {QStringLiteral("%1 In(%2, %3)").arg(wanted.text, first.text, second.text), [=](const Row& row) {
                const auto isSame = [](int one, int other) { return one == other; };
                return Or(IfBoth(wanted.meaning(row), first.meaning(row), isSame),
                          IfBoth(wanted.meaning(row), second.meaning(row), isSame));
            }};
}

Written SomeNullTest() {
    const WrittenNumber number = SomeNumber();
    const bool isNegated = *rc::gen::arbitrary<bool>();
    return {number.text + QLatin1Char(' ') + SomeCase("Is") +
                (isNegated ? QStringLiteral(" Not") : QString()) + QStringLiteral(" Null"),
            [=](const Row& row) { return Plain(number.meaning(row).has_value() == isNegated); }};
}

// With few parentheses, so that it matters what binds closer: only around what binds less.
enum class Level { Or, And, Not };

Written SomeRule(Level level, int depth) {
    const auto enclosed = [&](Level own, const Written& rule) {
        return own < level ? Written{QLatin1Char('(') + rule.text + QLatin1Char(')'), rule.meaning} : rule;
    };
    switch (depth == 0 ? 9 : *rc::gen::inRange(0, 9)) {
        case 0:
        case 1: {
            const Written left = SomeRule(Level::Or, depth - 1);
            const Written right = SomeRule(Level::And, depth - 1);
            return enclosed(Level::Or,
                            {left.text + QLatin1Char(' ') + SomeCase("Or") + QLatin1Char(' ') + right.text,
                             [=](const Row& row) { return Or(left.meaning(row), right.meaning(row)); }});
        }
        case 2:
        case 3: {
            const Written left = SomeRule(Level::And, depth - 1);
            const Written right = SomeRule(Level::Not, depth - 1);
            return enclosed(Level::And,
                            {left.text + QLatin1Char(' ') + SomeCase("And") + QLatin1Char(' ') + right.text,
                             [=](const Row& row) { return And(left.meaning(row), right.meaning(row)); }});
        }
        case 4: {
            const Written rule = SomeRule(Level::Not, depth - 1);
            return {SomeCase("Not") + QLatin1Char(' ') + rule.text,
                    [=](const Row& row) { return Not(rule.meaning(row)); }};
        }
        default:
            switch (*rc::gen::inRange(0, 4)) {
                case 0:
                    return SomeBetween();
                case 1:
                    return SomeList();
                case 2:
                    return SomeNullTest();
                default:
                    return SomeComparison();
            }
    }
}

Value ValueOf(const Number& number) {
    return number ? Value(qint64{*number}) : Value();
}

RC_GTEST_PROP(JetValidationRuleProperty, ARuleMeansWhatItsPlainReadingMeans, ()) {
    const Written written = SomeRule(Level::Or, 5);
    const TableLayout layout = Layout();
    const ValidationRule rule(written.text, QString(), layout, std::nullopt);
    RC_LOG() << written.text.toStdString() << "\n";
    RC_ASSERT(rule.IsUnderstood());
    for (int a = -3; a < 4; ++a) {
        for (int b = -3; b < 4; ++b) {
            const Row row{a == -3 ? Number() : Number(a), b == -3 ? Number() : Number(b)};
            RC_ASSERT(rule.IsBroken({ValueOf(row[0]), ValueOf(row[1])}) == (written.meaning(row) == false));
        }
    }
}

// Words in any order at all: reading ends, and what is understood can be asked.
RC_GTEST_PROP(JetValidationRuleProperty, WordsInAnyOrderEndSomehow, ()) {
    QString text;
    const int words = *rc::gen::inRange(0, 40);
    for (int word = 0; word < words; ++word) {
        text += QLatin1String(*rc::gen::element<const char*>(
            "a", "[b c]", "(", ")", "Not ", " And ", " Or ", " Between ", " In ", " Like ", " Is ", "Null",
            "5", "-", "\"a*[\"", "'x'", "#1/2/2020#", "=", "<", ">=", ",", "Len(", "Date()", "[", "]", "\"",
            "#", ".", " "));
    }
    const TableLayout layout = Layout();
    for (const auto own : {std::optional<int>(), std::optional(0)}) {
        const ValidationRule rule(text, QString(), layout, own);
        if (rule.IsUnderstood()) {
            rule.IsBroken({qint64{1}, Null()});
        }
    }
}

}  // namespace
}  // namespace engine::jet
