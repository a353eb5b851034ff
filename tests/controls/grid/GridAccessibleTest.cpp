#include "controls/grid/GridAccessible.h"
#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"
#include "support/ScreenReader.h"

#include <QAccessible>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class GridAccessibleTest : public GridTest {
protected:
    QAccessibleInterface& Table() { return *QAccessible::queryAccessibleInterface(grid.get()); }
    /// Both counted from 0.
    QAccessibleInterface& CellOf(int row, int column) {
        return *Table().tableInterface()->cellAt(row, column);
    }
    QStringList Heard() { return reader.Heard(); }
    static void Press(QAccessibleInterface& part) {
        part.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCoreApplication::processEvents();
    }

    ScreenReader reader;
};

TEST_F(GridAccessibleTest, TheListIsATableOfAllItsRows) {
    LoadShown(20);
    EXPECT_EQ(Table().role(), QAccessible::Table);
    ASSERT_NE(Table().tableInterface(), nullptr);
    EXPECT_EQ(Table().tableInterface()->rowCount(), 20);
    EXPECT_EQ(Table().tableInterface()->columnCount(), 2);
    EXPECT_EQ(CellOf(19, 1).text(QAccessible::Name), u"o20"_s);
    EXPECT_EQ(CellOf(0, 0).role(), QAccessible::Cell);
}

TEST_F(GridAccessibleTest, ACellsNameIsItsTextWithoutPadding) {
    LoadShown(2);
    grid->SetTextMatrix(1, 1, u" as it is "_s);
    EXPECT_EQ(CellOf(0, 0).text(QAccessible::Name), u" as it is "_s);
    EXPECT_EQ(CellOf(1, 0).text(QAccessible::Name), u"r2"_s);
}

TEST_F(GridAccessibleTest, HeadingsAreColumnHeaders) {
    LoadShown(2);
    QAccessibleInterface* header = Table().child(1);
    EXPECT_EQ(header->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(header->text(QAccessible::Name), u"Owner"_s);
    EXPECT_EQ(CellOf(1, 1).tableCellInterface()->columnHeaderCells(), QList{header});
    EXPECT_EQ(Table().tableInterface()->columnDescription(1), u"Owner"_s);
    Press(*header);
    EXPECT_EQ(Events(), QStringList{u"HeadClick 1"_s});
}

TEST_F(GridAccessibleTest, ChildrenKnowTheirPlaces) {
    LoadShown(20);
    EXPECT_EQ(Table().childCount(), 2 + 40 + 1);
    for (int index = 0; index < Table().childCount(); ++index) {
        QAccessibleInterface* child = Table().child(index);
        ASSERT_NE(child, nullptr) << index;
        EXPECT_EQ(Table().indexOfChild(child), index);
        EXPECT_EQ(child->parent(), &Table());
    }
    EXPECT_EQ(Table().child(42)->object(), &ScrollBar());
    EXPECT_EQ(Table().child(42)->role(), QAccessible::ScrollBar);
    EXPECT_NE(Table().child(42)->text(QAccessible::Name), QString());
    EXPECT_EQ(Table().child(-1), nullptr);
    EXPECT_EQ(Table().child(43), nullptr);
    QAccessibleTableCellInterface* cell = CellOf(3, 1).tableCellInterface();
    EXPECT_EQ(cell->rowIndex(), 3);
    EXPECT_EQ(cell->columnIndex(), 1);
    EXPECT_EQ(cell->table(), &Table());
}

TEST_F(GridAccessibleTest, PlacesThatDoNotExistHaveNoCell) {
    LoadShown(3);
    QAccessibleTableInterface* table = Table().tableInterface();
    EXPECT_EQ(table->cellAt(3, 0), nullptr);
    EXPECT_EQ(table->cellAt(-1, 0), nullptr);
    EXPECT_EQ(table->cellAt(0, 2), nullptr);
    EXPECT_EQ(table->cellAt(0, -1), nullptr);
    EXPECT_EQ(table->cellAt(std::numeric_limits<int>::max() - 1, 0), nullptr);
}

TEST_F(GridAccessibleTest, ACellThatIsGoneIsInvalid) {
    LoadShown(3);
    QAccessibleInterface& cell = CellOf(2, 0);
    EXPECT_TRUE(cell.isValid());
    grid->RemoveItem(1);
    EXPECT_FALSE(cell.isValid());
    EXPECT_EQ(cell.text(QAccessible::Name), QString());
    EXPECT_TRUE(cell.state().invalid);
    EXPECT_TRUE(cell.rect().isEmpty());
    EXPECT_TRUE(cell.actionInterface()->actionNames().isEmpty());
}

TEST_F(GridAccessibleTest, TheSelectedRowIsSelectedWholly) {
    LoadShown(20);
    QAccessibleTableInterface* table = Table().tableInterface();
    EXPECT_EQ(table->selectedRows(), QList<int>());
    EXPECT_EQ(table->selectedCellCount(), 0);
    grid->SetAbsoluteRow(12);
    EXPECT_EQ(table->selectedRows(), QList<int>{11});
    EXPECT_EQ(table->selectedCellCount(), 2);
    EXPECT_TRUE(table->isRowSelected(11));
    EXPECT_FALSE(table->isRowSelected(10));
    EXPECT_TRUE(CellOf(11, 1).state().selected);
    EXPECT_FALSE(CellOf(10, 1).state().selected);
}

TEST_F(GridAccessibleTest, InCellModeOneCellIsSelected) {
    LoadShown(20, 1);
    grid->SetAbsoluteRow(12);
    EXPECT_EQ(Table().tableInterface()->selectedCells(), QList{&CellOf(11, 0)});
    EXPECT_EQ(Table().tableInterface()->selectedRowCount(), 0);
}

TEST_F(GridAccessibleTest, TheCurrentCellHasTheFocusWhileTheListHasIt) {
    LoadShown(20);
    grid->SetRow(3);
    ScrollBar().setFocus();
    EXPECT_FALSE(CellOf(2, 0).state().focused);
    grid->setFocus();
    EXPECT_TRUE(CellOf(2, 0).state().focused);
    EXPECT_FALSE(CellOf(2, 1).state().focused);
    EXPECT_EQ(Table().focusChild(), &CellOf(2, 0));
}

TEST_F(GridAccessibleTest, ACellTellsWhereItIsOnTheScreen) {
    LoadShown(20);
    const QRect place = CellOf(1, 0).rect();
    EXPECT_EQ(place, QRect(grid->mapToGlobal(QPoint(16, 33)), QSize(141, 16)));
    EXPECT_EQ(Table().childAt(place.center().x(), place.center().y()), &CellOf(1, 0));
    const QRect heading = Table().child(1)->rect();
    EXPECT_EQ(Table().childAt(heading.center().x(), heading.center().y()), Table().child(1));
    EXPECT_TRUE(CellOf(15, 0).rect().isEmpty());
    EXPECT_TRUE(CellOf(15, 0).state().offscreen);
    EXPECT_FALSE(CellOf(1, 0).state().offscreen);
    const QPoint bar = ScrollBar().mapToGlobal(QPoint(3, 30));
    EXPECT_EQ(Table().childAt(bar.x(), bar.y()), Table().child(42));
    const QPoint strip = grid->mapToGlobal(QPoint(5, 30));
    EXPECT_EQ(Table().childAt(strip.x(), strip.y()), nullptr);
    grid->SetTopRow(13);
    EXPECT_FALSE(CellOf(15, 0).rect().isEmpty());
    EXPECT_TRUE(CellOf(1, 0).rect().isEmpty());
}

TEST_F(GridAccessibleTest, AHiddenColumnIsInvisible) {
    LoadShown(3);
    grid->SetColWidth(2, 0);
    EXPECT_TRUE(CellOf(0, 1).state().invisible);
    EXPECT_FALSE(CellOf(0, 0).state().invisible);
}

TEST_F(GridAccessibleTest, PressingACellBringsItIntoViewAndMakesItCurrent) {
    LoadShown(20);
    QAccessibleActionInterface* action = CellOf(14, 1).actionInterface();
    EXPECT_EQ(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
    Press(CellOf(14, 1));
    EXPECT_EQ(grid->AbsoluteRow(), 15);
    EXPECT_EQ(grid->Col(), 2);
    EXPECT_EQ(FirstColumn().last(), u"r15"_s);
    grid->SetEnabled(false);
    EXPECT_EQ(CellOf(2, 0).actionInterface()->actionNames(), QStringList());
    Press(CellOf(2, 0));
    EXPECT_EQ(grid->AbsoluteRow(), 15);
    EXPECT_TRUE(CellOf(2, 0).state().disabled);
}

TEST_F(GridAccessibleTest, PressingACellIsAClickOnIt) {
    LoadShown(20);
    ScrollBar().setFocus();
    Press(CellOf(1, 1));
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(Events(), (QStringList{u"RowColumnChange 2 2 0 0"_s, u"Click"_s}));
}

TEST_F(GridAccessibleTest, PressingALinkFollowsIt) {
    LoadShown(20);
    grid->SetColumnHyperlinks(u"0|1|"_s);
    grid->SetTopRow(2);
    grid->SetTopRow(1);
    Press(CellOf(1, 1));
    EXPECT_EQ(Events().last(), u"HyperLinkClick 2"_s);
}

TEST_F(GridAccessibleTest, ACellThatCanNotBeClickedOffersNoAction) {
    LoadShown(3);
    grid->SetColWidth(2, 0);
    EXPECT_EQ(CellOf(0, 1).actionInterface()->actionNames(), QStringList());
    EXPECT_EQ(Table().child(1)->actionInterface()->actionNames(), QStringList());
    grid->hide();
    EXPECT_EQ(CellOf(0, 0).actionInterface()->actionNames(), QStringList());
}

TEST_F(GridAccessibleTest, ARowThatTheScrollBarDoesNotReachOffersNoAction) {
    LoadShown(3);
    grid->SetRows(32767);
    grid->SetRows(40000);
    EXPECT_EQ(CellOf(32766, 0).actionInterface()->actionNames().size(), 1);
    EXPECT_EQ(CellOf(39999, 0).actionInterface()->actionNames(), QStringList());
    EXPECT_FALSE(Table().tableInterface()->selectRow(39999));
}

TEST_F(GridAccessibleTest, ARowCanBeSelected) {
    LoadShown(20);
    EXPECT_TRUE(Table().tableInterface()->selectRow(9));
    EXPECT_EQ(grid->AbsoluteRow(), 10);
    EXPECT_FALSE(Table().tableInterface()->selectRow(20));
    EXPECT_FALSE(Table().tableInterface()->selectRow(-1));
    EXPECT_FALSE(Table().tableInterface()->unselectRow(9));
    EXPECT_EQ(grid->AbsoluteRow(), 10);
}

TEST_F(GridAccessibleTest, ColumnsCanNotBeSelected) {
    LoadShown(20);
    grid->SetAbsoluteRow(12);
    QAccessibleTableInterface* table = Table().tableInterface();
    EXPECT_FALSE(table->selectColumn(0));
    EXPECT_FALSE(table->unselectColumn(0));
    EXPECT_FALSE(table->isColumnSelected(0));
    EXPECT_EQ(table->selectedColumns(), QList<int>());
    EXPECT_EQ(table->selectedColumnCount(), 0);
    EXPECT_EQ(table->selectedRowCount(), 1);
    EXPECT_EQ(grid->AbsoluteRow(), 12);
    EXPECT_EQ(grid->Col(), 1);
}

TEST_F(GridAccessibleTest, RowsHaveNoHeadersAndTheTableNoCaption) {
    LoadShown(3);
    QAccessibleTableInterface* table = Table().tableInterface();
    EXPECT_EQ(table->rowDescription(0), QString());
    EXPECT_EQ(table->caption(), nullptr);
    EXPECT_EQ(table->summary(), nullptr);
    EXPECT_TRUE(CellOf(0, 0).tableCellInterface()->rowHeaderCells().isEmpty());
    EXPECT_EQ(Table().textInterface(), nullptr);
}

TEST_F(GridAccessibleTest, ACellIsOneOfARowAndAColumnAndHasNoPartsOfItsOwn) {
    LoadShown(3);
    QAccessibleInterface& cell = CellOf(1, 1);
    EXPECT_EQ(cell.tableCellInterface()->rowExtent(), 1);
    EXPECT_EQ(cell.tableCellInterface()->columnExtent(), 1);
    EXPECT_EQ(cell.childCount(), 0);
    EXPECT_EQ(cell.child(0), nullptr);
    EXPECT_EQ(cell.indexOfChild(&Table()), -1);
    const QPoint middle = cell.rect().center();
    EXPECT_EQ(cell.childAt(middle.x(), middle.y()), nullptr);
    EXPECT_EQ(cell.textInterface(), nullptr);
    EXPECT_EQ(cell.actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
              QStringList());
}

TEST_F(GridAccessibleTest, ACellCanNotBeWritten) {
    LoadShown(3);
    CellOf(1, 0).setText(QAccessible::Name, u"other"_s);
    CellOf(1, 0).setText(QAccessible::Value, u"other"_s);
    EXPECT_EQ(CellOf(1, 0).text(QAccessible::Name), u"r2"_s);
    EXPECT_EQ(grid->TextMatrix(2, 1), u"r2"_s);
}

TEST_F(GridAccessibleTest, TheScrollBarHasTheFocusWhenTheListDoesNot) {
    LoadShown(20);
    grid->SetRow(3);
    ScrollBar().setFocus();
    ASSERT_NE(Table().focusChild(), nullptr);
    EXPECT_EQ(Table().focusChild()->object(), &ScrollBar());
}

TEST_F(GridAccessibleTest, EachMoveOfTheSelectionIsAnnounced) {
    LoadShown(20);
    grid->setFocus();
    Heard();
    QTest::keyClick(grid.get(), Qt::Key_Down);
    EXPECT_EQ(Heard(), (QStringList{u"selection r1"_s, u"focus r1"_s}));
    QTest::keyClick(grid.get(), Qt::Key_Right);
    EXPECT_EQ(Heard(), (QStringList{u"selection o1"_s, u"focus o1"_s}));
    grid->SetAbsoluteRow(5);
    Heard();
    QTest::keyClick(grid.get(), Qt::Key_Down);
    // The step through the list that comes with it is not.
    EXPECT_EQ(Heard(),
              (QStringList{u"deselection r5"_s, u"deselection o5"_s, u"selection o6"_s, u"focus o6"_s}));
    grid->SetRow(5);
    EXPECT_EQ(Heard(), QStringList());
}

TEST_F(GridAccessibleTest, ASelectionDraggedAlongIsAnnounced) {
    LoadShown(20);
    grid->SetRow(2);
    ScrollBar().setFocus();
    Heard();
    ScrollTo(2);
    EXPECT_EQ(Heard(), QStringList());
    ScrollTo(6);
    EXPECT_EQ(Heard(), (QStringList{u"deselection r2"_s, u"deselection o2"_s, u"selection r6"_s}));
}

TEST_F(GridAccessibleTest, TheFocusThatComesIsAnnouncedForTheCurrentCell) {
    LoadShown(20);
    ScrollBar().setFocus();
    grid->SetRow(3);
    Heard();
    grid->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(Heard().last(), u"focus r3"_s);
    EXPECT_FALSE(Table().state().focused);
}

TEST_F(GridAccessibleTest, AListWithoutACurrentCellHasTheFocusItself) {
    LoadShown(20);
    grid->setFocus();
    EXPECT_TRUE(Table().state().focused);
}

TEST_F(GridAccessibleTest, InCellModeTheCellThatIsLeftIsNoLongerSelected) {
    LoadShown(20, 1);
    grid->SetAbsoluteRow(2);
    Heard();
    grid->SetCol(2);
    EXPECT_EQ(Heard(), (QStringList{u"deselection r2"_s, u"selection o2"_s, u"focus o2"_s}));
}

TEST_F(GridAccessibleTest, RowsThatComeAndGoAreAnnounced) {
    LoadShown(3);
    Heard();
    grid->AddItem(u"r4"_s);
    EXPECT_EQ(Heard(), QStringList{u"rows inserted 3"_s});
    grid->RemoveItem(2);
    EXPECT_TRUE(Heard().contains(u"rows removed 1"_s));
    grid->SetRows(0);
    EXPECT_EQ(Heard(), QStringList{u"rows reset"_s});
    EXPECT_EQ(Table().tableInterface()->rowCount(), 0);
    EXPECT_EQ(Table().childCount(), 2);
}

TEST_F(GridAccessibleTest, TheListCanGoWhileItsCellsAreKnown) {
    LoadShown(3);
    const QAccessible::Id cell = QAccessible::uniqueId(&CellOf(1, 1));
    ASSERT_NE(QAccessible::accessibleInterface(cell), nullptr);
    grid.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr);
}

}  // namespace
