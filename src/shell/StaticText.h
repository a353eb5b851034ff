#pragma once

#include <QWidget>

namespace shell {

/// What the opening and the closing page both say: the warning with its picture, and what can't be changed
/// later. They stand side by side below the height (in twips) at which the page's own text ends.
void AddWarning(QWidget* page, int top);

}  // namespace shell
