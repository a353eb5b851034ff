#include "engine/dialect/Names.h"

#include <QString>

#include <gtest/gtest.h>

namespace engine::dialect {

namespace {

TEST(NamesTest, AnyNameCanBeQuoted) {
    EXPECT_EQ(QuotedName("two words"), R"("two words")");
    EXPECT_EQ(QuotedName("a]b[c"), R"("a]b[c")");
    EXPECT_EQ(QuotedName(R"(a" from b; --)"), R"("a"" from b; --")");
    EXPECT_EQ(QuotedName(R"("")"), R"("""""")");
    EXPECT_EQ(QuotedName("\xFF"), "\"\xFF\"");
}

TEST(NamesTest, CaseIsThatOfAsciiAlone) {
    EXPECT_TRUE(IsSameName(u"Tenant_Code", u"tENANT_cODE"));
    EXPECT_TRUE(IsSameName(u"", u""));
    EXPECT_FALSE(IsSameName(u"code", u"codes"));
    EXPECT_FALSE(IsSameName(u"[", u"{"))
        << "characters that are as far from each other as letters of two cases";
    EXPECT_FALSE(IsSameName(u"\u212Aey", u"key")) << "the Kelvin sign";
    EXPECT_FALSE(IsSameName(u"addre\u017Fs", u"address")) << "the long s";
    EXPECT_FALSE(IsSameName(u"\u00C4", u"\u00E4"));
    EXPECT_EQ(LowerCase("Ab[Z\xC3\x84"), "ab[z\xC3\x84");
}

}  // namespace

}  // namespace engine::dialect
