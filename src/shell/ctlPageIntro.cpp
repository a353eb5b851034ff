#include "shell/ctlPageIntro.h"

#include "shell/StaticText.h"

namespace shell {

ctlPageIntro::ctlPageIntro(QWidget* parent) : Page(parent, Fields::None) {
    AddOpening(
        this, QStringLiteral("Label2"),
        QStringLiteral(
            "This wizard will help you create your first bank accounts, owners, properties and tenants."),
        600);
    AddWarning(this, 1050);
}

}  // namespace shell
