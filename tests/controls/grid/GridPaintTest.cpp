#include "controls/grid/GridLabel.h"
#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <QPaintEvent>
#include <QPalette>

#include <cmath>
#include <functional>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

const QColor black(0, 0, 0);
const QColor white(255, 255, 255);
const QColor selected(255, 255, 150);
const QColor strongBlue(45, 127, 242);

class GridPaintTest : public GridTest {
protected:
    QColor Pixel(int x, int y) { return PixelAt(*grid, x, y); }
    static QColor Ground() { return QColor(ToQColor(SystemColours::ApplicationWorkspace).rgb()); }

    /// How many pixels of a cell's inside are neither its ground nor white.
    int Ink(int row, int column) {
        const QImage picture = Picture(*grid).copy(Cell(row, column).Pixels().adjusted(1, 1, -1, -1));
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += picture.pixelColor(x, y) != ToQColor(Cell(row, column).BackColour) ? 1 : 0;
            }
        }
        return count;
    }

    /// The first and last column of pixels within a cell that hold any of its text.
    std::pair<int, int> InkSpan(int row, int column) {
        const QRect inside = Cell(row, column).Pixels().adjusted(1, 1, -1, -1);
        const QImage picture = Picture(*grid).copy(inside);
        std::pair<int, int> span{picture.width(), -1};
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                if (picture.pixelColor(x, y) != ToQColor(Cell(row, column).BackColour)) {
                    span = {std::min(span.first, x), std::max(span.second, x)};
                }
            }
        }
        return span;
    }
};

TEST_F(GridPaintTest, TheGroundHasTheColourThatTheFormGives) {
    LoadShown(2);
    EXPECT_EQ(grid->BackColor(), SystemColours::ApplicationWorkspace);
    grid->SetBackColor(RGB(238, 243, 248));
    EXPECT_EQ(grid->BackColor(), RGB(238, 243, 248));
    EXPECT_EQ(Pixel(100, 60), QColor(238, 243, 248));
}

TEST_F(GridPaintTest, TheGroundShowsWhereNoLabelLies) {
    LoadShown(2);
    EXPECT_EQ(Pixel(8, 8), Ground());    // The selector strip beside the headings,
    EXPECT_EQ(Pixel(8, 25), Ground());   // and beside the rows.
    EXPECT_EQ(Pixel(265, 8), Ground());  // Behind the last column.
    EXPECT_EQ(Pixel(265, 25), Ground());
    EXPECT_EQ(Pixel(100, 60), Ground());  // Below the last row.
}

TEST_F(GridPaintTest, HeadingsFillTheirColumns) {
    LoadShown(2);
    EXPECT_EQ(Pixel(16, 8), Ground());
    EXPECT_EQ(Pixel(17, 0), strongBlue);
    EXPECT_EQ(Pixel(17, 17), strongBlue);
    EXPECT_EQ(Pixel(256, 17), strongBlue);
    EXPECT_EQ(Pixel(257, 17), Ground());
}

TEST_F(GridPaintTest, TheFirstHeadingOfANewListIsPale) {
    grid = std::make_unique<akGrid>(&window);
    grid->Move(0, 0, 6000, 2000);
    Show();
    EXPECT_EQ(Pixel(17 + 60, 17), QColor(221, 234, 243));
    EXPECT_EQ(Pixel(17 + 66 + 60, 17), strongBlue);
}

TEST_F(GridPaintTest, NeighboursShareOneGridLine) {
    LoadShown(3);
    // Columns: lines at 16, 156 and 256; rows: lines at 18, 33, 48 and 63.
    for (const int x : {16, 156, 256}) {
        EXPECT_EQ(Pixel(x, 29), black) << x;
        EXPECT_NE(Pixel(x - 1, 29), black) << x;
        EXPECT_NE(Pixel(x + 1, 29), black) << x;
    }
    for (const int y : {18, 33, 48, 63}) {
        EXPECT_EQ(Pixel(140, y), black) << y;
        EXPECT_NE(Pixel(140, y - 1), black) << y;
        EXPECT_NE(Pixel(140, y + 1), black) << y;
    }
    EXPECT_EQ(Pixel(140, 29), white);
    EXPECT_EQ(Pixel(140, 64), Ground());
}

TEST_F(GridPaintTest, NeighboursShareOneGridLineOnOtherDisplaysToo) {
    for (const int twips : {12, 20}) {
        const AnotherDensity density(twips);
        LoadShown(4);
        const QImage picture = Picture(*grid);
        const int border = Cell(1, 2).Pixels().left();
        const int across = Cell(2, 1).Pixels().bottom() - 2;
        EXPECT_EQ(Cell(1, 1).Pixels().right(), border);
        EXPECT_EQ(picture.pixelColor(border, across), black);
        EXPECT_EQ(picture.pixelColor(border - 1, across), white);
        EXPECT_EQ(picture.pixelColor(border + 1, across), white);
    }
}

TEST_F(GridPaintTest, RowsOverlapOnADenserDisplayAndStillHaveOneLine) {
    const AnotherDensity density(12);
    LoadShown(4);
    const QImage picture = Picture(*grid);
    const int clear = Cell(1, 1).Pixels().right() - 4;
    QList<int> lines;
    for (int y = Cell(1, 1).Pixels().top(); y <= Cell(4, 1).Pixels().bottom(); ++y) {
        if (picture.pixelColor(clear, y) == black) {
            lines += y;
        }
    }
    // 22.25, 41, 59.75 and 78.5 to the nearest pixel, and the last row's lower border.
    EXPECT_EQ(lines, (QList<int>{22, 41, 60, 79, 98}));
}

TEST_F(GridPaintTest, TheSelectedRowHasTheSelectColour) {
    LoadShown(3);
    grid->SetRow(2);
    EXPECT_EQ(Pixel(140, 34), selected);
    EXPECT_EQ(Pixel(160, 34), selected);
    EXPECT_EQ(Pixel(140, 33), black);
    EXPECT_EQ(Pixel(140, 19), white);
    EXPECT_EQ(Pixel(140, 49), white);
}

TEST_F(GridPaintTest, CellsAreWhiteAndTextBlackOnADarkDesktop) {
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    QApplication::setPalette(dark);
    LoadShown(3);
    EXPECT_EQ(Pixel(140, 19), white);
    EXPECT_GT(Ink(1, 1), 0);
    QApplication::setPalette(before);
}

TEST_F(GridPaintTest, TextStandsAtTheSideOfItsAlignment) {
    LoadShown(1);
    grid->SetColumnHeadings(u"A|B|C|"_s);
    grid->SetColumnAlignments(u"0|1|2|"_s);
    for (int column = 1; column <= 3; ++column) {
        grid->SetTextMatrix(1, column, u"iii"_s);
    }
    const int wide = Cell(1, 3).Pixels().width() - 2;
    EXPECT_LT(InkSpan(1, 1).second, 30);
    EXPECT_GT(InkSpan(1, 1).first, 1);
    EXPECT_GT(InkSpan(1, 2).first, Cell(1, 2).Pixels().width() - 32);
    EXPECT_LT(InkSpan(1, 2).second, Cell(1, 2).Pixels().width() - 3);
    const auto [first, last] = InkSpan(1, 3);
    EXPECT_NEAR(first, wide - last, 3);
}

TEST_F(GridPaintTest, ATextTooLongIsCutAtTheLabelsEdge) {
    LoadShown(1);
    grid->SetTextMatrix(1, 1, QString(200, u'W'));
    EXPECT_EQ(Pixel(156, 25), black);
    EXPECT_EQ(InkSpan(1, 1).second, Cell(1, 1).Pixels().width() - 3);
    grid->SetTextMatrix(1, 2, {});
    EXPECT_EQ(Ink(1, 2), 0);
}

TEST_F(GridPaintTest, CaptionsAreNoMarkupAndHaveNoShortcuts) {
    LoadShown(1);
    grid->SetTextMatrix(1, 1, u"&x"_s);
    const int withSign = Ink(1, 1);
    grid->SetTextMatrix(1, 1, u"x"_s);
    EXPECT_GT(withSign, Ink(1, 1) + 5);
    grid->SetTextMatrix(1, 1, u"<i>x</i>"_s);
    EXPECT_GT(Ink(1, 1), withSign);
}

TEST_F(GridPaintTest, LinksAreDrawnInBlueWithALine) {
    akGrid::Properties properties = TwoColumns();
    properties.Hyperlinks = u"1|0|"_s;
    Load(properties);
    grid->AddItem(u"          ........"_s);
    Show();
    const QRect cell = Cell(1, 1).Pixels();
    const QImage picture = Picture(*grid);
    int longest = 0;
    for (int y = cell.top() + 1; y < cell.bottom(); ++y) {
        int blue = 0;
        for (int x = cell.left() + 1; x < cell.right(); ++x) {
            blue += picture.pixelColor(x, y) == QColor(0, 0, 255) ? 1 : 0;
        }
        longest = std::max(longest, blue);
    }
    EXPECT_GT(longest, 25);
}

TEST_F(GridPaintTest, ADisabledListHasGreyText) {
    LoadShown(1);
    grid->SetTextMatrix(1, 1, u"IIIIIII"_s);
    const auto darkest = [this] {
        int lightness = 255;
        const QRect cell = Cell(1, 1).Pixels().adjusted(1, 1, -1, -1);
        const QImage picture = Picture(*grid);
        for (int y = cell.top(); y <= cell.bottom(); ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                lightness = std::min(lightness, picture.pixelColor(x, y).lightness());
            }
        }
        return lightness;
    };
    const int enabled = darkest();
    grid->SetEnabled(false);
    EXPECT_GT(darkest(), enabled + 60);
}

TEST_F(GridPaintTest, TheFocusShowsAroundTheOuterEdgeOnly) {
    LoadShown(3);
    grid->clearFocus();
    EXPECT_EQ(Pixel(0, 50), Ground());
    const QColor line = Pixel(140, 19);
    grid->setFocus();
    EXPECT_NE(Pixel(0, 50), Ground());
    EXPECT_NE(Pixel(399, 50), Ground());
    EXPECT_NE(Pixel(8, 96), Ground());
    EXPECT_EQ(Pixel(1, 50), Ground());
    EXPECT_EQ(Pixel(100, 0), strongBlue);
    EXPECT_EQ(Pixel(140, 19), line);
}

/// Scale factors of the display.
class GridScaleTest : public GridPaintTest, public ::testing::WithParamInterface<double> {};

TEST_P(GridScaleTest, TheFocusLineIsWholeAndOfOneThicknessAndChangesNothingElse) {
    const double factor = GetParam();
    LoadShown(3);
    grid->clearFocus();
    const QImage without = Picture(*grid, factor);
    grid->setFocus();
    const QImage with = Picture(*grid, factor);

    const int right = with.width() - 1;
    const int bottom = with.height() - 1;
    const QColor line = with.pixelColor(0, bottom);
    ASSERT_NE(line, Ground());
    // As thick as a pixel comes out at the factor, rounded to one side or the other.
    const int leastThickness = static_cast<int>(std::floor(factor));
    const int mostThickness = static_cast<int>(std::ceil(factor));
    const QRect untouched =
        with.rect().adjusted(mostThickness, mostThickness, -mostThickness, -mostThickness);
    EXPECT_EQ(with.copy(untouched), without.copy(untouched));
    for (int depth = 0; depth < leastThickness; ++depth) {
        for (int y = 0; y <= bottom; ++y) {
            EXPECT_EQ(with.pixelColor(depth, y), line) << depth << ", " << y;
            EXPECT_EQ(with.pixelColor(right - depth, y), line) << right - depth << ", " << y;
        }
        for (int x = 0; x <= right; ++x) {
            EXPECT_EQ(with.pixelColor(x, bottom - depth), line) << x << ", " << bottom - depth;
            // The headings lie above it, at the upper edge.
            const bool isHeading = without.pixelColor(x, depth) != Ground();
            EXPECT_EQ(with.pixelColor(x, depth), isHeading ? without.pixelColor(x, depth) : line)
                << x << ", " << depth;
        }
    }
}

TEST_P(GridScaleTest, AllLinesOfTheListAreAsThick) {
    LoadShown(5);
    grid->clearFocus();
    for (int row = 1; row <= 5; ++row) {
        for (int column = 1; column <= 2; ++column) {
            grid->SetTextMatrix(row, column, {});
        }
    }
    const QImage picture = Picture(*grid, GetParam());
    const int thickness = static_cast<int>(GetParam());
    // Through a row and through a column, and along the last lines of both, which nothing stands out from.
    const int y = static_cast<int>(25 * GetParam());
    const int x = static_cast<int>(100 * GetParam());
    EXPECT_EQ(RunsInRow(picture, y, black), std::vector<int>(3, thickness));
    EXPECT_EQ(RunsInColumn(picture, x, black), std::vector<int>(6, thickness));
    EXPECT_EQ(RunsInRow(picture, y, white).size(), 2U);
    EXPECT_EQ(RunsInColumn(picture, x, white).size(), 5U);
}

INSTANTIATE_TEST_SUITE_P(Factors, GridScaleTest, ::testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_F(GridPaintTest, AChangeOfManyStepsPaintsOnce) {
    LoadShown(20);
    PaintCounter counter(*grid);
    counter.Take();
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"scroll", [this] { ScrollTo(3); }},
        {"select", [this] { grid->SetRow(3); }},
        {"down at the end", [this] { grid->SetAbsoluteRow(15); }},
        {"text", [this] { grid->SetTextMatrix(15, 1, QStringLiteral("x")); }},
        {"heading", [this] { grid->SetColumnHeading(1, QStringLiteral("x")); }},
        {"fill", [this] { Fill(50); }},
        {"remove", [this] { grid->RemoveItem(0); }},
        {"font", [this] { grid->SetColumnFont(1, QStringLiteral("Courier")); }},
        {"columns", [this] { grid->SetColumnHeadings(QStringLiteral("A|B|C")); }},
        {"rows", [this] { grid->SetRows(3); }},
        {"rows to none", [this] { grid->SetRows(0); }},
        {"focus", [this] { grid->clearFocus(); }},
    };
    for (const auto& [name, change] : changes) {
        change();
        EXPECT_EQ(counter.Take(), 1) << name;
    }
    grid->SetRow(grid->Row());
    counter.Take();
    EXPECT_EQ(counter.Take(), 0);
}

/// Tells whether any of a place was painted anew.
class PaintedPlace : public QObject {
public:
    PaintedPlace(QWidget& widget, const QRect& watchedPlace) : place(watchedPlace) {
        widget.installEventFilter(this);
    }
    bool Painted() {
        QCoreApplication::processEvents();
        return std::exchange(painted, false);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted = painted || static_cast<QPaintEvent*>(event)->region().intersects(place);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QRect place;
    bool painted = false;
};

TEST_F(GridPaintTest, ARowBelowTheWindowPaintsNoCell) {
    LoadShown(20);
    PaintedPlace cells(*grid, QRect(0, 0, 300, 97));
    EXPECT_FALSE(cells.Painted());
    grid->AddItem(u"far below"_s);
    grid->SetTextMatrix(15, 2, u"far below"_s);
    EXPECT_FALSE(cells.Painted());
    grid->SetTextMatrix(2, 2, u"on view"_s);
    EXPECT_TRUE(cells.Painted());
}

}  // namespace
