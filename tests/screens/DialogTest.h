#pragma once

#include "controls/akDate.h"
#include "controls/ctlButton.h"
#include "controls/ctlTextBox.h"
#include "screens/RecordDialog.h"
#include "support/OnScreen.h"
#include "support/RecordsTest.h"

#include <QLabel>
#include <QTest>

#include <memory>

/// A dialog on show, worked as its user does. Nobody waits for it to close.
template <typename Dialog>
class DialogTest : public RecordsTest {
protected:
    /// A dialog that adds.
    void Open() {
        dialog = std::make_unique<Dialog>(nullptr, records::TheCollections());
        ShowAndActivate(*dialog);
    }

    /// A dialog that changes the record; the field is where the dialog takes it.
    template <typename Field, typename Record>
    void Open(Field field, const Record& record) {
        dialog = std::make_unique<Dialog>(nullptr, records::TheCollections());
        (*dialog).*field = record;
        ShowAndActivate(*dialog);
    }

    template <typename Widget>
    Widget& Find(const char* name) const {
        auto* found = dialog->template findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    controls::ctlTextBox& Box(const char* name) const { return Find<controls::ctlTextBox>(name); }
    controls::akDate& Date(const char* name) const { return Find<controls::akDate>(name); }
    QComboBox& List(const char* name) const { return Find<QComboBox>(name); }

    /// A box that lets through numbers with so many decimals, with or without a minus sign.
    void ExpectNumberBox(const char* name, int decimals, bool allowsNegative) const {
        EXPECT_TRUE(Box(name).IsNumeric()) << name;
        EXPECT_EQ(Box(name).DecimalPlaces(), decimals) << name;
        EXPECT_EQ(Box(name).AllowNegative(), allowsNegative) << name;
        EXPECT_EQ(Box(name).Alignment(), 1) << name;
    }

    /// Goes to the box and types over what is in it.
    void Type(const char* box, const QString& text) const {
        Box(box).setFocus();
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    void Choose(const char* list, const QString& entry) const {
        List(list).setCurrentIndex(List(list).findText(entry));
    }

    QStringList Entries(const char* list) const {
        QStringList entries;
        for (int place = 0; place < List(list).count(); ++place) {
            entries += List(list).itemText(place);
        }
        return entries;
    }

    /// Presses the button with the mouse, so that the focus goes there as well.
    void Press(const char* button) const {
        QTest::mouseClick(&Find<controls::ctlButton>(button), Qt::LeftButton);
    }
    void Save() const { Press("cmdSave"); }
    void Cancel() const { Press("cmdCancel"); }

    bool IsOpen() const { return dialog->isVisible(); }

    void ExpectFocusIn(const char* control) const {
        const auto& expected = Find<QWidget>(control);
        const QWidget* focused = dialog->focusWidget();
        EXPECT_TRUE(&expected == focused || expected.isAncestorOf(focused))
            << (focused != nullptr ? focused->objectName().toStdString() : "nothing") << " and not "
            << control;
    }

    /// The dialog has refused to close, with this message, and the user is where the fault is mended.
    void ExpectRefused(const QString& message, const char* control) {
        ASSERT_EQ(boxes_.requests.size(), 1U);
        EXPECT_EQ(boxes_.requests.front().text, message);
        EXPECT_EQ(boxes_.requests.front().buttons, platform::Buttons::Ok);
        EXPECT_EQ(boxes_.requests.front().title, platform::ApplicationTitle());
        EXPECT_TRUE(IsOpen());
        ExpectFocusIn(control);
        boxes_.requests.clear();
    }

    void ExpectSaved() {
        EXPECT_TRUE(boxes_.requests.empty()) << boxes_.requests.front().text.toStdString();
        EXPECT_FALSE(IsOpen());
    }

    std::unique_ptr<Dialog> dialog;
};

inline const QString NameTaken = QStringLiteral("Another record already exists with the same name");
