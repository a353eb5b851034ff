#include "heading/HeadingFixture.h"
#include "support/ScreenReader.h"

#include <QAccessible>
#include <QTest>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

/// Asks all that there is to ask, as an assistive program may at any moment.
void AskEverything(QAccessibleInterface* found) {
    if (found == nullptr || !found->isValid()) {
        return;
    }
    for (int index = 0; index < found->childCount(); ++index) {
        QAccessibleInterface* child = found->child(index);
        ASSERT_NE(child, nullptr);
        EXPECT_EQ(found->indexOfChild(child), index);
        EXPECT_EQ(child->parent(), found);
        child->text(QAccessible::Name);
        child->state();
        child->rect();
    }
}

class HeadingAccessibleTest : public HeadingFixture {
protected:
    QAccessibleInterface* List() const { return QAccessible::queryAccessibleInterface(heading.get()); }
    QAccessibleInterface* Tab(int tab) const { return List()->child(tab); }

    static void PressOn(QAccessibleInterface* found) {
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
};

TEST_F(HeadingAccessibleTest, IsAListOfPageTabsNamedAfterTheTitle) {
    ShowWizard();
    EXPECT_EQ(List()->role(), QAccessible::PageTabList);
    EXPECT_EQ(List()->text(QAccessible::Name), u"Hearthbook Wrenfield Wizard"_s);
    ASSERT_EQ(List()->childCount(), 9);
    QStringList names;
    for (int tab = 0; tab < 7; ++tab) {
        EXPECT_EQ(Tab(tab)->role(), QAccessible::PageTab);
        names += Tab(tab)->text(QAccessible::Name);
        EXPECT_EQ(Tab(tab)->text(QAccessible::Value), QString());
    }
    EXPECT_EQ(names.join(u'|') + u'|', wizardTabs);
    heading->SetCaption(u"Other"_s);
    EXPECT_EQ(List()->text(QAccessible::Name), u"Other"_s);
}

TEST_F(HeadingAccessibleTest, TheTitleAndTheCloseImageStandBehindTheTabs) {
    ShowWizard();
    EXPECT_EQ(List()->child(7)->role(), QAccessible::StaticText);
    EXPECT_EQ(List()->child(7)->text(QAccessible::Name), u"Hearthbook Wrenfield Wizard"_s);
    EXPECT_EQ(List()->child(8)->role(), QAccessible::PushButton);
    EXPECT_EQ(List()->child(8)->text(QAccessible::Name), u"Close"_s);
    EXPECT_EQ(List()->child(8)->object()->objectName(), u"imgCloseButton"_s);
    EXPECT_EQ(List()->child(9), nullptr);
    EXPECT_EQ(List()->child(-1), nullptr);
    heading->SetCloseButton(false);
    EXPECT_EQ(List()->childCount(), 8);
}

TEST_F(HeadingAccessibleTest, ParentsAndChildrenKnowEachOther) {
    ShowWizard();
    AskEverything(List());
    EXPECT_EQ(Tab(2), Tab(2));
    EXPECT_EQ(List()->indexOfChild(List()), -1);
    EXPECT_EQ(Tab(2)->childCount(), 0);
    EXPECT_EQ(Tab(2)->child(0), nullptr);
    EXPECT_EQ(Tab(2)->childAt(0, 0), nullptr);
    EXPECT_EQ(Tab(2)->indexOfChild(Tab(3)), -1);
    EXPECT_EQ(Tab(2)->object(), nullptr);
    EXPECT_EQ(Tab(2)->window(), heading->windowHandle());
}

TEST_F(HeadingAccessibleTest, TheStatesAreThoseOfTheTab) {
    ShowWizard();
    heading->ChangeTabEnabled(1, true);
    EXPECT_TRUE(Tab(0)->state().selected);
    EXPECT_TRUE(Tab(0)->state().disabled);
    EXPECT_FALSE(Tab(1)->state().selected);
    EXPECT_FALSE(Tab(1)->state().disabled);
    EXPECT_TRUE(Tab(2)->state().disabled);
    EXPECT_TRUE(Tab(2)->state().selectable);
    EXPECT_FALSE(Tab(2)->state().invisible);
    EXPECT_FALSE(Tab(2)->state().offscreen);
    heading->ChangeTab(1);
    EXPECT_FALSE(Tab(0)->state().selected);
    EXPECT_TRUE(Tab(1)->state().selected);
    heading->setEnabled(false);
    EXPECT_TRUE(Tab(1)->state().disabled);
    heading->hide();
    EXPECT_TRUE(Tab(1)->state().invisible);
}

TEST_F(HeadingAccessibleTest, ATabPastTheRightEdgeIsOffTheScreen) {
    Show(Wizard(), 3000, WizardHeight);
    EXPECT_FALSE(Tab(1)->state().offscreen);
    EXPECT_TRUE(Tab(2)->state().offscreen);
}

TEST_F(HeadingAccessibleTest, TabsAreFoundWhereTheyStand) {
    ShowWizard();
    const QPoint origin = heading->mapToGlobal(QPoint(0, 0));
    EXPECT_EQ(Tab(1)->rect(), QRect(origin + QPoint(112, 49), QSize(101, 24)));
    EXPECT_EQ(List()->childAt(origin.x() + 150, origin.y() + 60), Tab(1));
    EXPECT_EQ(List()->childAt(origin.x() + 778, origin.y() + 14), List()->child(8));
    EXPECT_EQ(List()->childAt(origin.x() + 400, origin.y() + 20), List()->child(7));
    EXPECT_EQ(List()->childAt(origin.x() + 108, origin.y() + 60), nullptr);
}

TEST_F(HeadingAccessibleTest, PressingATabIsAClickOnIt) {
    ShowWizard();
    heading->ChangeTabEnabled(3, true);
    EXPECT_EQ(Tab(3)->actionInterface()->actionNames(),
              QStringList(QAccessibleActionInterface::pressAction()));
    EXPECT_TRUE(
        Tab(3)->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()).isEmpty());
    PressOn(Tab(3));
    EXPECT_EQ(TakeEvents(), QStringList(u"TabSelect Owners 3"_s));
    EXPECT_EQ(heading->CurrentTabIndex(), 3);
    Tab(3)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingAccessibleTest, ADisabledTabCantBePressed) {
    ShowWizard();
    EXPECT_EQ(Tab(3)->actionInterface()->actionNames(), QStringList());
    PressOn(Tab(3));
    EXPECT_EQ(TakeEvents(), QStringList());
    EXPECT_EQ(heading->CurrentTabIndex(), 0);
    heading->ChangeTabEnabled(3, true);
    heading->setEnabled(false);
    PressOn(Tab(3));
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingAccessibleTest, PressingTheCloseImageIsAClickOnIt) {
    ShowWizard();
    PressOn(List()->child(8));
    // The toolkit lets the button stay down for a moment, as under a finger.
    EXPECT_TRUE(QTest::qWaitFor([&] { return HasEvents(); }));
    EXPECT_EQ(TakeEvents(), QStringList(u"CloseButtonClick"_s));
}

TEST_F(HeadingAccessibleTest, ASelectionIsTold) {
    ShowWizard();
    ScreenReader reader;
    heading->ChangeTab(3);
    EXPECT_EQ(reader.Heard(), (QStringList{u"deselection Introduction"_s, u"state selected Introduction"_s,
                                           u"selection Owners"_s, u"state selected Owners"_s}));
    heading->ChangeTab(3);
    EXPECT_EQ(reader.Heard(), QStringList());
    heading->ChangeTabEnabled(1, true);
    reader.Heard();
    Click(150, 60);
    EXPECT_EQ(reader.Heard(), (QStringList{u"selection Bank Accounts"_s, u"state selected Bank Accounts"_s,
                                           u"deselection Owners"_s, u"state selected Owners"_s}));
}

TEST_F(HeadingAccessibleTest, EnablingIsToldWhenItChanges) {
    ShowWizard();
    ScreenReader reader;
    heading->ChangeTabEnabled(2, true);
    EXPECT_EQ(reader.Heard(), QStringList(u"state disabled User Type"_s));
    heading->ChangeTabEnabled(2, true);
    EXPECT_EQ(reader.Heard(), QStringList());
    heading->ChangeTabEnabled(2, false);
    EXPECT_EQ(reader.Heard(), QStringList(u"state disabled User Type"_s));
    heading->ChangeTabEnabled(7, true);
    EXPECT_EQ(reader.Heard(), QStringList());
}

TEST_F(HeadingAccessibleTest, NewTabsAreTold) {
    ShowWizard();
    QAccessibleInterface* last = Tab(6);
    ScreenReader reader;
    heading->SetTabs(u"Introduction|B|"_s);
    EXPECT_EQ(reader.Heard(), QStringList(u"reorder Hearthbook Wrenfield Wizard"_s));
    EXPECT_EQ(List()->childCount(), 4);
    EXPECT_EQ(Tab(1)->text(QAccessible::Name), u"B"_s);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(last->text(QAccessible::Name), QString());
    EXPECT_TRUE(last->state().invalid);
    EXPECT_EQ(last->rect(), QRect());
    EXPECT_EQ(last->actionInterface()->actionNames(), QStringList());
    PressOn(last);
    EXPECT_EQ(TakeEvents(), QStringList());
}

TEST_F(HeadingAccessibleTest, CanBeAskedWhileTheHeadingIsTakenDown) {
    ShowWizard();
    AskEverything(List());
    static QAccessibleInterface* list = nullptr;
    static int asked = 0;
    list = List();
    asked = 0;
    const ScreenReader reader;
    QAccessible::installUpdateHandler([](QAccessibleEvent*) {
        ++asked;
        EXPECT_GE(list->childCount(), 0);
        EXPECT_EQ(list->child(99), nullptr);
        AskEverything(list);
    });
    heading.reset();
    EXPECT_GT(asked, 0);
}

}  // namespace
