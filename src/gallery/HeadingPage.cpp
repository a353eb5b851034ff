#include "controls/ctlPageHeading.h"
#include "gallery/EventLog.h"
#include "gallery/Pages.h"
#include "gallery/Sheet.h"

namespace gallery {

using controls::ctlPageHeading;

namespace {

constexpr int Columns = 1;
constexpr Size AsInTheWizard{11700, 1095};

ctlPageHeading* AddHeading(EventLog& log, Sheet* sheet, const QString& caption,
                           const ctlPageHeading::Properties& properties) {
    auto* heading = new ctlPageHeading(properties, sheet);
    heading->setObjectName(caption);
    sheet->Add(heading, caption, AsInTheWizard);
    const auto write = [log = &log, name = properties.Caption](const QString& event) {
        log->Write(name, event);
    };
    QObject::connect(heading, &ctlPageHeading::TabSelect, &log,
                     [write](const QString& CurrentTab, qint16 CurrentIndex) {
                         write(QStringLiteral("TabSelect \"%1\" %2").arg(CurrentTab).arg(CurrentIndex));
                     });
    QObject::connect(heading, &ctlPageHeading::CloseButtonClick, &log,
                     [write] { write(QStringLiteral("CloseButtonClick")); });
    return heading;
}

}  // namespace

Sheet* HeadingPage(EventLog& log, QWidget* parent) {
    auto* sheet = new Sheet(QStringLiteral("Heading"), Columns, parent);
    ctlPageHeading* wizard = AddHeading(
        log, sheet, QStringLiteral("The first three tabs enabled, the second one current, with CloseButton"),
        {.Caption = QStringLiteral("Hearthbook Wrenfield Wizard"),
         .Tabs = QStringLiteral("Introduction|Bank Accounts|User Type|Owners|Properties|Tenants|Finished|"),
         .CloseButton = true});
    for (qint16 tab = 0; tab <= 2; ++tab) {
        wizard->ChangeTabEnabled(tab, true);
    }
    wizard->ChangeTab(1);

    AddHeading(
        log, sheet, QStringLiteral("As loaded: the first tab current, none enabled"),
        {.Caption = QStringLiteral("Nothing to click"), .Tabs = QStringLiteral("First|Second|Third|")});

    ctlPageHeading* renamed =
        AddHeading(log, sheet, QStringLiteral("New Tabs: none is current until one is clicked"),
                   {.Caption = QStringLiteral("All to click"), .Tabs = QStringLiteral("Gone|")});
    renamed->SetTabs(QStringLiteral("One|Two|Three, whose text is too long for it|"));
    for (qint16 tab = 0; tab <= 2; ++tab) {
        renamed->ChangeTabEnabled(tab, true);
    }

    AddHeading(log, sheet, QStringLiteral("Without Tabs"), {.Caption = QStringLiteral("A title alone")});
    return sheet;
}

}  // namespace gallery
