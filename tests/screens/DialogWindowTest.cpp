#include "DialogTest.h"
#include "screens/frmBankAccount.h"
#include "screens/frmOwner.h"
#include "screens/frmProperty.h"
#include "screens/frmTenant.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace {

using DialogWindowTest = RecordsTest;

/// The controls that the Tab key comes to, in its order, the insides of a control left out.
QStringList TabOrder(const QWidget& dialog) {
    QStringList names;
    for (const QWidget* widget = dialog.nextInFocusChain(); widget != &dialog;
         widget = widget->nextInFocusChain()) {
        const bool isControl = qobject_cast<const controls::Control*>(widget) != nullptr ||
                               qobject_cast<const QComboBox*>(widget) != nullptr ||
                               qobject_cast<const QAbstractButton*>(widget) != nullptr;
        if (isControl && widget->parentWidget() == &dialog) {
            names += widget->objectName();
        }
    }
    return names;
}

bool IsLabelOf(QLabel& label, QWidget& field) {
    const auto relations = QAccessible::queryAccessibleInterface(&label)->relations(QAccessible::Labelled);
    return std::any_of(relations.begin(), relations.end(),
                       [&field](const auto& relation) { return relation.first->object() == &field; });
}

/// Screen readers tell a label that belongs to no field as if it were a text of the dialog's own.
void ExpectLabelsToBelongToTheirFields(const QWidget& dialog) {
    int fields = 0;
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        for (QWidget* field : dialog.findChildren<QWidget*>()) {
            if (field->accessibleName() == label->text()) {
                ++fields;
                EXPECT_TRUE(IsLabelOf(*label, *field)) << label->text().toStdString();
            }
        }
    }
    EXPECT_GT(fields, 0);
}

template <typename Dialog>
void ExpectWindow(const QString& caption, const QStringList& tabOrder) {
    Dialog dialog(nullptr, records::TheCollections());
    EXPECT_EQ(dialog.windowTitle(), caption);
    EXPECT_EQ(dialog.minimumSize(), dialog.maximumSize());
    EXPECT_EQ(dialog.windowType(), Qt::Dialog);
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(TabOrder(dialog), tabOrder);
    ExpectLabelsToBelongToTheirFields(dialog);
    ShowAndActivate(dialog);
    const QPoint off = dialog.geometry().center() - dialog.screen()->availableGeometry().center();
    // In the middle of the screen, up to the frame that the platform draws around it.
    const QMargins frame = dialog.windowHandle()->frameMargins();
    EXPECT_LE(qAbs(off.x()), frame.left()) << off.x();
    EXPECT_LE(qAbs(off.y()), frame.top()) << off.y();
    // Neither key is a shortcut to a button.
    QTest::keyClick(&dialog, Qt::Key_Return);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(DialogWindowTest, BankAccount) {
    ExpectWindow<screens::frmBankAccount>(
        u"Bank Account"_s, {u"txtName"_s, u"datBalance"_s, u"txtBalance"_s, u"cmdSave"_s, u"cmdCancel"_s});
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(DialogWindowTest, Owner) {
    ExpectWindow<screens::frmOwner>(u"Owner"_s, {u"txtName"_s, u"cmdSave"_s, u"cmdCancel"_s});
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(DialogWindowTest, Property) {
    ExpectWindow<screens::frmProperty>(
        u"Property"_s, {u"txtAddress1"_s, u"txtAddress2"_s, u"txtAddress3"_s, u"cboOwner"_s, u"cboAccount"_s,
                        u"cmdSave"_s, u"cmdCancel"_s, u"Check1"_s, u"txtUnitCount"_s, u"txtUnitNumbers"_s});
    EXPECT_TRUE(boxes_.requests.empty());
}

TEST_F(DialogWindowTest, Tenant) {
    ExpectWindow<screens::frmTenant>(
        u"Tenant"_s, {u"txtName"_s, u"datStart"_s, u"datEnd"_s, u"cboProperty"_s, u"txtRent"_s,
                      u"txtFreqNumber"_s, u"cboFrequency"_s, u"txtBond"_s, u"txtBalance"_s, u"cmdSave"_s,
                      u"cmdCancel"_s, u"optDont"_s, u"optSet"_s, u"txtMonthDay"_s});
    EXPECT_TRUE(boxes_.requests.empty());
}

}  // namespace
