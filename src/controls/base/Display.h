#pragma once

namespace controls {

/// Lengths of the controls are twips, 1,440 to the inch, so that one set of numbers serves every display.
/// The display says how many of them make one device-independent pixel: 15 at 96 dots per inch.
int TwipsPerPixel();

/// Tests stand on another display; 0 goes back to the real one.
void PinTwipsPerPixel(int twips);

/// The pixel that a position in twips falls on, to the nearest.
int ToPixels(double twips);

/// Whole pixels in twips.
int ToTwips(int pixels);

}  // namespace controls
