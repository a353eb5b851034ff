#include "engine/Error.h"

#include "engine/DBEngine.h"

namespace engine {

Error::Error(int number, const QString& description) : Failure(number, EngineName(), description) {
}

}  // namespace engine
