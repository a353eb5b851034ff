#include "DialogTest.h"
#include "controls/base/Palette.h"
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
#include <set>

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
    // A press that no control takes leaves the control that has the focus: an open calendar closes.
    QTest::mouseClick(&dialog, Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(dialog.focusWidget(), &dialog);
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

/// The fields of a dialog that something is entered into or chosen from.
QList<QWidget*> FieldsOf(const QWidget& dialog) {
    QList<QWidget*> fields;
    for (QWidget* child : dialog.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (qobject_cast<controls::ctlTextBox*>(child) != nullptr ||
            qobject_cast<controls::akDate*>(child) != nullptr || qobject_cast<QComboBox*>(child) != nullptr) {
            fields += child;
        }
    }
    return fields;
}

/// What is seen of a field up to two pixels from its edge.
std::set<QRgb> EdgeColours(QWidget& field, int from, int to) {
    std::set<QRgb> colours;
    const QImage picture = Picture(field);
    for (int depth = from; depth < to; ++depth) {
        for (int x = depth; x < picture.width() - depth; ++x) {
            colours.insert(picture.pixel(x, depth));
            colours.insert(picture.pixel(x, picture.height() - 1 - depth));
        }
        for (int y = depth; y < picture.height() - depth; ++y) {
            colours.insert(picture.pixel(depth, y));
            colours.insert(picture.pixel(picture.width() - 1 - depth, y));
        }
    }
    return colours;
}

template <typename Dialog>
void ExpectOneFamily() {
    const std::set frame{controls::ToQColor(controls::ThePalette().Frame).rgb()};
    const std::set focusedFrame{controls::ToQColor(controls::ThePalette().ButtonOutline).rgb()};
    const std::set ground{QColor(Qt::white).rgb()};
    const std::set disabledGround{QColor(232, 232, 232).rgb()};
    Dialog dialog(nullptr, records::TheCollections());
    ShowAndActivate(dialog);
    auto* elsewhere = dialog.template findChild<controls::ctlButton*>(u"cmdCancel"_s);
    for (QWidget* field : FieldsOf(dialog)) {
        const std::string name = field->objectName().toStdString();
        EXPECT_EQ(field->height(), 19) << name;
        elsewhere->setFocus();
        field->setProperty("Enabled", true);
        EXPECT_EQ(EdgeColours(*field, 0, 1), frame) << name;
        EXPECT_EQ(EdgeColours(*field, 1, 2), ground) << name;
        field->setFocus();
        EXPECT_EQ(EdgeColours(*field, 0, 2), focusedFrame) << name;
        field->setEnabled(false);
        EXPECT_EQ(EdgeColours(*field, 0, 1), frame) << name;
        EXPECT_EQ(EdgeColours(*field, 1, 2), disabledGround) << name;
    }
}

TEST_F(DialogWindowTest, TextBoxesDatesAndListsHaveOneHeightAndOneFrame) {
    ExpectOneFamily<screens::frmBankAccount>();
    ExpectOneFamily<screens::frmOwner>();
    ExpectOneFamily<screens::frmProperty>();
    ExpectOneFamily<screens::frmTenant>();
}

}  // namespace
