#include "records/ImportSettings.h"

namespace records {

ImportSettings& CurrentSettings() {
    static ImportSettings settings;
    return settings;
}

}  // namespace records
