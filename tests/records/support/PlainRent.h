#pragma once

#include "support/PlainCalendar.h"

#include <string>
#include <vector>

/// A second telling of the rent rules, for checking the first: slow, and sharing nothing with it.
namespace plain {

struct Tenancy {
    Day start;
    Day stop;               ///< The end date, or today where there is none.
    std::int64_t rent = 0;  ///< In ten-thousandths.
    std::string frequency;
    int number = 1;
    int monthDay = 1;
    bool force = true;
};

/// The statements that write the tenancy's periods, for a tenant of the code "T".
std::vector<std::string> RentStatements(const Tenancy& tenancy);

}  // namespace plain
