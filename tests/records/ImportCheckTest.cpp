#include "records/ImportRun.h"
#include "support/HearthbookTest.h"

namespace {

/// Another program changes the database just before the import looks whether all is there.
class ImportCheckTest : public HearthbookTest {
protected:
    ImportCheckTest() {
        records::CreateCollections(records::TheCollections());
        AddOwner(u"Smith"_s);
        AddProperty(u"12 Main Road"_s);
        AddTenant(u"Ada"_s, u"12 Main Road"_s);
    }

    void ImportWhile(const char* othersStatements) const {
        records::ImportData(records::TheCollections(), [&](int done, int total) {
            if (done == total) {
                database::CurrentDatabase().Flush();
                EXPECT_TRUE(RunElsewhere(path_, othersStatements));
            }
        });
    }

    void ExpectTold(const QString& difference) const {
        ASSERT_EQ(boxes_.requests.size(), 1U);
        EXPECT_EQ(boxes_.requests[0],
                  (platform::MessageBoxRequest{u"General Errors...\n\n"_s + difference + u"\n\n"_s,
                                               u"Import Data"_s}));
        EXPECT_TRUE(workplace_.ErrorLog().contains(difference + u"\n\n"_s + path_));
    }
};

TEST_F(ImportCheckTest, RowsThatAreMissingAreTold) {
    ImportWhile("delete from rent_periods where period_from > '2026-11-05'");
    ExpectTold(u"3167 - Rows of the table 'rent_periods' are missing: 3 were written, 1 are there."_s);
}

TEST_F(ImportCheckTest, ARecordInThePlaceOfAnotherIsTold) {
    ImportWhile("update tenancy set reference = 'Somebody'");
    ExpectTold(u"3167 - Table 'tenancy' is not as it was written: of 'Ada' there are 0 rows instead of 1."_s);
}

TEST_F(ImportCheckTest, ARecordThatIsThereTwiceIsTold) {
    ImportWhile("insert into owner(code) values('Smith'); insert into owner(code) values('Smith')");
    ExpectTold(u"3167 - Table 'owner' is not as it was written: of 'Smith' there are 3 rows instead of 1."_s);
}

TEST_F(ImportCheckTest, AccountsAndPropertiesAreLookedForToo) {
    ImportWhile(
        "update glcodes set gl_code = 'Another' where gl_code = 'BankAcct';"
        "insert into property(code) values('12 Main Road')");
    ASSERT_EQ(boxes_.requests.size(), 2U);
    EXPECT_TRUE(boxes_.requests[0].text.contains(u"'glcodes'"_s));
    EXPECT_TRUE(boxes_.requests[1].text.contains(u"'property'"_s));
}

TEST_F(ImportCheckTest, WhatOthersAddIsTheirs) {
    ImportWhile(
        "insert into owner(code) values('Theirs'); insert into owner(code) values(null);"
        "insert into rent_periods(tenant_code) values(null);"
        "insert into tenancy(reference) values('Theirs')");
    ExpectNoMessages();
}

// Nobody is told of a row twice, and rows that were refused are not looked for.
TEST_F(ImportCheckTest, AfterAFailureTheRecordsAreNotLookedFor) {
    DropTable("mileage");
    ImportWhile("insert into owner(code) values('Smith')");
    ASSERT_EQ(boxes_.requests.size(), 1U);
    EXPECT_EQ(boxes_.requests[0].title, u"Execute SQL"_s);
}

TEST_F(ImportCheckTest, AwkwardKeysAreFoundAgain) {
    // A key that is also one of the chart of accounts, one cut in the middle of a character, none at all, and
    // one that two records have.
    AddAccount(u"Rent"_s);
    AddOwner(u"123456789\U0001F3E0"_s);
    AddOwner(QString());
    AddProperty(u"1 x"_s)->Code = u"same"_s;
    AddAccount(u"one"_s, u"same"_s);
    AddAccount(u"two"_s, u"same"_s);
    records::ImportData(records::TheCollections());
    ExpectNoMessages();
    EXPECT_EQ(Rows(u"select code from owner"_s).size(), 2);
}

}  // namespace
