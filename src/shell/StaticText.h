#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace shell {

/// The page's own text, in larger type at its top, on a height in twips.
QLabel* AddOpening(QWidget* page, const QString& name, const QString& text, int height);

/// What the opening and the closing page both say: the warning beside its sign on a panel, and below it what
/// can't be changed later. The panel begins at this height (in twips), where the page's own text has ended.
void AddWarning(QWidget* page, int top);

}  // namespace shell
