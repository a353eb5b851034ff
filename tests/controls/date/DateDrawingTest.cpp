#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/Palette.h"
#include "date/DateForm.h"
#include "platform/NoDate.h"
#include "support/OnScreen.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace {

using namespace controls;

const QColor black(0, 0, 0);
const QColor white(255, 255, 255);
const QColor disabledGround(232, 232, 232);
const QColor yellow(255, 255, 0);

QColor Band() {
    return ToQColor(SystemColours::Highlight);
}

/// A picture of the control, and what can be asked of parts of it. Places are pixels.
class Look {
public:
    explicit Look(QWidget& widget) : image_(Picture(widget)) {}

    QColor At(int x, int y) const { return image_.pixelColor(x, y); }

    template <class Wanted>
    int Count(const QRect& area, Wanted wanted) const {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                count += wanted(At(x, y)) ? 1 : 0;
            }
        }
        return count;
    }
    int Count(const QRect& area, const QColor& colour) const {
        return Count(area, [&](const QColor& pixel) { return pixel == colour; });
    }
    /// From the first to the last column of an area that holds anything but the ground.
    QPair<int, int> Columns(const QRect& area, const QColor& ground) const {
        QPair<int, int> found(area.right() + 1, area.left() - 1);
        for (int x = area.left(); x <= area.right(); ++x) {
            if (Count(QRect(x, area.top(), 1, area.height()), ground) < area.height()) {
                found = {std::min(found.first, x), x};
            }
        }
        return found;
    }
    QRect Whole() const { return image_.rect(); }

private:
    QImage image_;
};

/// The inside of a day's cell.
QRect Cell(int column, int row) {
    const int left = ToPixels((column - 1) * 350 + 25);
    const int top = ToPixels((row - 1) * 190 + 800);
    return {left + 1, top + 1, ToPixels(350) - 2, ToPixels(190) - 2};
}

TEST(DateDrawingTest, TheClosedControlIsAWhiteFieldInTheFrameOfAllFields) {
    DateForm form;
    const Look look(form.date);
    const QColor frame = ToQColor(ThePalette().Frame);
    EXPECT_EQ(look.At(0, 0), frame);
    EXPECT_EQ(look.At(104, 0), frame);
    EXPECT_EQ(look.At(0, 18), frame);
    EXPECT_EQ(look.At(104, 18), frame);
    EXPECT_EQ(look.At(50, 18), frame);
    EXPECT_EQ(look.At(1, 1), white);
    EXPECT_EQ(look.At(103, 17), white);
    EXPECT_EQ(look.At(50, 1), white);
}

TEST(DateDrawingTest, TheFrameShowsTheFocusOfEveryPart) {
    DateForm form({.IncludeNone = true});
    const QColor focused = ToQColor(ThePalette().ButtonOutline);
    const auto isFocused = [&] {
        const Look look(form.date);
        return look.At(0, 0) == focused && look.At(1, 1) == focused && look.At(103, 17) == focused &&
               look.At(104, 18) == focused;
    };
    PaintCounter paints(form.date);
    for (QWidget* part : {static_cast<QWidget*>(&form.Box(1)), static_cast<QWidget*>(&form.Box(3)),
                          static_cast<QWidget*>(&form.Button("cmdOpen"))}) {
        form.LeaveControl();
        EXPECT_FALSE(isFocused());
        paints.Take();
        part->setFocus();
        EXPECT_GE(paints.Take(), 1) << part->objectName().toStdString();
        EXPECT_TRUE(isFocused()) << part->objectName().toStdString();
    }
    form.LeaveControl();
    EXPECT_GE(paints.Take(), 1);
    form.date.SetValue(QDate(1234, 1, 1));
    form.None().setFocus();
    EXPECT_TRUE(isFocused());
}

TEST(DateDrawingTest, LinesAreAsThickAtEveryScale) {
    for (const double factor : {1.25, 1.5, 1.75, 2.0}) {
        DateForm form;
        const std::vector both(2, static_cast<int>(factor));
        const QImage closed = Picture(form.date, factor);
        const QColor frame = ToQColor(ThePalette().Frame);
        const int besideTheBoxes = static_cast<int>(1.5 * factor);
        EXPECT_EQ(RunsInRow(closed, closed.height() / 2, frame), both) << factor;
        EXPECT_EQ(RunsInColumn(closed, besideTheBoxes, frame), both) << factor;
        form.date.DropDown();
        const QImage open = Picture(form.date, factor);
        // The frame's line at the left; that at the right, with the shadow beside it.
        const int besideTheDays = static_cast<int>(54.5 * factor);
        ASSERT_EQ(RunsInRow(open, besideTheDays, black).size(), 2U) << factor;
        EXPECT_EQ(RunsInRow(open, besideTheDays, black).front(), static_cast<int>(factor)) << factor;
    }
}

/// The pixels of the closed control that digits and slashes leave white, as a white gap between any two of
/// them, from left to right.
std::vector<int> GapsOfDate(akDate& date) {
    const QImage image = Picture(date);
    std::vector<int> gaps;
    int blank = 0;
    bool begun = false;
    for (int x = 2; x < ToPixels(1305); ++x) {
        bool hasInk = false;
        for (int y = 3; y < 16; ++y) {
            hasInk = hasInk || image.pixelColor(x, y).lightness() < 160;
        }
        if (hasInk && begun && blank > 0) {
            gaps.push_back(blank);
        }
        begun = begun || hasInk;
        blank = hasInk ? 0 : blank + 1;
    }
    return gaps;
}

TEST(DateDrawingTest, TheDigitsReadAsOneDate) {
    for (const char* locale : {DateForm::DayFirst, DateForm::MonthFirst, DateForm::YearFirst}) {
        DateForm form({}, locale);
        form.date.SetValue(QDate(2000, 8, 8));
        const bool isYearFirst = locale == DateForm::YearFirst;
        // Zeroes and eights are alike wide, so that gaps tell of places alone.
        const std::vector<int> gaps = GapsOfDate(form.date);
        ASSERT_EQ(gaps.size(), 9U) << locale;
        const size_t first = isYearFirst ? 3 : 1;
        const size_t second = first + 3;
        for (const size_t slash : {first, second}) {
            EXPECT_NEAR(gaps[slash], gaps[slash + 1], 1) << locale << ", on both sides of a slash";
            EXPECT_LE(gaps[slash], 4) << locale;
        }
        EXPECT_NEAR(gaps[first], gaps[second], 1) << locale << ", both slashes alike";
    }
}

TEST(DateDrawingTest, ASlashStandsBetweenTheBoxes) {
    const struct {
        const char* locale;
        int first;
        int second;
    } rows[] = {{DateForm::DayFirst, 360, 720}, {DateForm::YearFirst, 495, 855}};
    for (const auto& row : rows) {
        DateForm form({}, row.locale);
        for (QWidget* child : form.date.findChildren<QWidget*>()) {
            child->hide();
        }
        const Look look(form.date);
        const auto dark = [](const QColor& pixel) { return pixel.lightness() < 128; };
        for (const int left : {row.first, row.second}) {
            EXPECT_GT(look.Count(QRect(ToPixels(left), 2, 9, 15), dark), 4) << left;
        }
        // And nothing else.
        EXPECT_EQ(look.Count(QRect(1, 1, 103, 17), dark),
                  look.Count(QRect(ToPixels(row.first), 2, 9, 15), dark) +
                      look.Count(QRect(ToPixels(row.second), 2, 9, 15), dark));
    }
}

TEST(DateDrawingTest, BandAndGroundOfTheCalendar) {
    DateForm form({.IncludeNone = true});
    form.date.SetBackColor(RGB(10, 200, 30));
    form.date.DropDown();
    const Look look(form.date);
    EXPECT_EQ(look.Whole().size(), QSize(167, 144));
    EXPECT_EQ(look.At(2, 20), Band());
    EXPECT_EQ(look.At(164, 20), Band());
    EXPECT_EQ(look.At(2, 52), Band());
    EXPECT_EQ(look.At(2, 53), white);
    EXPECT_EQ(look.At(164, 53), white);
    EXPECT_EQ(look.At(2, 141), white);
    EXPECT_EQ(look.At(164, 141), white);
    // Beside the closed control lies the ground.
    EXPECT_EQ(look.At(106, 5), QColor(10, 200, 30));
    EXPECT_EQ(look.At(166, 18), QColor(10, 200, 30));
}

TEST(DateDrawingTest, FrameAndShadowOfTheCalendar) {
    DateForm form({.IncludeNone = true});
    form.date.SetBackColor(RGB(10, 200, 30));
    form.date.DropDown();
    const Look look(form.date);
    EXPECT_EQ(look.Count(QRect(0, 19, 1, 124), black), 124);
    EXPECT_EQ(look.Count(QRect(165, 19, 1, 124), black), 124);
    EXPECT_EQ(look.Count(QRect(0, 19, 166, 1), black), 166);
    EXPECT_EQ(look.Count(QRect(0, 142, 166, 1), black), 166);
    // The shadow begins one pixel further down and to the right.
    EXPECT_EQ(look.Count(QRect(166, 20, 1, 124), black), 124);
    EXPECT_EQ(look.At(166, 19), QColor(10, 200, 30));
    EXPECT_EQ(look.Count(QRect(1, 143, 166, 1), black), 166);
    EXPECT_EQ(look.At(0, 143), white);
}

TEST(DateDrawingTest, WithoutNoneItIsShorterAndPrintsNone) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    EXPECT_EQ(look.Whole().size(), QSize(167, 131));
    EXPECT_EQ(look.Count(QRect(0, 129, 166, 1), black), 166);
    EXPECT_EQ(look.Count(QRect(1, 130, 166, 1), black), 166);
    // The last row of March 2009 has three days, and the rest is empty.
    EXPECT_EQ(look.Count(QRect(75, 118, 89, 10), white), 890);
}

TEST(DateDrawingTest, OnAnotherDisplayAllOfItIsThereInItsOwnPixels) {
    const AnotherDensity density(12);
    DateForm form({.IncludeNone = true});
    form.date.DropDown();
    const Look look(form.date);
    EXPECT_EQ(look.Whole().size(), QSize(208, 180));
    EXPECT_EQ(look.Count(QRect(0, 24, 207, 1), black), 207);
    EXPECT_EQ(look.Count(QRect(0, 24, 1, 155), black), 155);
    EXPECT_EQ(look.Count(QRect(206, 24, 1, 155), black), 155);
    EXPECT_EQ(look.Count(QRect(0, 178, 207, 1), black), 207);
    EXPECT_EQ(look.Count(QRect(207, 25, 1, 155), black), 155);
    EXPECT_EQ(look.Count(QRect(1, 179, 207, 1), black), 207);
    EXPECT_EQ(look.At(2, 66), Band());
    EXPECT_EQ(look.At(2, 67), white);
    EXPECT_GT(look.Count(Cell(7, 3), yellow), 40);
}

TEST(DateDrawingTest, TheTitleIsCentredOnItsLineInTheBand) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    // Between the buttons, below line 350.
    const auto [first, last] = look.Columns(QRect(33, 24, 100, 12), Band());
    EXPECT_NEAR((first + last) / 2.0, 2500 / 15 / 2, 1.5);
    EXPECT_GT(last - first, 50);
    EXPECT_EQ(look.Count(QRect(33, 20, 100, 3), Band()), 300);
}

/// The width of "Mon" in the largest face that leaves three pixels between day names. They are the widest.
int DayNameWidth(Weight weight) {
    const auto width = [](QFont font, int pixels, bool bold) {
        font.setPixelSize(pixels);
        font.setBold(bold);
        const QFontMetrics metrics(font);
        return std::max(metrics.horizontalAdvance(QStringLiteral("Mon")),
                        metrics.horizontalAdvance(QStringLiteral("Wed")));
    };
    int pixels = ControlFont().pixelSize();
    while (width(ControlFont(), pixels, false) + 3 > 350 / 15.0) {
        --pixels;
    }
    return width(ControlFont(), pixels, weight == Weight::Bold);
}

TEST(DateDrawingTest, TheTitleIsBoldAndTheDayNamesArent) {
    DateForm form;
    form.date.SetValue(QDate(2009, 5, 1));
    form.date.DropDown();
    const Look look(form.date);
    const auto [first, last] = look.Columns(QRect(33, 24, 100, 12), Band());
    const auto width = [](Weight weight, const char* text) {
        return QFontMetrics(ControlFont(UsualFontPoints, weight))
            .horizontalAdvance(QString::fromLatin1(text));
    };
    ASSERT_GT(width(Weight::Bold, "May 2009"), width(Weight::Normal, "May 2009") + 4);
    EXPECT_NEAR(last - first + 1, width(Weight::Bold, "May 2009"), 3);
    const auto [left, right] = look.Columns(QRect(26, 40, 22, 12), Band());
    EXPECT_NEAR(right - left + 1, DayNameWidth(Weight::Normal), 2);
    EXPECT_LT(right - left + 1, DayNameWidth(Weight::Bold) - 2);
}

TEST(DateDrawingTest, DayNamesStandInTheMiddleOfTheirColumnsAtEvenDistances) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    double before = 0;
    for (int column = 1; column <= 7; ++column) {
        const int left = ToPixels((column - 1) * 350 + 25);
        const int margin = column == 1 || column == 7 ? 1 : 0;
        const QRect area(left + margin, 41, 23 - margin, 11);
        const auto [first, last] = look.Columns(area, Band());
        const double middle = (first + last + 1) / 2.0;
        EXPECT_NEAR(middle, ((column - 1) * 350 + 25 + 175) / 15.0, 1) << column;
        EXPECT_TRUE(column == 1 || std::abs(middle - before - 350 / 15.0) <= 1) << column << ", " << before;
        before = middle;
    }
}

TEST(DateDrawingTest, DayNamesStandApart) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    const auto isBare = [&look](int x) { return look.Count(QRect(x, 41, 1, 11), Band()) == 11; };
    for (int column = 2; column <= 7; ++column) {
        const int left = ToPixels((column - 1) * 350 + 25);
        int bare = 0;
        for (int x = left - 4; x <= left + 4; ++x) {
            bare += isBare(x) ? 1 : 0;
        }
        EXPECT_GE(bare, 3) << column;
    }
}

TEST(DateDrawingTest, DaysStandInTheirCellsInBlack) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    const auto dark = [](const QColor& pixel) { return pixel.lightness() < 90; };
    for (int row = 1; row <= 6; ++row) {
        for (int column = 1; column <= 7; ++column) {
            const int day = (row - 2) * 7 + column;  // March 2009 begins on a Sunday, in row 2.
            const int count = look.Count(Cell(column, row), dark);
            if (day >= 1 && day <= 31) {
                EXPECT_GT(count, 4) << day;
            } else {
                EXPECT_EQ(count, 0) << column << ", " << row;
            }
        }
    }
    // No leading zero: "1" is as narrow as one digit, in the middle of its cell.
    const auto [first, last] = look.Columns(Cell(1, 2), white);
    EXPECT_LE(last - first, 7);
    EXPECT_NEAR((first + last) / 2.0, (25 + 175) / 15.0, 2);
}

TEST(DateDrawingTest, AYellowDiscMarksTheDayInTheBoxes) {
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    EXPECT_GT(look.Count(Cell(7, 3), yellow), 30);
    EXPECT_EQ(look.Count(look.Whole(), yellow), look.Count(Cell(7, 3), yellow));
    // Six pixels around (2300, 1275), whose pixel is (153, 85).
    EXPECT_EQ(look.Count(QRect(153 - 9, 70, 3, 30), yellow), 0);
    EXPECT_EQ(look.Count(QRect(153 + 7, 70, 3, 30), yellow), 0);
    EXPECT_GT(look.Count(QRect(153 - 2, 80, 5, 1), yellow), 3);
    EXPECT_GT(look.Count(QRect(153 - 2, 90, 5, 1), yellow), 3);
    EXPECT_EQ(look.Count(QRect(153 - 9, 78, 19, 1), yellow), 0);
    EXPECT_EQ(look.Count(QRect(153 - 9, 93, 19, 1), yellow), 0);
}

TEST(DateDrawingTest, TheDiscIsThereOnlyInTheMonthOfTheBoxes) {
    DateForm form;
    form.Click("cmdOpen");
    form.Click("cmdRightMonth");
    EXPECT_EQ(Look(form.date).Count(QRect(0, 53, 167, 78), yellow), 0);
    form.Click("cmdLeftMonth");
    EXPECT_GT(Look(form.date).Count(Cell(7, 3), yellow), 30);
    form.Click("cmdRightYear");
    EXPECT_EQ(Look(form.date).Count(QRect(0, 53, 167, 78), yellow), 0);
}

TEST(DateDrawingTest, NoneStandsInTheMiddleBelowTheGrid) {
    DateForm form({.IncludeNone = true});
    form.date.DropDown();
    const Look look(form.date);
    // Line 1940.
    const auto [first, last] = look.Columns(QRect(1, 130, 164, 12), white);
    EXPECT_NEAR((first + last) / 2.0, 2500 / 15 / 2, 1.5);
    EXPECT_NEAR(last - first, QFontMetrics(ControlFont()).horizontalAdvance(QStringLiteral("<None>")), 4);
}

TEST(DateDrawingTest, DisabledTextIsGreyAndReadable) {
    DateForm form({.Enabled = false});
    const Look look(form.date);
    const QRect boxes(3, 3, 80, 13);
    EXPECT_EQ(look.Count(boxes, black), 0);
    EXPECT_GT(look.Count(boxes, [](const QColor& pixel) { return pixel.lightness() < 170; }), 20);
    EXPECT_EQ(look.At(2, 2), disabledGround);
    EXPECT_EQ(look.At(4, 4), disabledGround) << "within a box, too";
}

TEST(DateDrawingTest, ADisabledNoneIsGreyToo) {
    DateForm form({.Enabled = false, .IncludeNone = true});
    form.date.SetValue(QDate(1234, 1, 1));
    EXPECT_EQ(Look(form.date).At(70, 4), disabledGround);
}

TEST(DateDrawingTest, OnADisabledFormAllOfItIsGrey) {
    DateForm form;
    const auto dark = [&form] {
        return Look(form.date).Count(QRect(3, 3, 80, 13),
                                     [](const QColor& pixel) { return pixel.lightness() < 90; });
    };
    form.window.setEnabled(false);
    EXPECT_TRUE(form.date.Enabled());
    EXPECT_EQ(dark(), 0);
    EXPECT_EQ(Look(form.date).At(2, 2), disabledGround);
    form.window.setEnabled(true);
    EXPECT_EQ(Look(form.date).At(2, 2), white);
    EXPECT_GT(dark(), 20);
}

/// Lets a test stand on a desktop with another palette while it lives.
class AnotherPalette {
public:
    explicit AnotherPalette(const QPalette& palette) { QApplication::setPalette(palette); }
    ~AnotherPalette() { QApplication::setPalette(QPalette()); }
    AnotherPalette(const AnotherPalette&) = delete;
    AnotherPalette& operator=(const AnotherPalette&) = delete;
};

TEST(DateDrawingTest, ADarkDesktopLeavesTheFieldBlackOnWhite) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Window, QColor(30, 30, 30));
    dark.setColor(QPalette::Button, QColor(40, 40, 40));
    dark.setColor(QPalette::Text, Qt::white);
    const AnotherPalette palette(dark);
    DateForm form;
    const Look look(form.date);
    EXPECT_EQ(look.At(2, 2), white);
    EXPECT_GT(look.Count(QRect(3, 3, 80, 13), [](const QColor& pixel) { return pixel.lightness() < 90; }),
              20);
    // The button's picture stands out from its dark face.
    EXPECT_GT(look.Count(form.Button("cmdOpen").geometry(), white), 8);
}

TEST(DateDrawingTest, TheTitleCanBeReadOnAPaleBand) {
    QPalette pale;
    pale.setColor(QPalette::Highlight, QColor(250, 250, 200));
    const AnotherPalette palette(pale);
    DateForm form;
    form.date.DropDown();
    const Look look(form.date);
    const auto dark = [](const QColor& pixel) { return pixel.lightness() < 150; };
    EXPECT_GT(look.Count(QRect(33, 24, 100, 12), dark), 30);
    EXPECT_GT(look.Count(QRect(5, 41, 150, 11), dark), 30);
}

/// The contrast of two colours as the guidelines for accessible contents reckon it, from 1 to 21.
double ContrastOf(const QColor& one, const QColor& other) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](int channel) {
            const double share = channel / 255.0;
            return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) +
               0.0722 * linear(colour.blue());
    };
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

TEST(DateDrawingTest, TheChosenDayStandsOutOnLightAndDarkDesktops) {
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, Qt::white);
    for (const QPalette& desktop : {QPalette(), dark}) {
        const AnotherPalette palette(desktop);
        DateForm form({.IncludeNone = true});
        form.date.DropDown();
        const Look look(form.date);
        QColor ink = white;
        const QRect cell = Cell(7, 3);
        for (int y = cell.top(); y <= cell.bottom(); ++y) {
            for (int x = cell.left(); x <= cell.right(); ++x) {
                ink = look.At(x, y).lightness() < ink.lightness() ? look.At(x, y) : ink;
            }
        }
        // The digits reach over the edges of the disc.
        EXPECT_GE(ContrastOf(ink, yellow), 4.5);
        EXPECT_GE(ContrastOf(ink, white), 4.5);
        // Disc and ground are nearly alike. The frame tells the day from the others, in yellow and on white.
        const QColor frame = look.At(cell.left() - 1, cell.center().y());
        EXPECT_GE(ContrastOf(frame, white), 4.5);
        EXPECT_GE(ContrastOf(frame, yellow), 4.5);
        const QRect around(142, 78, 23, 14);
        for (const QPoint corner :
             {around.topLeft(), around.topRight(), around.bottomLeft(), around.bottomRight()}) {
            EXPECT_EQ(look.At(corner.x(), corner.y()), frame) << corner.x() << "," << corner.y();
        }
        EXPECT_EQ(look.Count(QRect(1, 54, 164, 75), frame), 2 * (23 + 14) - 4) << "and no other day";
    }
}

TEST(DateDrawingTest, DisabledTextStandsOutFromItsGround) {
    DateForm form({.Enabled = false});
    const Look look(form.date);
    QColor ink = white;
    for (int y = 4; y < 15; ++y) {
        for (int x = 4; x < 80; ++x) {
            ink = look.At(x, y).lightness() < ink.lightness() ? look.At(x, y) : ink;
        }
    }
    EXPECT_GE(ContrastOf(ink, look.At(4, 4)), 4.5);
}

TEST(DateDrawingTest, ButtonsHaveArrowsThatPointTheirWay) {
    DateForm form;
    form.date.DropDown();
    const auto darkInColumn = [](const QImage& image, int x) {
        int count = 0;
        for (int y = 2; y < image.height() - 2; ++y) {
            count += image.pixelColor(x, y) == black ? 1 : 0;
        }
        return count;
    };
    for (const char* name : {"cmdLeftMonth", "cmdLeftYear", "cmdRightMonth", "cmdRightYear"}) {
        QImage image = Picture(form.Button(name));
        if (QString::fromLatin1(name).contains(QStringLiteral("Right"))) {
            image = image.mirrored(true, false);
        }
        std::vector<int> columns;
        for (int x = 2; x < image.width() - 2; ++x) {
            if (darkInColumn(image, x) > 0) {
                columns.push_back(darkInColumn(image, x));
            }
        }
        // A tip of one pixel, each column two more; twice for a year.
        const std::vector<int> month{1, 3, 5, 7, 9};
        const std::vector<int> year{1, 3, 5, 1, 3, 5};
        const bool isYear = QString::fromLatin1(name).contains(QStringLiteral("Year"));
        ASSERT_GE(columns.size(), 3U) << name;
        EXPECT_EQ(columns[0], 1) << name;
        EXPECT_EQ(columns[1], 3) << name;
        EXPECT_EQ(std::count(columns.begin(), columns.end(), 1), isYear ? 2 : 1) << name;
        EXPECT_EQ(columns.back() % 2, 1) << name;
    }
    const QImage open = Picture(form.Button("cmdOpen"));
    EXPECT_EQ(open.pixelColor(7, 7), black);
    int widest = 0;
    for (int y = 2; y < 13; ++y) {
        int count = 0;
        for (int x = 2; x < 13; ++x) {
            count += open.pixelColor(x, y) == black ? 1 : 0;
        }
        EXPECT_TRUE(count == 0 || widest == 0 || count == widest - 2) << y;
        widest = count > 0 ? count : widest;
    }
    EXPECT_EQ(widest, 1);
}

TEST(DateDrawingTest, OnADenseDisplayTheEdgesOfArrowsAreSmooth) {
    DateForm form;
    form.date.DropDown();
    for (const char* name : {"cmdOpen", "cmdLeftMonth", "cmdLeftYear", "cmdRightMonth", "cmdRightYear"}) {
        const QImage coarse = Picture(form.Button(name));
        const QImage dense = DensePicture(form.Button(name));
        // Face, frame and arrow; smooth edges have shades between.
        EXPECT_EQ(Colours(coarse).size(), 3U) << name;
        EXPECT_GT(Colours(dense).size(), 5U) << name;
        // The arrow is as large and stands where it stood: all that is black on either is black or an edge on
        // the other.
        for (int y = 0; y < coarse.height(); ++y) {
            for (int x = 0; x < coarse.width(); ++x) {
                const auto darkness = [&](int right, int down) {
                    return 255 - dense.pixelColor(2 * x + right, 2 * y + down).lightness();
                };
                const int sum = darkness(0, 0) + darkness(1, 0) + darkness(0, 1) + darkness(1, 1);
                const int wanted = 4 * (255 - coarse.pixelColor(x, y).lightness());
                EXPECT_NEAR(sum, wanted, 2 * 255 + 64) << name << " " << x << "," << y;
            }
        }
    }
}

TEST(DateDrawingTest, AButtonShowsItsFocusAndThatItIsPressed) {
    DateForm form;
    QPushButton& open = form.Button("cmdOpen");
    EXPECT_NE(PixelAt(open, 1, 1), Band());
    open.setFocus();
    EXPECT_EQ(PixelAt(open, 1, 1), Band());
    EXPECT_EQ(PixelAt(open, 13, 13), Band());
    const QColor rest = PixelAt(open, 3, 3);
    open.setDown(true);
    EXPECT_NE(PixelAt(open, 3, 3), rest);
    open.setDown(false);
    open.setEnabled(false);
    EXPECT_NE(PixelAt(open, 7, 7), black);
}

}  // namespace
