#include "JetTest.h"
#include "engine/jet/Bytes.h"
#include "engine/jet/FileHeader.h"

#include <cstring>

namespace engine::jet {
namespace {

class JetFileHeader : public ::testing::Test {
protected:
    Failing Refusal() const {
        return FailureOf([&] { CheckFileHeader(header, QStringLiteral("/books/property.mdb")); });
    }
    ::testing::AssertionResult IsRefusedFor(const QString& reason) const {
        const Failing failing = Refusal();
        if (failing.number == ErrorNumber::UnrecognizedFormat &&
            failing.sentence.contains(QStringLiteral("property.mdb")) && failing.sentence.contains(reason)) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << failing.number << " " << failing.sentence.toStdString();
    }

    Page header = MakeFileHeader();
};

TEST_F(JetFileHeader, ANewHeaderIsTaken) {
    EXPECT_EQ(Refusal().number, 0);
    EXPECT_EQ(std::memcmp(header.data(), "\0\1\0\0Standard Jet DB\0\1\0\0\0", 24), 0);
}

// What is behind the mask is known from a file of the original engine with this moment of creation.
TEST_F(JetFileHeader, TheMaskIsThatOfTheOriginalEngine) {
    const std::uint8_t masked[] = {0xF8, 0xD0, 0x89, 0x24, 0x85, 0x67, 0xC6, 0x1F, 0x27, 0x44, 0xD2, 0xEE,
                                   0xCF, 0x65, 0xED, 0xFF, 0x07, 0xC7, 0x46, 0xA1, 0x78, 0x16, 0x0C, 0xED,
                                   0xE9, 0x2D, 0x62, 0xD4, 0x54, 0x06, 0x00, 0x00, 0x34, 0x2E, 0x30, 0x00};
    EXPECT_EQ(std::memcmp(header.data() + 0x7C, masked, sizeof masked), 0);
}

TEST_F(JetFileHeader, WhatIsNoJetFileIsRefused) {
    header[4] = 's';
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("no Jet file")));
    header.fill(0);
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("no Jet file")));
}

TEST_F(JetFileHeader, EarlierAndLaterFormatsAreRefused) {
    header[0x14] = 0;
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("earlier format than Jet 4 (number 0)")));
    header[0x14] = 2;
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("later format than Jet 4 (number 2)")));
}

TEST_F(JetFileHeader, EncodedPagesAreRefused) {
    header[0x40] ^= 1;
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("encoded")));
}

TEST_F(JetFileHeader, AnotherSortOrderIsRefused) {
    header[0x6E] ^= 0x1D;
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("sort order 0x0414, version 0")));
    header[0x6E] ^= 0x1D;
    header[0x71] ^= 1;
    EXPECT_TRUE(IsRefusedFor(QStringLiteral("sort order 0x0409, version 1")));
}

TEST_F(JetFileHeader, APasswordIsNoObstacle) {
    header[0x42] ^= 'x';
    EXPECT_EQ(Refusal().number, 0);
}

}  // namespace
}  // namespace engine::jet
