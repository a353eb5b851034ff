#include "controls/ctlButton.h"
#include "gallery/EventLog.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"
#include "gallery/Staging.h"

#include <QPainter>
#include <QPixmap>

namespace gallery {

using controls::ctlButton;

namespace {

constexpr Size Usual{1575, 375};
constexpr int Columns = 4;

/// A plus sign, drawn at twice the size of its 16 pixels so that it is sharp on dense displays.
QPixmap PlusSign() {
    QPixmap icon(32, 32);
    icon.setDevicePixelRatio(2);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.fillRect(QRectF(6.5, 1.5, 3, 13), QColor(37, 79, 167));
    painter.fillRect(QRectF(1.5, 6.5, 13, 3), QColor(37, 79, 167));
    return icon;
}

QString NameOf(const ctlButton& button) {
    return button.Caption().isEmpty() ? button.accessibleName() : button.Caption();
}

/// Puts buttons on the sheet.
class Buttons {
public:
    Buttons(EventLog& log, Sheet* sheet) : log_(&log), sheet_(sheet) {}

    ctlButton* Add(const QString& caption, const ctlButton::Properties& properties, Size size = Usual) const {
        auto* button = new ctlButton(properties, sheet_);
        button->setObjectName(caption);
        // For the one that has an icon in place of its caption.
        button->setAccessibleName(caption);
        sheet_->Add(button, caption, size);
        QObject::connect(button, &ctlButton::Click, log_,
                         [log = log_, button] { log->Write(NameOf(*button), QStringLiteral("Click")); });
        return button;
    }

private:
    EventLog* log_;
    Sheet* sheet_;
};

void AddStates(const Buttons& buttons, Sheet* sheet) {
    buttons.Add(QStringLiteral("At rest"), {.Caption = QStringLiteral("Add")});
    sheet->FocusOn(buttons.Add(QStringLiteral("With the focus"), {.Caption = QStringLiteral("Edit")}));
    ctlButton* hovered =
        buttons.Add(QStringLiteral("Under the mouse"), {.Caption = QStringLiteral("Remove")});
    ctlButton* pressed = buttons.Add(QStringLiteral("Pressed"), {.Caption = QStringLiteral("Next")});
    buttons.Add(QStringLiteral("Not Enabled"), {.Caption = QStringLiteral("Back"), .Enabled = false});
    buttons.Add(QStringLiteral("Default"), {.Caption = QStringLiteral("Save"), .Default = true});
    buttons.Add(QStringLiteral("Cancel"), {.Caption = QStringLiteral("Cancel"), .Cancel = true});
    sheet->WhenShown([hovered, pressed] {
        // The mouse and the focus give the same look, and only a real mouse should hold the capture.
        StageFocus(hovered);
        StagePress(pressed);
    });
}

void AddSizes(const Buttons& buttons, Sheet* sheet) {
    sheet->EndRow();
    buttons.Add(QStringLiteral("Higher than its picture"), {.Caption = QStringLiteral("Finish")},
                {1875, 495});
    buttons.Add(QStringLiteral("Wider than its picture"), {.Caption = QStringLiteral("Watch the tutorial")},
                {2700, 375});
    buttons.Add(QStringLiteral("BackColour"),
                {.Caption = QStringLiteral("Own ground"), .BackColour = controls::RGB(221, 234, 243)},
                {2700, 495});
    buttons.Add(QStringLiteral("Pic"), {}, {495, 375})->SetPic(PlusSign());
    buttons.Add(QStringLiteral("Pic, not Enabled"), {.Enabled = false}, {495, 375})->SetPic(PlusSign());
}

void AddLinks(const Buttons& buttons, Sheet* sheet) {
    sheet->EndRow();
    buttons.Add(QStringLiteral("LinkButton"), {.Caption = QStringLiteral("Read more"), .LinkButton = true});
    ctlButton* hovered = buttons.Add(QStringLiteral("LinkButton under the mouse"),
                                     {.Caption = QStringLiteral("Read all"), .LinkButton = true});
    buttons.Add(QStringLiteral("LinkButton, not Enabled"),
                {.Caption = QStringLiteral("Read less"), .Enabled = false, .LinkButton = true});
    sheet->WhenShown([hovered] { StageFocus(hovered); });
}

/// A form that is disabled as a whole.
void AddOnDisabledForm(Sheet* sheet) {
    auto* form = new QWidget(sheet);
    form->setEnabled(false);
    auto* button = new ctlButton({.Caption = QStringLiteral("Unseen")}, form);
    button->Move(0, 0, Usual.width, Usual.height);
    sheet->Add(form, QStringLiteral("On a disabled form"), Usual);
}

}  // namespace

Sheet* ButtonPage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Button"), Columns, parent);
    const Buttons buttons(log, sheet);
    AddStates(buttons, sheet);
    AddOnDisabledForm(sheet);
    AddSizes(buttons, sheet);
    AddLinks(buttons, sheet);
    return sheet;
}

}  // namespace gallery
