#include "engine/Error.h"
#include "engine/dialect/Tokenizer.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace engine::dialect {

namespace {

ShapedStatement Shape(const char* text) {
    ShapedStatement statement;
    Tokenize(QString::fromUtf8(text), statement);
    return statement;
}

int ErrorOf(const char* text) {
    try {
        Shape(text);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

std::string OnlyText(const ShapedStatement& statement) {
    EXPECT_EQ(statement.literals.size(), 1U);
    return std::string(statement.Text(statement.literals.at(0)));
}

TEST(TokenizerTest, StatementsThatDifferInLiteralsAndBlanksShareAShape) {
    const auto first = Shape("delete  from a where b = 'x' and c=1");
    const auto second = Shape("delete from a\twhere b='longer''s' and c = -27.5");
    EXPECT_EQ(first.Shape(), "delete from a where b=?and c=?");
    EXPECT_EQ(first.Shape(), second.Shape());
}

TEST(TokenizerTest, ATextIsTextWhateverItHolds) {
    EXPECT_EQ(OnlyText(Shape("'#1/1/2020# ; [x] -- /* \" */ delete from owner'")),
              "#1/1/2020# ; [x] -- /* \" */ delete from owner");
    EXPECT_EQ(OnlyText(Shape("\"it's ; # [\"")), "it's ; # [");
}

TEST(TokenizerTest, DoubledQuotesStandForOne) {
    EXPECT_EQ(OnlyText(Shape("'O''Brien'")), "O'Brien");
    EXPECT_EQ(OnlyText(Shape("''''")), "'");
    EXPECT_EQ(OnlyText(Shape("''")), "");
    EXPECT_EQ(OnlyText(Shape("\"a\"\"b\"")), "a\"b");
    EXPECT_EQ(OnlyText(Shape("'a\"\"b'")), "a\"\"b");
}

TEST(TokenizerTest, LengthsCountUtf16Units) {
    const auto statement = Shape("'Zoë 𝄞'");
    EXPECT_EQ(statement.literals.at(0).characters, 6);
    EXPECT_EQ(OnlyText(statement), "Zoë 𝄞");
}

TEST(TokenizerTest, DatesAreMonthDayYearWithAnySeparator) {
    EXPECT_EQ(OnlyText(Shape("#03/15/2026#")), "2026-03-15");
    EXPECT_EQ(OnlyText(Shape("#3-5-2026#")), "2026-03-05");
    EXPECT_EQ(OnlyText(Shape("#12.31.1234#")), "1234-12-31");
    EXPECT_EQ(Shape("#1/1/1900#").literals.at(0).kind, LiteralKind::Date);
}

TEST(TokenizerTest, DatesThatAreNoneAreSyntaxErrors) {
    for (const char* text : {"#13/01/2026#", "#02/29/2025#", "#2026-03-15#", "#1/1/26#", "#1/1#", "#1/1/2026",
                             "##", "#1/1/20266#", "#1//2026#", "#a/b/c#", "#1/1/2026 #"}) {
        EXPECT_EQ(ErrorOf(text), ErrorNumber::Syntax) << text;
    }
}

TEST(TokenizerTest, NumbersAreWholeOrReal) {
    EXPECT_EQ(Shape("1680").literals.at(0).integer, 1680);
    EXPECT_EQ(Shape("-1").literals.at(0).integer, -1);
    EXPECT_DOUBLE_EQ(Shape("548.39").literals.at(0).real, 548.39);
    EXPECT_DOUBLE_EQ(Shape("-.5").literals.at(0).real, -0.5);
    EXPECT_DOUBLE_EQ(Shape("1E+15").literals.at(0).real, 1e15);
    EXPECT_DOUBLE_EQ(Shape("2.5e-3").literals.at(0).real, 2.5e-3);
    EXPECT_EQ(Shape("99999999999999999999").literals.at(0).kind, LiteralKind::Real);
    EXPECT_EQ(ErrorOf("1e999"), ErrorNumber::Syntax);
    EXPECT_EQ(ErrorOf("12ab"), ErrorNumber::Syntax);
}

TEST(TokenizerTest, TextsAndNamesMustEnd) {
    EXPECT_EQ(ErrorOf("delete from a where b = 'x"), ErrorNumber::Syntax);
    EXPECT_EQ(ErrorOf("delete from [a"), ErrorNumber::Syntax);
    EXPECT_EQ(ErrorOf("[a\nb]"), ErrorNumber::Syntax);
}

TEST(TokenizerTest, OneStatementACall) {
    EXPECT_EQ(ErrorOf("delete from a;"), 0);
    EXPECT_EQ(ErrorOf("delete from a ;  "), 0);
    EXPECT_EQ(ErrorOf("delete from a; delete from b"), ErrorNumber::TextAfterStatement);
    EXPECT_EQ(ErrorOf("delete from a;;"), ErrorNumber::TextAfterStatement);
    EXPECT_EQ(ErrorOf("delete from a where b = ';'"), 0);
}

TEST(TokenizerTest, TheSignOfALiteralIsNotLetInFromOutside) {
    EXPECT_EQ(ErrorOf("insert into a(b) values(?)"), ErrorNumber::Syntax);
    EXPECT_EQ(ErrorOf("\x01"), ErrorNumber::Syntax);
}

RC_GTEST_PROP(TokenizerTest, AnyQuotedTextComesBackAsItWas, (const std::string& content)) {
    QString text = QString::fromUtf8(content.c_str());
    QString quoted = text;
    quoted.replace(QLatin1Char('\''), QStringLiteral("''"));
    ShapedStatement statement;
    Tokenize(QStringLiteral("delete from a where b = '%1' and c = 2").replace(QStringLiteral("%1"), quoted),
             statement);
    RC_ASSERT(statement.Shape() == "delete from a where b=?and c=?");
    RC_ASSERT(std::string(statement.Text(statement.literals.at(0))) == text.toStdString());
    RC_ASSERT(statement.literals.at(0).characters == text.size());
}

}  // namespace

}  // namespace engine::dialect
