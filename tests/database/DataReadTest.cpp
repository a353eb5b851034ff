#include "DatabaseFixture.h"
#include "database/ErrorReport.h"
#include "database/RecordAccess.h"

namespace {

const platform::Failure Locked = FakeFailure(3260, "Locked.");

class DataRead : public DatabaseFixture {
protected:
    database::RecordsetReference Opened(int rows, int row = 0) {
        Rows().rows = rows;
        Rows().row = row;
        return std::make_unique<FakeRecordset>(Rows());
    }
};

TEST_F(DataRead, AnEmptyReferenceIsEmptyWithoutABox) {
    EXPECT_TRUE(database::DataIsEmpty(nullptr));
    ExpectNothingReported();
}

TEST_F(DataRead, ASetWithoutRowsIsEmpty) {
    EXPECT_TRUE(database::DataIsEmpty(Opened(0)));
    EXPECT_FALSE(database::DataIsEmpty(Opened(1)));
    EXPECT_FALSE(database::DataIsEmpty(Opened(1, 1))) << "behind its last row";
    ExpectNothingReported();
}

TEST_F(DataRead, ASetThatCanNotBeReadIsEmptyWithAReport) {
    Rows().failures.emplace("Bof", Locked);
    EXPECT_TRUE(database::DataIsEmpty(Opened(1)));
    ExpectReported("Data Is Empty", Locked, QString());
}

TEST_F(DataRead, BothEndsAreAskedForBeforeASetIsFull) {
    Rows().failures.emplace("Eof", Locked);
    EXPECT_TRUE(database::DataIsEmpty(Opened(1)));
    ExpectReported("Data Is Empty", Locked, QString());
}

TEST_F(DataRead, AClosedSetIsEmptyWithoutAReport) {
    Rows().failures.emplace("Bof", FakeFailure(3704, "Closed."));
    const int before = database::ReportedErrors();
    EXPECT_TRUE(database::DataIsEmpty(Opened(1)));
    ExpectNothingReported();
    EXPECT_EQ(database::ReportedErrors(), before);
}

TEST_F(DataRead, AnEmptyReferenceIsAtItsEndWithoutABox) {
    EXPECT_TRUE(database::DataEof(nullptr));
    ExpectNothingReported();
}

TEST_F(DataRead, TheEndIsTheSetsOwn) {
    EXPECT_FALSE(database::DataEof(Opened(1)));
    EXPECT_TRUE(database::DataEof(Opened(1, 1)));
    EXPECT_TRUE(database::DataEof(Opened(0)));
    ExpectNothingReported();
}

TEST_F(DataRead, ASetThatCanNotSayIsNotAtItsEnd) {
    Rows().failures.emplace("Eof", Locked);
    EXPECT_FALSE(database::DataEof(Opened(0)));
    ExpectReported("Data EOF", Locked, QString());
}

TEST_F(DataRead, AClosedSetIsReportedByDataEof) {
    const platform::Failure closed = FakeFailure(3704, "Closed.");
    Rows().failures.emplace("Eof", closed);
    EXPECT_FALSE(database::DataEof(Opened(0)));
    ExpectReported("Data EOF", closed, QString());
}

}  // namespace
