#include "EngineTest.h"
#include "support/FaultyDisk.h"
#include "support/FormatUnderTest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <set>

namespace engine {

namespace {

class OpenDatabaseTest : public EngineTest {
protected:
    QString Write(const char* name, const QByteArray& bytes) {
        const QString file = directory.filePath(QString::fromUtf8(name));
        QFile writing(file);
        EXPECT_TRUE(writing.open(QIODevice::WriteOnly));
        writing.write(bytes);
        return file;
    }

    static int OpenError(const QString& file) {
        return ErrorOf([&] { DBEngine::Instance().OpenDatabase(file); });
    }

    static QString OpenDescription(const QString& file) {
        try {
            DBEngine::Instance().OpenDatabase(file);
        } catch (const Error& error) {
            return error.Description();
        }
        return {};
    }

    static QByteArray Contents(const QString& file) {
        QFile reading(file);
        EXPECT_TRUE(reading.open(QIODevice::ReadOnly));
        return reading.readAll();
    }
};

TEST_F(OpenDatabaseTest, AMissingFileIsNotCreated) {
    const QString file = directory.filePath(QStringLiteral("missing.mdb"));
    EXPECT_EQ(OpenError(file), ErrorNumber::CannotOpenDatabase);
    EXPECT_TRUE(OpenDescription(file).contains(file));
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST_F(OpenDatabaseTest, SaysWhatWasFound) {
    EXPECT_EQ(OpenError(directory.path()), ErrorNumber::UnrecognizedFormat);
    EXPECT_TRUE(OpenDescription(directory.path()).contains(QStringLiteral("it is a folder")));

    const QString empty = Write("empty.mdb", {});
    EXPECT_EQ(OpenError(empty), ErrorNumber::UnrecognizedFormat);
    EXPECT_TRUE(OpenDescription(empty).contains(QStringLiteral("the file is empty")));

    const QString cut = Write("jet.mdb", QByteArray("\0\1\0\0Standard Jet DB\0", 20));
    EXPECT_EQ(OpenError(cut), ErrorNumber::UnrecognizedFormat);
    EXPECT_TRUE(OpenDescription(cut).contains(QStringLiteral("it is too short")));

    const QString later =
        Write("later.mdb", QByteArray("\0\1\0\0Standard ACE DB\0\2", 21) + QByteArray(8192, '\0'));
    EXPECT_EQ(OpenError(later), ErrorNumber::UnrecognizedFormat);

    const QString text = Write("text.mdb", "SQLite is not what this is");
    EXPECT_EQ(OpenError(text), ErrorNumber::UnrecognizedFormat);
    EXPECT_TRUE(OpenDescription(text).contains(QStringLiteral("it is no database")));
    EXPECT_EQ(Contents(text), "SQLite is not what this is");

    const QString device = QStringLiteral("/dev/null");
    EXPECT_EQ(OpenError(device), ErrorNumber::UnrecognizedFormat);
}

TEST_F(OpenDatabaseTest, ATruncatedOrGarbledDatabaseIsAnError) {
    const QByteArray whole = Contents(path);
    const QString garbled = Write("garbled.mdb", whole.left(16) + QByteArray(4080, 'x') + whole.mid(4096));
    EXPECT_NE(OpenError(garbled), 0);
}

TEST_F(OpenDatabaseTest, AReadOnlyFileIsAnError) {
    database.reset();
    ASSERT_EQ(::chmod(path.toUtf8().constData(), 0444), 0);
    ASSERT_EQ(::chmod(directory.path().toUtf8().constData(), 0755), 0);
    const auto openAsOrdinaryUser = [this] {
        // Whoever runs the tests as root could write all the same.
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::setuid(Nobody) != 0) {
            std::_Exit(2);
        }
        std::_Exit(OpenError(path) == ErrorNumber::ReadOnlyDatabase ? 0 : 1);
    };
    EXPECT_EXIT(openAsOrdinaryUser(), ::testing::ExitedWithCode(0), "");
}

TEST_F(OpenDatabaseTest, AFolderThatTakesNoJournalIsFoundAtOpening) {
    database.reset();
    const QByteArray before = Contents(path);
    ASSERT_EQ(::chmod(path.toUtf8().constData(), 0666), 0);
    ASSERT_EQ(::chmod(directory.path().toUtf8().constData(), 0555), 0);
    const auto openAsOrdinaryUser = [this] {
        // Whoever runs the tests as root could write all the same.
        constexpr uid_t Nobody = 65534;
        if (::geteuid() == 0 && ::setuid(Nobody) != 0) {
            std::_Exit(2);
        }
        const bool isToldOfTheJournal = OpenDescription(path).contains(QStringLiteral("journal"));
        std::_Exit(OpenError(path) == ErrorNumber::ReadOnlyDatabase && isToldOfTheJournal ? 0 : 1);
    };
    EXPECT_EXIT(openAsOrdinaryUser(), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(Contents(path), before);
    ASSERT_EQ(::chmod(directory.path().toUtf8().constData(), 0755), 0);
}

TEST_F(OpenDatabaseTest, ANameTooLongForItsJournalIsFoundAtOpening) {
    constexpr int LongestName = 255;
    const auto named = [this](int length) { return directory.filePath(QString(length, QLatin1Char('x'))); };
    const int longest = LongestName - static_cast<int>(qstrlen("-journal"));  // Or ".journal".
    ASSERT_TRUE(QFile::copy(path, named(longest)));
    EXPECT_EQ(OpenError(named(longest)), 0);
    for (const int length : {longest + 1, LongestName}) {
        ASSERT_TRUE(QFile::copy(path, named(length)));
        EXPECT_EQ(OpenError(named(length)), ErrorNumber::ReadOnlyDatabase) << length;
        EXPECT_TRUE(OpenDescription(named(length)).contains(QStringLiteral("journal"))) << length;
        EXPECT_EQ(Contents(named(length)), Contents(path));
    }
}

// What an import would need at its first write is tried at opening, and leaves the database as it was.
TEST_F(OpenDatabaseTest, ADiskThatFailsAtOpeningChangesNothing) {
    database.reset();
    const QByteArray before = Contents(path);
    FaultyDisk disk;
    std::set<std::string> kinds;
    for (const auto fault :
         {FaultyDisk::Fault::Once, FaultyDisk::Fault::FromThenOn, FaultyDisk::Fault::FullFromThenOn}) {
        bool hasFailed = true;
        for (int n = 1; hasFailed; ++n) {
            disk.FailAt(n, fault);
            const int number = OpenError(path);
            hasFailed = disk.Faults() > 0;
            const std::string kind = disk.FirstFault();
            kinds.insert(kind);
            disk.Repair();
            // What could not be removed the first time is removed the second time.
            const bool isMended = fault == FaultyDisk::Fault::Once && kind == "remove" &&
                                  FormatUnderTest() == FileFormat::Sqlite;
            EXPECT_EQ(number != 0, hasFailed && !isMended) << kind << " at operation " << n;
            EXPECT_EQ(Contents(path), before) << kind << " at operation " << n;
            EXPECT_EQ(OpenError(path), 0) << kind << " at operation " << n;
            EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files),
                      QStringList{QStringLiteral("things.mdb")});
        }
    }
    EXPECT_TRUE(kinds.contains("write"));
    EXPECT_TRUE(kinds.contains("remove"));
}

TEST_F(OpenDatabaseTest, AFullDiskIsFoundAtOpening) {
    database.reset();
    FaultyDisk disk;
    disk.FailAt(1, FaultyDisk::Fault::FullFromThenOn);
    EXPECT_EQ(OpenError(path), ErrorNumber::DiskFull);
}

TEST_F(OpenDatabaseTest, AFileThatSomebodyKeepsFromBeingWrittenIsLocked) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "begin immediate", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(OpenError(path), ErrorNumber::Locked);
    ASSERT_EQ(sqlite3_exec(other, "rollback; begin; select * from things", nullptr, nullptr, nullptr),
              SQLITE_OK);
    EXPECT_EQ(OpenError(path), 0) << "readers keep nobody out";
    sqlite3_close(other);
}

TEST_F(OpenDatabaseTest, OpeningChangesNothing) {
    database.reset();
    const QByteArray before = Contents(path);
    DBEngine::Instance().OpenDatabase(path)->OpenRecordset(QStringLiteral("select * from things"),
                                                           dbOpenDynaset, dbOptimistic);
    EXPECT_EQ(Contents(path), before);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("things.mdb")});
}

TEST_F(OpenDatabaseTest, OpensSharedAndWritableOnly) {
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(path, true); }), ErrorNumber::InvalidOperation);
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().OpenDatabase(path, false, true); }),
              ErrorNumber::InvalidOperation);
}

TEST_F(OpenDatabaseTest, TheOneWorkspaceHasPlaceZero) {
    EXPECT_NE(DBEngine::Instance().Workspaces(0), nullptr);
    EXPECT_EQ(ErrorOf([] { DBEngine::Instance().Workspaces(1); }), ErrorNumber::NoSuchItem);
}

TEST_F(OpenDatabaseTest, CreatingNeverTakesTheNameOfAFile) {
    const QByteArray before = Contents(path);
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().CreateDatabase(path, FormatUnderTest(), {}); }),
              ErrorNumber::DatabaseExists);
    EXPECT_EQ(Contents(path), before);
    const QString elsewhere = directory.filePath(QStringLiteral("no/such/folder.mdb"));
    EXPECT_NE(ErrorOf([&] { DBEngine::Instance().CreateDatabase(elsewhere, FormatUnderTest(), {}); }), 0);
}

TEST_F(OpenDatabaseTest, ColumnTypesOfAnotherMakersTables) {
    ASSERT_TRUE(RunElsewhere(
        path,
        "create table foreign_types(a INTEGER, b VARCHAR(3), c REAL, d BLOB, e TIMESTAMP, f, g text,"
        "h decimal(5,2), i Memo, j text ( 4 ))"));
    const auto rows = Dynaset("select * from foreign_types");
    const std::vector<DataType> types = {dbLong,       dbText, dbDouble, dbLongBinary, dbDate,
                                         dbLongBinary, dbText, dbDouble, dbMemo,       dbText};
    for (size_t place = 0; place < types.size(); ++place) {
        EXPECT_EQ(rows->Fields(static_cast<int>(place)).Type(), types[place]) << place;
    }
    EXPECT_EQ(ExecuteError("insert into foreign_types(b) values('1234')"), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(ExecuteError("insert into foreign_types(j) values('12345')"), ErrorNumber::FieldTooSmall);
    EXPECT_EQ(ExecuteError("insert into foreign_types(g) values('a text of any length')"), 0);
}

TEST_F(OpenDatabaseTest, TablesWhoseRowsHaveNoKeyAreAnError) {
    ASSERT_TRUE(RunElsewhere(path,
                             "create table keyless(rowid text, oid text, _rowid_ text);"
                             "create table keyed(rowid text, oid text);"
                             "insert into keyed values('a', 'b')"));
    EXPECT_NE(ErrorOf([&] { Dynaset("select * from keyless"); }), 0);
    const auto rows = Dynaset("select * from keyed");
    rows->Edit();
    rows->Fields(0).Set(QStringLiteral("c"));
    rows->Update();
    EXPECT_EQ(Rows("select rowid, oid from keyed"), QStringList{QStringLiteral("c|b")});
}

TEST_F(OpenDatabaseTest, ACopyIsWholeAndTakesNoFilesPlace) {
    database->Execute(QStringLiteral("insert into notes(text) values('kept')"));
    const QString copy = directory.filePath(QStringLiteral("copy.mdb"));
    database->CopyTo(copy);
    EXPECT_EQ(ReadRows(copy, "select text from notes"), QStringList{QStringLiteral("kept")});
    EXPECT_EQ(ErrorOf([&] { database->CopyTo(copy); }), ErrorNumber::DatabaseExists);
    const bool isJet = FormatUnderTest() == FileFormat::Jet;
    const QString own = path + (isJet ? QStringLiteral(".journal") : QStringLiteral("-wal"));
    EXPECT_EQ(ErrorOf([&] { database->CopyTo(own); }), ErrorNumber::InvalidOperation);
    EXPECT_EQ(ErrorOf([&] { database->CopyTo(directory.filePath(QStringLiteral("no/folder.mdb"))); }),
              ErrorNumber::DiskError);
}

}  // namespace

}  // namespace engine
