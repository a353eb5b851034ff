#pragma once

namespace gallery {

/// Gives the program the colours of a dark desktop, whatever the real one has.
void PretendDarkDesktop();

}  // namespace gallery
