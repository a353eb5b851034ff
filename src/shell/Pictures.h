#pragma once

#include "screens/Paper.h"

#include <QIcon>

class QWidget;

namespace shell {

/// The wizard's own picture: the icon of its windows.
QIcon WizardIcon();

/// Image1 of the opening and the closing page, drawn sharp at every scale factor.
void AddWarningSign(QWidget* page, const screens::Place& place);

}  // namespace shell
