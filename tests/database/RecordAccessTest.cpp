#include "DatabaseFixture.h"
#include "database/ErrorReport.h"
#include "database/RecordAccess.h"

namespace {

using database::RecordsetReference;

const platform::Failure Refused = FakeFailure(3078, "No such table.");
const platform::Failure NotSet(91, QStringLiteral("Object variable or With block variable not set"));
const platform::Failure NoTextBefore(5, QStringLiteral("Invalid procedure call or argument"));

class RecordAccess : public DatabaseFixture {
protected:
    RecordsetReference Opened() { return std::make_unique<FakeRecordset>(Rows()); }
};

TEST_F(RecordAccess, CreateSetPassesTheRewrittenStatementTheTypeAndTheLock) {
    QString statement = QStringLiteral("select * from t where a = true");
    RecordsetReference recordset;
    database::CreateSet(recordset, statement, engine::dbOpenDynaset, engine::dbOptimistic);
    EXPECT_NE(recordset, nullptr);
    EXPECT_EQ(database_->statements, QStringList{QStringLiteral("select * from t where a = -1")});
    EXPECT_EQ(statement, QStringLiteral("select * from t where a = -1"));
    EXPECT_EQ(database_->lastType, 2);
    EXPECT_EQ(database_->lastLock, 3);
    ExpectNothingReported();
}

TEST_F(RecordAccess, CreateSetThatFailsLeavesTheSetEmpty) {
    database_->failures.emplace("OpenRecordset", Refused);
    QString statement = QStringLiteral("select true from t");
    RecordsetReference recordset = Opened();
    database::CreateSet(recordset, statement, 2, 3);
    EXPECT_EQ(recordset, nullptr);
    ExpectReported("Data Create Set", Refused, QStringLiteral("select -1 from t"));
}

TEST_F(RecordAccess, CreateSetReportsAStatementThatCanNotBeRewritten) {
    QString statement = QStringLiteral("''' true");
    RecordsetReference recordset;
    database::CreateSet(recordset, statement, 2, 3);
    EXPECT_TRUE(database_->statements.isEmpty());
    ExpectReported("Data Create Set", NoTextBefore, QStringLiteral("'''' -1"));
}

TEST_F(RecordAccess, CreateSetWithoutADatabaseIsReported) {
    database::SetCurrentDatabase(nullptr);
    QString statement = QStringLiteral("select");
    RecordsetReference recordset;
    database::CreateSet(recordset, statement, 2, 3);
    ExpectReported("Data Create Set", NotSet, QStringLiteral("select"));
}

TEST_F(RecordAccess, CheckWrittenTellsOfEachDifference) {
    database::CheckWritten();
    ExpectNothingReported();
    database_->differences = {{3167, QStringLiteral("Rows are missing.")}, {3024, QStringLiteral("Gone.")}};
    database::CheckWritten();
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[0], (platform::MessageBoxRequest{
                                      QStringLiteral("General Errors...\n\n3167 - Rows are missing.\n\n"),
                                      QStringLiteral("Import Data")}));
    EXPECT_EQ(boxes_.requests[1].title, QStringLiteral("Import Data"));
    EXPECT_TRUE(workplace_.ErrorLog().contains(QStringLiteral("3024 - Gone.")));
}

TEST_F(RecordAccess, ACheckThatFailsIsToldAsWell) {
    database_->failures.emplace("CheckWritten", Refused);
    database::CheckWritten();
    ExpectReported("Import Data", Refused, database::DatabaseFile());
}

TEST_F(RecordAccess, ExecuteSqlRunsTheRewrittenStatement) {
    QString statement = QStringLiteral("update t set a = 'O'Brien' and b");
    EXPECT_TRUE(database::ExecuteSql(statement));
    EXPECT_EQ(statement, QStringLiteral("update t set a = 'O''Brien' and b"));
    EXPECT_TRUE(database::ExecuteSql(QStringLiteral("update t set a = false")));
    EXPECT_EQ(database_->statements, (QStringList{QStringLiteral("update t set a = 'O''Brien' and b"),
                                                  QStringLiteral("update t set a = 0")}));
    ExpectNothingReported();
}

TEST_F(RecordAccess, ExecuteSqlThatFailsIsReportedAndFalse) {
    database_->failures.emplace("Execute", Refused);
    EXPECT_FALSE(database::ExecuteSql(QStringLiteral("delete from t where a = true")));
    ExpectReported("Execute SQL", Refused, QStringLiteral("delete from t where a = -1"));
}

TEST_F(RecordAccess, ExecuteSqlReportsAStatementThatCanNotBeRewritten) {
    EXPECT_FALSE(database::ExecuteSql(QStringLiteral("x'")));
    EXPECT_TRUE(database_->statements.isEmpty());
    ExpectReported("Execute SQL", NoTextBefore, QStringLiteral("x'"));
}

TEST_F(RecordAccess, ExecuteSqlWithoutADatabaseIsReported) {
    database::SetCurrentDatabase(nullptr);
    EXPECT_FALSE(database::ExecuteSql(QStringLiteral("delete from t")));
    ExpectReported("Execute SQL", NotSet, QStringLiteral("delete from t"));
}

TEST_F(RecordAccess, FailuresThatAreNotTheEnginesAreReportedToo) {
    class Broken : public FakeDatabase {
        void Execute(const QString&) override { throw std::runtime_error("broken"); }
    };
    database::SetCurrentDatabase(std::make_shared<Broken>());
    EXPECT_FALSE(database::ExecuteSql(QStringLiteral("delete from t")));
    ExpectReported("Execute SQL", FakeFailure(51, "broken"), QStringLiteral("delete from t"));
}

struct StepCase {
    const char* label;
    const char* operation;
    bool (*step)(const RecordsetReference&);
};

class RowStep : public RecordAccess, public ::testing::WithParamInterface<StepCase> {};

TEST_P(RowStep, CallsTheEngine) {
    EXPECT_TRUE(GetParam().step(Opened()));
    EXPECT_EQ(Rows().calls, QStringList{QString::fromLatin1(GetParam().operation)});
    ExpectNothingReported();
}

TEST_P(RowStep, ReportsAFailure) {
    Rows().failures.emplace(GetParam().operation, Refused);
    EXPECT_FALSE(GetParam().step(Opened()));
    ExpectReported(GetParam().label, Refused, QString());
}

TEST_P(RowStep, ReportsAnEmptyReference) {
    EXPECT_FALSE(GetParam().step(nullptr));
    ExpectReported(GetParam().label, NotSet, QString());
}

INSTANTIATE_TEST_SUITE_P(All, RowStep,
                         ::testing::Values(StepCase{"Add Record", "AddNew", database::AddRecord},
                                           StepCase{"Edit Record", "Edit", database::EditRecord},
                                           StepCase{"Move Next", "MoveNext", database::MoveNextRecord}));

TEST(Nz, GivesTheFallbackForNullOnly) {
    const engine::Value fallback = QStringLiteral("fallback");
    EXPECT_TRUE(database::Nz(engine::Null(), fallback) == fallback);
    EXPECT_TRUE(database::Nz(qint64(0), fallback) == engine::Value(qint64(0)));
    EXPECT_TRUE(database::Nz(QString(), fallback) == engine::Value(QString()));
}

TEST_F(RecordAccess, ALostWriteIsReportedOnceLikeAFailedStatement) {
    ASSERT_TRUE(database_->lostWriteListener);
    const int before = database::ReportedErrors();
    database_->lostWriteListener(engine::Error(3183, QStringLiteral("Disk full.")),
                                 QStringLiteral("insert into t values (1)"));
    ExpectReported("Execute SQL", FakeFailure(3183, "Disk full."),
                   QStringLiteral("insert into t values (1)"));
    EXPECT_EQ(database::ReportedErrors(), before + 1);
}

}  // namespace
