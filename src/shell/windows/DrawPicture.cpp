#include "shell/DrawPicture.h"

#include <QPainter>

#include <algorithm>
#include <iterator>

namespace shell {

namespace {

/// In pixels, in ascending order: those that the build has drawn.
constexpr int Sides[] = {WRENFIELD_PICTURE_SIDES};

/// The smallest one with a dot for each of the display's, or the largest.
int SideFor(double dots) {
    const auto* found = std::lower_bound(std::begin(Sides), std::end(Sides), dots);
    return found == std::end(Sides) ? *std::prev(found) : *found;
}

}  // namespace

void DrawPicture(QPainter& painter, const QString& name, const QRect& place) {
    const int side = SideFor(place.width() * painter.device()->devicePixelRatio());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, QPixmap(QStringLiteral(":/pictures/%1-%2.png").arg(name).arg(side)));
}

}  // namespace shell
