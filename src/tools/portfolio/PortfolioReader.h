#pragma once

#include "tools/json/Fault.h"

#include <QByteArray>
#include <QString>

namespace tools {

/// Fills the collections and the settings of the import from a portfolio. All faults of the portfolio come
/// back at once; the collections are then as CreateCollections leaves them. The order of the file is the
/// order of the collections.
Faults ReadPortfolio(QByteArray bytes);
Faults ReadPortfolioFile(const QString& path);

}  // namespace tools
