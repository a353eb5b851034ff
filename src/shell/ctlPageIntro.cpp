#include "shell/ctlPageIntro.h"

#include "screens/Paper.h"
#include "shell/StaticText.h"

namespace shell {

ctlPageIntro::ctlPageIntro(QWidget* parent) : QWidget(parent) {
    setPalette(screens::PaperPalette());
    screens::AddLabel(
        this, QStringLiteral("Label2"),
        QStringLiteral(
            "This wizard will help you create your first bank accounts, owners, properties and tenants."),
        {0, 0, 11000, 600});
    AddWarning(this, 900);
}

}  // namespace shell
