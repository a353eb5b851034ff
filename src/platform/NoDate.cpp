#include "platform/NoDate.h"

#include "platform/Clock.h"

namespace platform {

QDate NoDate() {
    const QDate today = platform::Today();
    return today.addYears(NoDateYear - today.year());
}

}  // namespace platform
