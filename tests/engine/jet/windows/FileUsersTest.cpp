#include "engine/Error.h"
#include "engine/jet/FileUsers.h"
#include "support/PrintQt.h"

#include <QFile>
#include <QSysInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace engine::jet {
namespace {

using namespace std::chrono_literals;

class JetFileUsers : public ::testing::Test {
protected:
    JetFileUsers() { Write(path, "a database"); }

    QString At(const char* name) const { return directory.filePath(QString::fromUtf8(name)); }
    static void Write(const QString& name, const QByteArray& bytes) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

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
    template <class Action>
    static QString RefusalOf(Action action) {
        try {
            action();
        } catch (const Error& failure) {
            return QString::number(failure.Number()) + QLatin1String(": ") + failure.Description();
        }
        return {};
    }
    bool IsRefusedToAll() const {
        return RefusalOf([this] { Joined(); }).startsWith(QLatin1String("3260")) &&
               RefusalOf([this] { Alone(); }).startsWith(QLatin1String("3260"));
    }

    QTemporaryDir directory;
    QString path = At("property.mdb");
    QString lockFile = At("property.ldb");
};

TEST_F(JetFileUsers, WhoeverIsAloneKeepsEverybodyOut) {
    auto alone = Alone();
    EXPECT_TRUE(IsRefusedToAll());
    EXPECT_NO_THROW(alone->BeAlone()) << "he may ask again";
    EXPECT_TRUE(IsRefusedToAll());
    alone.reset();
    EXPECT_NO_THROW(Joined());
    EXPECT_NO_THROW(Alone());
}

TEST_F(JetFileUsers, UsersShareAndKeepOutWhoeverWantsToBeAlone) {
    auto first = Joined();
    auto second = Joined();
    EXPECT_EQ(RefusalOf([this] { Alone(); }),
              QStringLiteral("3260: Couldn't use '%1'; another program has it open on the computer %2.")
                  .arg(path, QSysInfo::machineHostName().left(31)));
    first.reset();
    EXPECT_NE(RefusalOf([this] { Alone(); }), QString());
    second->BeAlone();
    EXPECT_TRUE(second->IsAlone());
    EXPECT_TRUE(IsRefusedToAll());
}

TEST_F(JetFileUsers, AUserWhoIsRefusedKeepsHisPlace) {
    const auto user = Joined();
    auto other = Joined();
    EXPECT_NE(RefusalOf([&] { user->BeAlone(); }), QString());
    other.reset();
    EXPECT_NE(RefusalOf([this] { Alone(); }), QString()) << "his place is still his";
}

TEST_F(JetFileUsers, ThereAreNoMoreUsersThanPlaces) {
    std::vector<std::unique_ptr<FileUsers>> users;
    for (int user = 0; user < 255; ++user) {
        users.push_back(Joined());
    }
    EXPECT_NE(RefusalOf([this] { Joined(); }), QString());
    users.pop_back();
    EXPECT_EQ(RefusalOf([this] { Joined(); }), QString());
}

TEST_F(JetFileUsers, OnlyAFileThatWasMadeHereIsRemoved) {
    Alone().reset();
    EXPECT_FALSE(QFile::exists(lockFile));
    Write(lockFile, "");
    Alone().reset();
    EXPECT_TRUE(QFile::exists(lockFile));
}

TEST_F(JetFileUsers, AFileThatOthersUseIsNotRemoved) {
    auto maker = Joined();
    const auto other = Joined();
    maker.reset();
    EXPECT_TRUE(QFile::exists(lockFile));
    EXPECT_NE(RefusalOf([this] { Alone(); }), QString());
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

TEST_F(JetFileUsers, WhatOnlyHasTheNameIsNotTouched) {
    const QByteArray letter(20000, 'x');
    Write(lockFile, letter);
    EXPECT_EQ(RefusalOf([this] { Alone(); }),
              QStringLiteral("3043: Disk error: '%1' can't be opened: it is no lock file of a database.")
                  .arg(lockFile));
    QFile file(lockFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), letter);
}

TEST_F(JetFileUsers, NamesOfFilesMayHaveAnyLetters) {
    path = At("Häuser Ж.mdb");
    Write(path, "a database");
    const auto alone = Alone();
    EXPECT_TRUE(QFile::exists(At("Häuser Ж.ldb")));
}

}  // namespace
}  // namespace engine::jet
