#include "PortfolioText.h"
#include "support/CommaLocale.h"
#include "support/PrintQt.h"
#include "tools/json/JsonDocument.h"

#include <gtest/gtest.h>

#include <clocale>

using tools::Faults;
using tools::JsonKind;
using tools::JsonValue;
using tools::ParseJson;

namespace {

JsonValue Parsed(const QByteArray& json) {
    Faults faults;
    std::optional<JsonValue> value = ParseJson(json, faults);
    EXPECT_TRUE(value.has_value());
    EXPECT_EQ(faults, Faults());
    return std::move(value).value_or(JsonValue());
}

}  // namespace

TEST(JsonDocument, KeepsKindsAndOrder) {
    const JsonValue value = Parsed(R"({"b": [1, -2.5, null], "a": true, "t": "x\u00e9\ud83c\udfe0"})");
    ASSERT_EQ(value.kind, JsonKind::Object);
    EXPECT_EQ(value.parts->names,
              (QStringList{QStringLiteral("b"), QStringLiteral("a"), QStringLiteral("t")}));
    const std::vector<JsonValue>& list = value.Member(QStringLiteral("b"))->parts->items;
    ASSERT_EQ(list.size(), 3U);
    EXPECT_EQ(list[0].number, 1.0);
    EXPECT_EQ(list[1].number, -2.5);
    EXPECT_EQ(list[2].kind, JsonKind::Null);
    EXPECT_TRUE(value.Member(QStringLiteral("a"))->boolean);
    EXPECT_EQ(value.Member(QStringLiteral("t"))->text, QString::fromUtf8("x\xC3\xA9\xF0\x9F\x8F\xA0"));
    EXPECT_EQ(value.Member(QStringLiteral("B")), nullptr);
}

TEST(JsonDocument, KeepsOnceWhatComesAgain) {
    const JsonValue value = Parsed(R"([{"a": "Week", "b": 1}, {"a": "Week", "b": 2}])");
    const JsonValue& first = value.parts->items.at(0);
    const JsonValue& second = value.parts->items.at(1);
    EXPECT_EQ(first.parts->names.constData(), second.parts->names.constData());
    EXPECT_EQ(first.parts->items.at(0).text.constData(), second.parts->items.at(0).text.constData());
}

TEST(JsonDocument, TakesAByteOrderMark) {
    EXPECT_EQ(Parsed("\xEF\xBB\xBF{}").kind, JsonKind::Object);
}

TEST(JsonDocument, NumbersAreTheNearestDoubles) {
    const JsonValue value =
        Parsed("[0.1, 2.2250738585072011e-308, 1e-400, 1.7976931348623157e308, 18446744073709551616]");
    EXPECT_EQ(value.parts->items[0].number, 0.1);
    EXPECT_EQ(value.parts->items[1].number, 2.2250738585072011e-308);
    EXPECT_EQ(value.parts->items[2].number, 0.0);
    EXPECT_EQ(value.parts->items[3].number, 1.7976931348623157e308);
    EXPECT_EQ(value.parts->items[4].number, 18446744073709551616.0);
}

TEST(JsonDocument, TheLocalesDecimalMarkPlaysNoPart) {
    const CommaLocale locale;
    EXPECT_EQ(Parsed("[12.5]").parts->items[0].number, 12.5);
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

TEST(JsonDocument, AMemberGivenTwiceKeepsTheFirst) {
    Faults faults;
    const auto value = ParseJson(R"({"a": 1, "a": {"b": 2, "b": 3}})", faults);
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(value->Member(QStringLiteral("a"))->number, 1.0);
    EXPECT_EQ(faults, (Faults{MakeFault("/a", "The member is given twice", ""),
                              MakeFault("/a/b", "The member is given twice", "")}));
}

TEST(JsonDocument, EndlessNumbersAreAllListed) {
    Faults faults;
    EXPECT_TRUE(ParseJson("[1e309, 5, -1e400]", faults).has_value());
    EXPECT_EQ(faults, (Faults{MakeFault("/0", "The number is too large", "1e309"),
                              MakeFault("/2", "The number is too large", "-1e400")}));
}

TEST(JsonDocument, CharactersThatCannotBeStoredAreAllListed) {
    Faults faults;
    const QByteArray json =
        R"(["a\u0000", "\ud800", "\udc00\ud800", "\\ud800", "\ud83c\udfe0", "\ud800\u0041"])";
    EXPECT_TRUE(ParseJson(json, faults).has_value());
    const char* rule = "The text holds a null character or half of a surrogate pair";
    EXPECT_EQ(faults,
              (Faults{MakeFault("/0", rule, "\"a\\u0000\""), MakeFault("/1", rule, "\"\\u0000\""),
                      MakeFault("/2", rule, "\"\\u0000\\u0000\""), MakeFault("/5", rule, "\"\\u0000A\"")}));
}

TEST(JsonDocument, NestingMayBeSixtyFourDeep) {
    Faults faults;
    EXPECT_TRUE(ParseJson(QByteArray(64, '[') + QByteArray(64, ']'), faults).has_value());
    EXPECT_EQ(faults, Faults());
    EXPECT_FALSE(ParseJson(QByteArray(65, '[') + QByteArray(65, ']'), faults).has_value());
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].rule, QStringLiteral("Values are nested at most 64 deep"));
}

TEST(JsonDocument, TooManyValuesAreRefused) {
    Faults faults;
    QByteArray json = "[0";
    for (qsizetype i = 1; i < tools::MostValues; ++i) {
        json += ",0";
    }
    EXPECT_FALSE(ParseJson(json + ']', faults).has_value());
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].rule, QStringLiteral("A portfolio holds at most 4000000 values"));
}

TEST(JsonDocument, SyntaxFaultsNameLineColumnAndPlace) {
    Faults faults;
    EXPECT_FALSE(ParseJson("{\"a\": 1,\n \"b\u00fc\": [2, é]}", faults).has_value());
    EXPECT_EQ(faults, (Faults{MakeFault("/bü/1", "line 2, column 12: this isn't valid JSON", "\"é\"")}));
}

TEST(JsonDocument, AByteOrderMarkWithinTheFileIsAStrayCharacter) {
    Faults faults;
    EXPECT_FALSE(ParseJson("{\uFEFF", faults).has_value());
    EXPECT_EQ(faults, (Faults{MakeFault("", "line 1, column 2: this isn't valid JSON", "\"\\ufeff\"")}));
    faults.clear();
    EXPECT_FALSE(ParseJson("{\n\uFEFF}", faults).has_value());
    EXPECT_EQ(faults, (Faults{MakeFault("", "line 2, column 1: this isn't valid JSON", "\"\\ufeff\"")}));
}

TEST(JsonDocument, OtherEncodingsAreRefused) {
    Faults faults;
    EXPECT_FALSE(ParseJson("{\"a\": \"\xE4\"}", faults).has_value());
    EXPECT_FALSE(ParseJson(QByteArray("{\0}\0", 4), faults).has_value());
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(faults[0], MakeFault("", "line 1, column 8: this isn't UTF-8 text", "the byte 0xe4"));
}

TEST(JsonDocument, TheFirstByteThatIsNotUtf8IsNamed) {
    for (const auto& [bytes, place, byte] :
         {std::tuple("\"\n\u00fc\U0001f3e0\xE4\"", "line 2, column 4", "the byte 0xe4"),
          std::tuple("\x80", "line 1, column 1", "the byte 0x80"),
          std::tuple("[\xF0\x9F", "line 1, column 2", "the byte 0xf0"),
          std::tuple("\xC0\x80", "line 1, column 1", "the byte 0xc0"),
          std::tuple("a\xED\xA0\x80", "line 1, column 2", "the byte 0xed"),
          std::tuple("\xF4\x90\x80\x80", "line 1, column 1", "the byte 0xf4")}) {
        Faults faults;
        const std::string rule = std::string(place) + ": this isn't UTF-8 text";
        EXPECT_FALSE(ParseJson(bytes, faults).has_value());
        EXPECT_EQ(faults, (Faults{MakeFault("", rule.c_str(), byte)}));
    }
}

TEST(JsonDocument, NothingMayStandBehindANullCharacter) {
    for (const QByteArray& behind : {QByteArray("", 1), QByteArray("\0{\"a\": ", 8)}) {
        Faults faults;
        EXPECT_FALSE(ParseJson("{\"b\": 1}\n" + behind, faults).has_value());
        EXPECT_EQ(faults, (Faults{MakeFault("", "line 2, column 1: this isn't valid JSON", "\"\\u0000\"")}));
    }
}
