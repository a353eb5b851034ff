#include "shell/ScreenMessageBoxes.h"

#include <QApplication>
#include <QMessageBox>

namespace shell {

using platform::Answer;
using platform::Buttons;

Answer ScreenMessageBoxes::Show(const platform::MessageBoxRequest& request) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(request.title);
    // What the user has typed is shown as it stands, also where it looks like markup.
    box.setTextFormat(Qt::PlainText);
    box.setText(request.text);
    if (request.icon == platform::Icon::Question) {
        box.setIcon(QMessageBox::Question);
    }
    if (request.buttons == Buttons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
        return Answer::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

}  // namespace shell
