#include "PropertyBytes.h"
#include "engine/jet/JetTest.h"
#include "engine/jet/rules/PropertyBlock.h"

namespace engine::jet {
namespace {

const QString Required = QStringLiteral("Required");
const QString Rule = QStringLiteral("ValidationRule");
const QString Code = QStringLiteral("code");

QByteArray SomeBlock() {
    return PropertyBytes()
        .OfColumn("code", "Required", true)
        .OfTable("ValidationRule", QStringLiteral("[a]>0"))
        .OfColumn("Name", "ValidationRule", QStringLiteral("<>\"\""))
        .OfColumn("Name", "Required", false)
        .Block();
}

QString RefusalOf(const QByteArray& block) {
    const Failing failing = FailureOf([&] { PropertyBlock{block}; });
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation) << block.toHex().toStdString();
    return failing.sentence;
}

TEST(JetPropertyBlock, ColumnsAndTheTableHavePropertiesOfTheirOwn) {
    const PropertyBlock block(SomeBlock());
    EXPECT_EQ(block.YesNoOfColumn(Code, Required), true);
    EXPECT_EQ(block.TextOfColumn(Code, Rule), std::nullopt);
    EXPECT_EQ(block.TextOfTable(Rule), QStringLiteral("[a]>0"));
    EXPECT_EQ(block.TextOfColumn(QStringLiteral("name"), Rule), QStringLiteral("<>\"\""));
    EXPECT_EQ(block.YesNoOfColumn(QStringLiteral("NAME"), Required), false);
    EXPECT_EQ(block.YesNoOfColumn(QStringLiteral("nam"), Required), std::nullopt);
    EXPECT_EQ(block.TextOfColumn(QString(), Rule), std::nullopt);
    EXPECT_EQ(PropertyBlock().TextOfTable(Rule), std::nullopt);
}

TEST(JetPropertyBlock, AnyByteButZeroIsYes) {
    for (const auto& [bytes, isYes] : {std::pair(QByteArray(1, '\1'), true),
                                       {QByteArray(1, '\xFF'), true},
                                       {QByteArray(1, '\0'), false},
                                       {QByteArray(4, '\0'), false},
                                       {QByteArray("\0\1\0\0", 4), true},
                                       {QByteArray(), false}}) {
        const PropertyBlock block(
            PropertyBytes().Add(1, Code, "Required", ColumnType::Boolean, bytes).Block());
        EXPECT_EQ(block.YesNoOfColumn(Code, Required), isYes) << bytes.toHex().toStdString();
    }
}

TEST(JetPropertyBlock, ATextThatIsNoTextIsRefused) {
    const PropertyBlock number(
        PropertyBytes().Add(1, Code, "ValidationRule", ColumnType::Long, QByteArray(4, '\1')).Block());
    EXPECT_EQ(FailureOf([&] { number.TextOfColumn(Code, Rule); }).number, ErrorNumber::InvalidOperation);
    const PropertyBlock half(PropertyBytes().Add(0, {}, "ValidationRule", ColumnType::Text, "abc").Block());
    EXPECT_EQ(FailureOf([&] { half.TextOfTable(Rule); }).number, ErrorNumber::InvalidOperation);
}

TEST(JetPropertyBlock, AnotherSignatureIsRefused) {
    for (const QByteArray& block :
         {QByteArray("KKD\0", 4), QByteArray("MR2"), QByteArray("M"), QByteArray()}) {
        EXPECT_TRUE(RefusalOf(block).contains(QStringLiteral("in a way that isn't known")));
    }
    EXPECT_EQ(FailureOf([] { PropertyBlock{QByteArray("MR2\0", 4)}; }).number, 0);
}

TEST(JetPropertyBlock, ANameNumberWithoutANameIsRefused) {
    QByteArray block = SomeBlock();
    // Behind the names "Required" and "ValidationRule", the first part's head, its name and 4 bytes.
    const qsizetype at = 4 + 6 + 2 + 16 + 2 + 28 + 6 + 6 + 8 + 4;
    ASSERT_EQ(block[at], '\0');
    block[at] = '\2';
    EXPECT_TRUE(RefusalOf(block).contains(QStringLiteral("name number 2 of 2")));
}

TEST(JetPropertyBlock, PartsOfOtherKindsAndASecondListOfNamesAreRefused) {
    const QByteArray part = PropertyBytes::Part(0x80, PropertyBytes::Number(2, 2) + QByteArray("a\0", 2));
    const QByteArray begin("MR2\0", 4);
    EXPECT_EQ(FailureOf([&] { PropertyBlock{begin + part}; }).number, 0);
    EXPECT_TRUE(RefusalOf(begin + part + part).contains(QStringLiteral("two lists")));
    EXPECT_TRUE(RefusalOf(begin + PropertyBytes::Part(2, {})).contains(QStringLiteral("of kind 2")));
}

// Each byte in turn, and each length: whatever they say, reading ends, with a block or with a refusal.
TEST(JetPropertyBlock, NoByteLeadsOutside) {
    const QByteArray sound = SomeBlock();
    int soundCuts = 0;
    for (qsizetype at = 0; at < sound.size(); ++at) {
        for (const int byte : {0x00, 0x01, 0x05, 0x07, 0x7F, 0x80, 0xFF}) {
            QByteArray block = sound;
            block[at] = static_cast<char>(byte);
            block.squeeze();
            const Failing failing = FailureOf([&] { PropertyBlock{block}; });
            EXPECT_TRUE(failing.number == 0 || failing.number == ErrorNumber::InvalidOperation) << at;
        }
        soundCuts += FailureOf([&] { PropertyBlock{sound.left(at)}; }).number == 0 ? 1 : 0;
    }
    // Behind the signature, the names and each part but the last.
    EXPECT_EQ(soundCuts, 5);
}

}  // namespace
}  // namespace engine::jet
