#include "Hex.h"
#include "TextKeyExamples.h"
#include "engine/jet/TextKey.h"

#include <QCryptographicHash>
#include <QString>

#include <gtest/gtest.h>

#include <algorithm>

namespace engine::jet {

namespace {

Key KeyOf(const QString& text, Order order = Order::Ascending) {
    Key key;
    AppendTextKey(key, text, order);
    return key;
}

std::string HexKeyOf(const QString& text, Order order = Order::Ascending) {
    return HexOf(KeyOf(text, order));
}

template <class Examples>
void ExpectKeysOf(const Examples& examples) {
    for (const TextKeyExample& example : examples) {
        EXPECT_EQ(HexKeyOf(QString::fromUtf16(example.text)), example.key)
            << QString::fromUtf16(example.text).toStdString();
    }
}

TEST(TextKey, WordsAndNamesHaveTheirKnownKeys) {
    ExpectKeysOf(WholeTexts);
}

TEST(TextKey, UnitsOfEachKindHaveTheirKnownKeys) {
    ExpectKeysOf(SingleUnits);
}

TEST(TextKey, SurrogatePairsHaveTheirKnownKeys) {
    ExpectKeysOf(SurrogatePairs);
}

// The digest was made of the keys in a file that another program had written.
TEST(TextKey, EveryUnitHasItsKnownKeyInFrontOfALetterAndBetweenTwo) {
    QCryptographicHash digest(QCryptographicHash::Sha256);
    for (int unit = 0; unit < 0x10000; ++unit) {
        const QChar character(unit);
        if (character.isSurrogate()) {
            continue;
        }
        for (const QString& text :
             {QString(character) + QLatin1Char('b'), QChar(0xE9) + QString(character) + QLatin1Char('b')}) {
            const Key key = KeyOf(text);
            digest.addData(QByteArrayView(key.data(), static_cast<qsizetype>(key.size())));
        }
    }
    EXPECT_EQ(digest.result().toHex().toStdString(),
              "d9cff370bbbdded7f75a0824ed2ef2e8348a95c05b59d5e089647705c8456c94");
}

TEST(TextKey, AnEmptyTextHasAKey) {
    EXPECT_EQ(HexKeyOf(QString()), "0100");
    EXPECT_EQ(HexKeyOf(QString(), Order::Descending), "FEFF00");
}

TEST(TextKey, BlanksAtTheEndDontCountAndOthersDo) {
    EXPECT_EQ(HexKeyOf(QStringLiteral("a b ")), "4A074C0100");
    EXPECT_EQ(KeyOf(QStringLiteral("   ")), KeyOf(QString()));
    EXPECT_NE(KeyOf(QStringLiteral(" a")), KeyOf(QStringLiteral("a")));
}

TEST(TextKey, TheCaseOfLettersDoesntCount) {
    EXPECT_EQ(KeyOf(QStringLiteral("Rent")), KeyOf(QStringLiteral("RENT")));
    EXPECT_EQ(HexKeyOf(QStringLiteral("Rent")), "6951626D0100");
}

TEST(TextKey, DescendingIsInvertedButForItsLastByte) {
    EXPECT_EQ(HexKeyOf(QStringLiteral("Rent"), Order::Descending), "96AE9D92FEFF00");
}

TEST(TextKey, OnlyTheFirst255UnitsCount) {
    const QString longest(255, QLatin1Char('x'));
    EXPECT_EQ(KeyOf(longest).size(), 257U);
    EXPECT_EQ(KeyOf(longest + QLatin1Char('y')), KeyOf(longest));
    EXPECT_NE(KeyOf(longest.left(254)), KeyOf(longest));
}

TEST(TextKey, BlanksThatTheCutLeavesAtTheEndDontCountEither) {
    const QString letters(250, QLatin1Char('x'));
    EXPECT_EQ(KeyOf(letters + QString(5, QLatin1Char(' ')) + QLatin1Char('y')), KeyOf(letters));
}

TEST(TextKey, AHyphenComesRightBehindTheWordWithoutIt) {
    Key coop = KeyOf(QStringLiteral("coop"));
    Key hyphen = KeyOf(QStringLiteral("co-op"));
    Key coops = KeyOf(QStringLiteral("coops"));
    EXPECT_LT(Compare(coop, hyphen), 0);
    EXPECT_LT(Compare(hyphen, coops), 0);
}

TEST(TextKey, AKeyIsAddedBehindWhatIsThere) {
    Key key = {0x7F};
    AppendTextKey(key, QStringLiteral("a"), Order::Ascending);
    AppendTextKey(key, QStringLiteral("a"), Order::Descending);
    EXPECT_EQ(HexOf(key), "7F4A0100B5FEFF00");
}

}  // namespace

}  // namespace engine::jet
