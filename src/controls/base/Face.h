#pragma once

#include <QString>

namespace controls {

/// The face that text of the face of this name is drawn in on this system.
QString FaceFor(const QString& name);

}  // namespace controls
