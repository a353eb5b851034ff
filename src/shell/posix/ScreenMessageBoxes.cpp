#include "shell/ScreenMessageBoxes.h"

#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "shell/WindowBehind.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QMessageBox>

namespace shell {

using platform::Answer;
using platform::Buttons;

namespace {

/// Wide enough for the title, which the toolkit doesn't reckon with: it makes the box as wide as its text.
void MakeRoomForTitle(QMessageBox& box) {
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        grid->addItem(new QSpacerItem(controls::ToPixels(4200), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

/// Without the pictures that some desktops put on such buttons: no button of the wizard has one.
void SetButtons(QMessageBox& box, QMessageBox::StandardButtons buttons) {
    box.setStandardButtons(buttons);
    for (QAbstractButton* button : box.buttons()) {
        button->setIcon({});
    }
}

}  // namespace

Answer ScreenMessageBoxes::Show(const platform::MessageBoxRequest& request) {
    QMessageBox box(WindowBehind());
    box.setFont(controls::ControlFont());
    box.setWindowTitle(request.title);
    // What the user has typed is shown as it stands, also where it looks like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(request.text);
    if (request.icon == platform::Icon::Question) {
        box.setIcon(QMessageBox::Question);
    }
    MakeRoomForTitle(box);
    if (request.buttons == Buttons::Ok) {
        SetButtons(box, QMessageBox::Ok);
        box.exec();
        return Answer::Ok;
    }
    SetButtons(box, QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

}  // namespace shell
