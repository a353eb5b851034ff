#include "database/CurrentDatabase.h"
#include "database/RecordAccess.h"
#include "platform/Failure.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "support/FakeDatabase.h"
#include "support/FormatUnderTest.h"
#include "support/OtherProcess.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"
#include "support/Workplace.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace {

using database::StartDatabase;

class StartDatabaseTest : public ::testing::Test {
protected:
    ~StartDatabaseTest() override {
        database::SetCurrentDatabase(nullptr);
        database::UseDatabaseFile(QString());
    }

    /// Values as they stand in the settings file, backslashes escaped.
    void Settings(const QByteArray& values) const {
        workplace_.WriteSettings(
            "Windows Registry Editor Version 5.00\n\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n" +
            values + "\n");
    }

    void Networked(const QString& location) const {
        Settings("\"Networkable\"=\"1\"\n\"DatabaseLocation\"=\"" + location.toUtf8() + "\"");
    }

    QString MakeDatabase(const char* name) const {
        const QString path = Path(name);
        QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
        engine::DBEngine::Instance().CreateDatabase(
            path, FormatUnderTest(),
            {{QStringLiteral("options"), {{QStringLiteral("number"), engine::dbLong}}, {}}});
        return path;
    }

    QString MakeRubbish(const char* name) const {
        QFile file(Path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write("This is no database at all.") < 0) {
            throw std::runtime_error("The file can't be written");
        }
        return file.fileName();
    }

    QString Path(const char* name) const { return workplace_.Path(QString::fromLatin1(name)); }

    /// Stands for the success of an earlier call.
    void HoldEarlierDatabase() { database::SetCurrentDatabase(earlier_); }
    bool HoldsEarlierDatabase() const { return &database::CurrentDatabase() == earlier_.get(); }

    QString BoxText(size_t place) const { return boxes_.requests.at(place).text; }

    void ExpectErrorBox(size_t place, const char* begin) const {
        ASSERT_GT(boxes_.requests.size(), place);
        EXPECT_EQ(boxes_.requests[place].title, QStringLiteral("Start ADO"));
        EXPECT_TRUE(
            BoxText(place).startsWith(QStringLiteral("General Errors...\n\n") + QString::fromLatin1(begin)))
            << BoxText(place).toStdString();
    }

    /// Which file is open shows by what is written.
    static void WriteNumber() {
        EXPECT_TRUE(database::ExecuteSql(QStringLiteral("insert into options (number) values (7)")));
    }

    bool HasNumber(const QString& path) const {
        const auto file = engine::DBEngine::Instance().OpenDatabase(path);
        const auto rows = file->OpenRecordset(QStringLiteral("select number from options"),
                                              engine::dbOpenForwardOnly, engine::dbReadOnly);
        return !rows->Eof();
    }

    Workplace workplace_;
    RecordingMessageBoxes boxes_;
    std::shared_ptr<FakeDatabase> earlier_ = std::make_shared<FakeDatabase>();
};

TEST_F(StartDatabaseTest, WithoutSettingsOpensTheFileBesideTheProgram) {
    const QString path = MakeDatabase("property.mdb");
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(boxes_.requests.empty());
    WriteNumber();
    EXPECT_TRUE(HasNumber(path));
}

TEST_F(StartDatabaseTest, OnOneComputerOpensTheFileInItsDirectory) {
    const QString path = MakeDatabase("data/property.mdb");
    MakeDatabase("property.mdb");
    Settings("\"Networkable\"=\" 0.4 \"\n\"APPPath\"=\"" + Path("data").toUtf8() +
             "\"\n\"DatabaseLocation\"=\"/not/this/one\"");
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(boxes_.requests.empty());
    WriteNumber();
    EXPECT_TRUE(HasNumber(path));
}

TEST_F(StartDatabaseTest, BackslashesSeparateFolders) {
    MakeDatabase("data/sub/property.mdb");
    Settings("\"APPPath\"=\"" + Path("data").toUtf8() + "\\\\sub\"");
    EXPECT_TRUE(StartDatabase());
    Networked(Path("data").append(QLatin1String("\\\\sub\\\\property.mdb")));
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(StartDatabaseTest, DirectoryAndFileAreJoinedAsPlainText) {
    HoldEarlierDatabase();
    Settings("\"APPPath\"=\"" + Path("data").toUtf8() + "\\\\\"");
    EXPECT_FALSE(StartDatabase());
    EXPECT_EQ(BoxText(1), QStringLiteral("No networking enabled, using ") + Path("data") +
                              QLatin1String("//property.mdb"));
}

TEST_F(StartDatabaseTest, OnOneComputerAMissingFileIsNotTestedFor) {
    HoldEarlierDatabase();
    MakeDatabase("property.mdb");
    Settings("\"APPPath\"=\"" + Path("data").toUtf8() + "\"");
    EXPECT_FALSE(StartDatabase());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    ExpectErrorBox(0, "3024 - ");
    EXPECT_EQ(boxes_.requests[1],
              (platform::MessageBoxRequest{
                  QStringLiteral("No networking enabled, using ") + Path("data/property.mdb"),
                  QStringLiteral("Wrenfield Wizard")}));
    EXPECT_FALSE(QFile::exists(Path("data/property.mdb")));
}

TEST_F(StartDatabaseTest, AnEmptyDirectoryIsNotTheDefault) {
    HoldEarlierDatabase();
    MakeDatabase("property.mdb");
    Settings("\"APPPath\"=\"vbNullString\"");
    EXPECT_FALSE(StartDatabase());
    EXPECT_EQ(BoxText(1), QStringLiteral("No networking enabled, using /property.mdb"));
}

TEST_F(StartDatabaseTest, InANetworkOpensTheFileOfTheSetting) {
    const QString path = MakeDatabase("server/other name.mdb");
    for (const char* networkable : {"1", "-1", "2", "0.6"}) {
        Settings(QByteArray("\"Networkable\"=\"") + networkable + "\"\n\"DatabaseLocation\"=\"" +
                 path.toUtf8() + "\"");
        EXPECT_TRUE(StartDatabase());
    }
    EXPECT_TRUE(boxes_.requests.empty());
    WriteNumber();
    EXPECT_TRUE(HasNumber(path));
}

TEST_F(StartDatabaseTest, InANetworkTheDefaultIsTheFileBesideTheProgram) {
    const QString path = MakeDatabase("property.mdb");
    Settings("\"Networkable\"=\"1\"");
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(StartDatabaseTest, InANetworkTheDefaultIsTestedLikeAnyOther) {
    HoldEarlierDatabase();
    Settings("\"Networkable\"=\"1\"");
    EXPECT_FALSE(StartDatabase());
    ASSERT_EQ(boxes_.requests.size(), 3U);
    const QString path = Path("property.mdb");
    EXPECT_EQ(BoxText(0), QStringLiteral("Unable to access \n%1\nReverting back to \n%1").arg(path));
}

TEST_F(StartDatabaseTest, AWrongLocationIsToldAtEachCallAndTheProgramsDirectoryUsed) {
    const QString path = MakeDatabase("property.mdb");
    Networked(QStringLiteral("/no/such/file.mdb"));
    for (size_t call = 1; call <= 3; ++call) {
        EXPECT_TRUE(StartDatabase());
        ASSERT_EQ(boxes_.requests.size(), call);
        EXPECT_EQ(boxes_.requests.back(),
                  (platform::MessageBoxRequest{
                      QStringLiteral("Unable to access \n/no/such/file.mdb\nReverting back to \n") + path,
                      QStringLiteral("Wrenfield Wizard")}));
    }
    WriteNumber();
    EXPECT_TRUE(HasNumber(path));
}

// Names that are taken for something else than a file in places, and the file that they might be taken for.
TEST_F(StartDatabaseTest, APlainNameInTheSettingsIsTheVeryFile) {
    const QString before = QDir::currentPath();
    const QString other = MakeDatabase("other.mdb");
    ASSERT_TRUE(QDir::setCurrent(workplace_.Path(QString())));
    for (const char* name : {"file:other.mdb", ":memory:", ":other.mdb", "other.mdb?mode=memory"}) {
        const QString path = MakeDatabase((QByteArray("./") + name).constData());
        Networked(QString::fromLatin1(name));
        EXPECT_TRUE(StartDatabase()) << name;
        WriteNumber();
        EXPECT_TRUE(HasNumber(path)) << name;
    }
    EXPECT_TRUE(boxes_.requests.empty());
    // Two Jet files whose names differ behind the last point only have one lock file.
    database::SetCurrentDatabase(nullptr);
    EXPECT_FALSE(HasNumber(other));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(StartDatabaseTest, ANameThatIsNoTextIsNotOpened) {
    HoldEarlierDatabase();
    MakeDatabase("x/property.mdb");
    ASSERT_TRUE(QDir().rename(Path("x"), Path("./").append(QChar(QChar::ReplacementCharacter))));
    // The bytes of a text that isn't UTF-16 are handed on as they are; the last one of these is not UTF-8.
    QByteArray bytes;
    for (const char byte : Path("./").toUtf8() + "\xFF") {
        bytes += (bytes.isEmpty() ? "" : ",") + QByteArray::number(static_cast<unsigned char>(byte), 16);
    }
    const QByteArray uneven = Path("./").size() % 2 == 0 ? "" : ",00";
    Settings("\"APPPath\"=hex(1):" + bytes + uneven);
    EXPECT_FALSE(StartDatabase());
    ExpectErrorBox(0, "3044 - ");
}

// Better at the start than when everything has been typed in and the first row is to be written.
TEST_F(StartDatabaseTest, AFileThatCanNotBeWrittenSafelyIsToldAtTheStart) {
    HoldEarlierDatabase();
    const QString tooLongForAJournal = Path("./").append(QString(255, QLatin1Char('x')));
    ASSERT_TRUE(QFile::rename(MakeDatabase("short.mdb"), tooLongForAJournal));
    Networked(tooLongForAJournal);
    EXPECT_FALSE(StartDatabase());
    ExpectErrorBox(0, "3027 - ");
    EXPECT_TRUE(BoxText(1).contains(tooLongForAJournal));
}

TEST_F(StartDatabaseTest, AFolderIsNoFileFound) {
    MakeDatabase("property.mdb");
    Networked(workplace_.Path(QString()));
    EXPECT_TRUE(StartDatabase());
    EXPECT_EQ(boxes_.requests.size(), 1U);
}

TEST_F(StartDatabaseTest, ATrailAfterAWrongLocationNamesTheNewPathTwice) {
    HoldEarlierDatabase();
    Networked(QStringLiteral("/no/such/file.mdb"));
    EXPECT_FALSE(StartDatabase());
    ASSERT_EQ(boxes_.requests.size(), 3U);
    ExpectErrorBox(1, "3024 - ");
    EXPECT_EQ(BoxText(2), QStringLiteral("Networking enabled.  Attempting to use /no/such/file.mdb\n"
                                         "Unable to access \n%1\nReverting back to \n%1")
                              .arg(Path("property.mdb")));
}

TEST_F(StartDatabaseTest, ATrailAfterAFoundFileSaysSo) {
    HoldEarlierDatabase();
    const QString path = MakeRubbish("rubbish.mdb");
    Networked(path);
    EXPECT_FALSE(StartDatabase());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    ExpectErrorBox(0, "3343 - ");
    EXPECT_EQ(BoxText(1), QStringLiteral("Networking enabled.  Attempting to use ") + path +
                              QLatin1String("\nDatabase file found"));
}

TEST_F(StartDatabaseTest, ANetworkableThatIsNoNumberLeavesTheTrailOfTheEarlierCall) {
    MakeDatabase("property.mdb");
    ASSERT_TRUE(StartDatabase());
    for (const char* value : {"\"yes\"", "\"\"", "\"vbNullString\"", "hex:31"}) {
        boxes_.requests.clear();
        Settings(QByteArray("\"Networkable\"=") + value);
        EXPECT_FALSE(StartDatabase());
        ASSERT_EQ(boxes_.requests.size(), 2U);
        EXPECT_EQ(BoxText(0), QStringLiteral("General Errors...\n\n13 - Type mismatch\n\n"));
        EXPECT_EQ(boxes_.requests[0].title, QStringLiteral("Start ADO"));
        EXPECT_EQ(BoxText(1), QStringLiteral("No networking enabled, using ") + Path("property.mdb"));
    }
}

TEST_F(StartDatabaseTest, ANetworkableOutsideSixteenBitsOverflows) {
    HoldEarlierDatabase();
    Settings("\"Networkable\"=\"32768\"");
    EXPECT_FALSE(StartDatabase());
    EXPECT_EQ(BoxText(0), QStringLiteral("General Errors...\n\n6 - Overflow\n\n"));
}

TEST_F(StartDatabaseTest, AFailureIsLoggedWithoutExtraText) {
    HoldEarlierDatabase();
    Settings("\"Networkable\"=\"yes\"");
    EXPECT_FALSE(StartDatabase());
    EXPECT_EQ(workplace_.ErrorLog().mid(18), QStringLiteral("General Errors...\n\n13 - Type mismatch\n\n\n"));
}

TEST_F(StartDatabaseTest, AFailedLaterCallKeepsTheEarlierDatabase) {
    HoldEarlierDatabase();
    EXPECT_FALSE(StartDatabase());
    EXPECT_TRUE(HoldsEarlierDatabase());
}

TEST_F(StartDatabaseTest, ASuccessfulLaterCallReplacesTheEarlierDatabase) {
    HoldEarlierDatabase();
    const std::weak_ptr<FakeDatabase> watched = earlier_;
    MakeDatabase("property.mdb");
    EXPECT_TRUE(StartDatabase());
    EXPECT_FALSE(HoldsEarlierDatabase());
    earlier_.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(StartDatabaseTest, AFailedFirstCallEndsTheProcessAfterBothBoxes) {
    EXPECT_EXIT(
        {
            platform::SetMessageBoxPort(nullptr);
            StartDatabase();
        },
        ::testing::ExitedWithCode(1),
        "^Start ADO: General Errors...\n\n3024 - [^\n]*\n\n\n"
        "Wrenfield Wizard: No networking enabled, using [^\n]*/property.mdb\n$");
    Settings("\"Networkable\"=\"yes\"");
    EXPECT_EXIT(
        {
            platform::SetMessageBoxPort(nullptr);
            StartDatabase();
        },
        ::testing::ExitedWithCode(1),
        "^Start ADO: General Errors...\n\n13 - Type mismatch\n\n\nWrenfield Wizard: ");
}

TEST_F(StartDatabaseTest, AnEmptyFileIsRefusedAndStaysEmpty) {
    HoldEarlierDatabase();
    QFile file(Path("property.mdb"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(StartDatabase());
    ExpectErrorBox(0, "3343 - ");
    EXPECT_EQ(file.size(), 0);
}

TEST_F(StartDatabaseTest, AnImportUnderWayIsAFailureOfAnOpeningForAnImportAlone) {
    HoldEarlierDatabase();
    const QString path = MakeDatabase("property.mdb");
    OtherProcess other([&] { return (new platform::FileLock(path))->TryTake(); });
    EXPECT_FALSE(StartDatabase(database::Opening::ForImport));
    EXPECT_TRUE(HoldsEarlierDatabase());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    ExpectErrorBox(0,
                   "3260 - Couldn't write; another import is filling the database: database_test, process ");
    EXPECT_EQ(BoxText(1), QStringLiteral("No networking enabled, using ") + path);

    EXPECT_TRUE(StartDatabase());
    EXPECT_FALSE(HoldsEarlierDatabase());
    other.Kill();
    EXPECT_TRUE(StartDatabase(database::Opening::ForImport));
    EXPECT_EQ(boxes_.requests.size(), 2U);
    WriteNumber();
}

TEST_F(StartDatabaseTest, AFileThatIsNamedTakesThePlaceOfTheSettings) {
    const QString path = MakeDatabase("named.mdb");
    Settings("\"Networkable\"=\"yes\"");
    database::UseDatabaseFile(path);
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(StartDatabase());
    EXPECT_TRUE(boxes_.requests.empty());
    WriteNumber();
    EXPECT_TRUE(HasNumber(path));
}

TEST_F(StartDatabaseTest, ANamedFileThatCanNotBeOpenedIsTold) {
    HoldEarlierDatabase();
    database::UseDatabaseFile(Path("no\\such.mdb"));
    EXPECT_FALSE(StartDatabase());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    ExpectErrorBox(0, "3024 - ");
    EXPECT_EQ(BoxText(1), QStringLiteral("Using ") + Path("no\\such.mdb"));
}

TEST_F(StartDatabaseTest, WithoutADatabaseThereIsNoneToUse) {
    try {
        database::CurrentDatabase();
        ADD_FAILURE();
    } catch (const platform::Failure& failure) {
        EXPECT_EQ(failure.Number(), 91);
    }
}

}  // namespace
