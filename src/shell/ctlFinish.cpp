#include "shell/ctlFinish.h"

#include "records/Collections.h"
#include "shell/StaticText.h"

#include <QLabel>

namespace shell {

ctlFinish::ctlFinish(QWidget* parent) : Page(parent, Fields::None) {
    lblResult_ = AddOpening(this, QStringLiteral("lblResult"), QString(), 1950);
    AddWarning(this, 2250);
}

void ctlFinish::Initialise() {
    lblResult_->setText(QStringLiteral("The following items will be created.\n") +
                        records::CountsOf(records::TheCollections()));
}

}  // namespace shell
