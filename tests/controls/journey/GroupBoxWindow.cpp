// A form with a group box around one of each control and another group box, and two check boxes: one enables
// the box, the other what it contains. Tells what the user gets done in the box, and
// where the focus is.

#include "controls/akDate.h"
#include "controls/akGrid.h"
#include "controls/ctlButton.h"
#include "controls/ctlGroupBox.h"
#include "controls/ctlTextBox.h"
#include "journey/Story.h"

#include <QCheckBox>

int main(int argc, char** argv) {
    using namespace controls;
    const StoryApplication application(argc, argv);
    ReadyWindow<QWidget> form;
    QCheckBox enabled(QStringLiteral("Enabled"), &form);
    enabled.setObjectName(QStringLiteral("enabled"));
    enabled.setGeometry(10, 10, 120, 25);
    enabled.setChecked(true);
    QCheckBox contents(QStringLiteral("Contents"), &form);
    contents.setObjectName(QStringLiteral("contents"));
    contents.setGeometry(140, 10, 120, 25);
    contents.setChecked(true);

    ctlGroupBox box(&form);
    box.setObjectName(QStringLiteral("box"));
    box.setGeometry(10, 40, 380, 200);
    box.SetCaption(QStringLiteral("Box"));
    ctlTextBox text({.Text = {}}, &box);
    text.setObjectName(QStringLiteral("text"));
    text.setGeometry(10, 30, 160, 25);
    ctlButton button({.Caption = QStringLiteral("Button")}, &box);
    button.setObjectName(QStringLiteral("button"));
    button.setGeometry(10, 70, 105, 25);
    akDate date(&box);
    date.setObjectName(QStringLiteral("date"));
    date.move(10, 110);
    akGrid grid({.ColumnHeadings = QStringLiteral("Name|"), .RowCount = QStringLiteral("1")}, &box,
                {2850, 450, 2400, 915});
    grid.setObjectName(QStringLiteral("grid"));
    ctlGroupBox inner(&box);
    inner.setObjectName(QStringLiteral("inner"));
    inner.setGeometry(190, 110, 180, 80);
    ctlTextBox deep({.Text = {}}, &inner);
    deep.setObjectName(QStringLiteral("deep"));
    deep.setGeometry(10, 30, 160, 25);

    QObject::connect(&enabled, &QCheckBox::toggled, [&](bool on) {
        box.SetEnabled(on);
        Tell(on ? QStringLiteral("box on") : QStringLiteral("box off"));
    });
    QObject::connect(&contents, &QCheckBox::toggled, [&](bool on) {
        box.DisableControls(on);
        Tell(on ? QStringLiteral("contents on") : QStringLiteral("contents off"));
    });
    QObject::connect(&text, &ctlTextBox::Change, [&] { Tell(QStringLiteral("text ") + text.Text()); });
    QObject::connect(&deep, &ctlTextBox::Change, [&] { Tell(QStringLiteral("deep ") + deep.Text()); });
    QObject::connect(&button, &ctlButton::Click, [] { Tell(QStringLiteral("button")); });
    QObject::connect(&grid, &akGrid::Click, [] { Tell(QStringLiteral("grid")); });
    const Watched calendar(QStringLiteral("calendar"), [&date] {
        return date.DroppedDown() ? QStringLiteral("open") : QStringLiteral("closed");
    });
    TellFocus();
    return RunForm(form, {400, 250});
}
