#include "controls/ctlTextBox.h"
#include "screens/ctlSingleOwner.h"
#include "support/RecordsTest.h"

#include <QLabel>

namespace {

class SingleOwnerTest : public RecordsTest {
protected:
    controls::ctlTextBox& Name() { return *page.findChild<controls::ctlTextBox*>(u"txtName"_s); }
    static records::Owners& Owners() { return records::TheCollections().Owners; }

    screens::ctlSingleOwner page{nullptr, Owners()};
};

TEST_F(SingleOwnerTest, SaysWhatItAsksFor) {
    EXPECT_EQ(page.findChild<QLabel*>(u"Label1"_s)->text(),
              u"As a landlord, enter your name or company name or trust name as the property owner."_s);
    EXPECT_EQ(page.findChild<QLabel*>(u"Label2"_s)->text(), u"Owner Name"_s);
    EXPECT_FALSE(Name().IsNumeric());
}

TEST_F(SingleOwnerTest, AnEmptyNameIsAnOwnerToo) {
    EXPECT_EQ(Name().MaxLength(), 30);
    EXPECT_TRUE(page.IsValid());
    EXPECT_EQ(Owners().Count(), 1);
    EXPECT_EQ(Owners().Item(1)->OwnersName, QString());
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(SingleOwnerTest, TakesThePlaceOfAllOwnersAndAsksNothing) {
    AddOwner(u"A. Smith"_s);
    AddOwner(u"B. Smith"_s);
    const auto property = AddProperty(u"1 Main Road"_s, {}, u"A. Smith"_s);
    page.Initialise();
    EXPECT_EQ(Name().Text(), u"A. Smith"_s);
    Name().SetText(u"Smith Trust"_s);
    EXPECT_TRUE(page.IsValid());
    ASSERT_EQ(Owners().Count(), 1);
    EXPECT_EQ(Owners().Item(1)->OwnersName, u"Smith Trust"_s);
    EXPECT_EQ(property->Owner, u"A. Smith"_s) << "properties keep the name that they had";
}

TEST_F(SingleOwnerTest, PassingTwiceMakesTheOwnerAnew) {
    Name().SetText(u"Smith Trust"_s);
    page.IsValid();
    const auto first = Owners().Item(1);
    page.Initialise();
    page.IsValid();
    ASSERT_EQ(Owners().Count(), 1);
    EXPECT_NE(Owners().Item(1), first);
    EXPECT_EQ(Owners().Item(1)->OwnersName, u"Smith Trust"_s);
}

TEST_F(SingleOwnerTest, ShowsTheFirstOwnerAndKeepsItsTextWithoutOne) {
    Name().SetText(u"Smith"_s);
    page.Initialise();
    EXPECT_EQ(Name().Text(), u"Smith"_s);
    AddOwner(u"Jones"_s);
    page.Initialise();
    EXPECT_EQ(Name().Text(), u"Jones"_s);
}

}  // namespace
