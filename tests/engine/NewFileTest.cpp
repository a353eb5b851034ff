#include "EngineTest.h"
#include "support/AwkwardFileSystem.h"
#include "support/FaultyDisk.h"
#include "support/FormatUnderTest.h"

#include <QFile>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>

namespace engine {

namespace {

/// Copies and fresh databases alike: files that take their name when they are whole.
class NewFileTest : public EngineTest {
protected:
    QString Path(const char* name) const { return directory.filePath(QString::fromUtf8(name)); }

    static void Write(const QString& file, const QByteArray& bytes) {
        QFile writing(file);
        EXPECT_TRUE(writing.open(QIODevice::WriteOnly));
        writing.write(bytes);
    }

    static QByteArray Contents(const QString& file) {
        QFile reading(file);
        EXPECT_TRUE(reading.open(QIODevice::ReadOnly));
        return reading.readAll();
    }

    static struct stat Status(const QString& file) {
        struct stat found {};
        EXPECT_EQ(::stat(file.toUtf8().constData(), &found), 0) << file.toStdString();
        return found;
    }

    static mode_t Permissions(const QString& file) { return Status(file).st_mode & 07777; }

    void SetPermissions(mode_t permissions) const {
        ASSERT_EQ(::chmod(path.toUtf8().constData(), permissions), 0);
    }

    /// All that is in the folder, however deep.
    QStringList Everything() const {
        QStringList names;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(directory.path().toStdString())) {
            names += QString::fromStdString(entry.path().filename().string());
        }
        // That of the database which is open.
        names.removeAll(QStringLiteral("things.ldb"));
        names.sort();
        return names;
    }

    int CopyError(const QString& file) {
        return ErrorOf([&] { database->CopyTo(file); });
    }

    int CreateError(const QString& file) {
        return ErrorOf([&] { DBEngine::Instance().CreateDatabase(file, FormatUnderTest(), tables); });
    }

    /// Makes the file again and again, each time on a disk that fails at its next operation. The query finds
    /// 0 in a whole file.
    void ExpectWholeOrNothing(FaultyDisk& disk, FaultyDisk::Fault fault, const std::function<int()>& make,
                              const char* query) {
        const QStringList before = Everything();
        int losses = 0;
        bool hasFailed = true;
        for (int n = 1; hasFailed; ++n) {
            disk.FailAt(n, fault);
            const int number = make();
            hasFailed = disk.Faults() > 0;
            const std::string where = disk.FirstFault() + " at operation " + std::to_string(n);
            disk.Repair();
            if (number == 0) {
                EXPECT_EQ(ReadRows(copy, query), QStringList{QStringLiteral("0")}) << where;
                EXPECT_EQ(ReadRows(copy, "pragma integrity_check"), QStringList{QStringLiteral("ok")})
                    << where;
                EXPECT_TRUE(QFile::remove(copy)) << where;
            }
            losses += number == 0 ? 0 : 1;
            EXPECT_EQ(Everything(), before) << where;
        }
        // A copy of a small Jet file is one write, and nothing else needs room.
        EXPECT_GE(losses, FormatUnderTest() == FileFormat::Jet ? 1 : 2);
    }

    QString copy = Path("copy.mdb");
    std::vector<TableDefinition> tables = {{QStringLiteral("a"), {{QStringLiteral("b"), dbText, 5}}, {}}};
};

TEST_F(NewFileTest, FilesOfTheUserBesideItAreLeftAlone) {
    const QStringList names = {QStringLiteral("copy.mdb.unfinished"),
                               QStringLiteral("copy.mdb.unfinished-journal")};
    for (const QString& name : names) {
        Write(directory.filePath(name), "precious");
    }
    EXPECT_EQ(CopyError(copy), 0);
    EXPECT_EQ(CopyError(copy), ErrorNumber::DatabaseExists);
    EXPECT_TRUE(QFile::remove(copy));
    EXPECT_EQ(CreateError(copy), 0);
    for (const QString& name : names) {
        ASSERT_TRUE(QFile::exists(directory.filePath(name))) << name.toStdString();
        EXPECT_EQ(Contents(directory.filePath(name)), "precious");
    }
}

TEST_F(NewFileTest, ACopyHasThePermissionsOfTheOriginal) {
    const mode_t before = ::umask(0027);
    for (const mode_t permissions : {0600U, 0640U, 0666U, 0604U}) {
        SetPermissions(permissions);
        EXPECT_EQ(CopyError(copy), 0);
        EXPECT_EQ(Permissions(copy), permissions);
        EXPECT_TRUE(QFile::remove(copy));
    }
    ::umask(before);
}

TEST_F(NewFileTest, NobodyElseCanReadACopyThatGrows) {
    SetPermissions(0600);
    AwkwardFileSystem fileSystem;
    int seen = 0;
    fileSystem.beforeNaming = [&](const std::string&, const std::string& from, const std::string&) {
        const QString growing = QString::fromStdString(from);
        const QString folder = growing.section(QLatin1Char('/'), 0, -2);
        EXPECT_TRUE((Permissions(folder) & 0077) == 0) << folder.toStdString();
        EXPECT_EQ(Permissions(growing) & 0077, 0U);
        ++seen;
    };
    EXPECT_EQ(CopyError(copy), 0);
    EXPECT_GT(seen, 0);
}

TEST_F(NewFileTest, ACopyBelongsToWhomTheOriginalBelongs) {
    constexpr uid_t Somebody = 65533;
    // Only root gives files away; whoever else runs the tests has made the original himself.
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(path.toUtf8().constData(), Somebody, Somebody), 0);
    }
    EXPECT_EQ(CopyError(copy), 0);
    EXPECT_EQ(Status(copy).st_uid, Status(path).st_uid);
    EXPECT_EQ(Status(copy).st_gid, Status(path).st_gid);
}

TEST_F(NewFileTest, AGroupThatTheCopyCanNotBeGivenToHasNoRightsOnIt) {
    SetPermissions(0666);
    ASSERT_EQ(::chmod(directory.path().toUtf8().constData(), 0777), 0);
    database.reset();
    const auto copyAsOrdinaryUser = [this] {
        constexpr uid_t Nobody = 65534;
        const bool isRoot = ::geteuid() == 0;
        if (isRoot && (::setgroups(0, nullptr) != 0 || ::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)) {
            std::_Exit(2);
        }
        DBEngine::Instance().OpenDatabase(path)->CopyTo(copy);
        // An original of his own has a group that the copy has from the start.
        std::_Exit(Permissions(copy) == (isRoot ? 0606U : 0666U) ? 0 : 1);
    };
    EXPECT_EXIT(copyAsOrdinaryUser(), ::testing::ExitedWithCode(0), "");
}

TEST_F(NewFileTest, NothingIsLeftOfAFileThatGotItsName) {
    EXPECT_EQ(CopyError(copy), 0);
    EXPECT_EQ(Everything(), (QStringList{QStringLiteral("copy.mdb"), QStringLiteral("things.mdb")}));
}

struct FileSystemKind {
    bool knowsRenamingWithoutReplacing;
    bool knowsLinks;
};

class NewFileOnAnyFileSystem : public NewFileTest, public ::testing::WithParamInterface<FileSystemKind> {
protected:
    NewFileOnAnyFileSystem() {
        fileSystem.knowsRenamingWithoutReplacing = GetParam().knowsRenamingWithoutReplacing;
        fileSystem.knowsLinks = GetParam().knowsLinks;
    }

    AwkwardFileSystem fileSystem;
};

TEST_P(NewFileOnAnyFileSystem, GetsItsName) {
    database->Execute(QStringLiteral("insert into notes(text) values('kept')"));
    EXPECT_EQ(CopyError(copy), 0);
    EXPECT_EQ(ReadRows(copy, "select text from notes"), QStringList{QStringLiteral("kept")});
    EXPECT_EQ(CreateError(Path("fresh.mdb")), 0);
    EXPECT_EQ(Everything(), (QStringList{QStringLiteral("copy.mdb"), QStringLiteral("fresh.mdb"),
                                         QStringLiteral("things.mdb")}));
}

TEST_P(NewFileOnAnyFileSystem, NeverTakesThePlaceOfAFileThatHasAppearedMeanwhile) {
    QStringList steps;
    // Whatever is the last step before the name is taken: somebody else is faster.
    for (const char* step : {"rename", "link"}) {
        fileSystem.beforeNaming = [&](const std::string& now, const std::string&, const std::string&) {
            if (now == step && !QFile::exists(copy)) {
                steps += QString::fromStdString(now);
                Write(copy, "precious");
            }
        };
        const int number = CopyError(copy);
        if (QFile::exists(copy) && Contents(copy) == "precious") {
            EXPECT_EQ(number, ErrorNumber::DatabaseExists);
        } else {
            EXPECT_EQ(number, 0);
            EXPECT_FALSE(steps.contains(QLatin1String(step)));
        }
        EXPECT_EQ(Everything(), (QStringList{QStringLiteral("copy.mdb"), QStringLiteral("things.mdb")}));
        EXPECT_TRUE(QFile::remove(copy));
    }
    EXPECT_FALSE(steps.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, NewFileOnAnyFileSystem,
                         ::testing::Values(FileSystemKind{true, true}, FileSystemKind{false, true},
                                           FileSystemKind{true, false}, FileSystemKind{false, false}));

TEST_F(NewFileTest, AFolderThatDoesNotKeepTheNameIsAFailure) {
    AwkwardFileSystem fileSystem;
    fileSystem.storesFolders = false;
    EXPECT_EQ(CopyError(copy), ErrorNumber::DiskError);
    EXPECT_EQ(Everything(), QStringList{QStringLiteral("things.mdb")});
}

TEST_F(NewFileTest, AFailingDiskLeavesTheWholeFileOrNothing) {
    database->Execute(QStringLiteral("insert into notes(text) values('kept')"));
    database->Flush();
    FaultyDisk disk;
    for (const auto fault :
         {FaultyDisk::Fault::Once, FaultyDisk::Fault::FromThenOn, FaultyDisk::Fault::FullFromThenOn}) {
        ExpectWholeOrNothing(
            disk, fault, [this] { return CreateError(copy); }, "select count(*) from a");
        ExpectWholeOrNothing(
            disk, fault, [this] { return CopyError(copy); },
            "select count(*) from notes where text <> 'kept'");
    }
}

// Whoever opens the new file would take them for its own, play them back and remove them.
TEST_F(NewFileTest, ItsSideFilesMustNotBeThereAlready) {
    for (const QString& end : EndsOfFilesBeside()) {
        const QString beside = copy + end;
        Write(beside, "precious");
        EXPECT_EQ(CopyError(copy), ErrorNumber::DatabaseExists) << end.toStdString();
        EXPECT_EQ(CreateError(copy), ErrorNumber::DatabaseExists) << end.toStdString();
        EXPECT_EQ(Contents(beside), "precious");
        EXPECT_TRUE(QFile::remove(beside));
        EXPECT_EQ(Everything(), QStringList{QStringLiteral("things.mdb")});
    }
    EXPECT_EQ(CopyError(directory.filePath(QString(248, QLatin1Char('x')))), ErrorNumber::DiskError);
}

TEST_F(NewFileTest, RowsToBeginWithAreThereFromTheStart) {
    const auto fill = [](Database& fresh) { fresh.Execute(QStringLiteral("insert into a(b) values('c')")); };
    DBEngine::Instance().CreateDatabase(copy, FormatUnderTest(), tables, fill);
    EXPECT_EQ(ReadRows(copy, "select b from a"), QStringList{QStringLiteral("c")});
}

TEST_F(NewFileTest, RowsToBeginWithThatCanNotBeWrittenLeaveNoFile) {
    const auto fill = [](Database& fresh) {
        fresh.Execute(QStringLiteral("insert into none(b) values('c')"));
    };
    EXPECT_EQ(ErrorOf([&] { DBEngine::Instance().CreateDatabase(copy, FormatUnderTest(), tables, fill); }),
              ErrorNumber::NoSuchTable);
    EXPECT_EQ(Everything(), QStringList{QStringLiteral("things.mdb")});
}

TEST_F(NewFileTest, AFailureLeavesNothingAtAll) {
    EXPECT_EQ(CopyError(Path("no/copy.mdb")), ErrorNumber::DiskError);
    EXPECT_EQ(CopyError(directory.filePath(QString(256, QLatin1Char('x')))), ErrorNumber::DiskError);
    EXPECT_EQ(CreateError(directory.filePath(QString(256, QLatin1Char('x')))), ErrorNumber::DiskError);
    EXPECT_EQ(Everything(), QStringList{QStringLiteral("things.mdb")});
}

}  // namespace

}  // namespace engine
