#include "platform/Files.h"
#include "support/PrintQt.h"
#include "tools/import/Options.h"

#include <QDir>

#include <gtest/gtest.h>

using tools::ImportOptions;
using tools::ParseImportOptions;

namespace {

QString FaultOf(const QStringList& arguments) {
    QString fault;
    EXPECT_FALSE(ParseImportOptions(arguments, fault).has_value());
    return fault;
}

QStringList Words(const char* text) {
    return QString::fromUtf8(text).split(QLatin1Char(' '));
}

}  // namespace

TEST(Options, AllOfThem) {
    QString fault;
    const auto options = ParseImportOptions(
        Words("--database /a.mdb --backup=b.mdb p.json --today 2026-02-28 --locale de_DE --yes --dry-run"),
        fault);
    ASSERT_TRUE(options.has_value());
    EXPECT_EQ(options->portfolio, QStringLiteral("p.json"));
    EXPECT_EQ(options->database, platform::AbsoluteName(QStringLiteral("/a.mdb")));
    EXPECT_EQ(options->backup, QDir::toNativeSeparators(QDir::currentPath() + QStringLiteral("/b.mdb")));
    EXPECT_EQ(options->today, QDate(2026, 2, 28));
    EXPECT_EQ(options->locale, QStringLiteral("de_DE"));
    EXPECT_TRUE(options->isYes);
    EXPECT_TRUE(options->isDryRun);
}

TEST(Options, OnlyThePortfolioIsNeeded) {
    QString fault;
    const auto options = ParseImportOptions(Words("p.json"), fault);
    ASSERT_TRUE(options.has_value());
    EXPECT_FALSE(options->isYes);
    EXPECT_FALSE(options->isDryRun);
    EXPECT_FALSE(options->today.has_value());
    EXPECT_EQ(options->locale, QString());
    EXPECT_EQ(options->database, QString());
}

TEST(Options, HelpAndVersionNeedNothingElse) {
    QString fault;
    EXPECT_TRUE(ParseImportOptions(Words("--help"), fault)->wantsHelp);
    EXPECT_TRUE(ParseImportOptions(Words("--version"), fault)->wantsVersion);
}

TEST(Options, BadUsageSaysWhatIsWrong) {
    EXPECT_EQ(FaultOf({}), QStringLiteral("One portfolio file is needed"));
    EXPECT_EQ(FaultOf(Words("a.json b.json")), QStringLiteral("One portfolio file is needed"));
    EXPECT_EQ(FaultOf({QString()}), QStringLiteral("One portfolio file is needed"));
    EXPECT_EQ(FaultOf(Words("p.json --today 2026-02-30")),
              QStringLiteral("--today takes a real day in the form YYYY-MM-DD, not 2026-02-30"));
    EXPECT_EQ(FaultOf(Words("p.json --backup a --backup b")),
              QStringLiteral("--backup is given more than once"));
    EXPECT_TRUE(FaultOf(Words("p.json --force")).contains(QStringLiteral("force")));
    EXPECT_TRUE(FaultOf(Words("p.json --database")).contains(QStringLiteral("database")));
    EXPECT_TRUE(FaultOf(Words("p.json --yes=no")).contains(QStringLiteral("yes")));
}

TEST(Options, AnEmptyValueIsNoValue) {
    EXPECT_EQ(FaultOf({QStringLiteral("p.json"), QStringLiteral("--database"), QString()}),
              QStringLiteral("--database has an empty value"));
    EXPECT_EQ(FaultOf({QStringLiteral("p.json"), QStringLiteral("--locale"), QString()}),
              QStringLiteral("--locale has an empty value"));
    EXPECT_EQ(FaultOf({QStringLiteral("p.json"), QStringLiteral("--backup=")}),
              QStringLiteral("--backup has an empty value"));
}

TEST(Options, HelpTellsEveryOption) {
    for (const char* option : {"--database", "--backup", "--today", "--locale", "--yes", "--dry-run",
                               "--help", "--version", "Exit status"}) {
        EXPECT_TRUE(tools::ImportHelpText().contains(QLatin1String(option))) << option;
    }
}
