// A form with text boxes of each kind: tells their texts and events, with caret, selection and number.

#include "controls/ctlTextBox.h"
#include "journey/Story.h"

#include <QLineEdit>

namespace {

using namespace controls;

/// A text box that takes part in the story under its name.
class WatchedTextBox : public ctlTextBox {
public:
    WatchedTextBox(const QString& name, QPoint place, const Properties& saved, QWidget* parent)
        : ctlTextBox(saved, parent), text_(name + QStringLiteral(" text"), [this] { return Text(); }) {
        setGeometry(QRect(place, QSize(160, 25)));
        QObject::connect(this, &ctlTextBox::Change, [this, name](bool byKey) {
            const QString cause = byKey ? QStringLiteral(" by key ") : QStringLiteral(" by text ");
            Tell(name + cause + Shown() + QStringLiteral(" = %1").arg(Value()));
        });
        QObject::connect(this, &ctlTextBox::GotFocus,
                         [this, name] { Tell(name + QStringLiteral(" got focus ") + Shown()); });
        const QLineEdit* box = findChild<QLineEdit*>();
        QObject::connect(box, &QLineEdit::selectionChanged, [box, name] {
            const bool byMouse =
                QApplication::mouseButtons() == Qt::LeftButton && box->underMouse() && box->hasFocus();
            if (byMouse && !box->hasSelectedText()) {
                Tell(name + QStringLiteral(" caret placed"));
            }
        });
        QObject::connect(this, &ctlTextBox::LostFocus,
                         [name] { Tell(name + QStringLiteral(" lost focus")); });
    }

private:
    QString Shown() const { return Marked(*findChild<QLineEdit*>()); }

    Watched text_;
};

}  // namespace

int main(int argc, char** argv) {
    const StoryApplication application(argc, argv);
    ReadyWindow<QWidget> form;
    // An edit box of the toolkit, to copy from.
    QLineEdit field(QStringLiteral("O'Neil & Sons"), &form);
    field.setGeometry(10, 10, 160, 25);
    const WatchedTextBox name(QStringLiteral("name"), {10, 50}, {.MaxLength = 5, .Text = {}}, &form);
    const WatchedTextBox amount(QStringLiteral("amount"), {10, 90},
                                {.Text = {}, .IsNumeric = true, .DecimalPlaces = 2, .AllowNegative = true},
                                &form);
    const WatchedTextBox whole(QStringLiteral("whole"), {10, 130}, {.Text = {}, .IsNumeric = true}, &form);
    const WatchedTextBox locked(QStringLiteral("locked"), {190, 10},
                                {.Locked = true, .Text = QStringLiteral("fixed")}, &form);
    const WatchedTextBox disabled(QStringLiteral("disabled"), {190, 50},
                                  {.Enabled = false, .Text = QStringLiteral("off")}, &form);
    const WatchedTextBox stepped(QStringLiteral("stepped"), {190, 90},
                                 {.Text = QStringLiteral("1"),
                                  .IsNumeric = true,
                                  .DecimalPlaces = 1,
                                  .ShowUpDown = true,
                                  .UpDownIncrement = 0.5},
                                 &form);
    const WatchedTextBox balance(QStringLiteral("balance"), {190, 130},
                                 {.Text = QStringLiteral("-1"),
                                  .IsNumeric = true,
                                  .AllowNegative = true,
                                  .ShowUpDown = true,
                                  .UpDownIncrement = 2},
                                 &form);
    const Watched menu(QStringLiteral("menu"), [] {
        return QApplication::activePopupWidget() != nullptr ? QStringLiteral("open")
                                                            : QStringLiteral("closed");
    });
    return RunForm(form, {370, 170});
}
