#include "Program.h"
#include "support/FormatUnderTest.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class ImportRefusal : public testing::Test {
protected:
    void SetUp() override {
        CopyFreshDatabase(Database());
        before_ = FileBytes(Database());
    }
    void TearDown() override { EXPECT_TRUE(FileBytes(Database()) == before_); }

    QString Path(const char* name) const { return directory_.filePath(QLatin1String(name)); }
    QString Database() const { return Path("property.mdb"); }

    ProgramResult Import(const QStringList& more) const {
        return RunImport(QStringList{ExamplePortfolio(), QStringLiteral("--database"), Database()} + more,
                         Path("config"));
    }

    /// The tool on a terminal, with this line typed in.
    ProgramResult ImportOnTerminal(const QString& line) const {
        const QString command =
            QStringLiteral("printf '%1\\n' | script -qec '%2 %3 --database %4' /dev/null")
                .arg(line, QStringLiteral(IMPORT_PROGRAM), ExamplePortfolio(), Database());
        return RunProgram(QStringLiteral("sh"), {QStringLiteral("-c"), command}, Path("config"));
    }

    QTemporaryDir directory_;
    QByteArray before_;
};

}  // namespace

TEST_F(ImportRefusal, WithoutATerminalYesHasToBeSaid) {
    const ProgramResult result = Import({});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("--yes"));
    EXPECT_EQ(result.output, "");
}

TEST_F(ImportRefusal, AnythingButYesIsANo) {
    for (const QString& answer :
         {QStringLiteral("n"), QString(), QStringLiteral("nay"), QStringLiteral("yess")}) {
        const ProgramResult result = ImportOnTerminal(answer);
        EXPECT_EQ(result.status, 2) << answer.toStdString();
        EXPECT_TRUE(result.output.contains("This will delete all existing data in " + Database().toUtf8() +
                                           ". Continue? [y/N] "));
        EXPECT_TRUE(result.output.contains("nothing was changed"));
    }
}

TEST_F(ImportRefusal, AnExistingBackupIsNotOverwritten) {
    WriteFile(Path("backup.mdb"), "precious");
    const ProgramResult result =
        Import({QStringLiteral("--yes"), QStringLiteral("--backup"), Path("backup.mdb")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("is there already"));
    EXPECT_EQ(FileBytes(Path("backup.mdb")), "precious");
}

TEST_F(ImportRefusal, ABackupThatCannotBeMadeStopsTheImport) {
    const ProgramResult result =
        Import({QStringLiteral("--yes"), QStringLiteral("--backup"), Path("none/backup.mdb")});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("the backup could not be made, nothing was changed"));
}

TEST_F(ImportRefusal, TheDatabaseIsNoBackupOfItself) {
    EXPECT_EQ(Import({QStringLiteral("--yes"), QStringLiteral("--backup"), Database()}).status, 2);
}

TEST_F(ImportRefusal, ABackupWouldVanishUnderANameThatTheDatabaseUsesItself) {
    ASSERT_TRUE(QDir(directory_.path()).mkdir(QStringLiteral("sub")));
    QStringList backups{Path("sub/../property.mdb") + EndsOfFilesBeside().front()};
    for (const QString& end : EndsOfFilesBeside()) {
        backups += Path("property.mdb") + end;
    }
    for (const QString& backup : backups) {
        const ProgramResult result = Import({QStringLiteral("--yes"), QStringLiteral("--backup"), backup});
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.errors.contains("the database uses the name " + backup.toUtf8() + " for itself"));
        EXPECT_FALSE(QFile::exists(backup));
    }
}

TEST_F(ImportRefusal, MissingDatabases) {
    const QString missing = Path("none.mdb");
    for (const QString& mode : {QStringLiteral("--yes"), QStringLiteral("--dry-run")}) {
        const ProgramResult result =
            RunImport({ExamplePortfolio(), QStringLiteral("--database"), missing, mode}, Path("config"));
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.errors.contains(missing.toUtf8()));
        EXPECT_TRUE(result.errors.contains("the database can't be opened; nothing was changed"));
        EXPECT_FALSE(QFile::exists(missing));
    }
}

TEST_F(ImportRefusal, FilesThatAreNoDatabase) {
    WriteFile(Path("letter.txt"), "Dear tenant");
    const ProgramResult result = RunImport(
        {ExamplePortfolio(), QStringLiteral("--database"), Path("letter.txt"), QStringLiteral("--yes")},
        Path("config"));
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("3343"));
    EXPECT_EQ(FileBytes(Path("letter.txt")), "Dear tenant");
}

TEST_F(ImportRefusal, NamesInADatabaseDoNotWorkTheTerminal) {
    const QString other = Path("other.mdb");
    const QString sql = QStringLiteral("create table \"\x1B[2J\x07\"(a check(a > 0))");
    ASSERT_EQ(RunProgram(QStringLiteral("sqlite3"), {other, sql}, QString()).status, 0);
    const ProgramResult result =
        RunImport({ExamplePortfolio(), QStringLiteral("--database"), other, QStringLiteral("--dry-run")},
                  Path("config"));
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("[2J")) << result.errors.constData();
    EXPECT_FALSE(result.errors.contains('\x1B') || result.errors.contains('\x07'));
}

TEST_F(ImportRefusal, SettingsThatNameNoDatabase) {
    const ProgramResult result = RunImport({ExamplePortfolio(), QStringLiteral("--yes")}, Path("config"));
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.contains("the database can't be opened"));
}

TEST_F(ImportRefusal, BadUsage) {
    EXPECT_EQ(Import({QStringLiteral("--force")}).status, 2);
    EXPECT_EQ(Import({QStringLiteral("--today"), QStringLiteral("tomorrow"), QStringLiteral("--yes")}).status,
              2);
    EXPECT_EQ(Import({QStringLiteral("another.json"), QStringLiteral("--yes")}).status, 2);
    EXPECT_EQ(RunImport({}).status, 2);
    EXPECT_TRUE(RunImport({}).errors.contains("--help"));
}

TEST_F(ImportRefusal, ALocaleThatTheSystemDoesNotHave) {
    const ProgramResult result =
        Import({QStringLiteral("--locale"), QStringLiteral("xx_XX"), QStringLiteral("--yes")});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "wrenfield-import: --locale takes a locale that this system has, such as C, not xx_XX\n"
              "wrenfield-import --help tells how it is used.\n");
}

TEST_F(ImportRefusal, HelpAndVersionChangeNothing) {
    EXPECT_EQ(Import({QStringLiteral("--help")}).status, 0);
    EXPECT_TRUE(Import({QStringLiteral("--help")}).output.startsWith("Usage: wrenfield-import "));
    EXPECT_TRUE(RunImport({QStringLiteral("--version")}).output.startsWith("wrenfield-import "));
}

TEST(ImportByConsent, YesOnTheTerminalAndTheDatabaseOfTheSettings) {
    const QTemporaryDir directory;
    CopyFreshDatabase(directory.filePath(QStringLiteral("property.mdb")));
    ASSERT_TRUE(QDir(directory.path()).mkpath(QStringLiteral("config/hearthbook")));
    WriteFile(directory.filePath(QStringLiteral("config/hearthbook/registry.reg")),
              "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n"
              "\"Networkable\"=\"0\"\n\"APPPath\"=\"" +
                  directory.path().toUtf8() + "\"\n");
    const QString command = QStringLiteral("printf 'y\\n' | script -qec '%1 %2' /dev/null")
                                .arg(QStringLiteral(IMPORT_PROGRAM), ExamplePortfolio());
    const ProgramResult result = RunProgram(QStringLiteral("sh"), {QStringLiteral("-c"), command},
                                            directory.filePath(QStringLiteral("config")));
    EXPECT_EQ(result.status, 0) << result.output.constData();
    EXPECT_TRUE(result.output.contains("100%"));
    EXPECT_EQ(QueryDatabase(directory.filePath(QStringLiteral("property.mdb")),
                            QStringLiteral("select count(*) from tenancy")),
              "30");
}
