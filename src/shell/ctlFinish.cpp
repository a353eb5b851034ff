#include "shell/ctlFinish.h"

#include "records/Collections.h"
#include "screens/Paper.h"
#include "shell/StaticText.h"

#include <QLabel>

namespace shell {

ctlFinish::ctlFinish(QWidget* parent) : QWidget(parent) {
    setPalette(screens::PaperPalette());
    lblResult_ = screens::AddLabel(this, QStringLiteral("lblResult"), QString(), {0, 0, 11000, 1400});
    AddWarning(this, 1500);
}

void ctlFinish::Initialise() {
    lblResult_->setText(QStringLiteral("The following items will be created.\n") +
                        records::CountsOf(records::TheCollections()));
}

}  // namespace shell
