#include "controls/button/ButtonLook.h"

#include "controls/base/Canvas.h"
#include "controls/base/Palette.h"
#include "controls/button/frmResources.h"

namespace controls {

namespace {

constexpr Colour LinkText = RGB(0, 0, 255);
constexpr Colour OutlineInUse = RGB(255, 0, 0);

/// The last pixel of the surface begins this many twips before its end.
constexpr int LastPixel = 15;

Colour Ground(const ButtonLook& look) {
    const bool greyed = !look.Blank && !look.Enabled && !look.LinkButton;
    return greyed ? SystemColours::Light : look.BackColor;
}

const ButtonPicture& PictureOf(ButtonStates state) {
    switch (state) {
        case ButtonStates::Hover:
            return frmResources::picButtonHover();
        case ButtonStates::Down:
            return frmResources::picButtonDown();
        case ButtonStates::Normal:
            break;
    }
    return frmResources::picButtonNormal();
}

Colour OutlineOf(const ButtonLook& look) {
    if (!look.Enabled) {
        return SystemColours::DarkShadow;
    }
    return look.State == ButtonStates::Normal ? ThePalette().ButtonOutline : OutlineInUse;
}

QColor TextColour(const ButtonLook& look) {
    if (!look.Enabled) {
        return ReadableOn(ToQColor(Ground(look)), ToQColor(SystemColours::GreyText));
    }
    return ToQColor(look.LinkButton ? LinkText : Black);
}

void DrawCaption(PaintedCanvas& canvas, const ButtonLook& look, QFont font) {
    font.setUnderline(look.Enabled && look.LinkButton && look.State != ButtonStates::Normal);
    canvas.SetFont(font);
    const double left = look.LinkButton ? 0 : (canvas.Width() - canvas.TextWidth(look.Caption)) / 2.0;
    const double top = (canvas.Height() - canvas.TextHeight(look.Caption)) / 2.0;
    canvas.Print(left, top, look.Caption, TextColour(look));
}

}  // namespace

void DrawLook(PaintedCanvas& canvas, const ButtonLook& look, const QFont& font) {
    canvas.Line(0, 0, canvas.Width(), canvas.Height(), Ground(look), LineForm::FilledBox);
    if (look.Blank) {
        return;
    }
    if (look.Enabled && !look.LinkButton) {
        PictureOf(look.State).DrawOn(canvas);
    }
    if (!look.LinkButton) {
        canvas.Line(0, 0, canvas.Width() - LastPixel, canvas.Height() - LastPixel, OutlineOf(look),
                    LineForm::Outline);
    }
    DrawCaption(canvas, look, font);
}

}  // namespace controls
