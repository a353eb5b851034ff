#include "controls/grid/GridColumn.h"
#include "platform/Failure.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

std::vector<GridColumn> Parse(const QString& headings, const QString& widths = {},
                              const QString& alignments = {}, const QString& hyperlinks = {},
                              int twipsPerPixel = 15) {
    ColumnStrings strings{headings, widths, alignments, hyperlinks};
    return ParseColumnStrings(strings, twipsPerPixel);
}

TEST(ParseColumnStringsTest, EachTextEndsWithASeparatorAfterwards) {
    ColumnStrings strings{u"A|B"_s, u"10|20|"_s, {}, u"1"_s};
    ParseColumnStrings(strings, 15);
    EXPECT_EQ(strings, (ColumnStrings{u"A|B|"_s, u"10|20|"_s, u"|"_s, u"1|"_s}));
}

TEST(ParseColumnStringsTest, NoHeadingsMakeOneColumnWithoutAHeading) {
    const auto columns = Parse({}, u"300"_s);
    ASSERT_EQ(columns.size(), 1U);
    EXPECT_EQ(columns[0].Heading, QString());
    EXPECT_EQ(columns[0].Width, 300);
}

TEST(ParseColumnStringsTest, TheHeadingsDecideHowManyColumnsThereAre) {
    const auto columns = Parse(u"A||C"_s, u"150|300|450|600|"_s, u"1|1|1|1"_s, u"1|1|1|1"_s);
    ASSERT_EQ(columns.size(), 3U);
    EXPECT_EQ(columns[1].Heading, QString());
    EXPECT_EQ(columns[2].Heading, u"C"_s);
    EXPECT_EQ(columns[2].Width, 450);
}

TEST(ParseColumnStringsTest, AColumnWithoutATokenKeepsTheUsualSettings) {
    const auto columns = Parse(u"A|B"_s, u"300|"_s, u"2|"_s, u"1|"_s);
    EXPECT_EQ(columns[1].Width, 1500);
    EXPECT_EQ(columns[1].Alignment, GridAlignment::Left);
    EXPECT_FALSE(columns[1].Hyperlink);
    EXPECT_EQ(columns[1].FontName, u"MS Sans Serif"_s);
    EXPECT_EQ(columns[1].Left, 0);
}

struct WidthCase {
    const char16_t* token;
    int twipsPerPixel;
    int width;
};

TEST(ParseColumnStringsTest, WidthsAreRoundedAndThenCutToWholePixels) {
    const WidthCase cases[] = {{u"1007", 15, 1005}, {u"1000", 15, 990},
                               {u"1000", 12, 996},  {u"1000", 20, 1000},
                               {u"0", 15, 0},       {u"abc", 15, 0},
                               {u"", 15, 0},        {u"-300", 15, 0},
                               {u"14.6", 15, 15},   {u"14.5", 15, 0},
                               {u"  45", 15, 45},   {u"45 twips", 15, 45},
                               {u"+45", 15, 45},    {u"2147483647", 15, 2147483640}};
    for (const WidthCase& one : cases) {
        const auto columns = Parse(u"A"_s, QString::fromUtf16(one.token), {}, {}, one.twipsPerPixel);
        EXPECT_EQ(columns[0].Width, one.width) << QString::fromUtf16(one.token).toStdString();
    }
}

TEST(ParseColumnStringsTest, AnEmptyWidthsTextHidesTheFirstColumnOnly) {
    const auto columns = Parse(u"A|B"_s);
    EXPECT_EQ(columns[0].Width, 0);
    EXPECT_EQ(columns[1].Width, 1500);
}

TEST(ParseColumnStringsTest, AlignmentsAreClamped) {
    const auto columns = Parse(u"A|B|C|D|E|F"_s, {}, u"0|1|2|5|-1|x"_s);
    EXPECT_EQ(columns[0].Alignment, GridAlignment::Left);
    EXPECT_EQ(columns[1].Alignment, GridAlignment::Right);
    EXPECT_EQ(columns[2].Alignment, GridAlignment::Centre);
    EXPECT_EQ(columns[3].Alignment, GridAlignment::Centre);
    EXPECT_EQ(columns[4].Alignment, GridAlignment::Left);
    EXPECT_EQ(columns[5].Alignment, GridAlignment::Left);
}

TEST(ParseColumnStringsTest, AnyNumberButZeroMakesALink) {
    const auto columns = Parse(u"A|B|C|D|E"_s, {}, {}, u"0|1|-1|yes|2x"_s);
    EXPECT_FALSE(columns[0].Hyperlink);
    EXPECT_TRUE(columns[1].Hyperlink);
    EXPECT_TRUE(columns[2].Hyperlink);
    EXPECT_FALSE(columns[3].Hyperlink);
    EXPECT_TRUE(columns[4].Hyperlink);
}

TEST(ParseColumnStringsTest, ANumberBeyond32BitsOverflows) {
    for (const bool asWidth : {true, false}) {
        try {
            Parse(u"A"_s, asWidth ? u"3000000000"_s : u"0"_s, asWidth ? u"0"_s : u"3000000000"_s);
            ADD_FAILURE();
        } catch (const platform::Failure& failure) {
            EXPECT_EQ(failure.Number(), platform::FailureNumber::Overflow);
        }
    }
}

TEST(PaddedTextTest, ABlankStandsBetweenTheTextAndTheLineThatItLeansOn) {
    EXPECT_EQ(PaddedText(u"x"_s, GridAlignment::Left), u" x"_s);
    EXPECT_EQ(PaddedText(u"x"_s, GridAlignment::Right), u"x "_s);
    EXPECT_EQ(PaddedText(u"x"_s, GridAlignment::Centre), u"x"_s);
    EXPECT_EQ(PaddedText({}, GridAlignment::Left), u" "_s);
}

}  // namespace
