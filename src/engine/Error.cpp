#include "engine/Error.h"

#include "engine/DBEngine.h"
#include "platform/Files.h"

namespace engine {

Error::Error(int number, const QString& description) : Failure(number, EngineName(), description) {
}

void RaiseUnrecognized(const QString& path, const QString& found) {
    throw Error(ErrorNumber::UnrecognizedFormat,
                QStringLiteral("Unrecognized database format '%1': %2.").arg(path, found));
}

void RaiseNoName() {
    throw Error(ErrorNumber::InvalidPath,
                QStringLiteral("The database lies under a name that is not a valid path: %1.")
                    .arg(platform::WhyNoName()));
}

void RaiseWrongType(const QString& column) {
    throw Error(
        ErrorNumber::WrongType,
        QStringLiteral("Data type conversion error: the field '%1' can't hold this value.").arg(column));
}

}  // namespace engine
