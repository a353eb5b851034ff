#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "text/TextBoxOnScreen.h"

#include <QMenu>
#include <QTest>

namespace {

using namespace Qt::StringLiterals;
using controls::ctlTextBox;

class TextBoxFocusTest : public TextBoxTest {
protected:
    /// Loads a box that notes what happens to it in words.
    ctlTextBox& LoadNoting(const Properties& saved) {
        ctlTextBox& control = Load(saved);
        QObject::connect(&control, &ctlTextBox::GotFocus, &control, [this] { notes.append(u"got"_s); });
        QObject::connect(&control, &ctlTextBox::LostFocus, &control,
                         [this] { notes.append(u"lost with "_s + Text()); });
        QObject::connect(&control, &ctlTextBox::Change, &control,
                         [this] { notes.append(u"change to "_s + Text()); });
        return control;
    }

    QPoint Behind(int characters) {
        const int width = TheBox().fontMetrics().horizontalAdvance(Text().left(characters));
        return {width + 5, TheBox().height() / 2};
    }

    void ExpectAllSelected() {
        EXPECT_EQ(TheBox().selectedText(), Text());
        EXPECT_EQ(Caret(), 0);
    }

    QStringList notes;
};

TEST_F(TextBoxFocusTest, TheInnerBoxHasTheFocusOfTheControl) {
    Load({});
    TheControl().setFocus();
    EXPECT_TRUE(TheBox().hasFocus());
    EXPECT_EQ(TheControl().focusProxy(), &TheBox());
}

TEST_F(TextBoxFocusTest, AllTextIsSelectedWithTheCaretInFrontByEveryRoad) {
    for (const bool isNumeric : {false, true}) {
        for (const Qt::FocusReason reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::OtherFocusReason,
                                             Qt::ShortcutFocusReason, Qt::MouseFocusReason}) {
            Load({.Text = u"12"_s, .IsNumeric = isNumeric});
            TheControl().setFocus(reason);
            ExpectAllSelected();
        }
    }
}

TEST_F(TextBoxFocusTest, AClickThatBringsTheFocusLeavesAllSelected) {
    Load({.Text = u"some text"_s});
    QTest::mouseClick(&TheBox(), Qt::LeftButton, {}, Behind(4));
    EXPECT_TRUE(TheBox().hasFocus());
    ExpectAllSelected();
}

TEST_F(TextBoxFocusTest, TheNextClickPlacesTheCaret) {
    Load({.Text = u"some text"_s});
    QTest::mouseClick(&TheBox(), Qt::LeftButton, {}, Behind(4));
    QTest::mouseClick(&TheBox(), Qt::LeftButton, {}, Behind(4));
    EXPECT_FALSE(TheBox().hasSelectedText());
    EXPECT_EQ(Caret(), 4);
}

TEST_F(TextBoxFocusTest, APullWithTheClickThatBringsTheFocusSelectsNothingElse) {
    Load({.Text = u"some text"_s});
    QTest::mousePress(&TheBox(), Qt::LeftButton, {}, Behind(2));
    QTest::mouseMove(&TheBox(), Behind(6));
    QMouseEvent pull(QEvent::MouseMove, Behind(6), TheBox().mapToGlobal(Behind(6)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&TheBox(), &pull);
    QTest::mouseRelease(&TheBox(), Qt::LeftButton, {}, Behind(6));
    ExpectAllSelected();
}

TEST_F(TextBoxFocusTest, APullInABoxWithTheFocusSelectsAsUsual) {
    Enter({.Text = u"some text"_s});
    QTest::mousePress(&TheBox(), Qt::LeftButton, {}, Behind(1));
    QMouseEvent pull(QEvent::MouseMove, Behind(6), TheBox().mapToGlobal(Behind(6)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&TheBox(), &pull);
    QTest::mouseRelease(&TheBox(), Qt::LeftButton, {}, Behind(6));
    EXPECT_EQ(TheBox().selectedText(), u"ome t"_s);
}

TEST_F(TextBoxFocusTest, AfterKeysAClickIsNoLongerTheOneThatBroughtTheFocus) {
    Load({.Text = u"some text"_s});
    TheControl().setFocus(Qt::MouseFocusReason);
    Press(Qt::Key_End);
    QTest::mouseClick(&TheBox(), Qt::LeftButton, {}, Behind(4));
    EXPECT_EQ(Caret(), 4);
}

TEST_F(TextBoxFocusTest, TypingAfterComingReplacesTheText) {
    Enter({.Text = u"0.00"_s, .IsNumeric = true, .DecimalPlaces = 4});
    Type(u"8"_s);
    EXPECT_EQ(Text(), u"8"_s);
}

TEST_F(TextBoxFocusTest, ComingAndLeavingAreTold) {
    LoadNoting({.Text = u"12"_s});
    Focus();
    EXPECT_EQ(notes, QStringList{u"got"_s});
    Leave();
    EXPECT_EQ(notes, (QStringList{u"got"_s, u"lost with 12"_s}));
}

TEST_F(TextBoxFocusTest, OnLeavingTheNumberIsThereBeforeItIsTold) {
    LoadNoting({.Text = u""_s, .IsNumeric = true});
    Focus();
    Leave();
    EXPECT_EQ(notes, (QStringList{u"got"_s, u"change to 0"_s, u"lost with 0"_s}));
}

TEST_F(TextBoxFocusTest, OnComingTheTextIsSelectedBeforeItIsTold) {
    Load({.Text = u"12"_s});
    QString selected;
    QObject::connect(&TheControl(), &ctlTextBox::GotFocus, [&] { selected = TheBox().selectedText(); });
    Focus();
    EXPECT_EQ(selected, u"12"_s);
}

TEST_F(TextBoxFocusTest, AnotherWindowAndBackIsNoLeaving) {
    LoadNoting({.Text = u"12-"_s, .IsNumeric = true});
    Focus();
    PlaceCaret(2);
    notes.clear();
    QWidget another;
    QLineEdit within(&another);
    ShowAndActivate(another);
    within.setFocus();
    EXPECT_TRUE(within.hasFocus());
    ShowAndActivate(window);
    EXPECT_TRUE(TheBox().hasFocus());
    EXPECT_EQ(Caret(), 2);
    EXPECT_EQ(Text(), u"12-"_s);
    EXPECT_TRUE(notes.isEmpty());
}

TEST_F(TextBoxFocusTest, AFocusThatMovesBehindAnotherWindowIsALeaving) {
    LoadNoting({.Text = u""_s, .IsNumeric = true});
    Focus();
    notes.clear();
    {
        QWidget another;
        ShowAndActivate(another);
        other.setFocus();
    }
    ShowAndActivate(window);
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(notes, (QStringList{u"change to 0"_s, u"lost with 0"_s}));
}

TEST_F(TextBoxFocusTest, AWindowThatOpensWithTheFocusInTheBoxSelectsItsText) {
    QWidget dialog;
    ctlTextBox control({.Text = u"abc"_s}, &dialog);
    control.setFocus();
    ShowAndActivate(dialog);
    const auto* box = control.findChild<QLineEdit*>(u"TextBox"_s);
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), u"abc"_s);
}

TEST_F(TextBoxFocusTest, ItsOwnMenuIsNoLeaving) {
    LoadNoting({.Text = u"some text"_s});
    Focus();
    TheBox().setSelection(0, 4);
    notes.clear();
    QMenu menu(&TheBox());
    menu.addAction(u"Anything"_s);
    menu.popup(TheBox().mapToGlobal(QPoint(1, 1)));
    QCoreApplication::processEvents();
    menu.close();
    QCoreApplication::processEvents();
    EXPECT_TRUE(notes.isEmpty());
    EXPECT_EQ(TheBox().selectedText(), u"some"_s);
}

TEST_F(TextBoxFocusTest, ABoxThatIsDisabledUnderTheUserIsLeft) {
    LoadNoting({.Text = u""_s, .IsNumeric = true});
    Focus();
    TheControl().SetEnabled(false);
    EXPECT_EQ(Text(), u"0"_s);
    EXPECT_TRUE(notes.contains(u"lost with 0"_s));
}

TEST_F(TextBoxFocusTest, ABoxThatGoesAwayUnderTheUserIsSilent) {
    auto control = std::make_unique<ctlTextBox>(Properties{.Text = u""_s, .IsNumeric = true}, &window);
    control->show();
    control->setFocus();
    bool told = false;
    QObject::connect(control.get(), &ctlTextBox::Change, &window, [&] { told = true; });
    QObject::connect(control.get(), &ctlTextBox::LostFocus, &window, [&] { told = true; });
    control.reset();
    EXPECT_FALSE(told);
}

TEST_F(TextBoxFocusTest, TabWalksFromBoxToBoxInTheOrderOfTheForm) {
    QWidget form;
    ctlTextBox first({}, &form);
    ctlTextBox second({}, &form);
    ctlTextBox third({.ShowUpDown = true}, &form);
    QWidget::setTabOrder(&third, &first);
    QWidget::setTabOrder(&first, &second);
    third.setFocus();
    ShowAndActivate(form);
    const auto inFront = [&]() -> const QWidget* {
        for (const ctlTextBox* control : {&first, &second, &third}) {
            if (control->isAncestorOf(QApplication::focusWidget())) {
                return control;
            }
        }
        return nullptr;
    };
    QList<const QWidget*> way;
    for (int step = 0; step < 3; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        way.append(inFront());
    }
    EXPECT_EQ(way, (QList<const QWidget*>{&first, &second, &third}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(inFront(), &second);
}

TEST_F(TextBoxFocusTest, ADisabledBoxIsPassedOver) {
    QWidget form;
    ctlTextBox first({}, &form);
    const ctlTextBox second({.Enabled = false}, &form);
    QLineEdit third(&form);
    first.setFocus();
    ShowAndActivate(form);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(third.hasFocus());
}

}  // namespace
