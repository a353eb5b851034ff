#pragma once

#include <QRect>

class QPainter;

namespace controls {

enum class Arrows { Down, Left, Right, TwoLeft, TwoRight };

/// How the face of a small button with arrows looks, such as the one that opens a calendar or a list.
struct ArrowFace {
    Arrows Picture = Arrows::Down;
    bool Enabled = true;
    bool IsDown = false;
    bool HasFocus = false;
};

/// Draws the face in the desktop's colours. The place is in pixels.
void DrawArrowFace(QPainter& painter, const QRect& place, const ArrowFace& look);

}  // namespace controls
