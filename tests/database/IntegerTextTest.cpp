#include "database/IntegerText.h"
#include "platform/Failure.h"
#include "support/CommaLocale.h"

#include <gtest/gtest.h>

namespace {

short Integer(const QByteArray& text) {
    return database::ToInteger(QString::fromUtf8(text));
}

int FailureOf(const QByteArray& text) {
    try {
        Integer(text);
    } catch (const platform::Failure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(IntegerText, IsDigitsWithASign) {
    EXPECT_EQ(Integer("0"), 0);
    EXPECT_EQ(Integer("1"), 1);
    EXPECT_EQ(Integer("-1"), -1);
    EXPECT_EQ(Integer("+12"), 12);
    EXPECT_EQ(Integer("00042"), 42);
}

TEST(IntegerText, MayHaveBlanksAround) {
    EXPECT_EQ(Integer("  7\t"), 7);
}

TEST(IntegerText, RoundsDecimalsWithTiesToEven) {
    EXPECT_EQ(Integer("0.5"), 0);
    EXPECT_EQ(Integer("1.5"), 2);
    EXPECT_EQ(Integer("2.5"), 2);
    EXPECT_EQ(Integer("2.50000000000000000000000001"), 3);
    EXPECT_EQ(Integer("2.51"), 3);
    EXPECT_EQ(Integer("2.49999"), 2);
    EXPECT_EQ(Integer("-2.5"), -2);
    EXPECT_EQ(Integer("-3.5"), -4);
    EXPECT_EQ(Integer("0.500"), 0);
    EXPECT_EQ(Integer("1.6"), 2);
    EXPECT_EQ(Integer(".7"), 1);
    EXPECT_EQ(Integer("3."), 3);
}

TEST(IntegerText, HasSixteenBits) {
    EXPECT_EQ(Integer("32767"), 32767);
    EXPECT_EQ(Integer("-32768"), -32768);
    EXPECT_EQ(Integer("-32768.5"), -32768);
    EXPECT_EQ(FailureOf("32768"), 6);
    EXPECT_EQ(FailureOf("32767.5"), 6);
    EXPECT_EQ(FailureOf("-32769"), 6);
    EXPECT_EQ(FailureOf("-32768.6"), 6);
    EXPECT_EQ(FailureOf(QByteArray(1000, '9')), 6);
}

TEST(IntegerText, IsNothingElse) {
    for (const char* text :
         {"", "  ", "yes", "1x", "x1", "--1", "- 1", "1 2", ".", "-", "1.2.3", "1,5", "0x1", "\xD9\xA1"}) {
        EXPECT_EQ(FailureOf(text), 13) << text;
    }
}

TEST(IntegerText, HasTheLocalesDecimalMark) {
    const CommaLocale german;
    EXPECT_EQ(Integer("1,5"), 2);
    EXPECT_EQ(FailureOf("1.5"), 13);
}

}  // namespace
