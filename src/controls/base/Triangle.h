#pragma once

#include <QColor>
#include <QPointF>

class QPainter;

namespace controls {

/// Whether a pixel of the painter's surface is more than one on the display. What is drawn pixel by pixel for
/// a display of single density looks coarse there.
bool IsDense(const QPainter& painter);

/// A triangle whose slanted edges are smooth.
void FillTriangle(QPainter& painter, const QPointF& one, const QPointF& another, const QPointF& tip,
                  const QColor& colour);

}  // namespace controls
