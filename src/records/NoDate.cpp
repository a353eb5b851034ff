#include "records/NoDate.h"

#include "platform/Clock.h"

namespace records {

QDate NoDate() {
    const QDate today = platform::Today();
    return today.addYears(NoDateYear - today.year());
}

}  // namespace records
