#pragma once

#include "controls/base/Colour.h"

#include <QFont>
#include <QString>

#include <cstdint>

namespace controls {

class PaintedCanvas;

/// What the mouse and the focus make of a button.
enum class ButtonStates : std::int32_t {
    Normal = 0,
    Hover = 1,  ///< Under the mouse, or with the focus.
    Down = 2
};

/// All that the surface of a button shows.
struct ButtonLook {
    bool Blank = true;  ///< Nothing but the ground in BackColor.
    QString Caption = {};
    Colour BackColor = White;
    bool Enabled = true;
    bool LinkButton = false;  ///< Looks like a link on a page: no picture, no outline.
    ButtonStates State = ButtonStates::Normal;

    bool operator==(const ButtonLook&) const = default;
};

/// Draws the look over the whole canvas: the ground; for an enabled button the picture at the top left and
/// an outline at the edge; and the caption, plain (an "&" shows as it is) and in the middle, but for a link
/// at the left. A caption that is too long is cut off. Every text can be read on its ground, whatever the
/// desktop's theme.
void DrawLook(PaintedCanvas& canvas, const ButtonLook& look, const QFont& font);

}  // namespace controls
