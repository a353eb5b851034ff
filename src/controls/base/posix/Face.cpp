#include "controls/base/Face.h"

namespace controls {

QString FaceFor(const QString& name) {
    return name;
}

}  // namespace controls
