#include "controls/clsSkin.h"

#include "platform/Rounding.h"

namespace controls {

namespace {

/// Displays that show fewer colours than this get flat areas: the bands would look alike or dithered.
constexpr qint32 LeastDepth = 16;

namespace Styles {
constexpr qint32 TopToBottom = 0;
constexpr qint32 LeftToRight = 1;
constexpr qint32 ToTopAndBottom = 2;
constexpr qint32 ToLeftAndRight = 3;
constexpr qint32 Diagonal = 4;
}  // namespace Styles

}  // namespace

void clsSkin::SetStartColour(Colour colour) {
    if (colour != gradient_.StartColour) {
        gradient_.StartColour = colour;
        gradient_.Forget();
    }
}

void clsSkin::SetEndColour(Colour colour) {
    if (colour != gradient_.EndColour) {
        gradient_.EndColour = colour;
        gradient_.Forget();
    }
}

void clsSkin::DrawGradient(Canvas* objCanvas, qint32 x1, qint32 Y1, qint32 X2, qint32 Y2) {
    if (objCanvas == nullptr) {
        return;
    }
    try {
        gradient_.Prepare();
        if (GetColourCount(objCanvas) < LeastDepth) {
            objCanvas->Line(x1, Y1, X2, Y2, StartColour(), LineForm::FilledBox);
            return;
        }
        DrawBands(*objCanvas, CutIntoBands(x1, Y1, X2, Y2, ColourBandCount));
    } catch (...) {
        ReportDrawingFailure();
    }
}

qint32 clsSkin::GetColourCount(const Canvas* objCanvas) {
    if (objCanvas == nullptr) {
        return 0;
    }
    try {
        return platform::ToLong(static_cast<double>(objCanvas->BitsPerPixel()) * objCanvas->ColourPlanes());
    } catch (...) {
        // A device that can't tell is treated as one of few colours: a flat area can be seen on all of them.
        return 0;
    }
}

void clsSkin::DrawBands(Canvas& canvas, const Bands& bands) const {
    switch (Style) {
        case Styles::TopToBottom:
            ForEachBand(bands.height, bands.down, [&](qint16 i) {
                canvas.Line(bands.left, bands.top + i, canvas.Width(), bands.top + i + bands.down,
                            ColourAt(i, bands.height), LineForm::FilledBox);
            });
            break;
        case Styles::LeftToRight:
            ForEachBand(bands.width, bands.across, [&](qint16 i) {
                canvas.Line(bands.left + i, bands.top, bands.left + i + bands.across,
                            bands.top + canvas.Height(), ColourAt(i, bands.width), LineForm::FilledBox);
            });
            break;
        case Styles::ToTopAndBottom: {
            const double middle = platform::ToLong(bands.height / 2.0 + bands.top);
            ForEachBand(platform::ToLong(bands.height / 2.0), bands.down, [&](qint16 i) {
                const Colour colour = ColourAt(i, middle);
                canvas.Line(0, middle - i, canvas.Width(), middle - i - bands.down, colour,
                            LineForm::FilledBox);
                canvas.Line(0, middle + i, canvas.Width(), middle + i + bands.down, colour,
                            LineForm::FilledBox);
            });
            break;
        }
        case Styles::ToLeftAndRight: {
            const double middle = platform::ToLong(bands.width / 2.0 + bands.left);
            ForEachBand(platform::ToLong(bands.width / 2.0), bands.across, [&](qint16 i) {
                const Colour colour = ColourAt(i, middle);
                canvas.Line(middle - i, 0, middle - i - bands.across, canvas.Height(), colour,
                            LineForm::FilledBox);
                canvas.Line(middle + i, 0, middle + i + bands.across, canvas.Height(), colour,
                            LineForm::FilledBox);
            });
            break;
        }
        case Styles::Diagonal: {
            canvas.SetDrawWidth(bands.across);
            const qint32 twice = platform::ToLong(2.0 * bands.width);
            ForEachBand(twice, bands.across, [&](qint16 i) {
                canvas.Line(i, 0, i - canvas.Width(), canvas.Height(), ColourAt(i, twice), LineForm::Line);
            });
            break;
        }
        default:
            break;
    }
}

Colour clsSkin::ColourAt(qint16 place, double length) const {
    return gradient_.At(FractionOf(place, length));
}

}  // namespace controls
