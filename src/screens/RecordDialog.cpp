#include "screens/RecordDialog.h"

#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/NumberText.h"
#include "screens/DropDownList.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

namespace screens {

using controls::akDate;
using controls::ctlButton;
using controls::ctlTextBox;

namespace {

constexpr int Margin = 240;
constexpr int Pitch = 435;
constexpr int WidthOfLabels = 2400;

}  // namespace

DialogWindow::DialogWindow(const QString& caption, int width, int height, QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {
    setWindowTitle(caption);
    setPalette(PaperPalette());
    setFont(controls::ControlFont());
    setFixedSize(controls::ToPixels(width), controls::ToPixels(height));
}

int DialogWindow::TopOfLine(int line) {
    return Margin + line * Pitch;
}

QLabel* DialogWindow::AddLabelOf(const QString& field, const QString& text, int line) {
    return AddLabel(this, QStringLiteral("lbl") + field.mid(3), text,
                    {Margin, TopOfLine(line) + 45, WidthOfLabels, HeightOfFields});
}

ctlTextBox* DialogWindow::AddTextBox(const QString& name, const QString& label, int line, int width,
                                     const ctlTextBox::Properties& properties) {
    QLabel* written = AddLabelOf(name, label, line);
    auto* box = new ctlTextBox(properties, this);
    box->setObjectName(name);
    box->SetLabel(label);
    written->setBuddy(box->focusProxy());
    PutAt(*box, {LeftOfFields, TopOfLine(line), width, HeightOfFields});
    return box;
}

akDate* DialogWindow::AddDate(const QString& name, const QString& label, int line,
                              const akDate::Properties& properties) {
    QLabel* written = AddLabelOf(name, label, line);
    auto* date = new akDate(properties, this);
    date->setObjectName(name);
    date->SetLabel(label);
    written->setBuddy(date);
    date->SetBackColor(controls::White);
    date->Move(LeftOfFields, TopOfLine(line));
    return date;
}

QComboBox* DialogWindow::AddList(const QString& name, const QString& label, int line, int width) {
    QLabel* written = AddLabelOf(name, label, line);
    QComboBox* list = AddPlainList(name, label, {LeftOfFields, TopOfLine(line), width, HeightOfFields});
    written->setBuddy(list);
    return list;
}

QComboBox* DialogWindow::AddPlainList(const QString& name, const QString& accessibleName,
                                      const Place& place) {
    auto* list = new DropDownList(this);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    list->setFont(controls::ControlFont());
    PutAt(*list, place);
    return list;
}

const ctlTextBox::Properties& DialogWindow::MoneyBox() {
    static const ctlTextBox::Properties properties{.Alignment = 1,
                                                   .Text = QStringLiteral("0.00"),
                                                   .IsNumeric = true,
                                                   .DecimalPlaces = 2,
                                                   .AllowNegative = true};
    return properties;
}

void DialogWindow::AddSaveAndCancel() {
    const int top = controls::ToTwips(height()) - Margin - ButtonHeight;
    const int right = controls::ToTwips(width()) - Margin;
    auto* save = new ctlButton({.Caption = QStringLiteral("Save"), .Default = true}, this);
    save->setObjectName(QStringLiteral("cmdSave"));
    PutAt(*save, {right - 2 * ButtonWidth - 120, top, ButtonWidth, ButtonHeight});
    connect(save, &ctlButton::Click, this, [this] { Save(); });
    auto* cancel = new ctlButton({.Caption = QStringLiteral("Cancel"), .Cancel = true}, this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    PutAt(*cancel, {right - ButtonWidth, top, ButtonWidth, ButtonHeight});
    connect(cancel, &ctlButton::Click, this, &QDialog::reject);
}

void DialogWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (activated_) {
        return;
    }
    activated_ = true;
    const QRect room = (parentWidget() != nullptr ? parentWidget()->screen() : screen())->availableGeometry();
    move(room.center() - rect().center());
    Activated();
}

void DialogWindow::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    // Where a box was closed a moment before, the window manager may give the keyboard to that box.
    if (parentWidget() != nullptr) {
        parentWidget()->window()->activateWindow();
    }
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
    // The toolkit closes a dialog by Escape and presses a button by Enter, wherever the focus is. Here no key
    // throws entries away or saves them that isn't pressed on the very button.
    event->accept();
}

void DialogWindow::mousePressEvent(QMouseEvent* /*event*/) {
    // A press that no control takes leaves the control that has the focus: an open calendar closes.
    setFocus(Qt::MouseFocusReason);
}

QString TextOf(double number) {
    return controls::GeneralText(number, controls::NumberMarks::OfTheUser());
}

}  // namespace screens
