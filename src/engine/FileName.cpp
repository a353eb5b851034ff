#include "engine/FileName.h"

#include "engine/Error.h"
#include "platform/Files.h"

namespace engine {

QString FileName(const QString& name) {
    if (const std::optional<QString> absolute = platform::AbsoluteName(name)) {
        return *absolute;
    }
    throw Error(ErrorNumber::InvalidPath,
                QStringLiteral("'%1' is not a valid path: %2.").arg(name, platform::WhyNoName()));
}

}  // namespace engine
