#include "JetTest.h"
#include "engine/Waiting.h"
#include "engine/jet/FileUsers.h"
#include "support/OtherProcess.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

namespace engine::jet {
namespace {

using namespace std::chrono_literals;

constexpr qint64 PlaceSize = 64;
constexpr off_t FirstUserByte = 0x10000001;

class JetFileUsers : public ::testing::Test {
protected:
    JetFileUsers() { Write(path, "a database"); }

    QString At(const char* name) const { return directory.filePath(QString::fromUtf8(name)); }
    static void Write(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray Content(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QByteArray Name(const QByteArray& place) { return place.left(place.indexOf('\0')); }

    std::unique_ptr<FileUsers> User(std::chrono::milliseconds longestWait = 50ms) const {
        return std::make_unique<FileUsers>(path, longestWait);
    }
    std::unique_ptr<FileUsers> Joined() const {
        auto user = User();
        user->Join();
        return user;
    }
    std::unique_ptr<FileUsers> Alone() const {
        auto user = User();
        user->BeAlone();
        return user;
    }
    Failing JoinFailing() const {
        return FailureOf([this] { Joined(); });
    }
    Failing AloneFailing() const {
        return FailureOf([this] { Alone(); });
    }
    bool IsRefusedToAll() const {
        return JoinFailing().number == ErrorNumber::Locked && AloneFailing().number == ErrorNumber::Locked;
    }

    /// A program of somebody else that keeps what it takes.
    std::function<bool()> Joining() const {
        return [this] {
            User().release()->Join();
            return true;
        };
    }
    /// One that locks its byte as programs do that know of no other locks.
    std::function<bool()> LockingPlainly(int place) const {
        return [this, place] {
            struct flock lock {};
            lock.l_type = F_WRLCK;
            lock.l_whence = SEEK_SET;
            lock.l_start = FirstUserByte + place;
            lock.l_len = 1;
            return fcntl(open(QFile::encodeName(lockFile).constData(), O_RDWR), F_SETLK, &lock) == 0;
        };
    }

    QTemporaryDir directory;
    QString path = At("property.mdb");
    QString lockFile = At("property.ldb");
};

TEST_F(JetFileUsers, TheLockFileHasTheNameOfTheDatabase) {
    EXPECT_EQ(FileUsers::LockFileFor(QStringLiteral("/a.b/property.mdb")),
              QStringLiteral("/a.b/property.ldb"));
    EXPECT_EQ(FileUsers::LockFileFor(QStringLiteral("/a.b/of 2.3.mdb")), QStringLiteral("/a.b/of 2.3.ldb"));
    EXPECT_EQ(FileUsers::LockFileFor(QStringLiteral("/a.b/property")), QStringLiteral("/a.b/property.ldb"));
}

TEST_F(JetFileUsers, NamesOfFilesMayHaveAnyLetters) {
    path = At("H\xC3\xA4user \xD0\x96.mdb");
    Write(path, "a database");
    const auto alone = Alone();
    EXPECT_TRUE(QFile::exists(At("H\xC3\xA4user \xD0\x96.ldb")));
}

TEST_F(JetFileUsers, WhoeverIsAloneKeepsEverybodyOut) {
    auto alone = Alone();
    EXPECT_TRUE(alone->IsAlone());
    EXPECT_TRUE(IsRefusedToAll());
    EXPECT_TRUE(OtherProcess([this] { return IsRefusedToAll(); }).Succeeded());
    alone.reset();
    EXPECT_NO_THROW(Joined());
    EXPECT_NO_THROW(Alone());
}

TEST_F(JetFileUsers, WhoeverIsAloneMayAskAgain) {
    const auto alone = Alone();
    EXPECT_NO_THROW(alone->BeAlone());
    EXPECT_NO_THROW(alone->Join());
    EXPECT_TRUE(IsRefusedToAll());
}

TEST_F(JetFileUsers, AnotherUserIsWaitedForAndThenNamed) {
    OtherProcess other(Joining());
    ASSERT_TRUE(other.Succeeded());
    QElapsedTimer time;
    time.start();
    const Failing failing = FailureOf([this] { User(300ms)->BeAlone(); });
    EXPECT_GE(time.elapsed(), 300);
    EXPECT_LT(time.elapsed(), 3000);
    EXPECT_EQ(failing.number, ErrorNumber::Locked);
    EXPECT_EQ(failing.sentence,
              QStringLiteral("Couldn't use '%1'; another program has it open on the computer %2.")
                  .arg(path, QSysInfo::machineHostName().left(31)));
    EXPECT_NO_THROW(Joined()) << "users share";
    other.Kill();
    EXPECT_NO_THROW(Alone());
}

TEST_F(JetFileUsers, AUserWithoutANameIsToldByHisProcess) {
    Write(lockFile, "");
    const OtherProcess other(LockingPlainly(3));
    ASSERT_TRUE(other.Succeeded());
    EXPECT_EQ(AloneFailing().sentence,
              QStringLiteral("Couldn't use '%1'; another program has it open: jet_file_test, process %2.")
                  .arg(path)
                  .arg(other.Number()));
    EXPECT_NO_THROW(Joined());
}

TEST_F(JetFileUsers, TheNameIsThatOfThePlaceThatIsLocked) {
    QByteArray places(4 * PlaceSize, '\0');
    places.replace(0, 5, "EMPTY");
    places.replace(3 * PlaceSize, 32, QByteArray(32, 'H'));
    Write(lockFile, places);
    const OtherProcess other(LockingPlainly(3));
    EXPECT_TRUE(AloneFailing().sentence.endsWith(
        QStringLiteral("on the computer %1.").arg(QString(32, QLatin1Char('H')))));
}

TEST_F(JetFileUsers, ANameThatIsNoTextIsNotShown) {
    for (const QByteArray& name : {QByteArray("A\nB"), QByteArray("\x1B[31m"), QByteArray("   ")}) {
        Write(lockFile, name.leftJustified(PlaceSize, '\0'));
        const OtherProcess other(LockingPlainly(0));
        EXPECT_TRUE(AloneFailing().sentence.contains(QStringLiteral("jet_file_test, process")));
    }
}

TEST_F(JetFileUsers, EachUserWritesHisNamesInHisPlace) {
    const auto first = Joined();
    const auto second = Joined();
    const QByteArray places = Content(lockFile);
    ASSERT_EQ(places.size(), 2 * PlaceSize);
    for (int place = 0; place < 2; ++place) {
        const QByteArray own = places.mid(place * PlaceSize, PlaceSize);
        EXPECT_EQ(Name(own), QSysInfo::machineHostName().toLatin1().left(31));
        EXPECT_EQ(Name(own.mid(32)), "Admin");
        EXPECT_EQ(own.at(31), 0);
    }
}

TEST_F(JetFileUsers, PlacesAreTakenAgain) {
    Write(lockFile, "");
    auto first = Joined();
    const auto second = Joined();
    first.reset();
    Write(lockFile, QByteArray(2 * PlaceSize, '\0'));
    const auto third = Joined();
    EXPECT_NE(Content(lockFile).at(0), 0);
    EXPECT_EQ(Content(lockFile).at(PlaceSize), 0);
    EXPECT_EQ(AloneFailing().number, ErrorNumber::Locked);
}

TEST_F(JetFileUsers, ThereAreNoMoreUsersThanPlaces) {
    std::vector<std::unique_ptr<FileUsers>> users;
    for (int user = 0; user < 255; ++user) {
        users.push_back(Joined());
    }
    EXPECT_EQ(JoinFailing().number, ErrorNumber::Locked);
    users.pop_back();
    EXPECT_EQ(JoinFailing().number, 0);
    EXPECT_EQ(Content(lockFile).size(), 255 * PlaceSize);
    EXPECT_EQ(AloneFailing().number, ErrorNumber::Locked);
    users.clear();
    EXPECT_NO_THROW(Alone());
}

TEST_F(JetFileUsers, AUserBecomesAloneWhenTheOthersHaveGone) {
    const auto user = Joined();
    auto other = Joined();
    EXPECT_EQ(FailureOf([&] { user->BeAlone(); }).number, ErrorNumber::Locked);
    EXPECT_FALSE(user->IsAlone());
    other.reset();
    EXPECT_EQ(AloneFailing().number, ErrorNumber::Locked) << "his place is still his";
    user->BeAlone();
    EXPECT_EQ(JoinFailing().number, ErrorNumber::Locked);
}

TEST_F(JetFileUsers, OnlyAFileThatWasMadeHereIsRemoved) {
    Alone().reset();
    EXPECT_FALSE(QFile::exists(lockFile));
    Joined().reset();
    EXPECT_FALSE(QFile::exists(lockFile));
    Write(lockFile, "");
    Alone().reset();
    EXPECT_TRUE(QFile::exists(lockFile));
}

TEST_F(JetFileUsers, AFileThatOthersUseIsNotRemoved) {
    auto maker = Joined();
    auto other = Joined();
    maker.reset();
    EXPECT_TRUE(QFile::exists(lockFile));
    EXPECT_EQ(AloneFailing().number, ErrorNumber::Locked);
}

TEST_F(JetFileUsers, WhoeverWaitedForAFileThatWasRemovedLocksTheNextOne) {
    auto first = Alone();
    const auto second = User(10s);
    std::thread waiting([&] { second->BeAlone(); });
    std::this_thread::sleep_for(100ms);
    first.reset();
    waiting.join();
    EXPECT_TRUE(QFile::exists(lockFile));
    EXPECT_TRUE(IsRefusedToAll());
}

TEST_F(JetFileUsers, TheLockFileIsThatOfTheFileItself) {
    ASSERT_TRUE(QDir(directory.path()).mkdir(QStringLiteral("links")));
    const QString link = At("links/other.mdb");
    ASSERT_TRUE(QFile::link(path, link));
    FileUsers byLink(link, 50ms);
    byLink.BeAlone();
    EXPECT_TRUE(QFile::exists(lockFile));
    EXPECT_TRUE(IsRefusedToAll());
}

TEST_F(JetFileUsers, WhoMayWriteTheDatabaseMayWriteTheLockFile) {
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0666), 0);
    const mode_t before = umask(077);
    const auto alone = Alone();
    umask(before);
    struct stat found {};
    ASSERT_EQ(stat(QFile::encodeName(lockFile).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0666U);
}

TEST_F(JetFileUsers, WaitingEndsWhenTheProgramIsToEnd) {
    class Ending : public WaitingListener {
    public:
        bool GoesOn() override { return ++asked < 3; }
        void HeldUp(bool /*isHeldUp*/) override {}
        int asked = 0;
    } ending;
    const auto alone = Alone();
    SetWaitingListener(&ending);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(FailureOf([this] { User(60s)->BeAlone(); }).number, ErrorNumber::Locked);
    SetWaitingListener(nullptr);
    EXPECT_EQ(ending.asked, 3);
    EXPECT_LT(time.elapsed(), 5000);
}

/// Something else that has the name of the lock file.
class JetOddLockFile : public JetFileUsers {
protected:
    void ExpectRefusal(const char* what) {
        for (const Failing& failing : {JoinFailing(), AloneFailing()}) {
            EXPECT_EQ(failing.number, ErrorNumber::DiskError) << what;
            EXPECT_TRUE(failing.sentence.contains(lockFile)) << failing.sentence.toStdString();
        }
    }
    QByteArray lockName = QFile::encodeName(lockFile);
};

TEST_F(JetOddLockFile, AFolderIsRefused) {
    ASSERT_EQ(mkdir(lockName.constData(), 0777), 0);
    ExpectRefusal("folder");
}

TEST_F(JetOddLockFile, ALinkIsRefusedAndNotFollowed) {
    ASSERT_TRUE(QFile::link(At("elsewhere"), lockFile));
    ExpectRefusal("to nothing");
    EXPECT_FALSE(QFile::exists(At("elsewhere")));
    Write(At("elsewhere"), "kept");
    ExpectRefusal("to a file");
    EXPECT_EQ(Content(At("elsewhere")), "kept");
}

TEST_F(JetOddLockFile, ASecondNameOfAnotherFileIsRefused) {
    ASSERT_EQ(link(QFile::encodeName(path).constData(), lockName.constData()), 0);
    ExpectRefusal("the database itself");
    EXPECT_EQ(Content(path), "a database");
}

TEST_F(JetOddLockFile, APipeIsRefusedWithoutWaiting) {
    ASSERT_EQ(mkfifo(lockName.constData(), 0666), 0);
    ExpectRefusal("pipe");
}

TEST_F(JetOddLockFile, AFileLongerThanAllPlacesIsRefused) {
    const QByteArray longer(255 * PlaceSize + 1, 'x');
    Write(lockFile, longer);
    ExpectRefusal("long");
    EXPECT_EQ(Content(lockFile), longer);
    Write(lockFile, longer.left(255 * PlaceSize));
    EXPECT_NO_THROW(Alone());
}

TEST_F(JetOddLockFile, ADatabaseThatIsNotThereHasNone) {
    QFile::remove(path);
    ExpectRefusal("missing");
    EXPECT_FALSE(QFile::exists(lockFile));
}

/// Where this user may only read. Whoever runs the tests as root could write all the same.
class JetForbiddenLockFile : public JetOddLockFile {
protected:
    static constexpr uid_t Nobody = 65534;

    bool DoAsNobody(const std::function<bool()>& work) const {
        chmod(QFile::encodeName(directory.path()).constData(), 0555);
        const OtherProcess other([&] { return (geteuid() != 0 || setuid(Nobody) == 0) && work(); });
        return other.Succeeded();
    }
    ~JetForbiddenLockFile() override { chmod(QFile::encodeName(directory.path()).constData(), 0755); }

    void SetMode(const QString& file, mode_t mode) const {
        ASSERT_EQ(chmod(QFile::encodeName(file).constData(), mode), 0);
    }
};

TEST_F(JetForbiddenLockFile, ReadingGoesOnWhereNoneCanBeMade) {
    SetMode(path, 0444);
    EXPECT_TRUE(DoAsNobody([this] { return JoinFailing().number == 0; }));
    EXPECT_TRUE(DoAsNobody([this] { return AloneFailing().number == ErrorNumber::ReadOnlyDatabase; }));
    EXPECT_FALSE(QFile::exists(lockFile));
}

TEST_F(JetForbiddenLockFile, AReaderWhoMayNotWriteItTakesAPlaceInIt) {
    Write(lockFile, QByteArray(PlaceSize, '\0'));
    SetMode(lockFile, 0444);
    EXPECT_TRUE(DoAsNobody([this] { return AloneFailing().number == ErrorNumber::ReadOnlyDatabase; }));
    const OtherProcess reader([this] {
        if (geteuid() == 0 && setuid(Nobody) != 0) {
            return false;
        }
        User().release()->Join();
        return true;
    });
    ASSERT_TRUE(reader.Succeeded());
    EXPECT_EQ(Content(lockFile), QByteArray(PlaceSize, '\0'));
    if (geteuid() == 0) {
        EXPECT_EQ(AloneFailing().number, ErrorNumber::Locked);
    }
}

TEST_F(JetForbiddenLockFile, AReaderWhoMayNotWriteItIsNeverAlone) {
    Write(lockFile, "");
    SetMode(lockFile, 0444);
    EXPECT_TRUE(DoAsNobody([this] {
        const auto reader = Joined();
        return FailureOf([&] { reader->BeAlone(); }).number == ErrorNumber::ReadOnlyDatabase;
    }));
}

TEST_F(JetForbiddenLockFile, AReaderIsKeptOutOfOneThatHeMayNotWrite) {
    const auto alone = Alone();
    SetMode(lockFile, 0444);
    EXPECT_TRUE(DoAsNobody([this] { return JoinFailing().number == ErrorNumber::Locked; }));
}

TEST_F(JetForbiddenLockFile, ReadingGoesOnWhereItMayNotBeRead) {
    Write(lockFile, "");
    SetMode(lockFile, 0);
    EXPECT_TRUE(DoAsNobody([this] { return JoinFailing().number == 0; }));
    EXPECT_TRUE(DoAsNobody([this] { return AloneFailing().number == ErrorNumber::ReadOnlyDatabase; }));
}

}  // namespace
}  // namespace engine::jet
