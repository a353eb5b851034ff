#include "shell/ctlPageIntro.h"

#include "screens/Paper.h"
#include "shell/StaticText.h"

namespace shell {

ctlPageIntro::ctlPageIntro(QWidget* parent) : QWidget(parent) {
    setPalette(screens::PaperPalette());
    AddOpening(
        this, QStringLiteral("Label2"),
        QStringLiteral(
            "This wizard will help you create your first bank accounts, owners, properties and tenants."),
        600);
    AddWarning(this, 1050);
}

}  // namespace shell
