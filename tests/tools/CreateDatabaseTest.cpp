#include "Program.h"
#include "support/FormatUnderTest.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class CreateDatabase : public testing::Test {
protected:
    QString Path() const { return directory_.filePath(QStringLiteral("property.mdb")); }

    QStringList Everything() const {
        return QDir(directory_.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    QTemporaryDir directory_;
};

}  // namespace

TEST_F(CreateDatabase, HoldsTheRowsOfAFreshInstallation) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("pragma integrity_check")), "ok");
    EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("select taxincome, taxincrate, Rent_Group from options")),
              "0|15.0|Rent");
    EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("select contractornumber, name from contractor")),
              "1000|Freds Gardening\n1001|Toms Tree Services");
    EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("select gl_code, description from glcodes "
                                                   "where gl_code = 'Payee1'")),
              "Payee1|Fence Repairs Ltd");
    EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("select count(*) > 10, sum(type = 3) from glcodes")),
              "1|0");
}

TEST_F(CreateDatabase, HasEveryTableThatTheImportEmpties) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    for (const char* table : {"notes",       "mortgage",       "disbursement",   "workorder",
                              "glcodes",     "contractor",     "recon",          "property",
                              "tenancy",     "owner",          "auto_fee",       "autopayment",
                              "autorevenue", "budget",         "budgetproperty", "budgetvalue",
                              "chattel",     "custom_fields",  "expenses",       "extra_fees",
                              "insp_rooms",  "insp_room_attr", "insp_schedule",  "mileage",
                              "pictures",    "property_rooms", "rent_periods",   "rent_periods_charges",
                              "rentchanges", "revenues",       "split_charges",  "tenant_bond",
                              "woquote",     "options"}) {
        EXPECT_EQ(
            QueryDatabase(Path(), QStringLiteral("select count(*) from sqlite_master where type = 'table' "
                                                 "and name = '%1'")
                                      .arg(QLatin1String(table))),
            "1")
            << table;
    }
}

TEST_F(CreateDatabase, RowSetTablesUseEveryTypeThatHasADefault) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    const QByteArray types = QueryDatabase(
        Path(), QStringLiteral("select distinct replace(replace(upper(type), '(', ' '), ')', ' ') "
                               "from (select type from pragma_table_info('glcodes') union all "
                               "select type from pragma_table_info('owner') union all "
                               "select type from pragma_table_info('property') union all "
                               "select type from pragma_table_info('tenancy'))"));
    for (const char* type :
         {"BOOLEAN", "SHORT", "LONG", "CURRENCY", "SINGLE", "DOUBLE", "DATETIME", "TEXT", "MEMO"}) {
        EXPECT_TRUE(types.contains(type)) << type;
    }
    EXPECT_FALSE(types.contains("BYTE"));
    EXPECT_FALSE(types.contains("BINARY"));
}

// The import looks up a tenant's periods and receipts once for each balance: without an index that costs the
// square of their number. Any other index only makes inserts dearer.
TEST_F(CreateDatabase, TablesHaveTheColumnsThatTheDocumentTells) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    const QStringList made =
        QString::fromUtf8(
            QueryDatabase(Path(),
                          QStringLiteral("select '| `' || made.name || '` | ' || "
                                         "group_concat('`' || columns.name || '` ' || columns.type, ', ') || "
                                         "' |' from sqlite_master as made, pragma_table_info(made.name) as "
                                         "columns where made.type = 'table' group by made.name")))
            .split(QLatin1Char('\n'));
    const QRegularExpression line(QStringLiteral("^\\| `\\w+` \\| `[^`]+` [A-Z].* \\|$"),
                                  QRegularExpression::MultilineOption);
    auto told = line.globalMatch(QString::fromUtf8(FileBytes(QStringLiteral(DATABASE_DOCUMENT))));
    int tables = 0;
    for (; told.hasNext(); ++tables) {
        const QString table = told.next().captured();
        EXPECT_TRUE(made.contains(table)) << table.toStdString();
    }
    EXPECT_GT(tables, 20);
}

TEST_F(CreateDatabase, HasIndexesForWhatTheImportLooksUpAndNoOthers) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    const auto planOf = [this](const char* statement) {
        return QueryDatabase(Path(), QStringLiteral("explain query plan ") + QLatin1String(statement));
    };
    EXPECT_TRUE(planOf("select * from rent_periods where tenant_code = 'T' order by period_from desc")
                    .contains("SEARCH rent_periods USING INDEX rent_periods_tenant_code (tenant_code=?)"));
    EXPECT_TRUE(planOf("select * from revenues where [property code] = 'P' and tenant_code = 'T' "
                       "and [revenue group] = 'Rent' order by date desc")
                    .contains("SEARCH revenues USING INDEX revenues_tenant_code (tenant_code=?)"));
    EXPECT_EQ(
        QueryDatabase(Path(), QStringLiteral("select count(*) from sqlite_master where type = 'index'")),
        "2");
}

TEST_F(CreateDatabase, NeverOverwrites) {
    WriteFile(Path(), "precious");
    const ProgramResult result = RunCreateDatabase({Path()});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("is there already"));
    EXPECT_EQ(FileBytes(Path()), "precious");
    EXPECT_EQ(RunCreateDatabase({directory_.path()}).status, 2);
}

TEST_F(CreateDatabase, ALinkToNowhereIsNoFreePlace) {
    ASSERT_TRUE(QFile::link(directory_.filePath(QStringLiteral("elsewhere")), Path()));
    EXPECT_EQ(RunCreateDatabase({Path()}).status, 2);
    EXPECT_FALSE(QFile::exists(directory_.filePath(QStringLiteral("elsewhere"))));
}

TEST_F(CreateDatabase, LeavesNothingBesideTheFile) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    EXPECT_EQ(Everything(), QStringList{QStringLiteral("property.mdb")});
}

// Any limit, from no room at all to room for all of it.
TEST_F(CreateDatabase, WhereThereIsNoRoomForAllOfItNothingIsLeft) {
    ASSERT_EQ(RunCreateDatabase({Path()}).status, 0);
    const QByteArray whole = FileBytes(Path());
    const qsizetype kilobytes = (whole.size() + 1023) / 1024;
    for (qsizetype limit = 0; limit <= kilobytes; limit += 2) {
        ASSERT_TRUE(QFile::remove(Path()));
        const QString command =
            QStringLiteral("ulimit -f %1; exec '%2' --format %3 '%4'")
                .arg(limit)
                .arg(QStringLiteral(CREATE_PROGRAM), QLatin1String(NameOfFormat()), Path());
        const ProgramResult result = RunProgram(QStringLiteral("bash"), {QStringLiteral("-c"), command},
                                                QStringLiteral("/nonexistent"));
        if (limit < kilobytes) {
            EXPECT_EQ(result.status, 1) << limit;
            EXPECT_TRUE(result.errors.contains("property.mdb can't be made: ")) << result.errors.constData();
            EXPECT_EQ(Everything(), QStringList()) << limit;
            WriteFile(Path(), {});
        }
    }
    EXPECT_EQ(RunCreateDatabase({Path()}).status, 2);
}

TEST_F(CreateDatabase, ARequestToEndLeavesTheWholeFileOrNothing) {
    int made = 0;
    for (int milliseconds = 0; made < 5; milliseconds += 3) {
        QProcess process;
        process.start(QStringLiteral(CREATE_PROGRAM),
                      {QStringLiteral("--format"), QLatin1String(NameOfFormat()), Path()});
        ASSERT_TRUE(process.waitForStarted());
        process.waitForFinished(milliseconds);
        process.terminate();
        process.waitForFinished(60000);
        ASSERT_EQ(process.state(), QProcess::NotRunning);
        const bool isMade = process.exitStatus() == QProcess::NormalExit;
        EXPECT_EQ(Everything(), isMade ? QStringList{QStringLiteral("property.mdb")} : QStringList());
        if (isMade) {
            EXPECT_EQ(process.exitCode(), 0);
            EXPECT_EQ(QueryDatabase(Path(), QStringLiteral("select count(*) from contractor")), "2");
            EXPECT_TRUE(QFile::remove(Path()));
            ++made;
        }
    }
}

TEST_F(CreateDatabase, AFileThatTheDatabaseWouldTakeForItsOwnIsNotTouched) {
    for (const QString& end : EndsOfFilesBeside()) {
        const QString beside = Path() + end;
        WriteFile(beside, "precious");
        const ProgramResult result = RunCreateDatabase({Path()});
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.errors.contains("'" + beside.toUtf8() + "'")) << result.errors.constData();
        EXPECT_EQ(FileBytes(beside), "precious");
        EXPECT_EQ(Everything(), QStringList{QFileInfo(beside).fileName()});
        EXPECT_TRUE(QFile::remove(beside));
    }
}

TEST_F(CreateDatabase, ANameThatLeavesNoRoomForAJournalIsAFailureToWrite) {
    const auto named = [this](int length) { return directory_.filePath(QString(length, QLatin1Char('x'))); };
    for (const int length : {248, 255, 256}) {
        const ProgramResult result = RunCreateDatabase({named(length)});
        EXPECT_EQ(result.status, 1) << length;
        EXPECT_TRUE(result.errors.contains("File name too long")) << result.errors.constData();
        EXPECT_EQ(Everything(), QStringList()) << length;
    }
    EXPECT_EQ(RunCreateDatabase({named(247)}).status, 0);
}

TEST_F(CreateDatabase, AFailureNamesTheFileAsItWasGiven) {
    const QString path = directory_.filePath(QStringLiteral("no %1 %2 %3 folder/property.mdb"));
    EXPECT_TRUE(
        RunCreateDatabase({path}).errors.contains(path.toUtf8() + " can't be made: 3043 - Disk error: "));
}

TEST_F(CreateDatabase, AFolderThatIsNotThereIsAFailureToWrite) {
    const ProgramResult result =
        RunCreateDatabase({directory_.filePath(QStringLiteral("none/property.mdb"))});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.contains("none/property.mdb can't be made: "));
}

TEST_F(CreateDatabase, BadUsage) {
    EXPECT_EQ(RunCreateDatabase({}).status, 2);
    EXPECT_EQ(RunCreateDatabase({QString()}).status, 2);
    EXPECT_EQ(RunCreateDatabase({QStringLiteral("--force")}).status, 2);
    EXPECT_EQ(RunCreateDatabase({Path(), Path()}).status, 2);
    EXPECT_FALSE(QFile::exists(Path()));
    EXPECT_EQ(RunCreateDatabase({QStringLiteral("--help")}).status, 0);
    EXPECT_TRUE(
        RunCreateDatabase({QStringLiteral("--version")}).output.startsWith("hearthbook-create-database "));
}
