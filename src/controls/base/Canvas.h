#pragma once

#include "controls/base/Colour.h"

#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

namespace controls {

/// What is drawn between two corner points.
enum class LineForm {
    Line,      ///< A straight line from the first to the second.
    Outline,   ///< The outline of the rectangle between them.
    FilledBox  ///< That rectangle, filled.
};

/// A surface to draw on. All positions and lengths are twips from its top left; what falls outside is cut
/// off. A position means the pixel it falls on, so both corners of a rectangle are drawn.
class Canvas {
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    virtual int Width() const = 0;
    virtual int Height() const = 0;

    /// What the device behind the surface can show: bits of a pixel in one of its planes, and its planes.
    virtual int BitsPerPixel() const = 0;
    virtual int ColourPlanes() const = 0;

    /// Thickness of lines and outlines from here on, in pixels; 1 at first.
    virtual void SetDrawWidth(int pixels) = 0;
    virtual void Line(double x1, double Y1, double X2, double Y2, Colour colour, LineForm form) = 0;
};

/// A widget or picture as a canvas, which can also hold text and discs. Lives within one paint event.
///
/// Lines and outlines are as thick everywhere, at scale factors between whole numbers too, where one pixel is
/// now one device pixel and now two. They stand where boxes begin and end, and two lines on one pixel are one
/// line.
class PaintedCanvas : public Canvas {
public:
    /// The painter is not owned. Width and height are those of the surface in pixels.
    PaintedCanvas(QPainter* painter, int pixelWidth, int pixelHeight);

    int Width() const override;
    int Height() const override;
    int BitsPerPixel() const override;
    int ColourPlanes() const override;
    void SetDrawWidth(int pixels) override;
    void Line(double x1, double Y1, double X2, double Y2, Colour colour, LineForm form) override;

    void SetFont(const QFont& font);
    /// Extent of a text in the present font.
    int TextWidth(const QString& text) const;
    int TextHeight(const QString& text) const;
    /// The text, or as much of its beginning as fits into the width, with dots behind.
    QString Elided(const QString& text, int width) const;
    /// Prints one line of text with its top left at (x, y).
    void Print(double x, double y, const QString& text, const QColor& colour);

    /// Prints one line of text with its top at y, what is seen of it in the middle around x. The room that
    /// letters keep on their sides doesn't count.
    void PrintAround(double x, double y, const QString& text, const QColor& colour);

    /// A filled disc around (x, y).
    void Disc(double x, double y, double radius, Colour colour);

private:
    void FillOutline(const QRect& box, const QColor& colour);
    void FillThinLine(const QRect& line, const QColor& colour);

    QPainter* painter_;
    int pixelWidth_;
    int pixelHeight_;
    int drawWidth_ = 1;
};

}  // namespace controls
