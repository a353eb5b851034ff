#include "support/TakenApart.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace {

using engine::dialect::RepeatTokenizer;

void ExpectTheSame(const std::vector<std::string>& texts) {
    RepeatTokenizer tokenizer;
    for (const std::string& text : texts) {
        const QString statement = QString::fromStdString(text);
        EXPECT_EQ(TakenApartAfterOthers(tokenizer, statement), TakenApartAlone(statement)) << text;
    }
}

TEST(RepeatTokenizer, OtherLiteralsAreTaken) {
    ExpectTheSame({"insert into a(b, c, d) values('x', #1/31/2026#, 5)",
                   "insert into a(b, c, d) values('O''Brien', #02/01/2026#, -7)",
                   "insert into a(b, c, d) values('', #2.1.2026#, 12.75)",
                   "insert into a(b, c, d) values('\xC3\xA9', #2-1-2026#, 99999999999999999999)"});
}

TEST(RepeatTokenizer, ALiteralOfAnotherNatureIsTaken) {
    ExpectTheSame(
        {"a = 'x'", "a = \"x\"", "a = #1/1/2026#", "a = 5", "a = -5", "a = .5", "a = b", "a = 'y'"});
}

TEST(RepeatTokenizer, ANameInFrontOfALiteralMayGoOnWithADigit) {
    ExpectTheSame({"a'x'", "a5", "a-5", "a5", "a.5", "a5"});
}

TEST(RepeatTokenizer, ASignInFrontOfALiteralMayBelongToANumber) {
    ExpectTheSame({"a-'x'", "a-5", "a-.5", "a--5", "a-'x'", "a.'x'", "a.5", "a-.'x'", "a-.5"});
}

TEST(RepeatTokenizer, AQuoteBehindATextDoublesIt) {
    ExpectTheSame({"'x'\"y\"", "'x''y'", "'x'\"y\"", "'x'y"});
}

TEST(RepeatTokenizer, TextBehindTheLastLiteralIsNotedAndMissed) {
    ExpectTheSame(
        {"a = 5 and b", "a = 5", "a = 5 and b", "a = 5 and bc", "a = 5;", "a = 6;", "a = 6; b", "a = 6"});
}

TEST(RepeatTokenizer, AFailureIsWhatItWouldBeAlone) {
    ExpectTheSame({"a = 'x' and b = 5", "a = 'x and b = 5", "a = 'x' and b = 5c", "a = 'x' and b = 1e999",
                   "a = 'x' and b = 6"});
    ExpectTheSame({"#1/1/2026#", "#2/30/2026#", "#1/1/2026", "#1/1/26#", "#1/2/2026#"});
}

std::string AnyPiece() {
    const auto sound =
        rc::gen::element<std::string>("'x'", "''", "'a''b'", "\"q\"", "'\xC3\xA9'", "5", "-5", ".5", "1.25",
                                      "#1/2/2026#", "a", "a", "b5", "\xC3\xA9", "[n]", " ", "=", "-", ".");
    const auto broken = rc::gen::element<std::string>("5.", "1e5", "e", "e+", "1e999", "#02/29/2025#", "#",
                                                      "/", "[", "]", ";", "\n", "'", "\"", "?", "\x01");
    return *rc::gen::weightedOneOf<std::string>({{30, sound}, {1, broken}});
}

using Pieces = std::vector<std::string>;

std::string Joined(const Pieces& pieces) {
    std::string text;
    for (const std::string& piece : pieces) {
        text += piece;
    }
    return text;
}

/// Like the one before but for a few pieces.
Pieces AnyLike(Pieces pieces) {
    const int changes = *rc::gen::inRange(0, 4);
    for (int change = 0; change < changes && !pieces.empty(); ++change) {
        pieces[*rc::gen::inRange<size_t>(0, pieces.size())] = AnyPiece();
    }
    if (*rc::gen::inRange(0, 5) == 0) {
        pieces.push_back(AnyPiece());
    }
    return pieces;
}

RC_GTEST_PROP(RepeatTokenizerProperty, GivesForEachStatementWhatItsOwnTextGives, ()) {
    Pieces pieces = *rc::gen::container<Pieces>(rc::gen::exec(AnyPiece));
    RepeatTokenizer tokenizer;
    for (int statements = 0; statements < 6; ++statements) {
        const std::string text = Joined(pieces);
        RC_LOG() << text << '\n';
        const QString statement = QString::fromStdString(text);
        RC_ASSERT(TakenApartAfterOthers(tokenizer, statement) == TakenApartAlone(statement));
        pieces = AnyLike(std::move(pieces));
    }
}

}  // namespace
