#include "controls/akDate.h"
#include "controls/ctlButton.h"
#include "gallery/EventLog.h"
#include "gallery/ExampleDay.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"
#include "platform/NoDate.h"

namespace gallery {

using controls::akDate;
using controls::ctlButton;

namespace {

constexpr int Columns = 4;
constexpr Size AsItIs{};

akDate* AddDate(Sheet* sheet, const QString& caption, const akDate::Properties& properties, QDate value,
                Size size = AsItIs) {
    auto* date = new akDate(properties, sheet);
    date->setObjectName(caption);
    date->SetLabel(caption);
    date->SetValue(value);
    sheet->Add(date, caption, size);
    return date;
}

/// The control raises no events: a form reads the value when it needs it, and so does this button.
void AddReader(EventLog& log, Sheet* sheet) {
    auto* reader = new ctlButton({.Caption = QStringLiteral("Read all values")}, sheet);
    reader->setObjectName(reader->Caption());
    sheet->Add(reader, QStringLiteral("There are no events"), {1875, 375});
    QObject::connect(reader, &ctlButton::Click, &log, [&log, sheet] {
        for (const akDate* date : sheet->findChildren<akDate*>()) {
            log.Write(date->Label(), QStringLiteral("Value ") + date->Value().toString(Qt::ISODate));
        }
    });
}

void OpenWhenShown(Sheet* sheet, akDate* date) {
    sheet->WhenShown([date] {
        if (!date->DroppedDown()) {
            date->DropDown();
        }
    });
}

}  // namespace

Sheet* DatePage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Date"), Columns, parent);
    AddDate(sheet, QStringLiteral("A date"), {}, ExampleDay);
    sheet->FocusOn(AddDate(sheet, QStringLiteral("With the focus"), {}, ExampleDay));
    AddDate(sheet, QStringLiteral("Not Enabled"), {.Enabled = false}, ExampleDay);
    AddDate(sheet, QStringLiteral("Wide"), {}, ExampleDay, {2400, 285});
    AddDate(sheet, QStringLiteral("IncludeNone, no date"), {.IncludeNone = true}, platform::NoDate());
    AddDate(sheet, QStringLiteral("IncludeNone, a date"), {.IncludeNone = true}, ExampleDay);
    AddDate(sheet, QStringLiteral("No date, not Enabled"), {.Enabled = false, .IncludeNone = true},
            platform::NoDate());
    AddReader(log, sheet);
    sheet->EndRow();
    OpenWhenShown(sheet, AddDate(sheet, QStringLiteral("Calendar open"), {.IncludeNone = true}, ExampleDay));
    return sheet;
}

}  // namespace gallery
