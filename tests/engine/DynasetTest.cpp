#include "EngineTest.h"
#include "platform/Failure.h"

#include <ctime>

namespace engine {

namespace {

class DynasetTest : public EngineTest {
protected:
    void Insert(const char* code, int number) {
        database->Execute(QStringLiteral("insert into things(code, short) values('%1', %2)")
                              .arg(QLatin1String(code))
                              .arg(number));
    }

    static QString CodeOf(Recordset& rows) { return ToText(rows.Fields(QStringLiteral("code")).Get()); }
};

const QString Code = QStringLiteral("code");
const QString Short = QStringLiteral("short");

/// Sets the clock of a place where summer begins at midnight of the first Sunday in November, so that this
/// day has no midnight.
class PlaceWithoutMidnight {
public:
    PlaceWithoutMidnight() : before_(qgetenv("TZ")) { Move("BRT3BRST,M11.1.0/0,M2.3.0/0"); }
    ~PlaceWithoutMidnight() { Move(before_); }
    PlaceWithoutMidnight(const PlaceWithoutMidnight&) = delete;
    PlaceWithoutMidnight& operator=(const PlaceWithoutMidnight&) = delete;

private:
    static void Move(const QByteArray& zone) {
        zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
        tzset();
    }

    QByteArray before_;
};

TEST_F(DynasetTest, AnEmptySetIsAtBothEnds) {
    const auto rows = Dynaset("select * from things");
    EXPECT_TRUE(rows->Bof());
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Get(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(DynasetTest, ListsTheColumnsWithTheirTypes) {
    const auto rows = Dynaset("select * from things");
    const std::vector<DataType> types = {dbText,   dbBoolean, dbByte, dbInteger,    dbLong, dbCurrency,
                                         dbSingle, dbDouble,  dbDate, dbLongBinary, dbMemo, dbText};
    ASSERT_EQ(rows->FieldCount(), static_cast<int>(types.size()));
    for (int place = 0; place < rows->FieldCount(); ++place) {
        EXPECT_EQ(rows->Fields(place).Type(), types[static_cast<size_t>(place)]) << place;
    }
    EXPECT_EQ(rows->Fields(QStringLiteral("TWO Words")).Name(), QStringLiteral("two words"));
    EXPECT_EQ(ErrorOf([&] { rows->Fields(12); }), ErrorNumber::NoSuchItem);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(-1); }), ErrorNumber::NoSuchItem);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(QStringLiteral("missing")); }), ErrorNumber::NoSuchItem);
}

TEST_F(DynasetTest, ADateIsThatDayInEveryPlace) {
    const PlaceWithoutMidnight place;
    database->Execute(QStringLiteral("insert into things(code, date) values('lit', #11/04/2018#)"));
    database->Execute(QStringLiteral("insert into things(code, date) values('text', '2018-11-04')"));
    database->Execute(QStringLiteral("insert into things(code, date) values('time', '2018-11-04 00:30:00')"));
    const auto rows = Dynaset("select code, date from things order by code");
    const QDate day(2018, 11, 4);
    EXPECT_EQ(rows->Fields(1).Get(), FromDate(day));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields(1).Get(), FromDate(day));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields(1).Get(), Value(QDateTime(day, QTime(0, 30), Qt::UTC)));
    EXPECT_EQ(Rows("select date from things order by code"),
              (QStringList{QStringLiteral("2018-11-04"), QStringLiteral("2018-11-04"),
                           QStringLiteral("2018-11-04 00:30:00")}));
}

TEST_F(DynasetTest, ANewRowTakesEveryNatureOfValue) {
    const auto rows = Dynaset("select * from things");
    rows->AddNew();
    rows->Fields(Code).Set(QStringLiteral("007"));
    rows->Fields(QStringLiteral("yes")).Set(true);
    rows->Fields(QStringLiteral("byte")).Set(qint64(255));
    rows->Fields(Short).Set(qint64(-32768));
    rows->Fields(QStringLiteral("long")).Set(2.5);
    rows->Fields(QStringLiteral("money")).Set(0.12345);
    rows->Fields(QStringLiteral("single")).Set(1.5);
    rows->Fields(QStringLiteral("number")).Set(-12.5);
    rows->Fields(QStringLiteral("date")).Set(FromDate(QDate(1234, 2, 3)));
    rows->Fields(QStringLiteral("bytes")).Set(QByteArray("\0\1", 2));
    rows->Fields(QStringLiteral("memo")).Set(QStringLiteral("007"));
    EXPECT_EQ(ToText(rows->Fields(Code).Get()), QStringLiteral("007")) << "the value being edited shows";
    EXPECT_TRUE(IsNull(rows->Fields(QStringLiteral("two words")).Get()));
    rows->Update();
    EXPECT_EQ(Rows("select code, yes, byte, short, long, money, single, number, date, hex(bytes), memo, [two "
                   "words] from "
                   "things"),
              QStringList{QStringLiteral("007|-1|255|-32768|2|0.1234|1.5|-12.5|1234-02-03|0001|007|NULL")});

    const auto again = Dynaset("select * from things");
    EXPECT_EQ(again->Fields(Code).Get(), Value(QStringLiteral("007")));
    EXPECT_EQ(again->Fields(QStringLiteral("memo")).Get(), Value(QStringLiteral("007")));
    EXPECT_EQ(again->Fields(QStringLiteral("yes")).Get(), Value(true));
    EXPECT_EQ(again->Fields(QStringLiteral("money")).Get(), Value(Currency::FromScaled(1234)));
    EXPECT_EQ(ToDate(again->Fields(QStringLiteral("date")).Get()), QDate(1234, 2, 3));
    EXPECT_EQ(again->Fields(QStringLiteral("bytes")).Get(), Value(QByteArray("\0\1", 2)));
    EXPECT_TRUE(IsNull(again->Fields(QStringLiteral("two words")).Get()));
}

// On their way they are doubles, which tell cents of amounts up to 70,368,744,177,664 apart. Scaled by 10,000
// they have more digits than a double.
TEST_F(DynasetTest, LargeAmountsKeepTheirCents) {
    for (const qint64 cents : {54'975'581'388'806, 90'000'000'000'007, 899'999'999'999'999,
                               3'074'457'345'618'248, -3'074'457'345'618'248, 7'036'874'417'766'399}) {
        const Currency amount = Currency::FromScaled(cents * 100);
        const QString text = amount.ToText(QStringLiteral("."));
        database->Execute(QStringLiteral("delete from things"));
        database->Execute(QStringLiteral("insert into things(money) values(%1)").arg(text));
        const auto rows = Dynaset("select money from things");
        EXPECT_EQ(rows->Fields(0).Get(), Value(amount)) << "of a statement: " << text.toStdString();
        for (const Value& value : {Value(amount), Value(text.toDouble())}) {
            rows->Edit();
            rows->Fields(0).Set(Null());
            rows->Update();
            rows->Edit();
            rows->Fields(0).Set(value);
            rows->Update();
            EXPECT_EQ(Dynaset("select money from things")->Fields(0).Get(), Value(amount))
                << "of a row set: " << text.toStdString();
        }
        EXPECT_EQ(Rows(qPrintable(QStringLiteral("select money = %1 from things").arg(text))),
                  QStringList{QStringLiteral("1")})
            << "to another reader: " << text.toStdString();
    }
}

TEST_F(DynasetTest, AnAddedRowIsNotAmongTheRowsOfTheSet) {
    const auto rows = Dynaset("select * from things");
    rows->AddNew();
    rows->Fields(Code).Set(QStringLiteral("a"));
    rows->Update();
    EXPECT_TRUE(rows->Eof());
    EXPECT_FALSE(Dynaset("select * from things")->Eof());
}

TEST_F(DynasetTest, ARefusedRowCanBeCancelledAndTheNextOneGoesIn) {
    const auto rows = Dynaset("select * from things");
    rows->AddNew();
    rows->Fields(Code).Set(QStringLiteral("123456"));
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::FieldTooSmall);
    rows->CancelUpdate();
    EXPECT_EQ(ErrorOf([&] { rows->Fields(Code).Set(QStringLiteral("x")); }), ErrorNumber::NoEditStarted);
    rows->AddNew();
    EXPECT_TRUE(IsNull(rows->Fields(Code).Get())) << "nothing of the cancelled row is left";
    rows->Fields(Code).Set(QStringLiteral("12345"));
    rows->Update();
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("12345")});
}

TEST_F(DynasetTest, UpdateAndCancelNeedAnEdit) {
    Insert("a", 1);
    const auto rows = Dynaset("select * from things");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::NoEditStarted);
    EXPECT_EQ(ErrorOf([&] { rows->CancelUpdate(); }), ErrorNumber::NoEditStarted);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Set(QStringLiteral("x")); }), ErrorNumber::NoEditStarted);
}

TEST_F(DynasetTest, WrongTypesAreRefused) {
    const auto rows = Dynaset("select * from things");
    const auto refuse = [&](const char* column, const Value& value) {
        rows->AddNew();
        rows->Fields(QString::fromUtf8(column)).Set(value);
        const int number = ErrorOf([&] { rows->Update(); });
        rows->CancelUpdate();
        return number;
    };
    EXPECT_EQ(refuse("short", QStringLiteral("abc")), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("short", 40000.0), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("date", 5.0), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("date", QDateTime()), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("date", FromDate(QDate(10000, 1, 1))), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("bytes", QStringLiteral("x")), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("number", std::numeric_limits<double>::infinity()), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("money", 1e300), ErrorNumber::WrongType);
    EXPECT_EQ(refuse("code", QByteArray("x")), ErrorNumber::WrongType);
}

TEST_F(DynasetTest, EditChangesOnlyWhatWasSet) {
    Insert("a", 1);
    const auto rows = Dynaset("select * from things");
    rows->Edit();
    rows->Fields(Short).Set(qint64(2));
    database->Flush();
    EXPECT_TRUE(RunElsewhere(path, "update things set number = 7"));
    rows->Update();
    EXPECT_EQ(Rows("select code, short, number from things"), QStringList{QStringLiteral("a|2|7.0")});
    EXPECT_EQ(ToDouble(rows->Fields(Short).Get()), 2) << "the current row shows what was written";
}

TEST_F(DynasetTest, EditShowsWhatAnotherProgramHasWrittenSinceTheRowWasLookedAt) {
    Insert("a", 1);
    database->Flush();
    const auto rows = Dynaset("select * from things");
    EXPECT_EQ(ToDouble(rows->Fields(Short).Get()), 1);
    ASSERT_TRUE(RunElsewhere(path, "update things set short = 5"));
    EXPECT_EQ(ToDouble(rows->Fields(Short).Get()), 1) << "it was looked at before";
    rows->Edit();
    EXPECT_EQ(ToDouble(rows->Fields(Short).Get()), 5);
}

TEST_F(DynasetTest, TheOrderIsSettledWhenTheSetIsOpened) {
    Insert("a", 1);
    Insert("b", 2);
    Insert("c", 3);
    const auto rows = Dynaset("select * from things order by short desc");
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("c"));
    rows->Edit();
    rows->Fields(Short).Set(qint64(0));
    rows->Update();
    rows->MoveNext();
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("b"));
    rows->MoveNext();
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("a"));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_FALSE(rows->Bof());
}

TEST_F(DynasetTest, EqualRowsComeInTheOrderInWhichTheyWereAdded) {
    Insert("z", 1);
    Insert("y", 1);
    Insert("x", 1);
    const auto rows = Dynaset("select * from things order by short desc");
    QStringList codes;
    for (; !rows->Eof(); rows->MoveNext()) {
        codes += CodeOf(*rows);
    }
    EXPECT_EQ(codes, (QStringList{QStringLiteral("z"), QStringLiteral("y"), QStringLiteral("x")}));
}

TEST_F(DynasetTest, ADeletedRowStaysCurrentUntilTheMove) {
    Insert("a", 1);
    Insert("b", 2);
    const auto rows = Dynaset("select * from things order by code");
    rows->Delete();
    EXPECT_FALSE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Get(); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::RecordDeleted);
    rows->MoveNext();
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("b"));
    EXPECT_EQ(Rows("select code from things"), QStringList{QStringLiteral("b")});
}

TEST_F(DynasetTest, ARowDeletedByAnotherProgramIsAnError) {
    Insert("a", 1);
    Insert("b", 2);
    Insert("c", 3);
    database->Flush();
    const auto rows = Dynaset("select * from things order by code");
    ASSERT_TRUE(RunElsewhere(path, "delete from things where code in ('a', 'b')"));
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Get(); }), ErrorNumber::RecordDeleted);
    rows->MoveNext();
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::RecordDeleted);
    rows->MoveNext();
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("c"));
    rows->Edit();
    rows->Fields(Short).Set(qint64(4));
    database->Flush();
    ASSERT_TRUE(RunElsewhere(path, "delete from things"));
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::RecordDeleted);
}

TEST_F(DynasetTest, ASetCanShowSomeColumnsUnderOtherNames) {
    Insert("a", 1);
    const auto rows = Dynaset("select short as result, code from things where code = 'a'");
    EXPECT_EQ(rows->FieldCount(), 2);
    rows->Edit();
    rows->Fields(QStringLiteral("RESULT")).Set(qint64(9));
    rows->Update();
    EXPECT_EQ(Rows("select short from things"), QStringList{QStringLiteral("9")});
    EXPECT_EQ(ErrorOf([&] { Dynaset("select 'x' as a from things"); }), ErrorNumber::InvalidOperation);
}

TEST_F(DynasetTest, UniqueKeysAreKept) {
    Insert("a", 1);
    const auto rows = Dynaset("select * from things");
    rows->AddNew();
    rows->Fields(Code).Set(QStringLiteral("a"));
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::DuplicateKey);
    rows->CancelUpdate();
    EXPECT_EQ(Rows("select count(*) from things"), QStringList{QStringLiteral("1")});
}

TEST_F(DynasetTest, ReadOnlySetsRefuseChanges) {
    Insert("a", 1);
    const auto rows =
        database->OpenRecordset(QStringLiteral("select * from things"), dbOpenDynaset, dbReadOnly);
    EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::ReadOnlyDatabase);
}

TEST_F(DynasetTest, ForwardOnlySetsGoForwardOnly) {
    Insert("a", 1);
    Insert("b", 2);
    const auto rows =
        database->OpenRecordset(QStringLiteral("select code, short as result from things where short > 0 "
                                               "and code <> 'x' order by code"),
                                dbOpenForwardOnly, dbReadOnly);
    EXPECT_FALSE(rows->Bof());
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("a"));
    EXPECT_EQ(rows->Fields(1).Type(), dbInteger);
    EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Edit(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->CancelUpdate(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), ErrorNumber::ReadOnlyDatabase);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Set(true); }), ErrorNumber::ReadOnlyDatabase);
    rows->MoveNext();
    EXPECT_EQ(ToDouble(rows->Fields(QStringLiteral("result")).Get()), 2);
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Fields(0).Get(); }), ErrorNumber::NoCurrentRecord);
}

TEST_F(DynasetTest, AForwardOnlySetGoesOnThroughCommits) {
    Insert("a", 1);
    Insert("b", 2);
    const auto rows = database->OpenRecordset(QStringLiteral("select * from things order by code"),
                                              dbOpenForwardOnly, dbReadOnly);
    database->Execute(QStringLiteral("insert into notes(text) values('x')"));
    database->Flush();
    rows->MoveNext();
    EXPECT_EQ(CodeOf(*rows), QStringLiteral("b"));
    EXPECT_EQ(Rows("select count(*) from notes"), QStringList{QStringLiteral("1")});
}

TEST_F(DynasetTest, OpeningWhatHasNoRows) {
    const auto open = [this](const char* statement, short type) {
        return ErrorOf([&] { database->OpenRecordset(QString::fromUtf8(statement), type, dbOptimistic); });
    };
    EXPECT_EQ(open("delete from things", dbOpenDynaset), ErrorNumber::InvalidOperation);
    EXPECT_EQ(open("select * from things", 4), ErrorNumber::InvalidOperation);
    EXPECT_EQ(open("select * from missing", dbOpenDynaset), ErrorNumber::NoSuchTable);
    EXPECT_EQ(open("select missing from things", dbOpenForwardOnly), ErrorNumber::NoSuchColumn);
}

TEST_F(DynasetTest, StoredValuesOfAnotherNatureComeAsTheyAre) {
    ASSERT_TRUE(RunElsewhere(
        path, "insert into things(short, date, money, number) values('abc', 'soon', 'much', 3)"));
    const auto rows = Dynaset("select * from things");
    EXPECT_EQ(rows->Fields(Short).Get(), Value(QStringLiteral("abc")));
    EXPECT_EQ(rows->Fields(QStringLiteral("date")).Get(), Value(QStringLiteral("soon")));
    EXPECT_EQ(rows->Fields(QStringLiteral("number")).Get(), Value(3.0));
    EXPECT_THROW(ToDouble(rows->Fields(QStringLiteral("money")).Get()), platform::Failure);
}

}  // namespace

}  // namespace engine
