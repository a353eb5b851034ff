#include "platform/Utf8.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace platform {

namespace {

TEST(Utf8Test, AByteOrderMarkInFrontIsACharacterOfTheText) {
    EXPECT_EQ(TextFromUtf8("\xEF\xBB\xBF"
                           "Ada"),
              QString(QChar(0xFEFF)) + QStringLiteral("Ada"));
    EXPECT_EQ(TextFromUtf8("\xEF\xBB\xBF\xEF\xBB\xBF"), QString(2, QChar(0xFEFF)));
    EXPECT_EQ(TextFromUtf8("A\xEF\xBB\xBF").size(), 2);
    EXPECT_EQ(TextFromUtf8(""), QString());
}

TEST(Utf8Test, HalfACharacterBecomesTheReplacementCharacter) {
    const QString clef = QString::fromUcs4(U"\U0001D11E", 1);
    EXPECT_EQ(Utf8FromText(QStringLiteral("ab") + clef), "ab\xF0\x9D\x84\x9E");
    EXPECT_EQ(Utf8FromText(QStringLiteral("ab") + clef.left(1)), "ab\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromText(clef.right(1) + QStringLiteral("ab") + clef),
              "\xEF\xBF\xBD"
              "ab\xF0\x9D\x84\x9E");
    EXPECT_EQ(Utf8FromText(clef.left(1) + clef), "\xEF\xBF\xBD\xF0\x9D\x84\x9E");
}

RC_GTEST_PROP(Utf8Test, AnyTextComesBackFromItsBytes, ()) {
    const auto characters = *rc::gen::container<std::u32string>(
        rc::gen::elementOf(std::u32string(U"a\u00e4\ufeff\ufffe\U0001D11E'")));
    const QString text = QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size()));
    RC_ASSERT(TextFromUtf8(text.toUtf8()) == text);
}

}  // namespace

}  // namespace platform
