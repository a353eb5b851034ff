#pragma once

class QPainter;
class QRect;
class QString;

namespace shell {

/// Draws the picture of this name, one of those in the folder "pictures", sharp at every scale factor.
void DrawPicture(QPainter& painter, const QString& name, const QRect& place);

}  // namespace shell
