#include "ImportJourney.h"
#include "support/WriteTrace.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

// Those that a trace tells of: on a Jet file most of them aren't statements of the connection's.
size_t WipeStatements() {
    return FormatUnderTest() == engine::FileFormat::Jet ? 4 : 37;
}

/// When something happens to the file of an import.
struct Moment {
    const char* name;
    size_t writes = 0;           ///< Not before so many writes are done.
    bool betweenGroups = false;  ///< Only when a group has come to the disk, so that nobody holds a lock.
};

/// Another program puts something else in the place of the file that an import fills.
class ReplacedFileTest : public ImportJourney {
protected:
    ReplacedFileTest() {
        UsePortfolio({.tenants = tenants_, .start = start_});
        writes_ = Ready().writes;
    }

    /// One that holds more.
    void MakeLargeFile() {
        UsePortfolio({.tenants = 2 * tenants_, .start = start_});
        const QString large = FreshDatabase("large.mdb");
        ASSERT_EQ(Import(large), 0);
        Commit(large, MoreThanAnyImport);
        UsePortfolio({.tenants = tenants_, .start = start_});
    }

    std::vector<Moment> DuringTheImport() const {
        return {{"after the wipe", WipeStatements()},
                {"among the tenants", writes_ / 2},
                {"between two groups", writes_ / 2, true},
                {"with the last write", writes_}};
    }

    Moment WhenAllIsOnTheDisk() const { return {"when all is on the disk", writes_, true}; }

    /// The import tells of failures, though nobody else tells it what this command has done to its file.
    void ExpectNoticed(const char* command, const Moment& moment) {
        EXPECT_EQ(ImportStruckBy(command, moment), 1) << command << " " << moment.name;
        EXPECT_TRUE(QFile::remove(workplace.Path(QStringLiteral("struck")))) << command << " " << moment.name;
        QFile errors(errors_);
        EXPECT_TRUE(errors.open(QIODevice::ReadOnly) && !errors.readAll().isEmpty())
            << command << " " << moment.name;
    }

    void ExpectNoticed(const char* command, const std::vector<Moment>& moments) {
        for (const Moment& moment : moments) {
            ExpectNoticed(command, moment);
        }
    }

private:
    /// Files that lie ready for all tests: one that holds what the import writes as well, and one that holds
    /// far less.
    struct ReadyFiles {
        explicit ReadyFiles(ReplacedFileTest& test) {
            const QString same = test.FreshDatabase("same.mdb");
            {
                const WriteTrace count([this](const TracedWrite&) { ++writes; });
                EXPECT_EQ(test.Import(same), 0);
            }
            Commit(same, MoreThanAnyImport);
            const QString small = test.FreshDatabase("small.mdb");
            Commit(small, 2);
            EXPECT_TRUE(QFile::rename(same, folder.filePath(QStringLiteral("same.mdb"))));
            EXPECT_TRUE(QFile::rename(small, folder.filePath(QStringLiteral("small.mdb"))));
        }

        QTemporaryDir folder;
        size_t writes = 0;  ///< Of the import.
    };

    const ReadyFiles& Ready() {
        static const ReadyFiles ready(*this);
        return ready;
    }

    // The file that is written must not happen to count as many commits as one that lies ready.
    static constexpr int MoreThanThoseOfTheSmallFile = 10;
    static constexpr int MoreThanAnyImport = 500;

    static void Commit(const QString& database, int commits) {
        const QByteArray twoCommits =
            "insert into notes(note) values('a');delete from notes where note = 'a';";
        const char* unsafely =
            FormatUnderTest() == engine::FileFormat::Jet ? "" : "pragma synchronous = off;";
        const QByteArray script = unsafely + twoCommits.repeated(commits / 2);
        EXPECT_TRUE(RunElsewhere(database, script.constData()));
    }

    /// The exit status of an import, in the midst of which another program runs this command.
    int ImportStruckBy(const char* command, const Moment& moment) {
        const QString line = QStringLiteral("cd %1 && ready=%2 && %3 && touch struck")
                                 .arg(workplace.Path({}), Ready().folder.path(), QLatin1String(command));
        QDir(workplace.Path(QStringLiteral("moved"))).removeRecursively();
        QDir(workplace.Path({})).mkdir(QStringLiteral("data"));
        const QString database = FreshDatabase("data/property.mdb");
        Commit(database, MoreThanThoseOfTheSmallFile);
        QFile::remove(errors_);
        ImportOrder order = OrderFor(database);
        order.errors = errors_;
        order.strike = line;
        order.strikeAfter = moment.writes;
        order.strikeBetweenGroups = moment.betweenGroups;
        return OtherImport(order).ExitStatus();
    }

    // Enough for some groups of writes.
    const int tenants_ = 100;
    const QDate start_{2020, 1, 6};
    size_t writes_ = 0;
    QString errors_ = workplace.Path(QStringLiteral("errors.txt"));
};

TEST_F(ReplacedFileTest, AFileThatIsCopiedOver) {
    ExpectNoticed("cp $ready/small.mdb data/property.mdb", DuringTheImport());
    ExpectNoticed("cp $ready/small.mdb data/property.mdb", WhenAllIsOnTheDisk());
    // What these hold at the end is no less than what was written.
    ExpectNoticed("cp $ready/same.mdb data/property.mdb", DuringTheImport());
    MakeLargeFile();
    ExpectNoticed("cp large.mdb data/property.mdb", DuringTheImport());
}

TEST_F(ReplacedFileTest, AFileThatAnotherOneIsMovedOver) {
    const char* command = "cp $ready/same.mdb other.mdb && mv other.mdb data/property.mdb";
    ExpectNoticed(command, DuringTheImport());
    ExpectNoticed(command, WhenAllIsOnTheDisk());
}

TEST_F(ReplacedFileTest, AFileThatIsRemoved) {
    ExpectNoticed("rm data/property.mdb", DuringTheImport());
    ExpectNoticed("rm data/property.mdb", WhenAllIsOnTheDisk());
}

TEST_F(ReplacedFileTest, AFolderThatIsMoved) {
    ExpectNoticed("mv data moved", DuringTheImport());
    ExpectNoticed("mv data moved", WhenAllIsOnTheDisk());
}

}  // namespace
