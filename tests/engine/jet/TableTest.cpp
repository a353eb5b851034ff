#include "JetTest.h"
#include "TableFile.h"
#include "engine/jet/LongValues.h"
#include "engine/jet/Table.h"
#include "support/PrintQt.h"

#include <rapidcheck/gtest.h>

#include <map>

namespace engine::jet {
namespace {

constexpr int Id = 0;
constexpr int Yes = 1;
constexpr int Name = 2;
constexpr int Memo = 3;
constexpr int Picture = 4;

std::vector<Value> RowWith(const Value& name, const Value& memo = Null(), const Value& picture = Null()) {
    return {Null(), true, name, memo, picture};
}

QString Letters(int count, char letter = 'x') {
    return QString(count, QLatin1Char(letter));
}

class JetTable : public ::testing::Test {
protected:
    void TearDown() override {
        if (!isDamaged) {
            file.pages->EndGroup(GroupKind::Adds);
            EXPECT_TRUE(IsSound(file.Content()));
        }
    }

    std::vector<Value> ValuesOf(RowPlace key) const {
        const StoredRow row = table.Read(key);
        std::vector<Value> values;
        for (int column = 0; column < 5; ++column) {
            values.push_back(table.ValueOf(row, column));
        }
        return values;
    }
    Value ValueIn(RowPlace key, int column) const { return table.ValueOf(table.Read(key), column); }

    std::vector<RowPlace> Keys() const {
        std::vector<RowPlace> keys;
        for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
            keys.push_back(*key);
        }
        return keys;
    }

    RowState StateOf(RowPlace place) {
        return DataPage(file.pages->Read(place.page), place.page, file.layout.page).State(place.row);
    }

    /// Rows so short that they leave next to no room on a page.
    RowPlace AddShort() { return table.Insert(RowWith(Letters(10))); }

    TableFile file;
    Table& table = *file.table;
    bool isDamaged = false;  ///< By the test itself.
};

TEST_F(JetTable, ARowComesBackByItsKey) {
    const RowPlace key =
        table.Insert(RowWith(QStringLiteral("Ada"), QStringLiteral("a memo"), QByteArray("bytes")));
    EXPECT_EQ(ValuesOf(key), (std::vector<Value>{qint64{1}, true, QStringLiteral("Ada"),
                                                 QStringLiteral("a memo"), QByteArray("bytes")}));
    EXPECT_EQ(table.Figures().Rows(), 1U);
    EXPECT_EQ(Keys(), std::vector<RowPlace>{key});
}

TEST_F(JetTable, NumbersCountUpFromTheLastOne) {
    table.Insert(RowWith(Null()));
    std::vector<Value> given = RowWith(Null());
    given[Id] = qint64{10};
    table.Insert(given);
    given[Id] = qint64{5};
    EXPECT_EQ(ValueIn(table.Insert(given), Id), Value(qint64{5}));
    EXPECT_EQ(ValueIn(table.Insert(RowWith(Null())), Id), Value(qint64{11}));
    EXPECT_EQ(table.Figures().LastNumber(), 11);
}

TEST_F(JetTable, NumbersCountUpFromOneThatAnUpdateGave) {
    const RowPlace key = table.Insert(RowWith(Null()));
    table.Update(key, {{Id, qint64{10}}});
    EXPECT_EQ(table.Figures().LastNumber(), 10);
    EXPECT_EQ(ValueIn(table.Insert(RowWith(Null())), Id), Value(qint64{11}));
    table.Update(key, {{Id, qint64{5}}});
    EXPECT_EQ(table.Figures().LastNumber(), 11);
    table.Update(key, {{Id, Null()}});
    EXPECT_EQ(ValueIn(key, Id), Value(Null()));
}

TEST_F(JetTable, AfterTheHighestNumberThereIsNone) {
    std::vector<Value> given = RowWith(Null());
    given[Id] = qint64{2147483647};
    table.Insert(given);
    EXPECT_EQ(FailureOf([&] { table.Insert(RowWith(Null())); }).number, ErrorNumber::Other);
}

TEST_F(JetTable, RowsAreMetInTheOrderOfTheirPlaces) {
    std::vector<RowPlace> added;
    for (int row = 0; row < 600; ++row) {
        added.push_back(table.Insert(RowWith(QString::number(row))));
    }
    std::sort(added.begin(), added.end());
    EXPECT_EQ(Keys(), added);
    EXPECT_GT(added.back().page, added.front().page);
    EXPECT_EQ(table.Figures().Rows(), 600U);
}

TEST_F(JetTable, ADeletedRowIsGoneAndItsKeyIsNotGivenAgain) {
    const RowPlace key = table.Insert(RowWith(QStringLiteral("Ada")));
    const RowPlace other = table.Insert(RowWith(QStringLiteral("Bob")));
    table.Delete(key);
    EXPECT_EQ(Keys(), std::vector<RowPlace>{other});
    EXPECT_EQ(table.Find(key), std::nullopt);
    EXPECT_EQ(FailureOf([&] { table.Read(key); }).number, ErrorNumber::RecordDeleted);
    EXPECT_EQ(FailureOf([&] { table.Delete(key); }).number, ErrorNumber::RecordDeleted);
    EXPECT_EQ(FailureOf([&] { table.Update(key, {}); }).number, ErrorNumber::RecordDeleted);
    EXPECT_NE(table.Insert(RowWith(QStringLiteral("Cid"))), key);
    EXPECT_EQ(table.Figures().Rows(), 2U);
}

TEST_F(JetTable, AKeyThatNeverWasIsThatOfADeletedRow) {
    table.Insert(RowWith(QStringLiteral("Ada")));
    for (const RowPlace key :
         {RowPlace{file.layout.page, 0}, RowPlace{0xFFFFFF, 0}, RowPlace{Keys()[0].page, 77}}) {
        EXPECT_EQ(table.Find(key), std::nullopt);
    }
}

TEST_F(JetTable, AnUpdateKeepsTheColumnsThatItDoesNotName) {
    const RowPlace key = table.Insert(RowWith(QStringLiteral("Ada"), Letters(5000), QByteArray(3000, 'p')));
    table.Update(key, {{Name, QStringLiteral("Ada Finch")}, {Yes, false}});
    EXPECT_EQ(ValuesOf(key), (std::vector<Value>{qint64{1}, false, QStringLiteral("Ada Finch"), Letters(5000),
                                                 QByteArray(3000, 'p')}));
}

TEST_F(JetTable, ARowThatGrowsStaysOnItsPageWhereThatHasRoom) {
    const RowPlace key = table.Insert(RowWith(QStringLiteral("Ada")));
    const RowPlace other = table.Insert(RowWith(QStringLiteral("Bob")));
    table.Update(key, {{Name, Letters(200)}});
    EXPECT_EQ(StateOf(key), RowState::Here);
    EXPECT_EQ(ValueIn(key, Name), Value(Letters(200)));
    EXPECT_EQ(ValueIn(other, Name), Value(QStringLiteral("Bob")));
}

/// A page that is full, with a row that will grow.
class JetMovedRow : public JetTable {
protected:
    JetMovedRow() {
        while (AddShort().page == key.page) {
        }
        table.Update(key, {{Name, Letters(200)}});
    }

    RowPlace Target() {
        return ReadRowPlace(DataPage(file.pages->Read(key.page), key.page, file.layout.page).Row(key.row), 0);
    }

    RowPlace key = table.Insert(RowWith(QStringLiteral("Ada")));
    RowPlace neighbour = table.Insert(RowWith(QStringLiteral("Bob")));
};

TEST_F(JetMovedRow, ARowMovesWhereItsPageIsFullAndKeepsItsKey) {
    EXPECT_EQ(StateOf(key), RowState::MovedAway);
    EXPECT_NE(Target().page, key.page);
    EXPECT_EQ(StateOf(Target()), RowState::MovedHere);
    EXPECT_EQ(ValueIn(key, Name), Value(Letters(200)));
    const std::vector<RowPlace> keys = Keys();
    EXPECT_EQ(std::count(keys.begin(), keys.end(), key), 1);
    EXPECT_EQ(std::count(keys.begin(), keys.end(), Target()), 0);
    EXPECT_EQ(keys.size(), table.Figures().Rows());
    EXPECT_EQ(table.Find(Target()), std::nullopt);
}

TEST_F(JetMovedRow, AMovedRowGrowsWhereItIs) {
    const RowPlace target = Target();
    table.Update(key, {{Name, Letters(230)}});
    EXPECT_EQ(Target(), target);
    EXPECT_EQ(ValueIn(key, Name), Value(Letters(230)));
}

TEST_F(JetMovedRow, AMovedRowMovesAgainAndLeavesNothingBehind) {
    const RowPlace target = Target();
    while (AddShort().page == target.page) {
    }
    table.Update(key, {{Name, Letters(255)}, {Memo, Letters(26)}, {Picture, QByteArray(52, 'p')}});
    EXPECT_NE(Target(), target);
    EXPECT_EQ(StateOf(target), RowState::Deleted);
    EXPECT_EQ(StateOf(Target()), RowState::MovedHere);
    EXPECT_EQ(ValueIn(key, Name), Value(Letters(255)));
}

TEST_F(JetMovedRow, AMovedRowComesBackWhenItFits) {
    const RowPlace target = Target();
    table.Delete(neighbour);
    table.Update(key, {{Name, QStringLiteral("Ada")}});
    EXPECT_EQ(StateOf(key), RowState::Here);
    EXPECT_EQ(StateOf(target), RowState::Deleted);
    EXPECT_EQ(ValueIn(key, Name), Value(QStringLiteral("Ada")));
}

TEST_F(JetMovedRow, ADeletedRowIsGoneFromBothPlaces) {
    const RowPlace target = Target();
    table.Delete(key);
    EXPECT_EQ(StateOf(key), RowState::Deleted);
    EXPECT_EQ(StateOf(target), RowState::Deleted);
    EXPECT_EQ(Keys().size(), table.Figures().Rows());
}

TEST_F(JetMovedRow, AMoveThatLeadsInACircleIsDamage) {
    isDamaged = true;
    ChangeableDataPage page(file.pages->Change(key.page), key.page, file.layout.page);
    PutRowPlace(page.ChangeableRow(key.row), 0, key);
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Read(key); }));
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Delete(key); }));
}

TEST_F(JetMovedRow, AMoveToADeletedRowOrAnotherTableIsDamage) {
    isDamaged = true;
    const auto leadTo = [&](RowPlace place) {
        ChangeableDataPage page(file.pages->Change(key.page), key.page, file.layout.page);
        PutRowPlace(page.ChangeableRow(key.row), 0, place);
    };
    leadTo(neighbour);
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Read(key); }));
    leadTo({2, 0});
    EXPECT_TRUE(FindsDamage(2, [&] { table.Read(key); }));
    leadTo({0xFFFFFF, 0});
    EXPECT_TRUE(FindsDamage(0xFFFFFF, [&] { table.Read(key); }));
}

TEST_F(JetMovedRow, NothingIsWrittenToAPageThatTheMapDoesNotHave) {
    isDamaged = true;
    UsageMap(*file.pages, file.layout.pages).Remove(Target().page);
    EXPECT_TRUE(FindsDamage(Target().page, [&] { table.Update(key, {{Name, Letters(201)}}); }));
    EXPECT_TRUE(FindsDamage(Target().page, [&] { table.Delete(key); }));
}

TEST_F(JetTable, LongValuesOfEveryLengthComeBack) {
    for (const int length :
         {0, 1, 26, 27, 52, 53, 1024, 1025, 1815, 3630, 3631, 4072, 4073, 4074, 8144, 8145, 20000}) {
        const QByteArray bytes(length, 'b');
        const RowPlace key = table.Insert(RowWith(Null(), Letters(length), bytes));
        EXPECT_EQ(ValueIn(key, Memo), Value(Letters(length))) << length;
        EXPECT_EQ(ValueIn(key, Picture), Value(bytes)) << length;
    }
}

TEST_F(JetTable, WhatIsFreedOfLongValuesIsUsedAgain) {
    for (int row = 0; row < 40; ++row) {
        table.Insert(RowWith(Null(), Null(), QByteArray(9000, 'b')));
    }
    const PageNumber most = 2 * file.pages->Count();
    for (int round = 0; round < 5; ++round) {
        file.pages->EndGroup(GroupKind::Adds);
        for (const RowPlace key : Keys()) {
            table.Update(key, {{Picture, QByteArray(9000, static_cast<char>('c' + round))}});
        }
    }
    EXPECT_LE(file.pages->Count(), most);
}

TEST_F(JetTable, ALongValueThatRunsInACircleIsDamage) {
    isDamaged = true;
    const RowPlace key = table.Insert(RowWith(Null(), Null(), QByteArray(9000, 'b')));
    const StoredRow row = table.Read(key);
    const RowPlace first = ReadRowPlace(row.BytesOf(Picture), 4);
    ChangeableDataPage page(file.pages->Change(first.page), first.page, PageOwner::LongValues);
    PutRowPlace(page.ChangeableRow(first.row), 0, first);
    EXPECT_TRUE(FindsDamage(first.page, [&] { table.ValueOf(row, Picture); }));
    EXPECT_TRUE(FindsDamage(first.page, [&] { table.Delete(key); }));
}

TEST_F(JetTable, ALongValueThatEndsTooEarlyOrLiesElsewhereIsDamage) {
    const LongValues values(*file.pages, file.layout.columns[Picture]);
    const auto read = [&](std::uint32_t head, RowPlace place) {
        QByteArray reference(12, '\0');
        ChangeableBytes bytes = ChangeableBytesOf(reference, 4);
        bytes.Put32(0, head);
        PutRowPlace(bytes, 4, place);
        values.Read(BytesOf(reference, 4));
    };
    const RowPlace key = table.Insert(RowWith(Null(), Null(), QByteArray(100, 'b')));
    const RowPlace place = ReadRowPlace(table.Read(key).BytesOf(Picture), 4);
    EXPECT_NO_THROW(read(0x40000000 | 100, place));
    EXPECT_TRUE(FindsDamage(place.page, [&] { read(0x40000000 | 101, place); }));
    EXPECT_TRUE(FindsDamage(place.page, [&] { read(0x40000000 | 100, {place.page, 9}); }));
    EXPECT_TRUE(FindsDamage(key.page, [&] { read(0x40000000 | 10, key); }));
    EXPECT_TRUE(FindsDamage(0xFFFFFF, [&] { read(0x3FFFFFFF, {0xFFFFFF, 0}); }));
    EXPECT_TRUE(FindsDamage(4, [&] { read(0x80000000 | 1, {}); }));
    table.Delete(key);
    EXPECT_TRUE(FindsDamage(place.page, [&] { read(0x40000000 | 100, place); }));
}

TEST_F(JetTable, ARowMustHaveAValueForEachColumn) {
    EXPECT_EQ(FailureOf([&] { table.Insert({}); }).number, ErrorNumber::ValueCountMismatch);
}

TEST_F(JetTable, AValueThatItsColumnCannotHoldIsRefused) {
    EXPECT_EQ(FailureOf([&] { table.Insert(RowWith(Letters(256))); }).number, ErrorNumber::FieldTooSmall);
    EXPECT_EQ(FailureOf([&] { table.Insert(RowWith(Null(), qint64{1})); }).number, ErrorNumber::WrongType);
    EXPECT_EQ(FailureOf([&] { table.Insert(RowWith(Null(), Null(), QStringLiteral("x"))); }).number,
              ErrorNumber::WrongType);
}

TEST_F(JetTable, AWipeLeavesOnePageAndTheLastNumber) {
    for (int row = 0; row < 60; ++row) {
        table.Insert(RowWith(Letters(250)));
        table.Insert(RowWith(Null(), Letters(5000), QByteArray(100, 'b')));
    }
    const RowPlace first = Keys().front();
    file.pages->EndGroup(GroupKind::Adds);
    const PageNumber most = file.pages->Count();
    table.Wipe();
    file.pages->EndGroup(GroupKind::Removes);
    EXPECT_TRUE(Keys().empty());
    EXPECT_EQ(table.Figures().Rows(), 0U);
    EXPECT_EQ(UsageMap(*file.pages, file.layout.pages).All(), std::vector<PageNumber>{first.page});
    EXPECT_EQ(UsageMap(*file.pages, file.layout.pagesWithRoom).All(), std::vector<PageNumber>{first.page});
    EXPECT_TRUE(UsageMap(*file.pages, file.layout.columns[Memo].longPages).All().empty());
    EXPECT_EQ(ValueIn(table.Insert(RowWith(Null())), Id), Value(qint64{121}));
    for (int row = 0; row < 60; ++row) {
        table.Insert(RowWith(Letters(250)));
        table.Insert(RowWith(Null(), Letters(5000), QByteArray(100, 'b')));
    }
    EXPECT_EQ(file.pages->Count(), most);
}

/// Notes what it is told, and refuses what it is asked to.
class NotingObserver : public RowObserver {
public:
    explicit NotingObserver(const Table& table) : table_(table) {}

    void MayCome(const StoredRow* old, const StoredRow& row) override {
        Note(old == nullptr ? "may" : "may change", row);
        if (refuses) {
            throw Error(ErrorNumber::DuplicateKey, QStringLiteral("refused"));
        }
    }
    void Came(RowPlace key, const StoredRow& row) override {
        EXPECT_NE(table_.Find(key), std::nullopt);
        Note("came", row);
    }
    void Changed(RowPlace /*key*/, const StoredRow& old, const StoredRow& row) override {
        Note("was", old);
        Note("is", row);
    }
    void Goes(RowPlace key, const StoredRow& row) override {
        EXPECT_NE(table_.Find(key), std::nullopt);
        Note("goes", row);
    }
    void AllWent() override { told += QStringLiteral("all"); }

    QStringList told;
    bool refuses = false;

private:
    void Note(const char* what, const StoredRow& row) {
        told += QLatin1String(what) + QLatin1Char(' ') + ToText(table_.ValueOf(row, Memo));
    }

    const Table& table_;
};

TEST_F(JetTable, ObserversAreToldOfEachRow) {
    NotingObserver observer(table);
    table.Watch(observer);
    const RowPlace key = table.Insert(RowWith(Null(), Letters(60, 'a')));
    table.Update(key, {{Memo, QStringLiteral("b")}});
    table.Delete(key);
    table.Wipe();
    const QString a = Letters(60, 'a');
    EXPECT_EQ(observer.told,
              QStringList({QStringLiteral("may ") + a, QStringLiteral("came ") + a,
                           QStringLiteral("may change b"), QStringLiteral("was ") + a, QStringLiteral("is b"),
                           QStringLiteral("goes b"), QStringLiteral("all")}));
}

TEST_F(JetTable, AnObserverThatRefusesLeavesNoRow) {
    NotingObserver observer(table);
    table.Watch(observer);
    observer.refuses = true;
    const PagedFile::Mark mark = file.pages->SetMark();
    EXPECT_EQ(FailureOf([&] { table.Insert(RowWith(Null(), Letters(60))); }).number,
              ErrorNumber::DuplicateKey);
    file.pages->UndoTo(mark);
    EXPECT_TRUE(Keys().empty());
    EXPECT_EQ(table.Figures().Rows(), 0U);
}

TEST_F(JetTable, APageOfTheTableThatBelongsToSomebodyElseIsDamage) {
    isDamaged = true;
    const RowPlace key = table.Insert(RowWith(Null()));
    ChangeableBytes(file.pages->Change(key.page), key.page).Put32(4, 77);
    EXPECT_TRUE(FindsDamage(key.page, [&] { Keys(); }));
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Read(key); }));
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Insert(RowWith(Null())); }));
    EXPECT_TRUE(FindsDamage(key.page, [&] { table.Wipe(); }));
}

TEST(JetTableWithIndexes, IndexesThatGetSmallerGiveTheirPagesBack) {
    TableFile file(TableFile::Indexes::Some);
    const auto isSound = [&file](GroupKind kind) {
        file.pages->EndGroup(kind);
        return IsSound(file.Content());
    };
    std::vector<RowPlace> keys;
    const auto fill = [&] {
        for (int row = 0; row < 400; ++row) {
            keys.push_back(file.table->Insert(RowWith(QString::number(row * 7919 % 1000) + Letters(100))));
        }
    };
    fill();
    EXPECT_TRUE(isSound(GroupKind::Adds));
    for (std::size_t row = 0; row < keys.size(); ++row) {
        file.table->Delete(keys[row * 7 % keys.size()]);
    }
    EXPECT_TRUE(isSound(GroupKind::Removes));
    fill();
    file.pages->EndGroup(GroupKind::Adds);
    const PageNumber most = file.pages->Count();
    file.table->Wipe();
    EXPECT_TRUE(isSound(GroupKind::Removes));
    fill();
    EXPECT_TRUE(isSound(GroupKind::Adds));
    EXPECT_EQ(file.pages->Count(), most);
}

}  // namespace
}  // namespace engine::jet
