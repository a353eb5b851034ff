#include "controls/grid/GridLabel.h"

#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"

#include <QPainter>

namespace controls {

namespace {

constexpr Colour HeadingColour = RGB(45, 127, 242);
constexpr int HeightOfNewCell = 210;

int LeftOfText(const GridLabel& label, const QRect& inside, int textWidth) {
    const int left = ToTwips(inside.left());
    const int slack = ToTwips(inside.width()) - textWidth;
    switch (label.Alignment) {
        case GridAlignment::Left:
            return left;
        case GridAlignment::Right:
            return left + slack;
        case GridAlignment::Centre:
            break;
    }
    return left + slack / 2;
}

QColor ColourOfText(const GridLabel& label, GridLook look) {
    return look == GridLook::Enabled
               ? ToQColor(label.TextColour)
               : ReadableOn(ToQColor(label.BackColour), ToQColor(SystemColours::GreyText));
}

void DrawCaption(QPainter* painter, PaintedCanvas& canvas, const GridLabel& label, const QRect& inside,
                 GridLook look) {
    QFont font = ControlFont(UsualFontPoints, Weight::Normal, label.FontName);
    font.setUnderline(label.Underlined);
    canvas.SetFont(font);
    painter->setClipRect(inside);
    const int slack = ToTwips(inside.height()) - canvas.TextHeight(label.Caption);
    const int top = ToTwips(inside.top()) + slack / 2;
    canvas.Print(LeftOfText(label, inside, canvas.TextWidth(label.Caption)), top, label.Caption,
                 ColourOfText(label, look));
    painter->setClipping(false);
}

}  // namespace

void GridLabel::SetCaption(const QString& caption) {
    Caption = caption;
    ToolTip = caption;
}

QRect GridLabel::Pixels() const {
    return {ToPixels(Left), ToPixels(Top), ToPixels(Width), ToPixels(Height)};
}

GridLabel NewHeadingLabel() {
    GridLabel label;
    label.BackColour = HeadingColour;
    return label;
}

GridLabel NewCellLabel() {
    GridLabel label;
    label.Border = GridBorder::SingleLine;
    label.Height = HeightOfNewCell;
    return label;
}

void DrawLabel(QPainter* painter, const GridLabel& label, GridLook look) {
    const QRect outside = label.Pixels();
    if (!label.Visible || outside.isEmpty()) {
        return;
    }
    PaintedCanvas canvas(painter, painter->device()->width(), painter->device()->height());
    const int left = ToTwips(outside.left());
    const int top = ToTwips(outside.top());
    const int right = ToTwips(outside.right());
    const int bottom = ToTwips(outside.bottom());
    canvas.Line(left, top, right, bottom, label.BackColour, LineForm::FilledBox);
    QRect inside = outside;
    if (label.Border == GridBorder::SingleLine) {
        canvas.Line(left, top, right, bottom, Black, LineForm::Outline);
        inside.adjust(1, 1, -1, -1);
    }
    if (!label.Caption.isEmpty() && !inside.isEmpty()) {
        DrawCaption(painter, canvas, label, inside, look);
    }
}

}  // namespace controls
