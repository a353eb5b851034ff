#include "JetTest.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/Disk.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

#include <array>

namespace engine::jet {
namespace {

class JetSystemDisk : public ::testing::Test {
protected:
    QString At(const char* name) const { return directory.filePath(QLatin1String(name)); }

    QString MakeFile(const char* name, const QByteArray& bytes) const {
        QFile file(At(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray BytesOfFile(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir directory;
    Disk& disk = SystemDisk();
    const std::array<std::uint8_t, 3> abc{'a', 'b', 'c'};
};

TEST_F(JetSystemDisk, AFileIsReadAndWrittenAtItsPlaces) {
    const QString path = MakeFile("file", "0123456789");
    const auto file = disk.Open(path);
    EXPECT_EQ(file->Size(), 10U);
    file->Write(4, abc);
    file->Resize(8);
    file->Sync();
    EXPECT_EQ(BytesOfFile(path), "0123abc7");
    std::array<std::uint8_t, 2> read{};
    file->Read(6, read);
    EXPECT_EQ(read[1], '7');
}

TEST_F(JetSystemDisk, NothingIsReadBehindTheEnd) {
    const auto file = disk.Open(MakeFile("file", "0123456789"));
    std::array<std::uint8_t, 3> read{};
    EXPECT_EQ(FailureOf([&] { file->Read(8, read); }).number, ErrorNumber::DiskError);
}

TEST_F(JetSystemDisk, AFullDiskIsToldFromOtherFailures) {
    const auto file = disk.Open(QStringLiteral("/dev/full"));
    EXPECT_EQ(FailureOf([&] { file->Write(0, abc); }).number, ErrorNumber::DiskFull);
    EXPECT_EQ(FailureOf([&] { disk.Open(At("missing")); }).number, ErrorNumber::DiskError);
}

TEST_F(JetSystemDisk, ANewFileNeverReplacesAnother) {
    disk.Make(At("new"))->Write(0, abc);
    EXPECT_EQ(FailureOf([&] { disk.Make(At("new")); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(BytesOfFile(At("new")), "abc");
}

TEST_F(JetSystemDisk, AJournalHasThePermissionsOfItsDatabase) {
    const QString database = MakeFile("database", "x");
    ASSERT_EQ(chmod(QFile::encodeName(database).constData(), 0600), 0);
    disk.OpenOrMake(At("journal"), database)->Write(0, abc);
    struct stat found {};
    ASSERT_EQ(stat(QFile::encodeName(At("journal")).constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0600U);
    disk.OpenOrMake(At("journal"), database)->Write(3, abc);
    EXPECT_EQ(BytesOfFile(At("journal")), "abcabc");
}

TEST_F(JetSystemDisk, AJournalIsNeitherALinkNorAPipeNorAFolder) {
    const QString database = MakeFile("database", "x");
    ASSERT_TRUE(QFile::link(database, At("link")));
    ASSERT_EQ(mkfifo(QFile::encodeName(At("pipe")).constData(), 0600), 0);
    ASSERT_TRUE(QDir(directory.path()).mkdir(QStringLiteral("folder")));
    for (const char* name : {"link", "pipe", "folder"}) {
        EXPECT_EQ(FailureOf([&] { disk.OpenOrMake(At(name), database); }).number, ErrorNumber::DiskError)
            << name;
        EXPECT_TRUE(disk.IsThere(At(name)));
    }
}

TEST_F(JetSystemDisk, ARenamedFileReplacesNone) {
    MakeFile("one", "1");
    MakeFile("two", "2");
    EXPECT_EQ(FailureOf([&] { disk.Rename(At("one"), At("two")); }).number, ErrorNumber::DiskError);
    EXPECT_EQ(BytesOfFile(At("two")), "2");
    disk.Rename(At("one"), At("three"));
    EXPECT_FALSE(disk.IsThere(At("one")));
    EXPECT_EQ(BytesOfFile(At("three")), "1");
    disk.Remove(At("three"));
    EXPECT_FALSE(disk.IsThere(At("three")));
    EXPECT_EQ(FailureOf([&] { disk.Remove(At("three")); }).number, ErrorNumber::DiskError);
}

TEST_F(JetSystemDisk, ADatabaseIsMadeFilledAndReadAgain) {
    NewTable table;
    table.name = QStringLiteral("names");
    NewColumn column;
    column.name = QStringLiteral("name");
    column.size = 50;
    table.columns = {column};
    const QString path = At("property.mdb");
    MakeDatabase(disk, path, {table}, QDateTime::currentDateTime(), {});
    {
        PagedFile pages(disk, path);
        Table names = Catalogue(pages).Open(QStringLiteral("names"));
        for (int row = 0; row < 1000; ++row) {
            names.Insert({QStringLiteral("name %1").arg(row)});
        }
        pages.EndGroup(GroupKind::Adds);
        EXPECT_TRUE(disk.IsThere(path + QStringLiteral(".journal")));
        pages.RemoveJournal();
        EXPECT_FALSE(disk.IsThere(path + QStringLiteral(".journal")));
    }
    PagedFile pages(disk, path);
    EXPECT_EQ(static_cast<qint64>(pages.Count()) * 4096, QFileInfo(path).size());
    const Table names = Catalogue(pages).Open(QStringLiteral("names"));
    EXPECT_EQ(names.Figures().Rows(), 1000U);
    EXPECT_EQ(names.ValueOf(names.Read(*names.FirstRow()), 0), Value(QStringLiteral("name 0")));
}

}  // namespace
}  // namespace engine::jet
