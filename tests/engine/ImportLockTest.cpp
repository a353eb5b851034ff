#include "EngineTest.h"
#include "engine/ImportLock.h"
#include "support/OtherProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

namespace engine {

namespace {

class ImportLockTest : public EngineTest {
protected:
    /// Whether an import in another process may begin, asked while no group of writes is open here.
    bool CanImportElsewhere() const { return platform::FileLock(path).TryTake(); }

    /// Imports into the file as long as it is left alive.
    std::function<bool()> Importing() const {
        return [this] { return (new platform::FileLock(path))->TryTake(); };
    }

    QString DescriptionOf(const QString& statement) {
        try {
            database->Execute(statement);
        } catch (const Error& error) {
            return error.Description();
        }
        return {};
    }

    /// Whether a program that knows nothing of imports can write, without waiting.
    bool CanOthersWrite() const {
        const QStringList arguments{path, QStringLiteral("insert into notes(text) values('theirs')")};
        return QProcess::execute(QStringLiteral("sqlite3"), arguments) == 0;
    }

    const QString insert = QStringLiteral("insert into notes(text) values('ours')");
};

TEST_F(ImportLockTest, WhileAnotherProcessImportsEveryWriteIsRefusedAtOnce) {
    database->Execute(QStringLiteral("insert into things(code) values('a')"));
    database = nullptr;
    const OtherProcess other(Importing());
    ASSERT_TRUE(other.Succeeded());

    database = DBEngine::Instance().OpenDatabase(path);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(ExecuteError("insert into notes(text) values('ours')"), ErrorNumber::Locked);
    EXPECT_EQ(ExecuteError("delete from things"), ErrorNumber::Locked);
    const auto rows = Dynaset("select code from things");
    EXPECT_FALSE(rows->Eof()) << "reading is free";
    rows->AddNew();
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::Locked);
    rows->CancelUpdate();
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::Locked);
    EXPECT_LT(time.elapsed(), 2000);
    EXPECT_EQ(
        DescriptionOf(insert),
        QStringLiteral("Couldn't write; another import is filling the database: engine_test, process %1.")
            .arg(other.Number()));
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("a")});
    EXPECT_EQ(Rows("select text from notes"), QStringList());
}

TEST_F(ImportLockTest, WhoeverWasRefusedStaysSoUntilHeAsksAnew) {
    OtherProcess other(Importing());
    EXPECT_EQ(ErrorOf([&] { database->LockForImport(); }), ErrorNumber::Locked);
    const QString refusal = DescriptionOf(insert);
    other.Kill();
    EXPECT_EQ(DescriptionOf(insert), refusal) << "the rows of two imports would mix";
    EXPECT_EQ(ErrorOf([&] { database->LockForImport(); }), 0);
    EXPECT_EQ(DescriptionOf(insert), QString());
    EXPECT_EQ(Rows("select text from notes"), QStringList{QStringLiteral("ours")});
}

TEST_F(ImportLockTest, AnotherDatabaseOfTheProcessIsRefusedWithTheFirst) {
    OtherProcess other(Importing());
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(path)->LockForImport(); }),
              ErrorNumber::Locked);
    other.Kill();
    EXPECT_EQ(ExecuteError("insert into notes(text) values('ours')"), ErrorNumber::Locked);
}

TEST_F(ImportLockTest, AnImportThatMayNotBeginWritesThroughNoDatabaseUntilOneMay) {
    const auto second = DBEngine::Instance().OpenDatabase(path);
    second->LockForImport();
    second->RefuseWrites(Error(ErrorNumber::InvalidOperation, QStringLiteral("Not these tables.")));
    EXPECT_EQ(DescriptionOf(insert), QStringLiteral("Not these tables."));
    EXPECT_EQ(ExecuteError("delete from things"), ErrorNumber::InvalidOperation);
    EXPECT_EQ(ErrorOf([&] { database->LockForImport(); }), 0);
    EXPECT_EQ(DescriptionOf(insert), QString());
    EXPECT_EQ(Rows("select text from notes"), QStringList{QStringLiteral("ours")});
}

TEST_F(ImportLockTest, TheDatabasesOfAProcessShareIt) {
    const auto second = DBEngine::Instance().OpenDatabase(path);
    database->LockForImport();
    second->LockForImport();
    second->Execute(insert);
    second->Flush();
    database->Execute(insert);
    EXPECT_EQ(Rows("select count(*) from notes"), QStringList{QStringLiteral("2")});
}

TEST_F(ImportLockTest, LookingKeepsNobodyOutAndWritingDoes) {
    Dynaset("select * from notes");
    database->Flush();
    EXPECT_TRUE(CanImportElsewhere());
    database->Execute(insert);
    database->Flush();
    EXPECT_FALSE(CanImportElsewhere()) << "the rest of the import follows";
    EXPECT_TRUE(CanOthersWrite()) << "programs that know nothing of it";
}

TEST_F(ImportLockTest, EndsWithTheLastDatabaseOfItsFile) {
    auto second = DBEngine::Instance().OpenDatabase(path);
    database->LockForImport();
    database.reset();
    EXPECT_FALSE(CanImportElsewhere());
    second.reset();
    EXPECT_TRUE(CanImportElsewhere());
}

TEST_F(ImportLockTest, IsOfTheFileThatWasOpened) {
    database->LockForImport();
    const QString old = directory.filePath(QStringLiteral("old.mdb"));
    ASSERT_TRUE(QFile::rename(path, old));
    ASSERT_TRUE(QFile::copy(old, path));
    EXPECT_TRUE(CanImportElsewhere()) << "the file is another one";
    EXPECT_FALSE(platform::FileLock(old).TryTake());
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(path)->LockForImport(); }), 0);
}

// Closing any opening of a file lets go of all locks that SQLite holds on it in this process.
TEST_F(ImportLockTest, ClosingADatabaseLeavesTheLocksOfTheOthers) {
    auto second = DBEngine::Instance().OpenDatabase(path);
    second->LockForImport();
    database->Execute(insert);
    EXPECT_FALSE(CanOthersWrite()) << "a group of writes is open";
    second.reset();
    EXPECT_FALSE(CanOthersWrite());
    database->Flush();
    EXPECT_TRUE(CanOthersWrite());
}

}  // namespace

}  // namespace engine
