#pragma once

#include "controls/base/Colour.h"

#include <QtGlobal>

namespace controls {

/// A run from one colour to another, asked by fraction. Whoever paints with it prepares it first.
///
/// A desktop's colour counts as the three low bytes of its number here: a gradient has colours of its own.
class Gradient {
public:
    Gradient(Colour start, Colour end) : StartColour(start), EndColour(end) {}

    Colour StartColour;  ///< At fraction 0.
    Colour EndColour;    ///< At fraction 1.

    /// Takes the two colours apart into red, green and blue. That is done once: colours written since then
    /// don't show until Forget.
    void Prepare();
    void Forget() { prepared_ = false; }

    /// The colour at a fraction of the way, each channel to the nearest whole number, ties to even. A
    /// fraction before the start or past the end drives a channel no further than to 0 or 255.
    Colour At(float fraction) const;

private:
    struct Channels {
        qint32 red = 0;
        qint32 green = 0;
        qint32 blue = 0;
    };

    static Channels TakenApart(Colour colour);

    bool prepared_ = false;
    Channels start_;
    Channels delta_;
};

}  // namespace controls
