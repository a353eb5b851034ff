#include "platform/SettingsStore.h"
#include "support/PrintQt.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace {

using platform::ParseRegistryText;
using platform::RegistryValue;

const QByteArray Header = "Windows Registry Editor Version 5.00\r\n\r\n";
const QByteArray SettingsKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\r\n";
const QString Settings = QStringLiteral("hkey_local_machine\\software\\hearthbook\\settings");

/// The only value of a text of one key with this line in it; type 9999 if there is none.
RegistryValue Parsed(const QByteArray& line, const QString& name = QStringLiteral("a")) {
    const auto keys = ParseRegistryText(Header + SettingsKey + line + "\r\n");
    return keys.value(Settings).value(name, RegistryValue{9999, {}});
}

bool IsRefused(const QByteArray& lines) {
    return ParseRegistryText(Header + SettingsKey + "\"before\"=\"1\"\r\n" + lines + "\r\n").isEmpty();
}

QByteArray Utf16(const QString& text) {
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char*>(marked.utf16()), marked.size() * 2);
}

TEST(RegistryText, TextEndsInAZero) {
    const RegistryValue value = Parsed("\"a\"=\"some text\"");
    EXPECT_EQ(value.type, 1U);
    EXPECT_EQ(value.bytes, QByteArray("some text\0", 10));
    EXPECT_EQ(Parsed("\"a\"=\"\"").bytes, QByteArray("\0", 1));
}

TEST(RegistryText, BackslashesAndQuotesAreEscaped) {
    EXPECT_EQ(Parsed("\"a\"=\"C:\\\\Data \\\"x\\\"\\\\\"").bytes, QByteArray("C:\\Data \"x\"\\\0", 13));
    EXPECT_EQ(Parsed("\"q\\\"\\\\\"=\"1\"", QStringLiteral("q\"\\")).type, 1U);
}

TEST(RegistryText, TextIsUtf8) {
    EXPECT_EQ(Parsed("\"a\"=\"Zürich\"").bytes, QByteArray("Zürich\0", 8));
}

TEST(RegistryText, DoubleWordsAreFourBytesLowestFirst) {
    const RegistryValue value = Parsed("\"a\"=dword:0001f4A0");
    EXPECT_EQ(value.type, 4U);
    EXPECT_EQ(value.bytes, QByteArray("\xA0\xF4\x01\0", 4));
    EXPECT_EQ(Parsed("\"a\"=dword:5").bytes, QByteArray("\5\0\0\0", 4));
    EXPECT_EQ(Parsed("\"a\"=dword:ffffffff").bytes, QByteArray("\xFF\xFF\xFF\xFF", 4));
}

TEST(RegistryText, BytesHaveTheTypeInParentheses) {
    EXPECT_EQ(Parsed("\"a\"=hex:00,ff,7F").bytes, QByteArray("\0\xFF\x7F", 3));
    EXPECT_EQ(Parsed("\"a\"=hex:00").type, 3U);
    EXPECT_EQ(Parsed("\"a\"=hex(4):01,02").type, 4U);
    EXPECT_EQ(Parsed("\"a\"=hex(b):01").type, 11U);
    EXPECT_EQ(Parsed("\"a\"=hex(0):").bytes, QByteArray());
    EXPECT_EQ(Parsed("\"a\"=hex(0):").type, 0U);
    EXPECT_EQ(Parsed("\"a\"=hex: 1, 2 ,3").bytes, QByteArray("\1\2\3"));
}

class TextType : public ::testing::TestWithParam<const char*> {};

TEST_P(TextType, InBytesIsTwoByteCharactersAndBecomesUtf8) {
    const QByteArray name = "\"a\"=hex(" + QByteArray(GetParam()) + "):";
    EXPECT_EQ(Parsed(name + "5a,00,fc,00,00,00").bytes, QByteArray("Z\xC3\xBC\0", 4));
    EXPECT_EQ(Parsed(name + "5a,00").bytes, QByteArray("Z"));
    EXPECT_EQ(Parsed(name + "5a,00,fc").bytes, QByteArray("Z\0\xFC", 3)) << "odd number of bytes";
    EXPECT_EQ(Parsed(name + "00,d8").bytes, QByteArray("\0\xD8", 2)) << "half a character";
    EXPECT_EQ(Parsed(name + "ff,fe,5a,00").bytes, QByteArray("\xEF\xBB\xBFZ")) << "a mark is a character";
}

INSTANTIATE_TEST_SUITE_P(All, TextType, ::testing::Values("1", "2", "7"));

TEST(RegistryText, BytesGoOnInTheNextLinesAfterABackslash) {
    EXPECT_EQ(Parsed("\"a\"=hex:01,02,\\\r\n  03,\\\r\n  04").bytes, QByteArray("\1\2\3\4"));
    EXPECT_EQ(Parsed("\"a\"=hex:\\\r\n  03").bytes, QByteArray("\3"));
}

TEST(RegistryText, DefaultValueHasNoName) {
    EXPECT_EQ(Parsed("@=\"x\"", QString()).bytes, QByteArray("x\0", 2));
}

TEST(RegistryText, NamesAreWithoutCaseAndTheLastValueCounts) {
    EXPECT_EQ(Parsed("\"A\"=\"1\"\r\n\"a\"=\"2\"").bytes, QByteArray("2\0", 2));
}

TEST(RegistryText, BlankLinesCommentsAndBlanksAroundMeanNothing) {
    EXPECT_EQ(Parsed("\r\n; comment \\\r\n  ;\r\n\t \"a\"  =  \"1\"  ").bytes, QByteArray("1\0", 2));
}

TEST(RegistryText, UnixLineEndsAndNoLineEndAtAllAreFine) {
    const auto keys = ParseRegistryText("Windows Registry Editor Version 5.00\n[HKEY_A\\B]\n\"x\"=\"1\"");
    EXPECT_EQ(keys.value(QStringLiteral("hkey_a\\b")).value(QStringLiteral("x")).bytes, QByteArray("1\0", 2));
}

TEST(RegistryText, AKeyWithoutValuesIsThere) {
    const auto keys = ParseRegistryText(Header + SettingsKey);
    EXPECT_TRUE(keys.contains(Settings));
    EXPECT_EQ(keys.size(), 1);
}

TEST(RegistryText, ValuesOfAKeyGivenTwiceAreTogether) {
    const auto keys =
        ParseRegistryText(Header + SettingsKey + "\"a\"=\"1\"\n[Other]\n" + SettingsKey + "\"b\"=\"2\"\n");
    EXPECT_EQ(keys.value(Settings).size(), 2);
}

TEST(RegistryText, AMinusDeletesAValue) {
    const auto keys =
        ParseRegistryText(Header + SettingsKey + "\"a\"=\"1\"\n\"b\"=\"2\"\n\"A\"=-\n\"c\"=-\n");
    EXPECT_EQ(keys.value(Settings).keys(), QList<QString>{QStringLiteral("b")});
}

TEST(RegistryText, AMinusDeletesAKeyAndThoseBelow) {
    const auto keys = ParseRegistryText(Header + "[K]\n[K\\below]\n[KX]\n[-k]\n");
    EXPECT_EQ(keys.keys(), QList<QString>{QStringLiteral("kx")});
}

TEST(RegistryText, DeletingManyKeysOfManyTakesNoSquareOfTheirNumber) {
    QByteArray text = Header;
    for (int key = 0; key < 100000; ++key) {
        text += "[a" + QByteArray::number(key) + "]\n";
    }
    for (int key = 0; key < 100000; ++key) {
        text += "[-b" + QByteArray::number(key) + "]\n";
    }
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(ParseRegistryText(text).size(), 100000);
    EXPECT_LT(clock.elapsed(), 30000);
}

TEST(RegistryText, HeaderAloneHasNoKeys) {
    EXPECT_TRUE(ParseRegistryText(Header).isEmpty());
    EXPECT_TRUE(ParseRegistryText(Header + SettingsKey).contains(Settings));
}

TEST(RegistryText, WithoutTheHeaderIsRefused) {
    EXPECT_TRUE(ParseRegistryText(QByteArray()).isEmpty());
    EXPECT_TRUE(ParseRegistryText(SettingsKey + "\"a\"=\"1\"\n").isEmpty());
    EXPECT_TRUE(ParseRegistryText("REGEDIT4\n" + SettingsKey).isEmpty());
    EXPECT_TRUE(ParseRegistryText("\n" + Header + SettingsKey).isEmpty());
}

TEST(RegistryText, Utf8MayHaveItsMark) {
    EXPECT_TRUE(ParseRegistryText("\xEF\xBB\xBF" + Header + SettingsKey).contains(Settings));
}

TEST(RegistryText, TwoByteCharactersWithTheirMarkAreRead) {
    const QString text = QString::fromUtf8(Header + SettingsKey + "\"a\"=\"Zürich\"\r\n");
    EXPECT_EQ(ParseRegistryText(Utf16(text)).value(Settings).value(QStringLiteral("a")).bytes,
              QByteArray("Zürich\0", 8));
    QByteArray swapped = Utf16(text);
    for (qsizetype place = 0; place < swapped.size(); place += 2) {
        std::swap(swapped[place], swapped[place + 1]);
    }
    EXPECT_TRUE(ParseRegistryText(swapped).contains(Settings));
}

TEST(RegistryText, WrongEncodingIsRefused) {
    EXPECT_TRUE(ParseRegistryText(Header + SettingsKey + "\"a\"=\"\xFC\"\n").isEmpty());
    EXPECT_TRUE(ParseRegistryText(Header + SettingsKey + "\"a\"=\"\xED\xA0\x80\"\n").isEmpty());
    const QByteArray wide = Utf16(QString::fromUtf8(Header + SettingsKey));
    EXPECT_TRUE(ParseRegistryText(wide + "x").isEmpty()) << "half a character at the end";
    EXPECT_TRUE(ParseRegistryText(wide + QByteArray("\0\xD8\n\0", 4)).isEmpty()) << "half a pair";
}

TEST(RegistryText, ValuesBeforeAnyKeyAreRefused) {
    EXPECT_TRUE(ParseRegistryText(Header + "\"a\"=\"1\"\n" + SettingsKey).isEmpty());
    EXPECT_TRUE(IsRefused("[-Gone]\n\"a\"=\"1\""));
}

class BrokenLine : public ::testing::TestWithParam<const char*> {};

TEST_P(BrokenLine, MakesTheWholeTextUnparsable) {
    EXPECT_TRUE(IsRefused(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    All, BrokenLine,
    ::testing::Values("rubbish", "[", "[]", "[-]", "[KEY", "a=\"1\"", "\"a\"", "\"a\"\"1\"", "\"a=\"1\"",
                      "\"a\"=", "\"a\"=1", "\"a\"=\"1", "\"a\"=\"1\" x", "\"a\"=\"1\\", "\"a\"=\"\\n\"",
                      "\"a\"=\"C:\\\"", "\"a\"=\"C:\\\nx\"", "@", "@\"1\"",
                      "\"a\"=dword:", "\"a\"=dword:000000001", "\"a\"=dword:0x1", "\"a\"=dword:-1",
                      "\"a\"=dword:1 2", "\"a\"=hex", "\"a\"=hex01", "\"a\"=hex(:01", "\"a\"=hex():01",
                      "\"a\"=hex(x):01", "\"a\"=hex(123456789):01", "\"a\"=hex:1g", "\"a\"=hex:001",
                      "\"a\"=hex:01,", "\"a\"=hex:,01", "\"a\"=hex:01,,02", "\"a\"=hex:01 02",
                      "\"a\"=hex:01,\\", "\"a\"=--", "\"a\"=qword:1"));

}  // namespace
