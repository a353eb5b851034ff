#include "platform/SettingsStore.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

using platform::LocalMachine;
using platform::OpenRegistryKey;
namespace RegistryType = platform::RegistryType;

constexpr const char* Name = "SOFTWARE\\Wrenfield Test";

/// A key of our own in the real registry, as programs of 32 or 64 bits see it. It goes with this object.
class TestKey {
public:
    explicit TestKey(REGSAM view) : view_(view) {
        if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, Name, 0, nullptr, 0, KEY_ALL_ACCESS | view, nullptr, &key_,
                            nullptr) != ERROR_SUCCESS) {
            ADD_FAILURE() << "The key can't be made";
        }
    }
    ~TestKey() {
        RegCloseKey(key_);
        RegDeleteKeyExA(HKEY_LOCAL_MACHINE, Name, view_, 0);
    }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;

    void Set(const wchar_t* name, const std::wstring& text) const {
        SetBytes(name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }
    void SetBytes(const wchar_t* name, DWORD type, const void* bytes, size_t size) const {
        EXPECT_EQ(
            RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(bytes), static_cast<DWORD>(size)),
            ERROR_SUCCESS);
    }

private:
    REGSAM view_;
    HKEY key_ = nullptr;
};

std::optional<platform::RegistryValue> Stored(const QString& name, qsizetype bufferSize = 1024) {
    const auto key = OpenRegistryKey(LocalMachine, QLatin1String(Name));
    return key ? key->Query(name, bufferSize) : std::nullopt;
}

QByteArray StoredText(const QString& name) {
    const auto value = Stored(name);
    return value && value->type == RegistryType::Text ? value->bytes : QByteArray("none");
}

TEST(SettingsStore, WithoutAKeyHasNothing) {
    EXPECT_FALSE(OpenRegistryKey(LocalMachine, QLatin1String(Name)).has_value());
}

TEST(SettingsStore, GivesTextsInUtf8WithTheZeroBehindThem) {
    const TestKey key(KEY_WOW64_32KEY);
    key.Set(L"APPPath", L"C:\\Program Files\\H\u00E4user");
    EXPECT_EQ(StoredText(QStringLiteral("APPPath")), QByteArray("C:\\Program Files\\Häuser\0", 25));
    EXPECT_EQ(StoredText(QStringLiteral("apppath")), QByteArray("C:\\Program Files\\Häuser\0", 25));
    EXPECT_EQ(Stored(QStringLiteral("DatabaseLocation")), std::nullopt);
}

TEST(SettingsStore, GivesOtherValuesAsTheyAre) {
    const TestKey key(KEY_WOW64_32KEY);
    const DWORD number = 0x01020304;
    key.SetBytes(L"Networkable", REG_DWORD, &number, sizeof number);
    key.SetBytes(L"Binary", REG_BINARY, "\x80\x00\xFF", 3);
    ASSERT_TRUE(Stored(QStringLiteral("Networkable")));
    EXPECT_EQ(Stored(QStringLiteral("Networkable"))->type, RegistryType::DoubleWord);
    EXPECT_EQ(Stored(QStringLiteral("Networkable"))->bytes, QByteArray("\x04\x03\x02\x01", 4));
    EXPECT_EQ(Stored(QStringLiteral("Binary"))->type, RegistryType::Binary);
    EXPECT_EQ(Stored(QStringLiteral("Binary"))->bytes, QByteArray("\x80\x00\xFF", 3));
}

TEST(SettingsStore, AValueLongerThanTheBufferIsNone) {
    const TestKey key(KEY_WOW64_32KEY);
    key.Set(L"v", L"12345");
    EXPECT_TRUE(Stored(QStringLiteral("v"), 6));
    EXPECT_FALSE(Stored(QStringLiteral("v"), 5));
}

TEST(SettingsStore, AsksWhere32BitProgramsWriteFirst) {
    const TestKey other(KEY_WOW64_64KEY);
    other.Set(L"v", L"of 64 bits");
    EXPECT_EQ(StoredText(QStringLiteral("v")), QByteArray("of 64 bits\0", 11));
    const TestKey key(KEY_WOW64_32KEY);
    key.Set(L"v", L"of 32 bits");
    EXPECT_EQ(StoredText(QStringLiteral("v")), QByteArray("of 32 bits\0", 11));
}

}  // namespace
