#include "Program.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

class ImportJourney : public testing::Test {
protected:
    void SetUp() override { CopyFreshDatabase(Database()); }

    QString Path(const char* name) const { return directory_.filePath(QLatin1String(name)); }
    QString Database() const { return Path("property.mdb"); }

    ProgramResult Import(const QStringList& more) const {
        return RunImport(QStringList{ExamplePortfolio(), QStringLiteral("--database"), Database()} + more,
                         Path("config"));
    }

    QByteArray Query(const char* query) const { return QueryDatabase(Database(), QLatin1String(query)); }

    void MakeOneStatementFail() const {
        const ProgramResult dropped = RunProgram(
            QStringLiteral("sqlite3"), {Database(), QStringLiteral("drop table mileage")}, QString());
        ASSERT_EQ(dropped.status, 0);
    }

    QTemporaryDir directory_;
};

const QStringList pinned{QStringLiteral("--yes"), QStringLiteral("--today"), QStringLiteral("2026-11-21")};

}  // namespace

TEST_F(ImportJourney, TheExampleArrivesWhole) {
    const ProgramResult result = Import(pinned);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(
        result.output,
        "3 bank accounts\n8 property owners\n33 properties\n30 tenants\nImport complete.  If Hearthbook is "
        "running, it is recommended you restart it to reload the most recent changes.\n");
    EXPECT_EQ(Query("pragma integrity_check"), "ok");
    EXPECT_EQ(Query("select count(*) from glcodes where type = 3"), "3");
    EXPECT_EQ(Query("select count(*), min(fee_percent), max(fee_percent) from owner"), "8|8.5|8.5");
    EXPECT_EQ(Query("select sum(type = 0), sum(type = 1), sum(type = 2) from property"), "17|13|3");
    EXPECT_EQ(Query("select count(*) from tenancy"), "30");
    EXPECT_EQ(Query("select count(*) from tenant_bond"), "29");
    EXPECT_EQ(Query("select count(*) from rent_periods"), "1543");
    EXPECT_EQ(QDir(directory_.path()).entryList(QDir::Files), QStringList{QStringLiteral("property.mdb")});
}

TEST_F(ImportJourney, WhatWasReceivedDiffersFromWhatWasChargedByTheBalances) {
    ASSERT_EQ(Import(pinned).status, 0);
    EXPECT_EQ(Query("select round((select sum(rent_due) from rent_periods where tenant_code in (select "
                    "tenant_code from revenues)) - (select sum(amount) from revenues), 2)"),
              "6981.65");
    EXPECT_EQ(Query("select count(*) from revenues where tenant_code = 'Jonas Weiß'"), "0");
}

TEST_F(ImportJourney, ReceiptsUpToTheLastDisbursementCountAsDisbursed) {
    ASSERT_EQ(Import(pinned).status, 0);
    EXPECT_EQ(Query("select count(*) > 0 from revenues where disburse_id = -1"), "1");
    EXPECT_EQ(Query("select count(*) from revenues where (disburse_id = -1) <> (date <= '2026-10-31')"), "0");
}

TEST_F(ImportJourney, SamplesGoAndTheRestOfTheLedgerStays) {
    const int before = Query("select count(*) from glcodes").toInt();
    ASSERT_EQ(Import(pinned).status, 0);
    EXPECT_EQ(Query("select count(*) from contractor"), "0");
    EXPECT_EQ(Query("select count(*) from glcodes where gl_code = 'Payee1'"), "0");
    EXPECT_EQ(Query("select count(*) from glcodes").toInt(), before - 1 + 3);
    EXPECT_EQ(Query("select count(*) from options"), "1");
}

TEST_F(ImportJourney, ASecondRunReplacesTheFirst) {
    ASSERT_EQ(Import(pinned).status, 0);
    const QByteArray first = Query("select count(*), sum(amount) from revenues");
    ASSERT_EQ(Import(pinned).status, 0);
    EXPECT_EQ(Query("select count(*), sum(amount) from revenues"), first);
    EXPECT_EQ(Query("select count(*) from tenancy"), "30");
}

TEST_F(ImportJourney, RentHistoriesEndAtTheGivenDay) {
    ASSERT_EQ(
        Import({QStringLiteral("--yes"), QStringLiteral("--today"), QStringLiteral("2026-12-31")}).status, 0);
    EXPECT_EQ(Query("select max(period_from) <= '2026-12-31' and max(period_from) > '2026-12-28' from "
                    "rent_periods"),
              "1");
    EXPECT_EQ(Query("select distinct date from tenant_bond"), "2026-12-31");
}

TEST_F(ImportJourney, ADryRunTellsTheCountsAndTouchesNothing) {
    const QByteArray before = FileBytes(Database());
    const ProgramResult result =
        Import({QStringLiteral("--dry-run"), QStringLiteral("--backup"), Path("backup.mdb")});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(
        result.output.startsWith("The following items will be created.\n3 bank accounts\n8 property "
                                 "owners\n33 properties\n30 tenants\n"));
    EXPECT_TRUE(FileBytes(Database()) == before);
    EXPECT_EQ(QDir(directory_.path()).entryList(QDir::Files), QStringList{QStringLiteral("property.mdb")});
}

TEST_F(ImportJourney, TheBackupIsTheDatabaseFromBefore) {
    ASSERT_EQ(Import(pinned).status, 0);
    const QByteArray before = Query("select count(*), sum(amount), max(date) from revenues");
    ASSERT_EQ(Import({QStringLiteral("--yes"), QStringLiteral("--today"), QStringLiteral("2025-01-01"),
                      QStringLiteral("--backup"), Path("backup.mdb")})
                  .status,
              0);
    EXPECT_NE(Query("select count(*), sum(amount), max(date) from revenues"), before);
    EXPECT_EQ(QueryDatabase(Path("backup.mdb"),
                            QStringLiteral("select count(*), sum(amount), max(date) from revenues")),
              before);
}

// Names of tenants and what they owe are nobody else's business in the copy either.
TEST_F(ImportJourney, TheBackupHasThePermissionsOfTheDatabase) {
    for (const mode_t permissions : {0600U, 0640U, 0644U}) {
        ASSERT_EQ(::chmod(QFile::encodeName(Database()).constData(), permissions), 0);
        ASSERT_EQ(Import(pinned + QStringList{QStringLiteral("--backup"), Path("backup.mdb")}).status, 0);
        struct stat backup {};
        ASSERT_EQ(::stat(QFile::encodeName(Path("backup.mdb")).constData(), &backup), 0);
        EXPECT_EQ(backup.st_mode & 0777U, permissions);
        EXPECT_TRUE(QFile::remove(Path("backup.mdb")));
    }
}

TEST_F(ImportJourney, AReaderOfTheOutputWhoGoesAwayStopsNothing) {
    MakeOneStatementFail();
    // Both outputs end in a pipe that nobody reads any more.
    const QString command =
        QStringLiteral(
            "{ sleep 1; '%1' '%2' --database '%3' --yes --today 2026-03-15 2>&1; } | true; "
            "exit ${PIPESTATUS[0]}")
            .arg(QStringLiteral(IMPORT_PROGRAM), ExamplePortfolio(), Database());
    const ProgramResult result =
        RunProgram(QStringLiteral("bash"), {QStringLiteral("-c"), command}, Path("config"));
    EXPECT_EQ(result.status, 1) << "the failure on the way, and no signal";
    EXPECT_EQ(Query("select count(*) from tenancy"), "30");
}

TEST_F(ImportJourney, AFailureOnTheWayIsReportedAndCounted) {
    MakeOneStatementFail();
    const ProgramResult result = Import(pinned);
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.startsWith("Execute SQL: "));
    EXPECT_TRUE(result.output.contains("Import complete."));
    EXPECT_TRUE(result.output.contains("Failures reported: 1. The error log lies in "));
    EXPECT_EQ(Query("select count(*) from tenancy"), "30");
}
