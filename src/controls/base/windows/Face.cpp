#include "controls/base/Face.h"

#include "controls/base/Font.h"

namespace controls {

// The face of this name is made of dots in a few sizes, which look coarse on a display of high density. The
// system has the same letters as outlines.
QString FaceFor(const QString& name) {
    return name == QStringView(UsualFontName) ? QStringLiteral("Microsoft Sans Serif") : name;
}

}  // namespace controls
