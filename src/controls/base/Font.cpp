#include "controls/base/Font.h"

#include "controls/base/Display.h"
#include "controls/base/Face.h"

#include <algorithm>

namespace controls {

QFont ControlFont(double points, Weight weight, const QString& name) {
    constexpr double TwipsPerPoint = 20.0;
    QFont font(FaceFor(name));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, ToPixels(points * TwipsPerPoint)));
    font.setBold(weight == Weight::Bold);
    return font;
}

}  // namespace controls
