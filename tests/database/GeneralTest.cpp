#include "database/General.h"
#include "platform/Failure.h"
#include "platform/SettingsStore.h"
#include "support/PrintQt.h"
#include "support/Workplace.h"

#include <gtest/gtest.h>

namespace {

using database::GetRegistrySetting;
using database::ReadRegistryValue;

const QString SettingsKey = QStringLiteral("SOFTWARE\\Hearthbook\\Settings");

class General : public ::testing::Test {
protected:
    void Write(const QByteArray& line) const {
        workplace_.WriteSettings(
            "Windows Registry Editor Version 5.00\n\n"
            "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Hearthbook\\Settings]\n" +
            line + "\n");
    }

    static QString Setting(const char* name) {
        return GetRegistrySetting(QStringLiteral("Settings"), QString::fromLatin1(name),
                                  QStringLiteral("the default"));
    }

    /// The value "v" as read over the text "as it was".
    static QString Read() {
        QString value = QStringLiteral("as it was");
        read = ReadRegistryValue(platform::LocalMachine, SettingsKey, QStringLiteral("v"), value);
        return value;
    }

    static inline bool read = false;

    Workplace workplace_;
};

TEST_F(General, MissingKeyGivesTheDefault) {
    EXPECT_EQ(Setting("v"), QStringLiteral("the default"));
}

TEST_F(General, MissingValueGivesTheDefault) {
    Write("\"other\"=\"1\"");
    EXPECT_EQ(Setting("v"), QStringLiteral("the default"));
}

TEST_F(General, SectionIsASubkeyOfTheProduct) {
    Write("\"v\"=\"text\"");
    EXPECT_EQ(Setting("v"), QStringLiteral("text"));
    EXPECT_EQ(GetRegistrySetting(QStringLiteral("Other"), QStringLiteral("v"), QStringLiteral("d")),
              QStringLiteral("d"));
}

TEST_F(General, TheWordVbNullStringStandsForNothing) {
    Write("\"v\"=\"vbNullString\"\n\"w\"=\"vbnullstring\"");
    EXPECT_EQ(Setting("v"), QString());
    EXPECT_EQ(Setting("w"), QStringLiteral("vbnullstring"));
    EXPECT_EQ(
        GetRegistrySetting(QStringLiteral("Settings"), QStringLiteral("x"), QStringLiteral("vbNullString")),
        QString());
}

TEST_F(General, AnEmptyTextIsAValue) {
    Write("\"v\"=\"\"");
    EXPECT_EQ(Setting("v"), QString());
}

TEST_F(General, AMissingKeyReadsAsEmptyAndFalse) {
    EXPECT_EQ(Read(), QString());
    EXPECT_FALSE(read);
}

TEST_F(General, AMissingValueReadsAsEmptyAndFalse) {
    Write("\"other\"=\"1\"");
    EXPECT_EQ(Read(), QString());
    EXPECT_FALSE(read);
}

TEST_F(General, TextComesWithoutItsTerminatingZero) {
    Write("\"v\"=\"Zürich\"");
    EXPECT_EQ(Read(), QStringLiteral("Zürich"));
    EXPECT_TRUE(read);
}

TEST_F(General, TextWithoutTerminatingZeroIsKeptWhole) {
    Write("\"v\"=hex(1):61,00,62,00");
    EXPECT_EQ(Read(), QStringLiteral("ab"));
}

TEST_F(General, OnlyOneZeroIsDropped) {
    Write("\"v\"=hex(1):61,00,00,00,00,00");
    EXPECT_EQ(Read(), QString(QStringLiteral("a") + QChar(0)));
}

TEST_F(General, TextMayHave1023CharactersAndItsZero) {
    Write("\"v\"=\"" + QByteArray(1023, 'x') + "\"");
    EXPECT_EQ(Read().size(), 1023);
    Write("\"v\"=\"" + QByteArray(1024, 'x') + "\"");
    EXPECT_EQ(Read(), QString());
    EXPECT_FALSE(read);
}

struct NumberCase {
    const char* stored;
    const char* text;
};

class NumberSetting : public General, public ::testing::WithParamInterface<NumberCase> {};

TEST_P(NumberSetting, IsReadFromItsDigits) {
    Write(QByteArray("\"v\"=") + GetParam().stored);
    EXPECT_EQ(Read(), QString::fromLatin1(GetParam().text));
    EXPECT_TRUE(read);
}

INSTANTIATE_TEST_SUITE_P(
    Right, NumberSetting,
    ::testing::Values(NumberCase{"dword:00000000", "0"}, NumberCase{"dword:00000001", "1"},
                      NumberCase{"dword:000000ff", "255"}, NumberCase{"dword:00000110", "272"},
                      NumberCase{"dword:ffffffff", "4294967295"}, NumberCase{"dword:12345678", "305419896"}));

INSTANTIATE_TEST_SUITE_P(WrongForWantOfLeadingZeros, NumberSetting,
                         ::testing::Values(NumberCase{"dword:00000101", "17"},
                                           NumberCase{"dword:00000100", "16"},
                                           NumberCase{"dword:01020304", "4660"},
                                           NumberCase{"dword:00001000", "256"}));

TEST_F(General, ANumberWithoutBytesIsNone) {
    for (const char* stored : {"\"v\"=hex(4):", "\"v\"=hex(4):00"}) {
        Write(stored);
        EXPECT_THROW(Read(), platform::Failure);
    }
}

TEST_F(General, ANumberOfTooManyBytesOverflows) {
    Write("\"v\"=hex(4):ff,ff,ff,ff,ff,ff,ff,ff,ff");
    EXPECT_THROW(Read(), platform::Failure);
}

TEST_F(General, OtherTypesLeaveTheValueAsItWas) {
    for (const char* stored :
         {"\"v\"=hex:61,62", "\"v\"=hex(2):61,00", "\"v\"=hex(7):61,00", "\"v\"=hex(b):01"}) {
        Write(stored);
        EXPECT_EQ(Read(), QStringLiteral("as it was"));
        EXPECT_TRUE(read);
    }
}

TEST_F(General, ASettingOfAnotherTypeIsEmptyAndNotTheDefault) {
    Write("\"v\"=hex:61,62");
    EXPECT_EQ(Setting("v"), QString());
}

}  // namespace
