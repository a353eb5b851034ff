#pragma once

#include <QtGlobal>

#include <functional>

namespace controls {

/// A gradient is painted in bands of one colour each. These are the sizes and places of the bands, in twips.
/// Places along the gradient are counted in 16 bits, from 1 on.

/// An area that is cut into bands, and how far each band reaches to the right and downward.
struct Bands {
    double left = 0;
    double top = 0;
    qint32 width = 0;
    qint32 height = 0;
    qint16 across = 0;
    qint16 down = 0;
};

/// The area from (x1, Y1) to (X2, Y2), with its sides divided by the number of bands, ties to even. Failure
/// 11 if that number is 0, failure 6 if a side doesn't fit 32 bits or a band 16. A side shorter than half the
/// number of bands gives bands of no size, which ForEachBand refuses.
Bands CutIntoBands(qint32 x1, qint32 Y1, qint32 X2, qint32 Y2, qint16 bandCount);

/// Calls paint with 1, 1 + step and so on up to the limit inclusive; not at all for a limit below 1.
/// Failure 5, before anything is painted, for a step of 0 or below: the bands would never reach the limit,
/// and the user's window would stand still for good. Whoever paints a gradient sees to it that the bands are
/// large enough. Failure 6 once the place leaves 16 bits, with the bands up to there painted.
void ForEachBand(qint32 limit, qint16 step, const std::function<void(qint16)>& paint);

/// A place along a gradient as the fraction of its length. Failure 11 for a length of 0.
float FractionOf(qint16 place, double length);

/// Tells the failure being handled in a message box: its number, " - " and its description.
void ReportDrawingFailure();

}  // namespace controls
