#include "support/PrintQt.h"
#include "tools/json/Fault.h"

#include <gtest/gtest.h>

using tools::ElementPointer;
using tools::FaultLine;
using tools::MemberPointer;
using tools::Shown;

TEST(Fault, LineNamesFilePlaceRuleAndValue) {
    EXPECT_EQ(FaultLine(QStringLiteral("a.json"),
                        {QStringLiteral("/Tenants/3/StartDate"), QStringLiteral("A start date is required."),
                         QStringLiteral("nothing")}),
              QStringLiteral("a.json: /Tenants/3/StartDate: A start date is required. (found nothing)"));
}

TEST(Fault, LineWithoutPlaceOrValueLeavesThemOut) {
    EXPECT_EQ(FaultLine(QStringLiteral("a.json"), {QString(), QStringLiteral("Not text"), QString()}),
              QStringLiteral("a.json: Not text"));
}

TEST(Fault, PointersEscapeTildeAndSlash) {
    EXPECT_EQ(MemberPointer(QStringLiteral("/a"), QStringLiteral("b/c~d")), QStringLiteral("/a/b~1c~0d"));
    EXPECT_EQ(ElementPointer(QStringLiteral("/a"), 12), QStringLiteral("/a/12"));
}

TEST(Fault, SixtyCharactersAreShownAndNoMore) {
    const QString sixty(60, QLatin1Char('x'));
    EXPECT_EQ(Shown(sixty), sixty);
    EXPECT_EQ(Shown(sixty + QLatin1Char('y')), sixty + QStringLiteral("..."));
}

TEST(Fault, ACutNeverHalvesACharacter) {
    const QString house = QString::fromUtf8("\xF0\x9F\x8F\xA0");
    const QString before(59, QLatin1Char('x'));
    EXPECT_EQ(Shown(before + house), before + QStringLiteral("..."));
}

TEST(Fault, CharactersThatDisturbATerminalAreEscaped) {
    EXPECT_EQ(Shown(QStringLiteral("a\x1b[31m\n\t")), QStringLiteral("a\\u001b[31m\\u000a\\u0009"));
    EXPECT_EQ(Shown(QStringLiteral("a\u202Eb\u2028")), QStringLiteral("a\\u202eb\\u2028"));
    EXPECT_EQ(Shown(QStringLiteral("Kōwhai Müller")), QStringLiteral("Kōwhai Müller"));
}
