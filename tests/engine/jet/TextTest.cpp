#include "JetTest.h"
#include "engine/jet/Text.h"
#include "support/PrintQt.h"

#include <rapidcheck/gtest.h>

#include <vector>

namespace engine::jet {
namespace {

QString Read(const QByteArray& stored) {
    return StoredText(BytesOf(stored, 8));
}

TEST(JetText, PlainTextIsUtf16) {
    EXPECT_EQ(Read(QByteArray("R\0e\0", 4)), QStringLiteral("Re"));
    EXPECT_EQ(Read(""), QStringLiteral(""));
    EXPECT_EQ(ToPlainText(QStringLiteral("a\u20AC")), QByteArray("a\0\xAC\x20", 4));
}

TEST(JetText, CompressedTextHasAByteForEachCharacter) {
    EXPECT_EQ(Read("\xFF\xFERent"), QStringLiteral("Rent"));
    EXPECT_EQ(Read("\xFF\xFEM\xFCller"), QStringLiteral("M\u00FCller"));
    EXPECT_EQ(ToStoredText(QStringLiteral("M\u00FCller"), true), "\xFF\xFEM\xFCller");
}

TEST(JetText, AZeroByteLeadsToPlainCharactersAndBack) {
    EXPECT_EQ(Read(QByteArray("\xFF\xFE"
                              "ab\0\xAC\x20\x01\x04\0cd",
                              12)),
              QStringLiteral("ab\u20AC\u0401cd"));
}

TEST(JetText, APlainCharacterMayEndInAZeroByte) {
    EXPECT_EQ(Read(QByteArray("\xFF\xFE\0a\0b\0\0c", 9)), QStringLiteral("abc"));
}

TEST(JetText, OnlyTextsOfThreeSmallCharactersAreCompressed) {
    EXPECT_EQ(ToStoredText(QStringLiteral("ab"), true), QByteArray("a\0b\0", 4));
    EXPECT_EQ(ToStoredText(QStringLiteral("abc"), true),
              "\xFF\xFE"
              "abc");
    EXPECT_EQ(ToStoredText(QStringLiteral("abc"), false), QByteArray("a\0b\0c\0", 6));
    EXPECT_EQ(ToStoredText(QStringLiteral("ab\u0100"), true), QByteArray("a\0b\0\0\x01", 6));
    EXPECT_EQ(ToStoredText(QString(3, QChar(0)), true), QByteArray(6, '\0'));
}

TEST(JetText, ATextThatWouldSeemCompressedIsCompressed) {
    const QString text = QStringLiteral("\uFEFFab\u20AC");
    for (const bool mayCompress : {true, false}) {
        EXPECT_EQ(Read(ToStoredText(text, mayCompress)), text);
    }
    EXPECT_EQ(FailureOf([] { ToStoredText(QStringLiteral("\uFEFF\u0100"), true); }).number,
              ErrorNumber::WrongType);
}

TEST(JetText, ATextThatEndsWithinACharacterIsDamage) {
    EXPECT_TRUE(FindsDamage(8, [] { Read("abc"); }));
    EXPECT_TRUE(FindsDamage(8, [] {
        Read(
            QByteArray("\xFF\xFE"
                       "a\0b",
                       5));
    }));
}

RC_GTEST_PROP(JetTextProperty, EveryTextComesBack,
              (const std::vector<std::uint16_t>& units, bool mayCompress)) {
    QString text;
    for (const std::uint16_t unit : units) {
        text += QChar(*rc::gen::arbitrary<bool>() ? unit : static_cast<std::uint16_t>(unit & 0xFF));
    }
    RC_PRE(!text.startsWith(QChar(0xFEFF)));
    RC_ASSERT(Read(ToStoredText(text, mayCompress)) == text);
}

}  // namespace
}  // namespace engine::jet
