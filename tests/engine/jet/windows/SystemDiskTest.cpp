#include "engine/Error.h"
#include "engine/jet/Disk.h"
#include "support/PrintQt.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>

namespace engine::jet {
namespace {

class SystemDiskTest : public ::testing::Test {
protected:
    QString At(const char* name) const { return directory.filePath(QString::fromUtf8(name)); }

    template <class Action>
    static int FailureOf(Action action) {
        try {
            action();
        } catch (const Error& failure) {
            return failure.Number();
        }
        return 0;
    }
    static QByteArray Content(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }
    void Make(const char* name, std::uint8_t byte) const {
        SystemDisk().Make(At(name))->Write(0, std::array{byte});
    }

    QTemporaryDir directory;
};

TEST_F(SystemDiskTest, WhatIsWrittenIsRead) {
    const auto file = SystemDisk().Make(At("a"));
    file->Write(5000, std::array<std::uint8_t, 3>{1, 2, 3});
    EXPECT_EQ(file->Size(), 5003U);
    std::array<std::uint8_t, 4> bytes{9, 9, 9, 9};
    file->Read(4999, bytes);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0, 1, 2, 3}));
    EXPECT_EQ(FailureOf([&] { file->Read(5000, bytes); }), ErrorNumber::DiskError) << "beyond the end";
    file->Resize(2);
    EXPECT_EQ(file->Size(), 2U);
    EXPECT_NO_THROW(file->Sync());
}

TEST_F(SystemDiskTest, NoFileIsReplaced) {
    Make("a", 'a');
    Make("b", 'b');
    EXPECT_NE(FailureOf([this] { SystemDisk().Make(At("a")); }), 0);
    EXPECT_NE(FailureOf([this] { SystemDisk().Rename(At("a"), At("b")); }), 0);
    EXPECT_EQ(Content(At("b")), "b");
    SystemDisk().Rename(At("a"), At("c"));
    EXPECT_EQ(Content(At("c")), "a");
    EXPECT_FALSE(SystemDisk().IsThere(At("a")));
}

TEST_F(SystemDiskTest, AFileThatIsOpenIsNotRemoved) {
    const auto file = SystemDisk().Make(At("a"));
    EXPECT_NE(FailureOf([this] { SystemDisk().Remove(At("a")); }), 0);
    EXPECT_TRUE(SystemDisk().IsThere(At("a")));
}

TEST_F(SystemDiskTest, AFileIsOpenedByTwo) {
    const auto one = SystemDisk().Make(At("a"));
    const auto other = SystemDisk().Open(At("a"));
    one->Write(0, std::array<std::uint8_t, 1>{7});
    std::array<std::uint8_t, 1> byte{};
    other->Read(0, byte);
    EXPECT_EQ(byte[0], 7);
}

TEST_F(SystemDiskTest, WhatIsNotThereIsOnlyMadeOnDemand) {
    Make("database", 'd');
    EXPECT_NE(FailureOf([this] { SystemDisk().Open(At("journal")); }), 0);
    EXPECT_FALSE(SystemDisk().IsThere(At("journal")));
    SystemDisk().OpenOrMake(At("journal"), At("database"))->Write(0, std::array<std::uint8_t, 1>{'j'});
    EXPECT_EQ(SystemDisk().OpenOrMake(At("journal"), At("database"))->Size(), 1U);
    EXPECT_NE(FailureOf([this] { SystemDisk().OpenOrMake(directory.path(), At("database")); }), 0);
}

TEST_F(SystemDiskTest, NamesMayBeLong) {
    QString place = directory.path();
    for (int level = 0; level < 6; ++level) {
        place += QLatin1Char('/') + QString(60, QLatin1Char('x'));
    }
    ASSERT_TRUE(QDir().mkpath(place));
    SystemDisk().Make(place + QStringLiteral("/a"))->Write(0, std::array<std::uint8_t, 1>{'a'});
    EXPECT_EQ(SystemDisk().Open(place + QStringLiteral("/a"))->Size(), 1U);
}

}  // namespace
}  // namespace engine::jet
