#include "controls/skin/Gradient.h"

#include "platform/Rounding.h"

#include <algorithm>

namespace controls {

namespace {

quint32 ChannelAt(float fraction, qint32 start, qint32 delta) {
    // A fraction has 24 bits and a delta 9, so nothing is lost before the one rounding.
    const qint32 channel = platform::ToLong(static_cast<double>(fraction) * delta + start);
    return static_cast<quint32>(std::clamp(channel, 0, 255));
}

}  // namespace

Gradient::Channels Gradient::TakenApart(Colour colour) {
    const Colour red = colour & 255U;
    const Colour rest = colour - red;
    const qint32 green = platform::ToLong((rest & 65280U) / 256.0);
    // Multiplying by 255 and dividing by 65535 are each one short. Together with the mask and the rounding
    // they still give every blue exactly, and the figures are those of Hearthbook's own screens.
    const Colour blueBits = (rest - static_cast<Colour>(green) * 255U) & 16711680U;
    return {static_cast<qint32>(red), green, platform::ToLong(blueBits / 65535.0)};
}

void Gradient::Prepare() {
    if (prepared_) {
        return;
    }
    start_ = TakenApart(StartColour);
    const Channels end = TakenApart(EndColour);
    delta_ = {end.red - start_.red, end.green - start_.green, end.blue - start_.blue};
    prepared_ = true;
}

Colour Gradient::At(float fraction) const {
    return RGB(ChannelAt(fraction, start_.red, delta_.red), ChannelAt(fraction, start_.green, delta_.green),
               ChannelAt(fraction, start_.blue, delta_.blue));
}

}  // namespace controls
