// A form with buttons: tells each change of a button's state and each click.

#include "controls/ctlButton.h"
#include "journey/Story.h"

#include <QDialog>
#include <QLineEdit>

namespace {

using namespace controls;

/// A button that takes part in the story under its name.
class WatchedButton : public ctlButton {
public:
    WatchedButton(const QString& name, QPoint place, QWidget* parent)
        : ctlButton({.Caption = name}, parent), state_(name + QStringLiteral(" state"), [this] {
              return QString::number(static_cast<int>(ButtonState()));
          }) {
        setGeometry(QRect(place, QSize(105, 25)));
        QObject::connect(this, &ctlButton::Click, [name] { Tell(name + QStringLiteral(" clicked")); });
    }

private:
    Watched state_;
};

void ShowDialog(QWidget& form) {
    ReadyWindow<QDialog> dialog(&form);
    dialog.setGeometry(form.x() + 450, form.y(), 200, 100);
    const QLineEdit focus(&dialog);
    WatchedButton close(QStringLiteral("close"), {40, 40}, &dialog);
    QObject::connect(&close, &ctlButton::Click, &dialog, &QDialog::accept);
    dialog.exec();
    Tell(QStringLiteral("dialog closed"));
}

}  // namespace

int main(int argc, char** argv) {
    const StoryApplication application(argc, argv);
    ReadyWindow<QWidget> form;
    QLineEdit field(&form);
    field.move(40, 150);
    const WatchedButton first(QStringLiteral("first"), {40, 40}, &form);
    const WatchedButton second(QStringLiteral("second"), {145, 40}, &form);
    const WatchedButton opener(QStringLiteral("opener"), {40, 100}, &form);
    QObject::connect(&opener, &ctlButton::Click, &form, [&form] { ShowDialog(form); });
    return RunForm(form, {400, 200});
}
