#include "WizardForm.h"

#include "database/Database.h"
#include "records/ImportSettings.h"
#include "support/OnScreen.h"
#include "tools_core/schema/CreateTool.h"

WizardForm::WizardForm() {
    tools::CreateHearthbookDatabase(workplace.Path(QStringLiteral("property.mdb")));
    records::CurrentSettings() = {};
    form = std::make_unique<shell::frmMain>(QString());
    ShowAndActivate(*form);
}

WizardForm::~WizardForm() {
    form.reset();
    database::SetCurrentDatabase(nullptr);
}

QStringList WizardForm::PagesOnShow() const {
    QStringList names;
    for (const char* name : {"ctlPageIntro1", "ctlPageAccounts1", "ctlPageType1", "ctlPageOwner1",
                             "ctlSingleOwner1", "ctlPageProperty1", "ctlPageTenant1", "ctlFinish1"}) {
        if (Find(name).isVisible()) {
            names += QLatin1String(name);
        }
    }
    return names;
}
