// A form with a page heading: tells its events and where the focus is.

#include "controls/ctlPageHeading.h"
#include "journey/Story.h"

#include <QLineEdit>

int main(int argc, char** argv) {
    using namespace controls;
    const StoryApplication application(argc, argv);
    ReadyWindow<QWidget> form;
    ctlPageHeading heading({.Caption = QStringLiteral("Wizard"),
                            .Tabs = QStringLiteral("First|Second|Third|"),
                            .CloseButton = true},
                           &form);
    heading.Move(0, 0, 6000, 1095);
    heading.ChangeTabEnabled(0, true);
    heading.ChangeTabEnabled(1, true);
    QObject::connect(&heading, &ctlPageHeading::TabSelect, [](const QString& text, qint16 index) {
        Tell(QStringLiteral("tab %1 %2").arg(index).arg(text));
    });
    QObject::connect(&heading, &ctlPageHeading::CloseButtonClick, [] { Tell(QStringLiteral("close")); });
    QLineEdit field(&form);
    field.setGeometry(10, 90, 100, 25);
    field.setObjectName(QStringLiteral("field"));
    TellFocus();
    return RunForm(form, {400, 130});
}
