#include "platform/FileLock.h"
#include "records/ImportRun.h"
#include "support/FakeDatabaseInPlace.h"
#include "support/FormatUnderTest.h"
#include "support/HearthbookTest.h"
#include "support/OtherProcess.h"

#include <QRegularExpression>

namespace {

using records::TheCollections;

/// What the wipe runs, in its order.
const QStringList wipe = {
    u"delete from notes"_s,
    u"delete from mortgage"_s,
    u"delete from disbursement"_s,
    u"delete from workorder"_s,
    u"delete from GLCODES where gl_code = 'Payee1' and description = 'Fence Repairs Ltd'"_s,
    u"delete from contractor where contractornumber = 1000 and name = 'Freds Gardening'"_s,
    u"delete from contractor where contractornumber = 1001 and name = 'Toms Tree Services'"_s,
    u"delete from recon"_s,
    u"delete from property"_s,
    u"delete from tenancy"_s,
    u"delete from owner"_s,
    u"delete from auto_fee"_s,
    u"delete from autopayment"_s,
    u"delete from autorevenue"_s,
    u"delete from budget"_s,
    u"delete from budgetproperty"_s,
    u"delete from budgetvalue"_s,
    u"delete from chattel"_s,
    u"delete from custom_fields"_s,
    u"delete from expenses"_s,
    u"delete from extra_fees"_s,
    u"delete from budgetproperty"_s,
    u"delete from glcodes where type = 3"_s,
    u"delete from insp_room_attr"_s,
    u"delete from insp_rooms"_s,
    u"delete from insp_schedule"_s,
    u"delete from mileage"_s,
    u"delete from pictures"_s,
    u"delete from property_rooms"_s,
    u"delete from rent_periods"_s,
    u"delete from rent_periods_charges"_s,
    u"delete from rentchanges"_s,
    u"delete from revenues"_s,
    u"delete from split_charges"_s,
    u"delete from tenant_bond"_s,
    u"delete from woquote"_s,
    u"delete from workorder"_s,
};

class CutOffTest : public RecordsTest {
protected:
    FakeDatabaseInPlace database_;
};

TEST_F(CutOffTest, MarksUpToTheDayOfTheLastDisbursement) {
    records::CurrentSettings().LastDisbursement = QDate(2026, 10, 31);
    records::SetDisbursementCutOff();
    EXPECT_EQ(database_->statements,
              (QStringList{u"update expenses set disburse_id = -1 where [date] <= #10/31/2026#"_s,
                           u"update revenues set disburse_id = -1 where [date] <= #10/31/2026#"_s}));
}

TEST_F(CutOffTest, DoesNothingWithoutADay) {
    records::SetDisbursementCutOff();
    records::CurrentSettings().LastDisbursement = QDate(1234, 12, 31);
    records::SetDisbursementCutOff();
    EXPECT_EQ(database_->statements, QStringList());
}

TEST_F(CutOffTest, WithoutADatabaseNothingIsDeleted) {
    database::UseDatabaseFile(workplace_.Path(u"missing.mdb"_s));
    records::WipeDatabase();
    database::UseDatabaseFile(QString());
    EXPECT_EQ(database_->statements, QStringList());
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_EQ(boxes_.requests[0].title, u"Start ADO"_s);
}

class ImportRunTest : public HearthbookTest {};

TEST_F(ImportRunTest, TheWipeRunsAllItsStatementsWhateverFails) {
    const QString path = workplace_.Path(u"other.mdb"_s);
    engine::DBEngine::Instance().CreateDatabase(path, FormatUnderTest(),
                                                {{u"other"_s, {{u"code"_s, engine::dbText, 5}}, {}}});
    database::UseDatabaseFile(path);
    records::WipeDatabase();
    ASSERT_EQ(boxes_.requests.size(), 37U);
    for (const auto& box : boxes_.requests) {
        EXPECT_EQ(box.title, u"Execute SQL"_s);
    }
    EXPECT_EQ(workplace_.ErrorLog().split(u'\n').filter(QRegularExpression(u"^delete"_s)), wipe);
}

TEST_F(ImportRunTest, TheWipeKeepsWhatIsTheUsersOwn) {
    Execute(u"insert into contractor (contractornumber, name) values (1002, 'Freds Gardening')"_s);
    Execute(u"insert into contractor (contractornumber, name) values (1000, 'Another')"_s);
    Execute(u"insert into glcodes (gl_code, description, type) values ('Payee1', 'Own Payee', 4)"_s);
    Execute(u"insert into glcodes (gl_code, description, type) values ('Old', 'Old Account', 3)"_s);
    Execute(u"insert into revenues (amount) values (1)"_s);
    const QStringList chart = Rows(u"select gl_code from glcodes where type <> 3 and type <> 4"_s);
    ASSERT_FALSE(chart.isEmpty());
    records::WipeDatabase();
    EXPECT_EQ(Rows(u"select gl_code from glcodes where type <> 3 and type <> 4"_s), chart);
    EXPECT_EQ(Rows(u"select description from glcodes where type = 4"_s), QStringList{u"Own Payee"_s});
    EXPECT_EQ(Rows(u"select gl_code from glcodes where type = 3"_s), QStringList());
    EXPECT_EQ(Rows(u"select contractornumber, name from contractor order by contractornumber"_s),
              (QStringList{u"1000|Another"_s, u"1002|Freds Gardening"_s}));
    EXPECT_EQ(Rows(u"select taxincrate, Rent_Group from options"_s), QStringList{u"15|Rent"_s});
    EXPECT_EQ(Rows(u"select amount from revenues"_s), QStringList());
    ExpectNoMessages();
}

TEST_F(ImportRunTest, ARunReplacesWhatTheDatabaseHeld) {
    records::CreateCollections(records::TheCollections());
    AddOwner(u"Smith"_s);
    AddProperty(u"12 Main Road"_s, u"Main Bank Account"_s, u"Smith"_s);
    const auto tenant = AddTenant(u"Ada"_s, u"12 Main Road"_s);
    tenant->Setbalance = true;
    tenant->BalanceAmount = 300;
    records::CurrentSettings().LastDisbursement = QDate(2026, 11, 7);
    records::ImportData(TheCollections());
    const auto all = [] {
        return Rows(u"select gl_code from glcodes where type = 3"_s) + Rows(u"select * from owner"_s) +
               Rows(u"select * from property"_s) + Rows(u"select * from tenancy"_s) +
               Rows(u"select * from rent_periods order by period_from"_s) +
               Rows(u"select * from revenues order by [date]"_s);
    };
    const QStringList first = all();
    EXPECT_EQ(first.size(), 1 + 1 + 1 + 1 + 3 + 2);
    EXPECT_EQ(Rows(u"select [date], disburse_id, counter_gl from revenues order by [date]"_s),
              (QStringList{u"2026-11-01|-1|BankAcct"_s, u"2026-11-08|0|BankAcct"_s}));
    records::ImportData(TheCollections());
    EXPECT_EQ(all(), first);
    ExpectNoMessages();
}

TEST_F(ImportRunTest, WithoutATableTheRunGoesOn) {
    DropTable("mileage");
    records::CreateCollections(records::TheCollections());
    records::ImportData(TheCollections());
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].title, u"Execute SQL"_s);
    EXPECT_EQ(Rows(u"select gl_code from glcodes where type = 3"_s), QStringList{u"BankAcct"_s});
}

TEST_F(ImportRunTest, WhenTheDatabaseCannotBeOpenedAgainTheRunAddsToTheOldData) {
    Execute(u"insert into owner (code, name) values ('OLD', 'Old Owner')"_s);
    AddOwner(u"Smith"_s);
    database::UseDatabaseFile(workplace_.Path(u"missing.mdb"_s));
    records::ImportData(TheCollections());
    EXPECT_EQ(Rows(u"select code from owner order by code"_s), (QStringList{u"OLD"_s, u"Smith"_s}));
}

/// Something happens while the first box is open.
class InterruptedBoxes : public RecordingMessageBoxes {
public:
    explicit InterruptedBoxes(std::function<void()> event) : event_(std::move(event)) {}

    platform::Answer Show(const platform::MessageBoxRequest& request) override {
        if (requests.empty()) {
            event_();
        }
        return RecordingMessageBoxes::Show(request);
    }

private:
    std::function<void()> event_;
};

class TwoImportsTest : public ImportRunTest {
protected:
    TwoImportsTest() {
        Execute(u"insert into owner (code, name) values ('OLD', 'Old Owner')"_s);
        // What this process has written so far isn't the import.
        database::SetCurrentDatabase(nullptr);
        EXPECT_TRUE(database::StartDatabase());
        records::CreateCollections(records::TheCollections());
        AddOwner(u"Smith"_s);
        AddProperty(u"12 Main Road"_s);
        AddTenant(u"Ada"_s, u"12 Main Road"_s);
        other_.emplace([this] { return (new platform::FileLock(path_))->TryTake(); });
        EXPECT_TRUE(other_->Succeeded());
        told_ =
            u"3260 - Couldn't write; another import is filling the database: records_database_test, process %1."_s
                .arg(other_->Number());
    }

    /// The two boxes of the opening, and then one for each row.
    void ExpectAllRefused(const std::vector<platform::MessageBoxRequest>& boxes) const {
        ASSERT_GT(boxes.size(), 5U);
        EXPECT_EQ(boxes[0].title, u"Start ADO"_s);
        EXPECT_TRUE(boxes[0].text.contains(told_)) << boxes[0].text.toStdString();
        for (size_t place = 2; place < boxes.size(); ++place) {
            EXPECT_TRUE(boxes[place].text.contains(told_)) << boxes[place].text.toStdString();
        }
        EXPECT_EQ(Rows(u"select code from owner"_s), QStringList{u"OLD"_s});
        EXPECT_EQ(Rows(u"select name from tenancy"_s) + Rows(u"select tenant_code from rent_periods"_s),
                  QStringList());
    }

    std::optional<OtherProcess> other_;

private:
    QString told_;
};

TEST_F(TwoImportsTest, WhileAnotherProcessImportsNothingIsChangedAndEachRowIsTold) {
    records::ImportData(TheCollections());
    ExpectAllRefused(boxes_.requests);
}

TEST_F(TwoImportsTest, NothingIsAddedToWhatTheOtherHasLeftMeanwhile) {
    const InterruptedBoxes boxes([this] { other_->Kill(); });
    records::ImportData(TheCollections());
    ExpectAllRefused(boxes.requests);
}

TEST_F(ImportRunTest, ProgressCountsEveryRecord) {
    records::CreateCollections(records::TheCollections());
    AddOwner(QString());
    AddProperty(u"12 Main Road"_s);
    AddTenant(u"Ada"_s, u"12 Main Road"_s);
    std::vector<std::pair<int, int>> steps;
    records::ImportData(TheCollections(), [&](int done, int total) { steps.emplace_back(done, total); });
    EXPECT_EQ(steps, (std::vector<std::pair<int, int>>{{1, 4}, {2, 4}, {3, 4}, {4, 4}}));
}

TEST_F(ImportRunTest, TooManyRecordsFailBeforeAnythingIsDeleted) {
    Execute(u"insert into owner (code, name) values ('OLD', 'Old Owner')"_s);
    const auto tenant = std::make_shared<records::Tenant>();
    for (int place = 1; place <= 32768; ++place) {
        TheCollections().Tenants.Add(tenant);
    }
    EXPECT_EQ(FailureOf([] { records::ImportData(TheCollections()); }), platform::FailureNumber::Overflow);
    EXPECT_EQ(Rows(u"select code from owner"_s), QStringList{u"OLD"_s});
}

TEST(ImportCompleteMessageTest, AdvisesARestartUnlessThereIsOne) {
    EXPECT_EQ(records::ImportCompleteMessage(true), u"Import complete."_s);
    EXPECT_EQ(records::ImportCompleteMessage(false),
              u"Import complete.  If Hearthbook is running, it is recommended you restart it to reload the "
              u"most recent changes."_s);
}

TEST_F(ImportRunTest, TheStartOpensTheDatabaseAndCreatesTheCollections) {
    database::SetCurrentDatabase(nullptr);
    records::InitialiseData(records::TheCollections());
    EXPECT_NO_THROW(database::CurrentDatabase());
    EXPECT_EQ(TheCollections().bankAccounts.Count(), 1);
}

TEST_F(ImportRunTest, WithoutADatabaseTheStartEndsTheProcess) {
    // What the end brings to the disk must not be what the parent process still holds.
    database::CurrentDatabase().Flush();
    database::UseDatabaseFile(workplace_.Path(u"missing.mdb"_s));
    EXPECT_EXIT(records::InitialiseData(records::TheCollections()), ::testing::ExitedWithCode(1), "");
    database::SetCurrentDatabase(nullptr);
    EXPECT_EXIT(records::InitialiseData(records::TheCollections()), ::testing::ExitedWithCode(1), "");
}

}  // namespace
