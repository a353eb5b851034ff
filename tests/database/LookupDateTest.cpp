#include "DatabaseFixture.h"
#include "database/RecordAccess.h"

namespace {

const QDate Default(2000, 1, 1);

class LookupDate : public DatabaseFixture {
protected:
    QDate Lookup() const {
        return database::LookupDate(QStringLiteral("max(paid)"), QStringLiteral("revenues"),
                                    QStringLiteral("where name = 'O'Brien'"), Default);
    }

    void AddRow(const engine::Value& value) {
        Rows().rows = 1;
        Rows().AddField("Result", engine::dbDate, value);
    }
};

const QString Rewritten = QStringLiteral("select max(paid) as result from revenues where name = 'O''Brien'");

TEST_F(LookupDate, ReadsTheFirstRow) {
    AddRow(engine::FromDate(QDate(2026, 11, 5)));
    EXPECT_EQ(Lookup(), QDate(2026, 11, 5));
    EXPECT_EQ(database_->statements, QStringList{Rewritten});
    EXPECT_EQ(database_->lastType, 8);
    EXPECT_EQ(database_->lastLock, 4);
    ExpectNothingReported();
}

TEST_F(LookupDate, GivesTheDefaultWithoutARow) {
    EXPECT_EQ(Lookup(), Default);
    ExpectNothingReported();
}

TEST_F(LookupDate, GivesTheDefaultForNull) {
    AddRow(engine::Null());
    EXPECT_EQ(Lookup(), Default);
    ExpectNothingReported();
}

TEST_F(LookupDate, ReportsASetThatCanNotBeOpened) {
    const platform::Failure refused = FakeFailure(3078, "No such table.");
    database_->failures.emplace("OpenRecordset", refused);
    EXPECT_EQ(Lookup(), Default);
    ExpectReported("Data Create Set", refused, Rewritten);
}

TEST_F(LookupDate, ReportsARowThatCanNotBeRead) {
    const platform::Failure deleted = FakeFailure(3167, "Record is deleted.");
    AddRow(engine::Null());
    Rows().failures.emplace("Get", deleted);
    EXPECT_EQ(Lookup(), Default);
    ExpectReported("Data Create Set", deleted, Rewritten);
}

}  // namespace
