#include "DialogTest.h"
#include "screens/frmProperty.h"

#include <QCheckBox>

namespace {

using records::TheCollections;
using screens::frmProperty;

class PropertyDialogTest : public DialogTest<frmProperty> {
protected:
    QCheckBox& HasUnits() const { return Find<QCheckBox>("Check1"); }

    void ExpectUnitFieldsEnabled(bool enabled) const {
        EXPECT_EQ(Box("txtUnitCount").Enabled(), enabled);
        EXPECT_EQ(Box("txtUnitNumbers").Enabled(), enabled);
        EXPECT_EQ(Find<QLabel>("Label6").isEnabled(), enabled);
        EXPECT_EQ(Find<QLabel>("Label7").isEnabled(), enabled);
    }

    /// "address, iType, ParentProperty" of each property.
    static QStringList Stored() {
        QStringList stored;
        for (const auto& property : TheCollections().Properties) {
            stored += QStringLiteral("%1, %2, %3")
                          .arg(property->Address1)
                          .arg(property->iType)
                          .arg(property->ParentProperty);
        }
        return stored;
    }
};

TEST_F(PropertyDialogTest, OnlyTheFirstAddressLineIsRequired) {
    Open();
    for (const char* box : {"txtAddress1", "txtAddress2", "txtAddress3"}) {
        EXPECT_EQ(Box(box).MaxLength(), 30) << box;
    }
    Type("txtAddress2", u"Elmswood"_s);
    Save();
    ExpectRefused(u"An address 1 is required"_s, "txtAddress1");
    EXPECT_EQ(TheCollections().Properties.Count(), 0);
    Type("txtAddress1", u"12 Main Road"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(Stored(), QStringList{u"12 Main Road, 0, "_s});
    EXPECT_EQ(TheCollections().Properties.Item(1)->Address2, u"Elmswood"_s);
    EXPECT_EQ(TheCollections().Properties.Item(1)->Owner, QString());
    EXPECT_EQ(TheCollections().Properties.Item(1)->BankAccount, QString());
}

TEST_F(PropertyDialogTest, UnitsAreCountedInWholeNumbersAndNumberedFreely) {
    Open();
    ExpectNumberBox("txtUnitCount", 0, false);
    EXPECT_EQ(Box("txtUnitCount").MaxLength(), 30);
    EXPECT_FALSE(Box("txtUnitNumbers").IsNumeric());
    EXPECT_EQ(Box("txtUnitNumbers").MaxLength(), 0) << "a building may have any number of them";
}

TEST_F(PropertyDialogTest, ASingleOwnerAndASingleAccountNeedNoChoosing) {
    AddOwner(u"A. Smith"_s);
    AddAccount(u"Kestrel"_s);
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(TheCollections().Properties.Item(1)->Owner, u"A. Smith"_s);
    EXPECT_EQ(TheCollections().Properties.Item(1)->BankAccount, u"Kestrel"_s);
}

TEST_F(PropertyDialogTest, WithSeveralNothingIsChosen) {
    AddOwner(u"A. Smith"_s);
    AddOwner(u"B. Smith"_s);
    AddAccount(u"Kestrel"_s);
    AddAccount(u"Merlin"_s);
    Open();
    EXPECT_EQ(Entries("cboOwner"), (QStringList{u"A. Smith"_s, u"B. Smith"_s}));
    EXPECT_EQ(Entries("cboAccount"), (QStringList{u"Kestrel"_s, u"Merlin"_s}));
    EXPECT_EQ(List("cboOwner").currentIndex(), -1);
    EXPECT_EQ(List("cboAccount").currentIndex(), -1);
    EXPECT_FALSE(List("cboOwner").isEditable());
}

TEST_F(PropertyDialogTest, TheCheckBoxEnablesTheUnitFields) {
    Open();
    ExpectUnitFieldsEnabled(false);
    HasUnits().click();
    ExpectUnitFieldsEnabled(true);
    HasUnits().click();
    ExpectUnitFieldsEnabled(false);
}

TEST_F(PropertyDialogTest, ACountMakesTheListAndTheListTheUnits) {
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    HasUnits().click();
    Type("txtUnitCount", u"3"_s);
    EXPECT_EQ(Box("txtUnitNumbers").Text(), QString()) << "only when the box is left";
    Box("txtUnitNumbers").setFocus();
    EXPECT_EQ(Box("txtUnitNumbers").Text(), u"1,2,3,"_s);
    EXPECT_EQ(Box("txtUnitCount").Text(), u"3"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(Stored(),
              (QStringList{u"12 Main Road, 2, 12 Main Road"_s, u"1/12 Main Road, 1, 12 Main Road"_s,
                           u"2/12 Main Road, 1, 12 Main Road"_s, u"3/12 Main Road, 1, 12 Main Road"_s}));
    EXPECT_EQ(dialog->AddProperty, TheCollections().Properties.Item(4));
}

TEST_F(PropertyDialogTest, AChangedCountThrowsTypedNamesAwayAndTheSameCountDoesNot) {
    Open();
    HasUnits().click();
    Type("txtUnitNumbers", u"Front,Back"_s);
    EXPECT_EQ(Box("txtUnitCount").Text(), u"2"_s);
    Type("txtUnitCount", u"2"_s);
    Box("txtUnitNumbers").setFocus();
    EXPECT_EQ(Box("txtUnitNumbers").Text(), u"Front,Back"_s);
    Type("txtUnitCount", u"5"_s);
    Box("txtAddress1").setFocus();
    EXPECT_EQ(Box("txtUnitNumbers").Text(), u"1,2,3,4,5,"_s);
}

TEST_F(PropertyDialogTest, AnEmptiedCountEmptiesTheList) {
    Open();
    HasUnits().click();
    Type("txtUnitCount", u"3"_s);
    Box("txtUnitNumbers").setFocus();
    Box("txtUnitCount").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
    Box("txtAddress1").setFocus();
    EXPECT_EQ(Box("txtUnitCount").Text(), u"0"_s);
    EXPECT_EQ(Box("txtUnitNumbers").Text(), QString());
}

TEST_F(PropertyDialogTest, EmptyItemsCountButMakeNoUnit) {
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    HasUnits().click();
    Type("txtUnitNumbers", u"1,, 2"_s);
    EXPECT_EQ(Box("txtUnitCount").Text(), u"3"_s);
    Save();
    EXPECT_EQ(Stored(), (QStringList{u"12 Main Road, 2, 12 Main Road"_s, u"1/12 Main Road, 1, 12 Main Road"_s,
                                     u" 2/12 Main Road, 1, 12 Main Road"_s}));
}

TEST_F(PropertyDialogTest, ASingleCommaMakesABuildingWithoutUnits) {
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    HasUnits().click();
    Type("txtUnitNumbers", u","_s);
    EXPECT_EQ(Box("txtUnitCount").Text(), u"1"_s);
    Save();
    EXPECT_EQ(Stored(), QStringList{u"12 Main Road, 2, 12 Main Road"_s});
}

TEST_F(PropertyDialogTest, NumbersStillCountAfterTheCheckIsTakenAway) {
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    HasUnits().click();
    Type("txtUnitNumbers", u"A"_s);
    HasUnits().click();
    EXPECT_EQ(Box("txtUnitNumbers").Text(), u"A"_s);
    Save();
    EXPECT_EQ(Stored(),
              (QStringList{u"12 Main Road, 2, 12 Main Road"_s, u"A/12 Main Road, 1, 12 Main Road"_s}));
}

TEST_F(PropertyDialogTest, OnlyTheBuildingsOwnAddressMustBeFree) {
    AddProperty(u"1/12 Main Road"_s);
    Open();
    Type("txtAddress1", u"1/12 MAIN ROAD"_s);
    Save();
    ExpectRefused(NameTaken, "txtAddress1");
    Type("txtAddress1", u"12 Main Road"_s);
    HasUnits().click();
    Type("txtUnitNumbers", u"1,1"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(Stored(),
              (QStringList{u"1/12 Main Road, 0, "_s, u"12 Main Road, 2, 12 Main Road"_s,
                           u"1/12 Main Road, 1, 12 Main Road"_s, u"1/12 Main Road, 1, 12 Main Road"_s}));
}

TEST_F(PropertyDialogTest, UnitsBelongToTheOwnerAndTheAccountOfTheBuilding) {
    AddOwner(u"A. Smith"_s);
    AddOwner(u"B. Smith"_s);
    AddAccount(u"Kestrel"_s);
    AddAccount(u"Merlin"_s);
    Open();
    Type("txtAddress1", u"12 Main Road"_s);
    Type("txtAddress2", u"Elmswood"_s);
    Type("txtAddress3", u"Northport"_s);
    Choose("cboOwner", u"B. Smith"_s);
    Choose("cboAccount", u"Merlin"_s);
    HasUnits().click();
    Type("txtUnitNumbers", u"1"_s);
    Save();
    const auto unit = TheCollections().Properties.Item(2);
    EXPECT_EQ(unit->Address2, u"Elmswood"_s);
    EXPECT_EQ(unit->Address3, u"Northport"_s);
    EXPECT_EQ(unit->Owner, u"B. Smith"_s);
    EXPECT_EQ(unit->BankAccount, u"Merlin"_s);
}

TEST_F(PropertyDialogTest, EditingABuildingCannotChangeItsUnits) {
    AddOwner(u"A. Smith"_s);
    AddOwner(u"B. Smith"_s);
    const auto building = AddProperty(u"12 Main Road"_s, {}, u"B. Smith"_s);
    building->iType = 2;
    building->ParentProperty = u"12 Main Road"_s;
    const auto unit = AddProperty(u"1/12 Main Road"_s);
    unit->iType = 1;
    unit->ParentProperty = u"12 Main Road"_s;
    Open(&frmProperty::EditProperty, building);
    EXPECT_EQ(List("cboOwner").currentText(), u"B. Smith"_s);
    EXPECT_FALSE(HasUnits().isEnabled());
    EXPECT_FALSE(HasUnits().isChecked());
    ExpectUnitFieldsEnabled(false);
    EXPECT_EQ(Box("txtUnitCount").Text(), QString());
    Type("txtAddress1", u"14 Main Road"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(Stored(),
              (QStringList{u"14 Main Road, 2, 12 Main Road"_s, u"1/12 Main Road, 1, 12 Main Road"_s}))
        << "the units keep the old address";
}

TEST_F(PropertyDialogTest, ARenameMovesTheTenantsByTheirExactText) {
    const auto property = AddProperty(u"12 Main Road"_s);
    const auto tenant = AddTenant(u"T. Enant"_s, u"12 Main Road"_s);
    const auto other = AddTenant(u"O. Ther"_s, u"12 MAIN Road"_s);
    Open(&frmProperty::EditProperty, property);
    Type("txtAddress1", u"12 main road"_s);
    Save();
    ExpectSaved();
    EXPECT_EQ(tenant->PropertyName, u"12 main road"_s);
    EXPECT_EQ(other->PropertyName, u"12 MAIN Road"_s);
    EXPECT_EQ(TheCollections().Properties.Count(), 1);
}

TEST_F(PropertyDialogTest, WhatWasRemovedSinceIsNotChosen) {
    AddOwner(u"A. Smith"_s);
    const auto property = AddProperty(u"12 Main Road"_s, u"Gone"_s, u"Gone as well"_s);
    Open(&frmProperty::EditProperty, property);
    EXPECT_EQ(List("cboOwner").currentIndex(), -1);
    EXPECT_EQ(List("cboAccount").currentIndex(), -1);
    Cancel();
    EXPECT_EQ(property->Owner, u"Gone as well"_s);
}

}  // namespace
