#include "grid/GridModel.h"
#include "grid/GridOnScreen.h"
#include "support/PrintQt.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <random>
#include <sstream>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

unsigned Seed() {
    const QByteArray wanted = qgetenv("WRENFIELD_SEED");
    return wanted.isEmpty() ? 20261121U : wanted.toUInt();
}

/// Ten thousand things that owners and users do, in any order, each done to a list and to its model.
class GridRandomTest : public GridTest {
protected:
    int Random(int least, int most) { return std::uniform_int_distribution<int>(least, most)(generator); }
    bool OneIn(int many) { return Random(1, many) == 1; }
    QString RandomText() {
        static const QStringList texts{
            {},       u"a"_s,      u"b\tc"_s,  u"\t"_s, u"x\ty\tz\tw"_s, u"<b>q</b>\t&r"_s,
            u" d "_s, u"e\t\tf"_s, u"\t\tg"_s, u"h\t"_s};
        return texts[Random(0, static_cast<int>(texts.size()) - 1)];
    }
    QString RandomString(int which) {
        static const QStringList headings{u"A|B|C|"_s, u"A|B"_s, {}, u"One"_s, u"A||C|D|"_s};
        static const QStringList widths{
            u"900|600|1200|"_s, u"0|900|"_s, u"x|1007"_s, u"750|0|600|300|900|"_s, {}};
        static const QStringList numbers{u"0|1|2|"_s, u"1|1|"_s, u"-1|5|0|3"_s, {}, u"0|0|0|1|"_s};
        const QStringList& choice = which == 0 ? headings : which == 1 ? widths : numbers;
        return choice[Random(0, static_cast<int>(choice.size()) - 1)];
    }

    /// Does one thing to both, and compares how they end.
    template <class Real, class Told>
    void Do(const QString& name, Real real, Told told) {
        step = name;
        int expected = 0;
        try {
            told();
        } catch (const int number) {
            expected = number;
        }
        ASSERT_EQ(FailureOf(real), expected) << Where();
    }

    void Anything();
    void Read();
    void Input();
    void Look();
    void Compare();
    std::string Where() const {
        std::ostringstream text;
        text << "WRENFIELD_SEED=" << Seed() << ", event " << count << ": " << step.toStdString();
        return text.str();
    }

    std::mt19937 generator{Seed()};
    std::unique_ptr<GridModel> model;
    QString step;
    int count = 0;
};

void GridRandomTest::Read() {
    const int line = Random(-1, grid->Rows() + 2);
    const int column = Random(0, 4);
    QString real;
    QString told;
    Do(
        u"TextMatrix %1 %2"_s.arg(line).arg(column), [&] { real = grid->TextMatrix(line, column); },
        [&] { told = model->TextMatrix(line, column); });
    ASSERT_EQ(real, told) << Where();
}

void GridRandomTest::Input() {
    const int kind = Random(0, 3);
    if (kind == 0) {
        const std::pair<int, char> keys[] = {
            {Qt::Key_Left, 'L'}, {Qt::Key_Right, 'R'}, {Qt::Key_Up, 'U'}, {Qt::Key_Down, 'D'}};
        const auto& [key, direction] = keys[Random(0, 3)];
        Do(
            u"key %1"_s.arg(QChar::fromLatin1(direction)),
            [this, key = key] {
                QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
                QCoreApplication::sendEvent(grid.get(), &event);
            },
            [this, direction = direction] { model->Arrow(direction); });
    } else if (kind == 1 && grid->isVisible()) {
        const QPoint place(Random(0, grid->width() - 1), Random(0, grid->height() - 1));
        Do(
            u"click %1 %2"_s.arg(place.x()).arg(place.y()),
            [this, place] { QTest::mouseClick(grid.get(), Qt::LeftButton, {}, place); },
            [this, place] { model->ClickPixel(place.x(), place.y()); });
    } else if (kind == 2 && grid->isVisible()) {
        const int notches = OneIn(2) ? 1 : -1;
        Do(
            u"wheel %1"_s.arg(notches),
            [this, notches] {
                QWheelEvent event({50, 50}, grid->mapToGlobal(QPointF(50, 50)), {}, QPoint(0, 120 * notches),
                                  Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QCoreApplication::sendEvent(grid.get(), &event);
            },
            [this, notches] { model->Wheel(notches); });
    } else {
        const int least = ScrollBar().minimum();
        const int value = Random(least - 2, std::max(least, std::min(ScrollBar().maximum(), 60)) + 2);
        Do(
            u"bar %1"_s.arg(value), [this, value] { ScrollBar().setValue(value); },
            [this, value] { model->SetBarValue(value); });
    }
}

void GridRandomTest::Look() {
    const int column = Random(-1, 5);
    const int twips = Random(-100, 1500);
    switch (Random(0, 8)) {
        case 0:
        case 1: {
            const int which = Random(0, 3);
            const QString text = RandomString(which);
            Do(
                u"string %1 "_s.arg(which) + text,
                [&] {
                    using Setter = void (akGrid::*)(const QString&);
                    const Setter setters[] = {&akGrid::SetColumnHeadings, &akGrid::SetColumnWidths,
                                              &akGrid::SetColumnAlignments, &akGrid::SetColumnHyperlinks};
                    (grid.get()->*setters[which])(text);
                },
                [&] { model->SetString(which, text); });
            break;
        }
        case 2:
            Do(
                u"ColWidth %1 %2"_s.arg(column).arg(twips), [&] { grid->SetColWidth(column, twips); },
                [&] { model->SetColWidth(column, twips); });
            break;
        case 3:
            Do(
                u"ColumnHeading"_s, [&] { grid->SetColumnHeading(column, u"new"_s); },
                [&] { model->SetColumnHeading(column, u"new"_s); });
            break;
        case 4:
            Do(
                u"ColumnFont"_s, [&] { grid->SetColumnFont(1, u"Courier"_s); },
                [&] { model->RefreshFonts(); });
            break;
        case 5: {
            const auto strip = static_cast<qint16>(15 * Random(0, 40));
            Do(
                u"RowSelectorWidth"_s, [&] { grid->SetRowSelectorWidth(strip); },
                [&] { model->SetSelectorWidth(strip); });
            break;
        }
        case 6: {
            const auto value = static_cast<qint16>(15 * Random(1, 30));
            Do(
                u"RowHeight %1"_s.arg(value), [&] { grid->SetRowHeight(value); },
                [&] { model->SetRowHeight(value); });
            break;
        }
        case 7: {
            const int wide = 15 * Random(250, 400);
            const int high = OneIn(4) ? grid->Height() : 15 * Random(30, 180);
            Do(
                u"resize %1 %2"_s.arg(wide).arg(high), [&] { grid->Move(0, 0, wide, high); },
                [&] { model->Resize(wide, high); });
            break;
        }
        default:
            if (grid->isVisible()) {
                Do(
                    u"hide"_s, [&] { grid->hide(); }, [&] { model->Hide(); });
            } else {
                Do(
                    u"show"_s, [&] { grid->show(); }, [&] { model->Show(); });
            }
            break;
    }
}

void GridRandomTest::Anything() {
    const int line = Random(-2, 25);
    const int column = Random(-1, 5);
    const QString text = RandomText();
    switch (Random(0, 19)) {
        case 0:
        case 1:
        case 2:
        case 3:
            Do(
                u"AddItem "_s + text, [&] { grid->AddItem(text); }, [&] { model->AddItem(text); });
            break;
        case 4:
        case 5:
            Do(
                u"RemoveItem %1"_s.arg(line), [&] { grid->RemoveItem(line); },
                [&] { model->RemoveItem(line); });
            break;
        case 6:
            if (OneIn(4)) {
                const int rows = OneIn(20) ? 40000 : OneIn(3) ? 0 : Random(0, 30);
                Do(
                    u"Rows %1"_s.arg(rows), [&] { grid->SetRows(rows); }, [&] { model->SetRows(rows); });
            }
            break;
        case 7:
        case 8:
            Do(
                u"TextMatrix write %1 %2 "_s.arg(line).arg(column) + text,
                [&] { grid->SetTextMatrix(line, column, text); },
                [&] { model->SetTextMatrix(line, column, text); });
            break;
        case 9:
            Do(
                u"AbsoluteRow %1"_s.arg(line), [&] { grid->SetAbsoluteRow(line); },
                [&] { model->SetAbsoluteRow(line); });
            break;
        case 10:
            Do(
                u"TopRow %1"_s.arg(line), [&] { grid->SetTopRow(line); }, [&] { model->SetTopRow(line); });
            break;
        case 11:
            Do(
                u"Row %1"_s.arg(line), [&] { grid->SetRow(line); }, [&] { model->SetRow(line); });
            break;
        case 12:
            Do(
                u"Col %1"_s.arg(column), [&] { grid->SetCol(column); }, [&] { model->SetCol(column); });
            break;
        case 13: {
            const bool force = OneIn(2);
            Do(
                u"SetCurrentCell %1 %2"_s.arg(line).arg(column),
                [&, row = line, col = column]() mutable { grid->SetCurrentCell(row, col, force); },
                [&] { model->SetCurrentCell(line, column, force); });
            break;
        }
        case 14: {
            const bool bulk = OneIn(3);
            Do(
                u"BulkAdd"_s, [&] { grid->SetBulkAdd(bulk); }, [&] { model->SetBulk(bulk); });
            break;
        }
        case 15:
            Look();
            break;
        case 16:
            Read();
            break;
        default:
            Input();
            break;
    }
}

void GridRandomTest::Compare() {
    ASSERT_EQ(Events(), std::exchange(model->events, {})) << Where();
    ASSERT_EQ(grid->Rows(), model->rows) << Where();
    ASSERT_EQ(grid->VisibleRows(), model->visibleRows) << Where();
    ASSERT_EQ(grid->TopRow(), model->top + 1) << Where();
    ASSERT_EQ(grid->Row(), model->row) << Where();
    ASSERT_EQ(grid->Col(), model->col) << Where();
    ASSERT_EQ(grid->AbsoluteRow(), model->AbsoluteRow()) << Where();
    ASSERT_EQ(grid->Height(), model->height) << Where();
    ASSERT_EQ(ScrollBar().minimum(), model->bar.minimum) << Where();
    ASSERT_EQ(ScrollBar().maximum(), model->bar.maximum) << Where();
    ASSERT_EQ(ScrollBar().value(), model->bar.value) << Where();
    ASSERT_EQ(!ScrollBar().isHidden(), model->bar.visible) << Where();
    ASSERT_EQ(grid->CellLabels().size(), model->labels.size()) << Where();
    for (size_t place = 0; place < model->labels.size(); ++place) {
        const GridLabel& real = grid->CellLabels()[place];
        const GridModel::Label& told = model->labels[place];
        ASSERT_EQ(real.Visible, told.visible) << place << ' ' << Where();
        ASSERT_EQ(real.Caption, told.caption) << place << ' ' << Where();
        ASSERT_EQ(real.ToolTip, told.caption) << place << ' ' << Where();
        ASSERT_EQ(real.BackColour == grid->SelectColour(), told.highlit) << place << ' ' << Where();
        if (told.visible) {
            ASSERT_EQ(real.Pixels(), QRect(told.left / 15, told.top / 15, told.width / 15, told.height / 15))
                << place << ' ' << Where();
            ASSERT_EQ(real.Underlined, told.underlined) << place << ' ' << Where();
        }
    }
    ASSERT_EQ(grid->HeadingLabels().size(), model->heads.size()) << Where();
    for (size_t place = 0; place < model->heads.size(); ++place) {
        ASSERT_EQ(grid->HeadingLabels()[place].Caption, model->heads[place].caption) << Where();
        ASSERT_EQ(grid->HeadingLabels()[place].Visible, model->heads[place].visible) << Where();
        ASSERT_EQ(grid->HeadingLabels()[place].Left, model->heads[place].left) << Where();
    }
}

TEST_F(GridRandomTest, TenThousandEventsAgreeWithTheModel) {
    constexpr int EventsInAll = 10000;
    constexpr int EventsOfOneList = 500;
    // An owner's handler that now and then sends the selection elsewhere.
    const auto redirect = [](int& row, int& column) {
        if ((row + 2 * column) % 7 == 3) {
            row = (row * 5 + column) % 9;
            column = 1 + column % 2;
        }
    };
    for (count = 0; count < EventsInAll; ++count) {
        if (count % EventsOfOneList == 0) {
            akGrid::Properties properties = TwoColumns();
            properties.ColumnAlignments = properties.Hyperlinks = u"0|"_s;
            properties.SelectType = Random(0, 1);
            const int loadedHeight = 15 * Random(40, 150);
            const bool redirected = OneIn(4);
            Load(properties, loadedHeight);
            model = std::make_unique<GridModel>(properties.ColumnHeadings, properties.ColumnWidths,
                                                properties.SelectType, loadedHeight);
            if (redirected) {
                model->redirect = redirect;
                QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, redirect);
            }
            if (!window.isVisible()) {
                Show();
                grid->hide();
                grid = nullptr;
                Load(properties, loadedHeight);
                if (redirected) {
                    QObject::connect(grid.get(), &akGrid::RowColumnChange, &window, redirect);
                }
            }
            if (OneIn(2)) {
                Do(
                    u"first show"_s, [this] { grid->show(); }, [this] { model->Show(); });
            }
        } else {
            Anything();
        }
        if (OneIn(20)) {
            QCoreApplication::processEvents();
        }
        if (HasFatalFailure()) {
            return;
        }
        Compare();
        if (HasFatalFailure()) {
            return;
        }
    }
}

}  // namespace
