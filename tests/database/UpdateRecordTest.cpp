#include "DatabaseFixture.h"
#include "database/RecordAccess.h"

namespace {

const platform::Failure TooSmall = FakeFailure(3163, "The field is too small.");

class UpdateRecord : public DatabaseFixture {
protected:
    bool Update() { return database::UpdateRecord(std::make_unique<FakeRecordset>(Rows())); }

    QString FieldText(size_t place) {
        const engine::Value value = Rows().fields.at(place)->Get();
        return std::get<QString>(value);
    }
};

TEST_F(UpdateRecord, SavesTheRow) {
    EXPECT_TRUE(Update());
    EXPECT_EQ(Rows().calls, QStringList{QStringLiteral("Update 1 0")});
    ExpectNothingReported();
}

TEST_F(UpdateRecord, ThatFailsIsReportedAndCancelled) {
    Rows().failures.emplace("Update", TooSmall);
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("a''b"));
    EXPECT_FALSE(Update());
    EXPECT_EQ(Rows().calls, (QStringList{QStringLiteral("Update 1 0"), QStringLiteral("CancelUpdate 1")}));
    EXPECT_EQ(FieldText(0), QStringLiteral("a''b"));
    ExpectReported("Update Record", TooSmall, QString());
}

TEST_F(UpdateRecord, ACancelThatFailsTooIsNotTold) {
    Rows().failures.emplace("Update", TooSmall);
    Rows().failures.emplace("CancelUpdate", FakeFailure(3020, "Nothing to cancel."));
    Update();
    ExpectReported("Update Record", TooSmall, QString());
}

TEST_F(UpdateRecord, OfAnEmptyReferenceIsReported) {
    EXPECT_FALSE(database::UpdateRecord(nullptr));
    ExpectReported("Update Record",
                   platform::Failure(91, QStringLiteral("Object variable or With block variable not set")),
                   QString());
}

TEST_F(UpdateRecord, ReplacesPairsOfApostrophesAndSavesAgain) {
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("a''b '''' c'''"));
    Rows().AddField("unknown", -1, QStringLiteral("''"));
    Update();
    EXPECT_EQ(FieldText(0), QStringLiteral("a\"b \"\" c\"'"));
    EXPECT_EQ(FieldText(1), QStringLiteral("\""));
    EXPECT_EQ(Rows().calls, (QStringList{QStringLiteral("Update 1 0"), QStringLiteral("Update 1 0")}));
    ExpectNothingReported();
}

TEST_F(UpdateRecord, LooksIntoEveryColumn) {
    Rows().AddField("first", engine::dbMemo, QStringLiteral("''"));
    Rows().AddField("flag", engine::dbBoolean, true);
    Rows().AddField("nothing", engine::dbMemo, engine::Null());
    Rows().AddField("text in a flag", engine::dbBoolean, QStringLiteral("''"));
    Update();
    EXPECT_EQ(FieldText(3), QStringLiteral("\""));
    EXPECT_EQ(Rows().calls.size(), 2);
}

TEST_F(UpdateRecord, LeavesTextColumnsAndOneApostropheAlone) {
    Rows().AddField("text", engine::dbText, QStringLiteral("a''b"));
    Rows().AddField("long", engine::dbLong, QStringLiteral("a''b"));
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("a'b"));
    Update();
    EXPECT_EQ(FieldText(0), QStringLiteral("a''b"));
    EXPECT_EQ(FieldText(1), QStringLiteral("a''b"));
    EXPECT_EQ(Rows().calls, QStringList{QStringLiteral("Update 1 0")});
}

TEST_F(UpdateRecord, EndsSilentlyAtAReplacementThatFails) {
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("a''b"));
    Rows().failures.emplace("Set", FakeFailure(3020, "Update without edit."));
    EXPECT_TRUE(Update()) << "the row is saved";
    EXPECT_EQ(FieldText(0), QStringLiteral("a''b"));
    EXPECT_EQ(Rows().calls, QStringList{QStringLiteral("Update 1 0")});
    ExpectNothingReported();
}

TEST_F(UpdateRecord, EndsSilentlyAtAValueThatCanNotBeRead) {
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("a''b"));
    Rows().failures.emplace("Get", FakeFailure(3021, "No current record."));
    Update();
    EXPECT_EQ(Rows().calls, QStringList{QStringLiteral("Update 1 0")});
    ExpectNothingReported();
}

/// Its first update succeeds and its second one doesn't.
class OnceUpdated : public FakeRecordset {
public:
    using FakeRecordset::FakeRecordset;
    void Update(short type, bool force) override {
        if (++updates_ > 1) {
            throw FakeFailure(3020, "Update without edit.");
        }
        FakeRecordset::Update(type, force);
    }

private:
    int updates_ = 0;
};

TEST_F(UpdateRecord, EndsSilentlyAtASecondSaveThatFails) {
    Rows().AddField("memo", engine::dbMemo, QStringLiteral("''"));
    database::UpdateRecord(std::make_unique<OnceUpdated>(Rows()));
    EXPECT_EQ(Rows().calls, QStringList{QStringLiteral("Update 1 0")});
    ExpectNothingReported();
}

}  // namespace
