#include "WizardForm.h"

#include "database/CurrentDatabase.h"
#include "records/ImportSettings.h"
#include "support/FormatUnderTest.h"
#include "support/OnScreen.h"
#include "tools/schema/CreateTool.h"

#include <QCoreApplication>

WizardForm::WizardForm() {
    tools::CreateHearthbookDatabase(workplace.Path(QStringLiteral("property.mdb")), FormatUnderTest());
    records::CurrentSettings() = {};
    form = std::make_unique<shell::frmMain>(QString(), CountedPages());
    ShowAndActivate(*form);
    // What is done once comes behind the first picture.
    form->repaint();
    QCoreApplication::processEvents();
}

WizardForm::~WizardForm() {
    form.reset();
    database::SetCurrentDatabase(nullptr);
}

std::vector<shell::PageKind> WizardForm::CountedPages() {
    std::vector<shell::PageKind> pages = shell::Pages();
    for (shell::PageKind& page : pages) {
        page.Initialise = [this, name = page.name, initialise = page.Initialise](QWidget& widget) {
            ++filled[name];
            initialise(widget);
        };
    }
    return pages;
}

QStringList WizardForm::PagesOnShow() const {
    QStringList names;
    for (const shell::PageKind& page : shell::Pages()) {
        if (Find(page.name.toLatin1().constData()).isVisible()) {
            names += page.name;
        }
    }
    return names;
}
