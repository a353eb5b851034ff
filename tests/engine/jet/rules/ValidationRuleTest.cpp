#include "engine/jet/JetTest.h"
#include "engine/jet/rules/ValidationRule.h"
#include "platform/Clock.h"

namespace engine::jet {
namespace {

// One column of each kind.
TableLayout Layout() {
    const std::pair<const char*, std::uint8_t> columns[] = {
        {"amount", ColumnType::Currency},  {"name", ColumnType::Text},      {"begins", ColumnType::DateTime},
        {"ends on", ColumnType::DateTime}, {"agreed", ColumnType::Boolean}, {"part", ColumnType::Single},
        {"size", ColumnType::Decimal},     {"id", ColumnType::Guid},        {"notes", ColumnType::Memo}};
    TableLayout layout;
    for (const auto& [name, type] : columns) {
        Column column;
        column.name = QLatin1String(name);
        column.type = type;
        column.scale = 2;
        layout.columns.push_back(column);
    }
    return layout;
}

enum Place { Amount, Name, Begins, EndsOn, Agreed, Part, Size, Id, Notes };

enum class Answer { Passes, Breaks, NotUnderstood };

void PrintTo(Answer answer, std::ostream* stream) {
    *stream << (answer == Answer::Passes ? "passes" : answer == Answer::Breaks ? "breaks" : "not understood");
}

Answer AnswerOf(const QString& text, std::vector<Value> row, std::optional<int> column) {
    const TableLayout layout = Layout();
    const ValidationRule rule(text, QString(), layout, column);
    row.resize(layout.columns.size());
    if (!rule.IsUnderstood()) {
        return Answer::NotUnderstood;
    }
    return rule.IsBroken(row) ? Answer::Breaks : Answer::Passes;
}

Answer OfColumn(const char16_t* rule, Place column, const Value& value) {
    std::vector<Value> row(9);
    row[column] = value;
    return AnswerOf(QString::fromUtf16(rule), row, column);
}
Answer OfAmount(const char16_t* rule, double amount) {
    return OfColumn(rule, Amount, Currency::FromDouble(amount));
}
Answer OfName(const char16_t* rule, const char16_t* name) {
    return OfColumn(rule, Name, QString::fromUtf16(name));
}
Answer OfTable(const char16_t* rule, const std::vector<Value>& row = {}) {
    return AnswerOf(QString::fromUtf16(rule), row, std::nullopt);
}

TEST(JetValidationRule, AComparisonWithoutALeftSideMeansTheColumn) {
    EXPECT_EQ(OfAmount(u">=0 And <=100", 0), Answer::Passes);
    EXPECT_EQ(OfAmount(u">=0 And <=100", 100), Answer::Passes);
    EXPECT_EQ(OfAmount(u">=0 And <=100", 100.01), Answer::Breaks);
    EXPECT_EQ(OfAmount(u">=0 And <=100", -0.01), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"=5", 5), Answer::Passes);
    EXPECT_EQ(OfAmount(u"=5", 6), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"<>5", 5), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"<5", 5), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"<5", 4), Answer::Passes);
    EXPECT_EQ(OfAmount(u">5", 5), Answer::Breaks);
    EXPECT_EQ(OfAmount(u">-5", -4), Answer::Passes);
    EXPECT_EQ(OfAmount(u"[amount]>1 and AMOUNT<3", 2), Answer::Passes);
    EXPECT_EQ(OfAmount(u"1<amount", 1), Answer::Breaks);
    EXPECT_EQ(OfTable(u">0"), Answer::NotUnderstood);
}

TEST(JetValidationRule, BetweenHasBothEnds) {
    for (const auto& [amount, answer] : {std::pair(1.0, Answer::Passes),
                                         {99.0, Answer::Passes},
                                         {0.9999, Answer::Breaks},
                                         {99.1, Answer::Breaks}}) {
        EXPECT_EQ(OfAmount(u"Between 1 And 99", amount), answer) << amount;
        EXPECT_EQ(OfAmount(u"amount between 1 and 99 And <>50", amount), answer) << amount;
        EXPECT_NE(OfAmount(u"Not Between 1 And 99", amount), answer) << amount;
        EXPECT_NE(OfAmount(u"[amount] Not Between 1 And 99", amount), answer) << amount;
    }
    EXPECT_EQ(OfAmount(u"Between 1 And 99 And <>50", 50), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"Between 99 And 1", 50), Answer::NotUnderstood);
}

TEST(JetValidationRule, InIsOneOfAList) {
    const char16_t* const rule = u"In (\"Day\",\"Week\", 'Month')";
    EXPECT_EQ(OfName(rule, u"Week"), Answer::Passes);
    EXPECT_EQ(OfName(rule, u"month"), Answer::Passes);
    EXPECT_EQ(OfName(rule, u"Year"), Answer::Breaks);
    EXPECT_EQ(OfName(u"name Not In (\"Day\")", u"Day"), Answer::Breaks);
    EXPECT_EQ(OfName(u"In (\"Day\",Null)", u"Week"), Answer::Passes);
    EXPECT_EQ(OfName(u"In ()", u"Week"), Answer::NotUnderstood);
    EXPECT_EQ(OfName(u"In (\"a\",)", u"Week"), Answer::NotUnderstood);
    EXPECT_EQ(OfName(u"In (\"a\"", u"Week"), Answer::NotUnderstood);
}

TEST(JetValidationRule, LikeKnowsItsWildcardsAndNoCase) {
    EXPECT_EQ(OfName(u"Like \"A*\"", u"apple"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"A*\"", u"Banana"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"*a*n?\"", u"Banana"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"*a*nn\"", u"Banana"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"?#-##\"", u"B7-42"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"?#-##\"", u"B7-4"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"[a-cx]1\"", u"X1"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"[a-cx]1\"", u"d1"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"[!a-c]*\"", u"d"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"[!a-c]*\"", u"B"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"[*]\"", u"*"), Answer::Passes);
    EXPECT_EQ(OfName(u"Like \"[*]\"", u"x"), Answer::Breaks);
    EXPECT_EQ(OfName(u"Like \"\"", u""), Answer::Passes);
    EXPECT_EQ(OfName(u"Not Like \"*\"", u""), Answer::Breaks);
    for (const char16_t* pattern : {u"Like \"[a\"", u"Like \"[]\"", u"Like \"[!]\"", u"Like \"[z-a]\"",
                                    u"Like 5", u"Like", u"Like name"}) {
        EXPECT_EQ(OfName(pattern, u"x"), Answer::NotUnderstood) << QString::fromUtf16(pattern).toStdString();
    }
    EXPECT_EQ(OfAmount(u"Like \"1*\"", 1), Answer::NotUnderstood);
}

TEST(JetValidationRule, ANullLeavesARuleOpenUnlessItAsksForNulls) {
    for (const char16_t* rule : {u">0", u"Not >0", u"Between 1 And 2", u"In (1,2)", u">0 And <5", u"=Null",
                                 u"<>Null", u"Is Null", u"Is Null Or >0", u"Not Is Not Null"}) {
        EXPECT_EQ(OfColumn(rule, Amount, Null()), Answer::Passes) << QString::fromUtf16(rule).toStdString();
    }
    EXPECT_EQ(OfColumn(u"Like \"a\"", Name, Null()), Answer::Passes);
    EXPECT_EQ(OfColumn(u"Is Not Null", Amount, Null()), Answer::Breaks);
    EXPECT_EQ(OfColumn(u">0 And Is Not Null", Amount, Null()), Answer::Breaks);
    EXPECT_EQ(OfColumn(u"=Null", Amount, qint64{1}), Answer::Passes);
}

TEST(JetValidationRule, AndBindsCloserThanOrAndNotCloserStill) {
    EXPECT_EQ(OfAmount(u"=1 Or =2 And =3", 1), Answer::Passes);
    EXPECT_EQ(OfAmount(u"(=1 Or =2) And =3", 1), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"Not =1 And =2", 2), Answer::Passes);
    EXPECT_EQ(OfAmount(u"Not (=1 And =2)", 2), Answer::Passes);
    EXPECT_EQ(OfAmount(u"Not Not =1", 1), Answer::Passes);
    EXPECT_EQ(OfAmount(u"Not Not =1", 2), Answer::Breaks);
}

TEST(JetValidationRule, ARuleOfTheTableComparesItsColumns) {
    const char16_t* const rule = u"[ends on] Is Null Or [ends on]>=[begins]";
    const Value first = FromDate(QDate(2026, 1, 1));
    const Value second = FromDate(QDate(2026, 1, 2));
    EXPECT_EQ(OfTable(rule, {{}, {}, first, second}), Answer::Passes);
    EXPECT_EQ(OfTable(rule, {{}, {}, first, first}), Answer::Passes);
    EXPECT_EQ(OfTable(rule, {{}, {}, second, first}), Answer::Breaks);
    EXPECT_EQ(OfTable(rule, {{}, {}, second, {}}), Answer::Passes);
    EXPECT_EQ(OfTable(rule, {{}, {}, {}, second}), Answer::Passes);
    EXPECT_EQ(AnswerOf(QStringLiteral("[begins]<[ends on]"), {}, Begins), Answer::NotUnderstood);
}

TEST(JetValidationRule, TextsGoWithoutCaseInTheGeneralOrder) {
    EXPECT_EQ(OfName(u"=\"house\"", u"HOUSE"), Answer::Passes);
    EXPECT_EQ(OfName(u"<>\"\"", u""), Answer::Breaks);
    EXPECT_EQ(OfName(u"<\"b\"", u"\u00C4rger"), Answer::Passes);
    EXPECT_EQ(OfName(u">\"B\"", u"b"), Answer::Breaks);
    EXPECT_EQ(OfName(u"=\"a\"", u"a "), Answer::Breaks);
}

TEST(JetValidationRule, ValuesAreLookedAtAsTheyAreStored) {
    EXPECT_EQ(OfColumn(u"=0", Amount, 0.00001), Answer::Passes);
    EXPECT_EQ(OfColumn(u"=0.1", Amount, 0.1), Answer::Passes);
    EXPECT_EQ(OfColumn(u"=16777216", Part, qint64{16777217}), Answer::Passes);
    EXPECT_EQ(OfColumn(u"=-1", Agreed, qint64{1}), Answer::Passes);
    EXPECT_EQ(OfColumn(u"=Yes", Agreed, Null()), Answer::Breaks);
    EXPECT_EQ(OfColumn(u"Is Not Null", Agreed, Null()), Answer::Passes);
    EXPECT_EQ(OfColumn(u"=0", Amount, QStringLiteral("5")), Answer::Passes);
    const QByteArray twelveAndAHalf("\x80\0\0\0\0\0\0\0\0\0\0\0\0\xE2\x04\0\0", 17);
    EXPECT_EQ(OfColumn(u"=-12.5", Size, twelveAndAHalf), Answer::Passes);
    EXPECT_EQ(OfColumn(u">0", Size, twelveAndAHalf), Answer::Breaks);
}

TEST(JetValidationRule, TheClockIsAsked) {
    platform::PinToday(QDate(2026, 3, 14));
    EXPECT_EQ(OfColumn(u"<=Date()", Begins, FromDate(QDate(2026, 3, 14))), Answer::Passes);
    EXPECT_EQ(OfColumn(u"<=Date()", Begins, FromDate(QDate(2026, 3, 15))), Answer::Breaks);
    EXPECT_EQ(OfColumn(u"<Now()", Begins, FromDate(QDate(2026, 3, 13))), Answer::Passes);
    platform::PinToday({});
    EXPECT_EQ(OfColumn(u">=#1/31/2020#", Begins, FromDate(QDate(2020, 1, 30))), Answer::Breaks);
    EXPECT_EQ(OfColumn(u">=#1/31/2020#", Begins, FromDate(QDate(2020, 1, 31))), Answer::Passes);
}

TEST(JetValidationRule, LenCountsCharacters) {
    EXPECT_EQ(OfName(u"Len([name])=3", u"abc"), Answer::Passes);
    EXPECT_EQ(OfName(u"len(name)>3", u"abc"), Answer::Breaks);
    EXPECT_EQ(OfColumn(u"Len([name])=3", Name, Null()), Answer::Passes);
    EXPECT_EQ(OfColumn(u"Len(notes)>=1", Notes, QString()), Answer::Breaks);
    EXPECT_EQ(OfAmount(u"Len(amount)=3", 100), Answer::NotUnderstood);
}

TEST(JetValidationRule, WhatIsMoreThanThatIsNotUnderstood) {
    for (const char16_t* rule : {u"CLng(\"a1\")>2",
                                 u"[other]>0",
                                 u"amount",
                                 u"amount>1+1",
                                 u"amount Is",
                                 u"amount Is 5",
                                 u"amount>\"5\"",
                                 u"name>5",
                                 u"name=#1/1/2020#",
                                 u"begins=\"x\"",
                                 u"id=\"x\"",
                                 u"amount>0 Xor amount<5",
                                 u"amount>0 amount",
                                 u"(amount>0",
                                 u"amount>0)",
                                 u"amount>",
                                 u"5",
                                 u"",
                                 u"And",
                                 u"amount=1=1",
                                 u"-amount>0",
                                 u"amount>0;",
                                 u"Date>5",
                                 u"amount Not Is Null",
                                 u"amount Not >5",
                                 u"[amount",
                                 u"DLookUp(1)=1"}) {
        EXPECT_EQ(OfTable(rule), Answer::NotUnderstood) << QString::fromUtf16(rule).toStdString();
    }
    EXPECT_EQ(OfTable(u"id Is Null"), Answer::Passes);
}

TEST(JetValidationRule, NoRuleIsTooDeepOrTooLong) {
    const auto nested = [](int levels) {
        return QString(levels, QLatin1Char('(')) + QStringLiteral("amount>0") +
               QString(levels, QLatin1Char(')'));
    };
    EXPECT_EQ(AnswerOf(nested(50), {}, std::nullopt), Answer::Passes);
    EXPECT_EQ(AnswerOf(nested(51), {}, std::nullopt), Answer::NotUnderstood);
    EXPECT_EQ(AnswerOf(nested(1000), {}, std::nullopt), Answer::NotUnderstood);
    EXPECT_EQ(AnswerOf(nested(1000000), {}, std::nullopt), Answer::NotUnderstood);
    const QString longest = QStringLiteral("amount>0").leftJustified(2048, QLatin1Char(' '));
    EXPECT_EQ(AnswerOf(longest, {}, std::nullopt), Answer::Passes);
    EXPECT_EQ(AnswerOf(longest + QLatin1Char(' '), {}, std::nullopt), Answer::NotUnderstood);
    const QString negated = QStringLiteral("Not ").repeated(500) + QStringLiteral("amount>0");
    EXPECT_EQ(AnswerOf(negated, {qint64{1}}, std::nullopt), Answer::Passes);
    const QString wide = QStringLiteral("amount>0 And ").repeated(100) + QStringLiteral("amount>0");
    EXPECT_EQ(AnswerOf(wide, {qint64{1}}, std::nullopt), Answer::Passes);
}

// A pattern that a reader who tries everything would never be done with.
TEST(JetValidationRule, APatternTakesNoLongerThanItIs) {
    const QString pattern = QStringLiteral("*a").repeated(500) + QStringLiteral("b");
    std::vector<Value> row(9);
    row[Name] = QString(5000, QLatin1Char('a'));
    EXPECT_EQ(AnswerOf(QStringLiteral("Like \"%1\"").arg(pattern), row, Name), Answer::Breaks);
}

TEST(JetValidationRule, ARuleTellsWhichColumnsItMayName) {
    const TableLayout layout = Layout();
    const ValidationRule rule(QStringLiteral("f([Begins])"), QString(), layout, std::nullopt);
    EXPECT_TRUE(rule.MayName(QStringLiteral("begins")));
    EXPECT_FALSE(rule.MayName(QStringLiteral("amount")));
}

}  // namespace
}  // namespace engine::jet
