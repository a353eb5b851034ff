#include "controls/base/Triangle.h"

#include <QPainter>
#include <QPolygonF>

namespace controls {

bool IsDense(const QPainter& painter) {
    return painter.deviceTransform().m11() > 1;
}

void FillTriangle(QPainter& painter, const QPointF& one, const QPointF& another, const QPointF& tip,
                  const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF({one, another, tip}));
    painter.restore();
}

}  // namespace controls
