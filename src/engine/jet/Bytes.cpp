#include "engine/jet/Bytes.h"

#include "engine/jet/Damage.h"

namespace engine::jet {

void Bytes::RaiseOutside(std::size_t at, std::size_t size) const {
    RaiseDamaged(page_, QStringLiteral("names %1 bytes at %2 of a part that has %3 in all")
                            .arg(static_cast<qulonglong>(size))
                            .arg(static_cast<qulonglong>(at))
                            .arg(static_cast<qulonglong>(size_)));
}

}  // namespace engine::jet
