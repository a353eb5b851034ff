#include "support/CheckMany.h"
#include "support/RecordsTest.h"

namespace {

using records::TheCollections;

class BankLookupTest : public RecordsTest {
protected:
    static QString BankOf(const QString& name) {
        return TheCollections().Properties.GetBankAccount(TheCollections().bankAccounts, name);
    }

    /// The rule as two walks, one inside the other.
    static QString PlainBankOf(const QString& name) {
        QString result;
        for (const auto& property : TheCollections().Properties) {
            if (name == property->Address1) {
                result = property->BankAccount;
                for (const auto& account : TheCollections().bankAccounts) {
                    if (result == account->BankAccountName) {
                        result = account->Code;
                    }
                }
            }
        }
        return result;
    }
};

TEST_F(BankLookupTest, GivesTheCodeOfThePropertysAccount) {
    AddAccount(u"Main"_s, u"M"_s);
    AddAccount(u"Trust"_s, u"T"_s);
    AddProperty(u"1 A St"_s, u"Trust"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), u"T"_s);
}

TEST_F(BankLookupTest, IsEmptyWithoutPropertyOrAccount) {
    AddAccount(u"Main"_s, u"M"_s);
    AddProperty(u"1 A St"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), QString());
    EXPECT_EQ(BankOf(u"2 A St"_s), QString());
    EXPECT_EQ(BankOf(u"1 a st"_s), QString());
}

TEST_F(BankLookupTest, AnUnknownAccountsNameComesBackAsItIs) {
    AddAccount(u"Main"_s, u"M"_s);
    AddProperty(u"1 A St"_s, u"main"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), u"main"_s);
}

TEST_F(BankLookupTest, ACodeThatIsALaterAccountsNameIsReplacedOnceMore) {
    AddAccount(u"First"_s, u"Second"_s);
    AddAccount(u"Second"_s, u"S"_s);
    AddProperty(u"1 A St"_s, u"First"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), u"S"_s);
}

TEST_F(BankLookupTest, ACodeThatIsAnEarlierAccountsNameStays) {
    AddAccount(u"Second"_s, u"S"_s);
    AddAccount(u"First"_s, u"Second"_s);
    AddProperty(u"1 A St"_s, u"First"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), u"Second"_s);
}

TEST_F(BankLookupTest, TheLastPropertyOfTheNameCounts) {
    AddAccount(u"Main"_s, u"M"_s);
    AddProperty(u"1 A St"_s, u"gone"_s);
    AddProperty(u"1 A St"_s, u"Main"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), u"M"_s);
    AddProperty(u"1 A St"_s);
    EXPECT_EQ(BankOf(u"1 A St"_s), QString());
}

TEST_F(BankLookupTest, GivesWhatTheTwoWalksGive) {
    const auto drawText = [] { return QString(QChar(u'a' + Draw(0, 5))).left(Draw(0, 9) == 0 ? 0 : 1); };
    CheckMany(3'000, [&] {
        TheCollections() = records::Collections();
        for (int count = Draw(0, 8); count > 0; --count) {
            AddAccount(drawText(), drawText());
        }
        for (int count = Draw(0, 5); count > 0; --count) {
            AddProperty(drawText(), drawText());
        }
        for (const auto& name : {u""_s, u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s}) {
            RC_ASSERT(BankOf(name).toStdString() == PlainBankOf(name).toStdString());
        }
    });
}

}  // namespace
