#include "controls/date/CalendarDrawing.h"

#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"

namespace controls {

namespace {

using namespace CalendarPlaces;

constexpr Colour DiscColour = RGB(255, 255, 0);

void PrintCentred(PaintedCanvas& canvas, double left, double width, double top, const QString& text,
                  const QColor& colour) {
    canvas.Print(left + (width - canvas.TextWidth(text)) / 2, top, text, colour);
}

bool DayNamesFit(const PaintedCanvas& canvas) {
    const int gap = 3 * TwipsPerPixel();
    for (int weekday = 1; weekday <= DayColumns; ++weekday) {
        if (canvas.TextWidth(DayName(weekday)) + gap > ColumnWidth) {
            return false;
        }
    }
    return true;
}

/// In a wide face the names would run into one another, and the wide ones stand closer than the narrow ones.
void SetFontOfDayNames(PaintedCanvas& canvas) {
    constexpr int LeastReadable = 8;
    QFont font = ControlFont();
    canvas.SetFont(font);
    while (!DayNamesFit(canvas) && font.pixelSize() > LeastReadable) {
        font.setPixelSize(font.pixelSize() - 1);
        canvas.SetFont(font);
    }
}

void DrawDay(PaintedCanvas& canvas, CalendarCell cell, int day, bool isMarked) {
    const TwipsPoint place = CellPlace(cell);
    if (isMarked) {
        constexpr double Radius = 95;
        canvas.Disc(place.left + ColumnWidth / 2.0, place.top + RowHeight / 2.0, Radius, DiscColour);
        // The disc can hardly be told from the ground, so a frame shows the day, clear of the digits.
        canvas.Line(place.left, place.top - TwipsPerPixel(), place.left + ColumnWidth - TwipsPerPixel(),
                    place.top + RowHeight, ThePalette().ButtonOutline, LineForm::Outline);
    }
    const QString text = QString::number(day);
    const double top = place.top + (RowHeight - canvas.TextHeight(text)) / 2.0;
    PrintCentred(canvas, place.left, ColumnWidth, top, text, ToQColor(Black));
}

}  // namespace

int OpenHeight(bool IncludeNone) {
    return IncludeNone ? HeightWithNone : HeightWithoutNone;
}

TwipsPoint CellPlace(CalendarCell cell) {
    return {(cell.column - 1) * ColumnWidth + GridLeft, (cell.row - 1) * RowHeight + GridTop};
}

int NoneLine(bool IncludeNone) {
    constexpr int MarginBelow = 30;
    return OpenHeight(IncludeNone) - RowHeight - MarginBelow;
}

void DrawFrame(PaintedCanvas& canvas, const CalendarPicture& picture) {
    const int H = picture.closedHeight;
    const int h = OpenHeight(picture.IncludeNone);
    canvas.Line(0, H, 2470, GridTop, SystemColours::Highlight, LineForm::FilledBox);
    canvas.Line(0, GridTop, Width, h, White, LineForm::FilledBox);
    canvas.Line(0, H, 2470, h - 30, Black, LineForm::Outline);
    // Only its upper edge falls on the control: the lower line of the shadow.
    canvas.Line(15, 2485, 2485, h - 15, Black, LineForm::Outline);
    canvas.Line(2485, H + 15, 2485, h - 15, Black, LineForm::Line);

    const QColor lettering = ReadableOn(ToQColor(SystemColours::Highlight), ToQColor(White));
    canvas.SetFont(ControlFont(UsualFontPoints, Weight::Bold));
    PrintCentred(canvas, 0, Width, TitleLine, MonthTitle(picture.shown), lettering);
    SetFontOfDayNames(canvas);
    for (int weekday = 1; weekday <= DayColumns; ++weekday) {
        canvas.PrintAround(CellPlace({weekday, 1}).left + ColumnWidth / 2.0, DayNameLine, DayName(weekday),
                           lettering);
    }
}

void DrawDays(PaintedCanvas& canvas, const CalendarPicture& picture) {
    canvas.SetFont(ControlFont());
    for (int row = 1; row <= DayRows; ++row) {
        for (int column = 1; column <= DayColumns; ++column) {
            const int day = picture.days[static_cast<size_t>(column)][static_cast<size_t>(row)];
            if (day != -1) {
                DrawDay(canvas, {column, row}, day, picture.markedDay == day);
            }
        }
    }
    if (picture.IncludeNone) {
        PrintCentred(canvas, 0, Width, NoneLine(true), QStringLiteral("<None>"), ToQColor(Black));
    }
}

}  // namespace controls
