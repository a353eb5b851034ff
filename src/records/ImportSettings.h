#pragma once

#include "platform/NoDate.h"

#include <QDate>

namespace records {

/// What the user type page stores for the whole process.
struct ImportSettings {
    bool IsLandlord = false;
    double ManagementFee = 0;                     ///< Per cent; the one fee of all owners.
    QDate LastDisbursement = platform::NoDate();  ///< Transactions up to this day count as disbursed.
};

ImportSettings& CurrentSettings();

}  // namespace records
