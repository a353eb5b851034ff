#include "controls/ctlButton.h"
#include "date/DateForm.h"
#include "platform/NoDate.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "support/ScreenReader.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

class DateAccessibleTest : public ::testing::Test {
protected:
    DateAccessibleTest() { form.date.SetLabel(u"Start Date"_s); }

    QAccessibleInterface* Date() { return QAccessible::queryAccessibleInterface(&form.date); }
    QAccessibleInterface* Table() {
        for (int index = 0; index < Date()->childCount(); ++index) {
            if (Date()->child(index)->role() == QAccessible::Table) {
                return Date()->child(index);
            }
        }
        return nullptr;
    }
    /// Rows and columns from 0.
    QAccessibleInterface* CellAt(int row, int column) {
        return Table()->tableInterface()->cellAt(row, column);
    }
    static QString Name(QAccessibleInterface* interface) { return interface->text(QAccessible::Name); }
    static void PressOn(QAccessibleInterface* interface) {
        interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    void WriteInto(int box, const QString& text) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&form.Box(box));
        interface->editableTextInterface()->replaceText(0, interface->textInterface()->characterCount(),
                                                        text);
    }

    DateForm form{{.IncludeNone = true}};
};

TEST_F(DateAccessibleTest, BoxesAndButtonsBearTheLabel) {
    const struct {
        QWidget* widget;
        QAccessible::Role role;
        const char16_t* name;
    } rows[] = {{&form.date, QAccessible::Grouping, u"Start Date"},
                {&form.Box(1), QAccessible::EditableText, u"Start Date day"},
                {&form.Box(2), QAccessible::EditableText, u"Start Date month"},
                {&form.Box(3), QAccessible::EditableText, u"Start Date year"},
                {&form.None(), QAccessible::EditableText, u"Start Date none"},
                {&form.Button("cmdOpen"), QAccessible::Button, u"Start Date calendar"},
                {&form.Button("cmdLeftYear"), QAccessible::Button, u"Previous year"},
                {&form.Button("cmdLeftMonth"), QAccessible::Button, u"Previous month"},
                {&form.Button("cmdRightMonth"), QAccessible::Button, u"Next month"},
                {&form.Button("cmdRightYear"), QAccessible::Button, u"Next year"}};
    for (const auto& row : rows) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(row.widget);
        EXPECT_EQ(interface->role(), row.role) << QString::fromUtf16(row.name).toStdString();
        EXPECT_EQ(Name(interface), QString::fromUtf16(row.name));
    }
}

TEST_F(DateAccessibleTest, TheNamesFollowTheOrderAndDoWithoutALabel) {
    DateForm american({}, DateForm::MonthFirst);
    EXPECT_EQ(american.Box(1).accessibleName(), u"month"_s);
    american.date.SetLabel(u"Balance Date"_s);
    EXPECT_EQ(american.Box(1).accessibleName(), u"Balance Date month"_s);
    EXPECT_EQ(american.Box(2).accessibleName(), u"Balance Date day"_s);
    DateForm swedish({}, DateForm::YearFirst);
    swedish.date.SetLabel(u"Balance Date"_s);
    EXPECT_EQ(swedish.Box(1).accessibleName(), u"Balance Date year"_s);
    EXPECT_EQ(swedish.Box(3).accessibleName(), u"Balance Date day"_s);
    EXPECT_EQ(swedish.date.Label(), u"Balance Date"_s);
}

TEST_F(DateAccessibleTest, TheCalendarIsATableNamedAfterItsMonthWhileItIsOpen) {
    EXPECT_EQ(Table(), nullptr);
    EXPECT_EQ(Date()->childCount(), 9);
    form.date.DropDown();
    ASSERT_NE(Table(), nullptr);
    EXPECT_EQ(Date()->childCount(), 10);
    EXPECT_EQ(Date()->indexOfChild(Table()), 9);
    EXPECT_EQ(Table()->parent(), Date());
    EXPECT_EQ(Name(Table()), u"March 2009"_s);
    EXPECT_FALSE(Table()->state().invisible);
    form.date.CloseUp();
    EXPECT_EQ(Table(), nullptr);
}

TEST_F(DateAccessibleTest, TheTableHasARowAWeekAndOneForNone) {
    form.date.DropDown();
    QAccessibleTableInterface* table = Table()->tableInterface();
    EXPECT_EQ(table->rowCount(), 7);
    EXPECT_EQ(table->columnCount(), 7);
    EXPECT_EQ(table->columnDescription(0), u"Sun"_s);
    EXPECT_EQ(table->columnDescription(6), u"Sat"_s);
    EXPECT_EQ(Table()->childCount(), 43);
    form.date.SetIncludeNone(false);
    EXPECT_EQ(table->rowCount(), 6);
    EXPECT_EQ(Table()->childCount(), 42);
    EXPECT_EQ(Table()->child(42), nullptr);
    EXPECT_EQ(Table()->child(-1), nullptr);
    EXPECT_EQ(table->cellAt(6, 0), nullptr);
    EXPECT_EQ(table->cellAt(-1, 0), nullptr);
    EXPECT_EQ(table->cellAt(0, 7), nullptr);
}

TEST_F(DateAccessibleTest, EachCellBearsItsDateAndKnowsItsPlace) {
    form.date.DropDown();
    for (int row = 0; row < 6; ++row) {
        for (int column = 0; column < 7; ++column) {
            QAccessibleInterface* cell = CellAt(row, column);
            const int day = (row - 1) * 7 + column + 1;
            const bool isDay = day >= 1 && day <= 31;
            EXPECT_EQ(cell->role(), QAccessible::Cell);
            EXPECT_EQ(Name(cell), isDay ? QString::number(day) + u" March 2009"_s : QString());
            EXPECT_EQ(cell->state().disabled, !isDay);
            EXPECT_EQ(cell->state().selected, day == 14);
            EXPECT_EQ(cell->actionInterface()->actionNames().size(), isDay ? 1 : 0);
            EXPECT_EQ(cell->tableCellInterface()->rowIndex(), row);
            EXPECT_EQ(cell->tableCellInterface()->columnIndex(), column);
            EXPECT_EQ(Table()->indexOfChild(cell), row * 7 + column);
            EXPECT_EQ(cell->parent(), Table());
        }
    }
    EXPECT_EQ(Table()->tableInterface()->selectedCells(), QList<QAccessibleInterface*>{CellAt(2, 6)});
}

TEST_F(DateAccessibleTest, DaysAreSelectedOneByOneAndNeverByRowsOrColumns) {
    form.date.DropDown();
    QAccessibleTableInterface* table = Table()->tableInterface();
    EXPECT_EQ(table->selectedCellCount(), 1);
    EXPECT_EQ(table->selectedRowCount(), 0);
    EXPECT_EQ(table->selectedColumnCount(), 0);
    EXPECT_EQ(table->selectedRows(), QList<int>());
    EXPECT_EQ(table->selectedColumns(), QList<int>());
    // The row and the column of the day in the boxes.
    EXPECT_FALSE(table->isRowSelected(2));
    EXPECT_FALSE(table->isColumnSelected(6));
    EXPECT_FALSE(table->selectRow(3));
    EXPECT_FALSE(table->selectColumn(3));
    EXPECT_FALSE(table->unselectRow(2));
    EXPECT_FALSE(table->unselectColumn(6));
    EXPECT_EQ(table->selectedCells(), QList<QAccessibleInterface*>{CellAt(2, 6)});
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST_F(DateAccessibleTest, ACellIsOneOfARowAndAColumnAndHasNoPartsOfItsOwn) {
    form.date.DropDown();
    QAccessibleInterface* day = CellAt(2, 6);
    EXPECT_EQ(day->tableCellInterface()->rowExtent(), 1);
    EXPECT_EQ(day->tableCellInterface()->columnExtent(), 1);
    EXPECT_EQ(day->tableCellInterface()->table(), Table());
    EXPECT_TRUE(day->tableCellInterface()->rowHeaderCells().isEmpty());
    EXPECT_TRUE(day->tableCellInterface()->columnHeaderCells().isEmpty());
    EXPECT_EQ(day->childCount(), 0);
    EXPECT_EQ(day->child(0), nullptr);
    EXPECT_EQ(day->indexOfChild(Table()), -1);
    const QPoint middle = day->rect().center();
    EXPECT_EQ(day->childAt(middle.x(), middle.y()), nullptr);
    EXPECT_EQ(day->textInterface(), nullptr);
    EXPECT_EQ(day->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
              QStringList());
}

TEST_F(DateAccessibleTest, ADayCanNotBeWritten) {
    form.date.DropDown();
    CellAt(2, 6)->setText(QAccessible::Name, u"15"_s);
    Table()->setText(QAccessible::Name, u"April 2009"_s);
    EXPECT_EQ(Name(CellAt(2, 6)), u"14 March 2009"_s);
    EXPECT_EQ(Name(Table()), u"March 2009"_s);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST_F(DateAccessibleTest, WeeksHaveNoHeadersAndTheTableNoCaption) {
    form.date.DropDown();
    QAccessibleTableInterface* table = Table()->tableInterface();
    EXPECT_EQ(table->rowDescription(2), QString());
    EXPECT_EQ(table->caption(), nullptr);
    EXPECT_EQ(table->summary(), nullptr);
}

TEST_F(DateAccessibleTest, APlaceWithoutAnythingBelongsToNoPart) {
    form.date.DropDown();
    const QPoint beside = form.date.mapToGlobal(QPoint(form.date.width() - 5, 5));
    EXPECT_EQ(Date()->childAt(beside.x(), beside.y()), nullptr);
    EXPECT_EQ(Table()->childAt(beside.x(), beside.y()), nullptr);
}

TEST_F(DateAccessibleTest, CellsAreFoundWhereTheyAreDrawn) {
    form.date.DropDown();
    const QPoint middle = form.date.mapToGlobal(QPoint(2300 / 15, 1275 / 15));
    EXPECT_EQ(Date()->childAt(middle.x(), middle.y()), Table());
    EXPECT_EQ(Name(Table()->childAt(middle.x(), middle.y())), u"14 March 2009"_s);
    const QPoint none = form.date.mapToGlobal(QPoint(1250 / 15, 2040 / 15));
    EXPECT_EQ(Name(Table()->childAt(none.x(), none.y())), u"<None>"_s);
    const QPoint band = form.date.mapToGlobal(QPoint(1250 / 15, 700 / 15));
    EXPECT_EQ(Table()->childAt(band.x(), band.y()), nullptr);
    const QPoint button = form.date.mapToGlobal(form.Button("cmdLeftYear").geometry().center());
    EXPECT_EQ(Name(Date()->childAt(button.x(), button.y())), u"Previous year"_s);
}

TEST_F(DateAccessibleTest, PressingADayPicksIt) {
    form.date.DropDown();
    PressOn(CellAt(1, 0));
    EXPECT_EQ(form.Texts(), u"01/03/2009"_s);
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST_F(DateAccessibleTest, PressingADayBringsTheFocusSoThatTheDateIsStored) {
    form.date.DropDown();
    PressOn(CellAt(1, 0));
    EXPECT_EQ(form.Focus(), u"cmdOpen"_s);
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 1));
}

TEST_F(DateAccessibleTest, PressingTheButtonOfTheCalendarBringsTheFocus) {
    PressOn(QAccessible::queryAccessibleInterface(&form.Button("cmdOpen")));
    QCoreApplication::processEvents();
    EXPECT_TRUE(form.date.DroppedDown());
    EXPECT_EQ(form.Focus(), u"cmdOpen"_s);
    form.LeaveControl();
    EXPECT_FALSE(form.date.DroppedDown());
}

TEST_F(DateAccessibleTest, WhatIsWrittenIntoTheBoxesIsStoredWhenTheControlIsLeft) {
    WriteInto(2, u"02"_s);
    WriteInto(1, u"31"_s);
    WriteInto(2, u"05"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 14));
    form.LeaveControl();
    EXPECT_EQ(form.date.Value(), QDate(2009, 5, 31));
}

TEST_F(DateAccessibleTest, WhereTheFocusCanNotComeTheDateIsStoredAtOnce) {
    form.date.DropDown();
    QWidget inFront;
    ShowAndActivate(inFront);
    PressOn(CellAt(1, 0));
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 1));
    WriteInto(1, u"45"_s);
    EXPECT_EQ(form.Texts(), u"31/03/2009"_s);
    EXPECT_EQ(form.date.Value(), QDate(2009, 3, 31));
}

TEST_F(DateAccessibleTest, WhatWasTypedBeforeAnotherWindowCameIsStoredByAnActionElsewhere) {
    ctlButton save(ctlButton::Properties{.Caption = u"Save"_s}, &form.window);
    save.show();
    QDate stored;
    QObject::connect(&save, &ctlButton::Click, &form.window, [&] { stored = form.date.Value(); });
    form.EnterBox(1);
    form.Type("07");
    QWidget inFront;
    ShowAndActivate(inFront);
    PressOn(QAccessible::queryAccessibleInterface(&save));
    QCoreApplication::processEvents();
    EXPECT_EQ(stored, QDate(2009, 3, 7));
}

TEST_F(DateAccessibleTest, NoneCanNotBeWrittenOver) {
    form.date.SetValue(platform::NoDate());
    QAccessibleInterface* none = QAccessible::queryAccessibleInterface(&form.None());
    none->editableTextInterface()->replaceText(0, 6, u"14"_s);
    EXPECT_EQ(form.None().text(), u"<None>"_s);
}

TEST_F(DateAccessibleTest, ADisabledControlSaysSo) {
    EXPECT_FALSE(Date()->state().disabled);
    ScreenReader reader(
        [](const QAccessibleInterface& about) { return about.role() == QAccessible::Grouping; });
    form.date.SetEnabled(false);
    EXPECT_TRUE(Date()->state().disabled);
    EXPECT_EQ(reader.Heard(), QStringList{u"state disabled Start Date"_s});
    form.date.SetEnabled(false);
    EXPECT_EQ(reader.Heard(), QStringList());
}

TEST_F(DateAccessibleTest, ADayOfADisabledFormCanNotBePicked) {
    form.date.DropDown();
    form.window.setEnabled(false);
    EXPECT_EQ(CellAt(1, 0)->actionInterface()->actionNames(), QStringList());
    PressOn(CellAt(1, 0));
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
}

TEST_F(DateAccessibleTest, PressingAnEmptyCellDoesNothing) {
    form.date.DropDown();
    PressOn(CellAt(0, 0));
    CellAt(1, 0)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    EXPECT_TRUE(form.date.DroppedDown());
}

TEST_F(DateAccessibleTest, NoneIsACellOverTheWholeWidth) {
    form.date.DropDown();
    QAccessibleInterface* none = CellAt(6, 3);
    EXPECT_EQ(none, CellAt(6, 0));
    EXPECT_EQ(none, Table()->child(42));
    EXPECT_EQ(Name(none), u"<None>"_s);
    EXPECT_EQ(none->tableCellInterface()->columnExtent(), 7);
    EXPECT_EQ(none->tableCellInterface()->rowIndex(), 6);
    EXPECT_EQ(none->tableCellInterface()->columnIndex(), 0);
    EXPECT_FALSE(none->state().selected);
    PressOn(none);
    EXPECT_TRUE(form.date.NoneShown());
    EXPECT_FALSE(form.date.DroppedDown());
    form.date.DropDown();
    EXPECT_TRUE(CellAt(6, 0)->state().selected);
    EXPECT_EQ(Table()->tableInterface()->selectedCells(), QList<QAccessibleInterface*>{CellAt(6, 0)});
}

TEST_F(DateAccessibleTest, AClosedCalendarsCellsAreDead) {
    form.date.DropDown();
    QAccessibleInterface* table = Table();
    QAccessibleInterface* day = CellAt(1, 0);
    QAccessibleInterface* none = CellAt(6, 0);
    form.date.CloseUp();
    EXPECT_FALSE(table->isValid());
    EXPECT_FALSE(day->isValid());
    EXPECT_EQ(Name(day), QString());
    EXPECT_EQ(day->rect(), QRect());
    PressOn(day);
    PressOn(none);
    EXPECT_EQ(form.Texts(), u"14/03/2009"_s);
    EXPECT_FALSE(form.date.NoneShown());
}

TEST_F(DateAccessibleTest, OpeningSteppingAndClosingAreTold) {
    ScreenReader reader([](const QAccessibleInterface& about) { return about.role() == QAccessible::Table; });
    form.date.DropDown();
    EXPECT_TRUE(reader.Heard().contains(u"shown March 2009"_s));
    form.Button("cmdRightMonth").click();
    EXPECT_EQ(reader.Heard(), (QStringList{u"rows reset April 2009"_s, u"name April 2009"_s}));
    form.date.CloseUp();
    EXPECT_EQ(reader.Heard(), QStringList{u"hidden April 2009"_s});
}

TEST_F(DateAccessibleTest, TheButtonsSayWhichMonthTheyHaveLedTo) {
    form.date.DropDown();
    form.Button("cmdRightMonth").click();
    QAccessibleInterface* button = QAccessible::queryAccessibleInterface(&form.Button("cmdRightMonth"));
    EXPECT_EQ(button->text(QAccessible::Description), u"April 2009"_s);
}

TEST_F(DateAccessibleTest, OutlivesNoControl) {
    auto* doomed = new akDate(akDate::Properties{}, &form.window);
    doomed->show();
    doomed->DropDown();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(doomed);
    const QAccessible::Id id = QAccessible::uniqueId(interface->child(9));
    ASSERT_NE(QAccessible::accessibleInterface(id), nullptr);
    delete doomed;
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
