#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

#include <QAccessible>
#include <QSignalSpy>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class TextBoxAccessibleTest : public TextBoxTest {
protected:
    QAccessibleInterface& Reader() { return *QAccessible::queryAccessibleInterface(&TheBox()); }
    QAccessibleTextInterface& Reading() { return *Reader().textInterface(); }
    void Write(const QString& text) {
        Reader().editableTextInterface()->replaceText(0, Reading().characterCount(), text);
    }
    QAccessibleInterface& Half(const char16_t* name) {
        auto* image = TheControl().findChild<QWidget*>(u"imgUpDown"_s);
        QAccessibleInterface* group = QAccessible::queryAccessibleInterface(image);
        return *group->child(group->child(0)->text(QAccessible::Name) == QString::fromUtf16(name) ? 0 : 1);
    }
};

TEST_F(TextBoxAccessibleTest, IsReadAsAnEditBox) {
    Enter({.Text = u"wide"_s});
    TheControl().SetLabel(u"Name"_s);
    EXPECT_EQ(Reader().role(), QAccessible::EditableText);
    EXPECT_EQ(Reader().text(QAccessible::Name), u"Name"_s);
    EXPECT_EQ(Reader().text(QAccessible::Value), u"wide"_s);
    EXPECT_TRUE(Reader().state().editable);
    EXPECT_EQ(Reading().text(1, 3), u"id"_s);
    EXPECT_EQ(Reading().text(3, 1), QString());
    EXPECT_EQ(Reading().characterCount(), 4);
    int start = -1;
    int end = -1;
    Reading().selection(0, &start, &end);
    EXPECT_EQ(Reading().selectionCount(), 1);
    EXPECT_EQ(start, 0);
    EXPECT_EQ(end, 4);
    Reading().setSelection(0, 1, 2);
    EXPECT_EQ(TheBox().selectedText(), u"i"_s);
    Reading().removeSelection(0);
    EXPECT_EQ(Reading().selectionCount(), 0);
    Reading().setCursorPosition(3);
    EXPECT_EQ(Reading().cursorPosition(), 3);
    TheControl().SetLocked(true);
    EXPECT_TRUE(Reader().state().readOnly);
    EXPECT_FALSE(Reader().state().editable);
}

TEST_F(TextBoxAccessibleTest, TheFocusIsThatOfTheEditBoxAlone) {
    Enter({});
    EXPECT_TRUE(Reader().state().focused);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(&TheControl())->state().focused);
}

TEST_F(TextBoxAccessibleTest, EachCharacterIsFoundWhereItIsSeen) {
    Enter({.Text = u"iWi"_s});
    for (int offset = 0; offset < 3; ++offset) {
        const QRect place = Reading().characterRect(offset);
        EXPECT_EQ(Reading().offsetAtPoint({place.left() + 1, place.center().y()}), offset);
    }
    EXPECT_EQ(Reading().characterRect(1).left(), Reading().characterRect(0).right() + 1);
    EXPECT_EQ(Reading().characterRect(3), QRect());
    EXPECT_EQ(Reading().offsetAtPoint({-5000, 0}), -1);
}

TEST_F(TextBoxAccessibleTest, WritingBringsTheFocusSoThatTheBoxIsLeftLater) {
    Load({.Text = u"1"_s, .IsNumeric = true});
    QSignalSpy got(&TheControl(), &ctlTextBox::GotFocus);
    QSignalSpy lost(&TheControl(), &ctlTextBox::LostFocus);
    Write(QString());
    EXPECT_TRUE(TheBox().hasFocus());
    EXPECT_EQ(got.count(), 1);
    EXPECT_EQ(lost.count(), 0);
    Leave();
    EXPECT_EQ(lost.count(), 1);
    EXPECT_EQ(Text(), u"0"_s);
}

TEST_F(TextBoxAccessibleTest, WhereTheFocusCanNotComeTheBoxIsLeftAtOnce) {
    Load({.Text = u"1"_s, .IsNumeric = true});
    QWidget inFront;
    ShowAndActivate(inFront);
    QSignalSpy got(&TheControl(), &ctlTextBox::GotFocus);
    QSignalSpy lost(&TheControl(), &ctlTextBox::LostFocus);
    Write(QString());
    EXPECT_EQ(got.count(), 1);
    EXPECT_EQ(lost.count(), 1);
    EXPECT_EQ(Text(), u"0"_s);
}

TEST_F(TextBoxAccessibleTest, PartsCanBeWrittenAndDeleted) {
    Load({.Text = u"Wren Road"_s});
    Reader().editableTextInterface()->insertText(4, u"field"_s);
    EXPECT_EQ(Text(), u"Wrenfield Road"_s);
    Reader().editableTextInterface()->deleteText(9, 14);
    EXPECT_EQ(Text(), u"Wrenfield"_s);
    Reader().editableTextInterface()->replaceText(0, 1, u"w"_s);
    EXPECT_EQ(Text(), u"wrenfield"_s);
    Reader().editableTextInterface()->replaceText(4, 99, u"x"_s);
    Reader().editableTextInterface()->replaceText(-1, 2, u"x"_s);
    EXPECT_EQ(Text(), u"wrenfield"_s);
    Reader().setText(QAccessible::Value, u"Robin"_s);
    EXPECT_EQ(Text(), u"Robin"_s);
}

TEST_F(TextBoxAccessibleTest, NoMoreIsTakenThanCanBeEntered) {
    Load({.MaxLength = 5, .Text = u"abc"_s});
    Reader().editableTextInterface()->insertText(1, u"xyz"_s);
    EXPECT_EQ(Text(), u"axybc"_s);
    Write(u"123456"_s);
    EXPECT_EQ(Text(), u"12345"_s);
    TheControl().SetText(u"set by program"_s);
    Reader().editableTextInterface()->insertText(0, u"x"_s);
    EXPECT_EQ(Text(), u"set by program"_s);
}

TEST_F(TextBoxAccessibleTest, OneLineIsTakenAndItsTabsBecomeBlanks) {
    Load({});
    Write(u"Ada\tFinch\r\nnext"_s);
    EXPECT_EQ(Text(), u"Ada Finch"_s);
}

TEST_F(TextBoxAccessibleTest, NothingIsWrittenWhereNothingCanBeTyped) {
    Load({.Locked = true, .Text = u"kept"_s});
    Write(u"lost"_s);
    EXPECT_EQ(Text(), u"kept"_s);
    Load({.Enabled = false, .Text = u"kept"_s});
    Write(u"lost"_s);
    EXPECT_EQ(Text(), u"kept"_s);
}

TEST_F(TextBoxAccessibleTest, AStepBringsTheFocusAndIsOfferedOnlyWhereItCanBeDone) {
    Load({.Text = u"4"_s, .IsNumeric = true, .ShowUpDown = true, .UpDownIncrement = 1});
    TheControl().SetLabel(u"Count"_s);
    QAccessibleActionInterface& down = *Half(u"Count down").actionInterface();
    EXPECT_EQ(down.actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    down.doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Text(), u"3"_s);
    EXPECT_TRUE(TheBox().hasFocus());
    TheControl().SetEnabled(false);
    EXPECT_EQ(down.actionNames(), QStringList());
    down.doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Text(), u"3"_s);
    TheControl().SetEnabled(true);
    TheControl().SetShowUpDown(false);
    EXPECT_EQ(down.actionNames(), QStringList());
}

}  // namespace
