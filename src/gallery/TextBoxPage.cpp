#include "controls/ctlTextBox.h"
#include "gallery/EventLog.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"

namespace gallery {

using controls::ctlTextBox;

namespace {

constexpr Size Usual{2700, 285};
constexpr int Columns = 4;
constexpr qint16 RightAligned = 1;
/// The saved number of decimals that means as many as the user's money has.
constexpr qint16 DecimalsOfMoney = 2;

/// Puts text boxes on the sheet.
class TextBoxes {
public:
    TextBoxes(EventLog& log, Sheet* sheet) : log_(&log), sheet_(sheet) {}

    ctlTextBox* Add(const QString& caption, const ctlTextBox::Properties& properties,
                    Size size = Usual) const {
        auto* box = new ctlTextBox(properties, sheet_);
        box->setObjectName(caption);
        box->SetLabel(caption);
        sheet_->Add(box, caption, size);
        const auto write = [log = log_, caption](const QString& event) { log->Write(caption, event); };
        QObject::connect(box, &ctlTextBox::Change, log_, [box, write](bool ChangeViaKeypress) {
            write(QStringLiteral("Change %1, Text \"%2\", Value %3")
                      .arg(ChangeViaKeypress ? QStringLiteral("true") : QStringLiteral("false"), box->Text())
                      .arg(box->Value()));
        });
        QObject::connect(box, &ctlTextBox::GotFocus, log_, [write] { write(QStringLiteral("GotFocus")); });
        QObject::connect(box, &ctlTextBox::LostFocus, log_, [write] { write(QStringLiteral("LostFocus")); });
        return box;
    }

private:
    EventLog* log_;
    Sheet* sheet_;
};

void AddTexts(const TextBoxes& boxes, Sheet* sheet) {
    boxes.Add(QStringLiteral("As a form gets it"), {});
    sheet->FocusOn(
        boxes.Add(QStringLiteral("With the focus"), {.Text = QStringLiteral("Smith Family Trust")}));
    boxes.Add(QStringLiteral("Not Enabled"),
              {.Enabled = false, .Text = QStringLiteral("Smith Family Trust")});
    boxes.Add(QStringLiteral("Locked"), {.Locked = true, .Text = QStringLiteral("Can be read and copied")});
    boxes.Add(QStringLiteral("Empty"), {.Text = QString()});
    boxes.Add(QStringLiteral("Alignment right"),
              {.Alignment = RightAligned, .Text = QStringLiteral("12 Main Road")});
    boxes.Add(QStringLiteral("MaxLength 5"), {.MaxLength = 5, .Text = QStringLiteral("12345")});
    boxes.Add(QStringLiteral("Longer than the box"),
              {.Text = QStringLiteral("The trustees for the time being of the Smith Family Trust")});
}

void AddNumbers(const TextBoxes& boxes, Sheet* sheet) {
    sheet->EndRow();
    boxes.Add(QStringLiteral("IsNumeric"),
              {.Alignment = RightAligned, .Text = QStringLiteral("12"), .IsNumeric = true});
    boxes.Add(QStringLiteral("IsNumeric, decimals of money"), {.Alignment = RightAligned,
                                                               .Text = QStringLiteral("1680"),
                                                               .IsNumeric = true,
                                                               .DecimalPlaces = DecimalsOfMoney});
    boxes.Add(QStringLiteral("AllowNegative"), {.Alignment = RightAligned,
                                                .Text = QStringLiteral("-210"),
                                                .IsNumeric = true,
                                                .DecimalPlaces = DecimalsOfMoney,
                                                .AllowNegative = true});
    boxes.Add(
        QStringLiteral("IsNumeric, not Enabled"),
        {.Enabled = false, .Alignment = RightAligned, .Text = QStringLiteral("420"), .IsNumeric = true});
    boxes.Add(QStringLiteral("ShowUpDown"), {.Alignment = RightAligned,
                                             .Text = QStringLiteral("1"),
                                             .IsNumeric = true,
                                             .ShowUpDown = true,
                                             .UpDownIncrement = 1});
    boxes.Add(QStringLiteral("ShowUpDown, AllowNegative"), {.Alignment = RightAligned,
                                                            .Text = QStringLiteral("+5"),
                                                            .IsNumeric = true,
                                                            .AllowNegative = true,
                                                            .ShowUpDown = true,
                                                            .UpDownIncrement = 5});
    boxes.Add(QStringLiteral("ShowUpDown, not Enabled"), {.Enabled = false,
                                                          .Alignment = RightAligned,
                                                          .Text = QStringLiteral("1"),
                                                          .IsNumeric = true,
                                                          .ShowUpDown = true,
                                                          .UpDownIncrement = 1});
    boxes.Add(QStringLiteral("ShowUpDown, Locked"), {.Alignment = RightAligned,
                                                     .Locked = true,
                                                     .Text = QStringLiteral("1"),
                                                     .IsNumeric = true,
                                                     .ShowUpDown = true,
                                                     .UpDownIncrement = 1});
    boxes.Add(QStringLiteral("Higher"), {.Text = QStringLiteral("One line all the same")},
              {Usual.width, 600});
    boxes.Add(QStringLiteral("Higher, ShowUpDown"),
              {.Alignment = RightAligned,
               .Text = QStringLiteral("7"),
               .IsNumeric = true,
               .ShowUpDown = true,
               .UpDownIncrement = 1},
              {Usual.width, 600});
}

}  // namespace

Sheet* TextBoxPage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Text box"), Columns, parent);
    const TextBoxes boxes(log, sheet);
    AddTexts(boxes, sheet);
    AddNumbers(boxes, sheet);
    return sheet;
}

}  // namespace gallery
