#include "database/RecordAccess.h"
#include "records/NewRow.h"
#include "records/SetFieldDefaults.h"
#include "support/FakeDatabase.h"
#include "support/RecordsTest.h"

namespace {

class SetFieldDefaultsTest : public RecordsTest {
protected:
    const engine::Value& ValueAt(std::size_t place) {
        value_ = rows_.fields.at(place)->Get();
        return value_;
    }

    FakeRows rows_;
    engine::Value value_;
};

TEST_F(SetFieldDefaultsTest, EachTypeHasItsDefault) {
    for (const auto type :
         {engine::dbInteger, engine::dbLong, engine::dbCurrency, engine::dbSingle, engine::dbDouble}) {
        rows_.AddField("number", type, {});
    }
    rows_.AddField("text", engine::dbText, {});
    rows_.AddField("memo", engine::dbMemo, {});
    rows_.AddField("date", engine::dbDate, {});
    rows_.AddField("yes", engine::dbBoolean, {});
    FakeRecordset row(rows_);

    records::SetFieldDefaults(row);

    for (std::size_t place = 0; place < 5; ++place) {
        EXPECT_EQ(engine::ToDouble(ValueAt(place)), 0) << place;
    }
    EXPECT_EQ(ValueAt(5), engine::Value(QString()));
    EXPECT_EQ(ValueAt(6), engine::Value(QString()));
    EXPECT_EQ(ValueAt(7), engine::FromDate(QDate(2026, 6, 10)));
    EXPECT_EQ(ValueAt(8), engine::Value(false));
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(SetFieldDefaultsTest, AnUnknownTypeIsToldAndLeftAndTheWalkGoesOn) {
    rows_.AddField("byte", engine::dbByte, {});
    rows_.AddField("picture", engine::dbLongBinary, {});
    rows_.AddField("number", engine::dbLong, {});
    FakeRecordset row(rows_);

    records::SetFieldDefaults(row);

    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[0].text, u"Unknown type 2"_s);
    EXPECT_EQ(boxes_.requests[0].title, platform::ApplicationTitle());
    EXPECT_EQ(boxes_.requests[1].text, u"Unknown type 11"_s);
    EXPECT_TRUE(engine::IsNull(ValueAt(0)));
    EXPECT_TRUE(engine::IsNull(ValueAt(1)));
    EXPECT_EQ(engine::ToDouble(ValueAt(2)), 0);
}

TEST_F(SetFieldDefaultsTest, ARowGetsItsDefaultsFirstAndThenItsValues) {
    rows_.AddField("code", engine::dbText, {});
    rows_.AddField("other", engine::dbText, {});

    records::AddRow(std::make_unique<FakeRecordset>(rows_), {{u"CODE"_s, u"ABC"_s}});

    EXPECT_EQ(rows_.calls, (QStringList{u"AddNew"_s, u"Update 1 0"_s}));
    EXPECT_EQ(ValueAt(0), engine::Value(u"ABC"_s));
    EXPECT_EQ(ValueAt(1), engine::Value(QString()));
}

TEST_F(SetFieldDefaultsTest, ARowThatCannotBeBegunIsReportedAndLeftOut) {
    rows_.AddField("code", engine::dbText, {});
    rows_.failures.emplace("AddNew", FakeFailure(engine::ErrorNumber::ReadOnlyDatabase, "read only"));

    records::AddRow(std::make_unique<FakeRecordset>(rows_), {{u"code"_s, u"ABC"_s}});

    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].title, u"Add Record"_s);
    EXPECT_EQ(rows_.calls, QStringList{u"AddNew"_s});
    EXPECT_TRUE(engine::IsNull(ValueAt(0)));
}

TEST_F(SetFieldDefaultsTest, ARowSetThatCouldNotBeOpenedCannotBeFilled) {
    const database::RecordsetReference none;
    EXPECT_EQ(FailureOf([&] { records::AddRow(none, {}); }), platform::FailureNumber::ObjectNotSet);
    EXPECT_EQ(FailureOf([&] { records::Column(none, u"code"_s); }), platform::FailureNumber::ObjectNotSet);
}

}  // namespace
