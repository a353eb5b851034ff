#include "platform/SettingsStore.h"
#include "support/PrintQt.h"
#include "support/Workplace.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {

using platform::LocalMachine;
using platform::OpenRegistryKey;

const QString Settings = QStringLiteral("SOFTWARE\\Hearthbook\\Settings");

QByteArray TextWith(const QByteArray& value) {
    return "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n"
           "\"APPPath\"=\"" +
           value + "\"\n";
}

void WriteFile(const QString& path, const QByteArray& text) {
    QDir().mkpath(path.section(QLatin1Char('/'), 0, -2));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        throw std::runtime_error("The file can't be written");
    }
}

/// The setting "APPPath" as the store has it; "none" if it has none.
QByteArray StoredPath() {
    const auto key = OpenRegistryKey(LocalMachine, Settings);
    const auto value = key ? key->Query(QStringLiteral("APPPath"), 1024) : std::nullopt;
    return value ? QByteArray(value->bytes.constData()) : QByteArray("none");
}

class SettingsStore : public ::testing::Test {
protected:
    ~SettingsStore() override { qputenv("HOME", home_); }

    Workplace workplace_;

private:
    QByteArray home_ = qgetenv("HOME");
};

TEST_F(SettingsStore, WithoutAFileHasNoKeys) {
    EXPECT_FALSE(OpenRegistryKey(LocalMachine, Settings).has_value());
}

TEST_F(SettingsStore, OpensTheKeysOfTheLocalMachine) {
    workplace_.WriteSettings(TextWith("/data"));
    EXPECT_TRUE(OpenRegistryKey(LocalMachine, Settings).has_value());
    EXPECT_FALSE(OpenRegistryKey(LocalMachine, QStringLiteral("SOFTWARE\\Other")).has_value());
    EXPECT_FALSE(OpenRegistryKey(0x80000001, Settings).has_value()) << "the current user's root";
}

TEST_F(SettingsStore, ComparesNamesWithoutCase) {
    workplace_.WriteSettings(TextWith("/data"));
    const auto key = OpenRegistryKey(LocalMachine, QStringLiteral("software\\HEARTHBOOK\\settings"));
    ASSERT_TRUE(key.has_value());
    EXPECT_TRUE(key->Query(QStringLiteral("apppath"), 1024).has_value());
    EXPECT_FALSE(key->Query(QStringLiteral("APPPaths"), 1024).has_value());
}

TEST_F(SettingsStore, AValueMayFillTheBufferButNotMore) {
    workplace_.WriteSettings(TextWith(QByteArray(9, 'x')));
    const auto key = OpenRegistryKey(LocalMachine, Settings);
    ASSERT_TRUE(key.has_value());
    EXPECT_TRUE(key->Query(QStringLiteral("APPPath"), 10).has_value());
    EXPECT_FALSE(key->Query(QStringLiteral("APPPath"), 9).has_value());
}

TEST_F(SettingsStore, IsReadAnewAtEachCall) {
    workplace_.WriteSettings(TextWith("/one"));
    EXPECT_EQ(StoredPath(), "/one");
    workplace_.WriteSettings(TextWith("/two"));
    EXPECT_EQ(StoredPath(), "/two");
}

TEST_F(SettingsStore, UsersFileDecidesAlone) {
    WriteFile(workplace_.Path(QStringLiteral("system-config/hearthbook/registry.reg")), TextWith("/system"));
    EXPECT_EQ(StoredPath(), "/system");
    workplace_.WriteSettings("Windows Registry Editor Version 5.00\n");
    EXPECT_EQ(StoredPath(), "none");
}

TEST_F(SettingsStore, SystemFoldersAreAskedInTheirOrder) {
    const QString one = workplace_.Path(QStringLiteral("one"));
    const QString two = workplace_.Path(QStringLiteral("two"));
    qputenv("XDG_CONFIG_DIRS", (one + QLatin1Char(':') + two).toLocal8Bit());
    WriteFile(two + QLatin1String("/hearthbook/registry.reg"), TextWith("/two"));
    EXPECT_EQ(StoredPath(), "/two");
    WriteFile(one + QLatin1String("/hearthbook/registry.reg"), TextWith("/one"));
    EXPECT_EQ(StoredPath(), "/one");
}

TEST_F(SettingsStore, UsersFolderIsBelowTheHomeByDefault) {
    qputenv("HOME", workplace_.Path(QStringLiteral("home")).toLocal8Bit());
    WriteFile(workplace_.Path(QStringLiteral("home/.config/hearthbook/registry.reg")), TextWith("/home"));
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(StoredPath(), "/home");
    qputenv("XDG_CONFIG_HOME", "");
    EXPECT_EQ(StoredPath(), "/home");
    qputenv("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(StoredPath(), "/home");
}

TEST_F(SettingsStore, AFolderWhoseNameIsNoTextIsTheVeryFolder) {
    const auto foldersNamed = [this](const QByteArray& name) {
        return workplace_.Path(QStringLiteral("./")).toUtf8() + name;
    };
    const auto writeBelow = [](const QByteArray& folder, const QByteArray& text) {
        std::filesystem::create_directories((folder + "/hearthbook").toStdString());
        std::ofstream((folder + "/hearthbook/registry.reg").toStdString()) << text.toStdString();
    };
    const QByteArray folder = foldersNamed("J\xF6rg");
    const QByteArray lookalike = foldersNamed("J\xEF\xBF\xBDrg");
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
        writeBelow(folder, TextWith("/the very one"));
        writeBelow(lookalike, TextWith("/another"));
        qputenv(variable, folder);
        EXPECT_EQ(StoredPath(), "/the very one") << variable;
    }
    writeBelow(folder + "/.config", TextWith("/home"));
    writeBelow(lookalike + "/.config", TextWith("/another home"));
    qputenv("HOME", folder);
    qunsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(StoredPath(), "/home");
    std::filesystem::remove_all(folder.toStdString());
}

TEST_F(SettingsStore, RelativeFoldersAreIgnored) {
    const QString before = QDir::currentPath();
    QDir::setCurrent(workplace_.Path(QString()));
    WriteFile(workplace_.Path(QStringLiteral("relative/hearthbook/registry.reg")), TextWith("/relative"));
    qputenv("XDG_CONFIG_DIRS", "relative");
    const QByteArray stored = StoredPath();
    QDir::setCurrent(before);
    EXPECT_EQ(stored, "none");
}

TEST_F(SettingsStore, AFolderOfTheFilesNameIsNoFile) {
    QDir().mkpath(workplace_.Path(QStringLiteral("config/hearthbook/registry.reg")));
    WriteFile(workplace_.Path(QStringLiteral("system-config/hearthbook/registry.reg")), TextWith("/system"));
    EXPECT_EQ(StoredPath(), "/system");
}

TEST_F(SettingsStore, AFileOfAnotherFormatCountsAsMissingKeys) {
    workplace_.WriteSettings(TextWith("/data") + "rubbish\n");
    EXPECT_EQ(StoredPath(), "none");
}

TEST_F(SettingsStore, AHugeFileCountsAsMissingKeys) {
    const QByteArray text = TextWith("/data");
    const QByteArray comment = ";" + QByteArray(4 * 1024 * 1024 - text.size() - 1, 'x');
    workplace_.WriteSettings(text + comment);
    EXPECT_EQ(StoredPath(), "/data") << "as much as is read";
    workplace_.WriteSettings(text + comment + "x");
    EXPECT_EQ(StoredPath(), "none");
}

}  // namespace
