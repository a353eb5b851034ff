#include "controls/akDate.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/ctlButton.h"
#include "controls/ctlGroupBox.h"
#include "controls/ctlTextBox.h"
#include "gallery/EventLog.h"
#include "gallery/ExampleDay.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"

#include <QLabel>

namespace gallery {

using controls::ctlGroupBox;
using controls::ToPixels;

namespace {

constexpr int Columns = 2;
constexpr Size BoxSize{5700, 1800};
constexpr int LabelLeft = 225;
constexpr int FieldLeft = 2250;
constexpr int FirstLine = 450;
constexpr int Pitch = 435;

void AddLabel(ctlGroupBox* box, const QString& text, int top) {
    auto* label = new QLabel(text, box);
    label->setFont(controls::ControlFont());
    label->setGeometry(ToPixels(LabelLeft), ToPixels(top), ToPixels(FieldLeft - LabelLeft), ToPixels(285));
}

/// What a form would put in a box. The texts are named after it, so that they can be told apart by ear.
void Fill(ctlGroupBox* box, EventLog& log) {
    const QString name = box->Caption() + QStringLiteral(" name");
    AddLabel(box, name, FirstLine);
    auto* text = new controls::ctlTextBox({.Text = QStringLiteral("Ada Finch")}, box);
    text->SetLabel(name);
    text->Move(FieldLeft, FirstLine, 3000, 285);

    const QString day = box->Caption() + QStringLiteral(" since");
    AddLabel(box, day, FirstLine + Pitch);
    auto* date = new controls::akDate({}, box);
    date->SetLabel(day);
    date->SetValue(ExampleDay);
    date->Move(FieldLeft, FirstLine + Pitch);

    auto* button =
        new controls::ctlButton({.Caption = QStringLiteral("Remove ") + box->Caption().toLower()}, box);
    button->Move(FieldLeft, FirstLine + 2 * Pitch, 2250, 375);
    QObject::connect(button, &controls::ctlButton::Click, &log,
                     [&log, button] { log.Write(button->Caption(), QStringLiteral("Click")); });
}

ctlGroupBox* AddBox(EventLog& log, Sheet* sheet, ctlGroupBox* box, const QString& caption) {
    box->setObjectName(caption);
    sheet->Add(box, caption, BoxSize);
    Fill(box, log);
    return box;
}

void AddSwitch(Sheet* sheet, ctlGroupBox* box) {
    auto* button = new controls::ctlButton({.Caption = QStringLiteral("Disable owner")}, sheet);
    button->setObjectName(QStringLiteral("Switch"));
    sheet->Add(button, QStringLiteral("Switches the first box"), {1875, 375});
    QObject::connect(button, &controls::ctlButton::Click, box, [box, button] {
        box->SetEnabled(!box->Enabled());
        button->SetCaption(box->Enabled() ? QStringLiteral("Disable owner") : QStringLiteral("Enable owner"));
    });
}

}  // namespace

Sheet* GroupBoxPage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Group box"), Columns, parent);
    ctlGroupBox* loaded = AddBox(log, sheet, new ctlGroupBox({.Caption = QStringLiteral("Owner")}, sheet),
                                 QStringLiteral("Loaded with a form"));
    // A loaded box works but reads as disabled until the first write.
    loaded->SetEnabled(true);
    ctlGroupBox* disabled =
        AddBox(log, sheet, new ctlGroupBox({.Caption = QStringLiteral("Property")}, sheet),
               QStringLiteral("Loaded, not Enabled"));
    disabled->SetEnabled(true);
    disabled->SetEnabled(false);

    auto* fresh = new ctlGroupBox(sheet);
    fresh->SetCaption(QStringLiteral("Tenant"));
    AddBox(log, sheet, fresh, QStringLiteral("A new one"));
    auto* part = new ctlGroupBox(sheet);
    part->SetCaption(QStringLiteral("Account"));
    AddBox(log, sheet, part, QStringLiteral("DisableControls false, the box itself enabled"))
        ->DisableControls(false);
    AddSwitch(sheet, loaded);
    return sheet;
}

}  // namespace gallery
