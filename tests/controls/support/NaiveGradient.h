#pragma once

#include "support/RecordingCanvas.h"

#include <cstdint>
#include <vector>

/// Gradients told once more, slowly and in whole numbers, to hold the real ones against.

/// The nearest whole number to numerator / denominator, the even one of two that are as near. The denominator
/// is above 0.
std::int64_t NaiveQuotient(std::int64_t numerator, std::int64_t denominator);

struct NaiveColours {
    int startRed, startGreen, startBlue;
    int endRed, endGreen, endBlue;
};

/// The colour at a fraction.
controls::Colour NaiveColourAt(const NaiveColours& colours, float fraction);

struct NaiveArea {
    int style;
    int bandCount;
    int x1, Y1, X2, Y2;
    int canvasWidth, canvasHeight;
};

/// What a skin draws on a canvas of many colours, in its order. Only for areas whose bands have a size and
/// whose places stay in 16 bits.
std::vector<DrawnLine> NaiveSkin(const NaiveArea& area, const NaiveColours& colours);
