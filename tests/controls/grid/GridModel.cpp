#include "grid/GridModel.h"

#include <cmath>

namespace {

int NumberAtStart(const QString& token) {
    QString digits;
    for (const QChar character : token.trimmed()) {
        if (character.isDigit() || (digits.isEmpty() && character == u'-')) {
            digits += character;
        } else {
            break;
        }
    }
    return digits.toInt();
}

int Between(int least, int value, int most) {
    return value < least ? least : value > most ? most : value;
}

}  // namespace

GridModel::GridModel(const QString& headings, const QString& widths, int type, int loadedHeight)
    : selectType(type), height(loadedHeight) {
    strings = {headings, widths, QStringLiteral("0|"), QStringLiteral("0|")};
    Parse();
    LayoutColumns();
}

void GridModel::Parse() {
    for (QString& text : strings) {
        if (text.isEmpty() || text.back() != u'|') {
            text += u'|';
        }
    }
    columns.clear();
    for (int which = 0; which < 4; ++which) {
        QString token;
        size_t place = 0;
        for (const QChar character : strings[which]) {
            if (character != u'|') {
                token += character;
                continue;
            }
            if (which == 0) {
                columns.push_back({});
                columns.back().heading = token;
            } else if (place < columns.size()) {
                const int number = NumberAtStart(token);
                if (which == 1) {
                    columns[place].width = number < 0 ? 0 : number - number % 15;
                } else if (which == 2) {
                    columns[place].alignment = Between(0, number, 2);
                } else {
                    columns[place].link = number != 0;
                }
            }
            token.clear();
            ++place;
        }
    }
}

void GridModel::LayoutColumns() {
    heads.resize(1);
    labels.resize(1);
    heads.resize(columns.size());
    int x = selectorWidth;
    for (size_t place = 0; place < columns.size(); ++place) {
        columns[place].left = x;
        heads[place] = {
            columns[place].heading, columns[place].width > 0, false, false, x, 0, columns[place].width, 270};
        x += columns[place].width;
    }
    ReckonRows();
    LayoutCells();
    EmptyData(rows);
    PositionBar();
    Refresh();
}

void GridModel::ReckonRows() {
    const int pitch = labels[0].height - 15;
    if (pitch == 0) {
        throw 11;
    }
    const double exact = (height - 270.0) / pitch;
    const double whole = std::floor(exact);
    const double rest = exact - whole;
    visibleRows = static_cast<int>(whole);
    if (rest > 0.5 || (rest == 0.5 && visibleRows % 2 != 0)) {
        ++visibleRows;
    }
    const int wanted = pitch * visibleRows + 330;
    if (wanted == height) {
        return;
    }
    const int snapped = static_cast<int>(std::lround(wanted / 15.0)) * 15;
    const bool changed = snapped != height;
    height = snapped;
    if (onScreen && changed) {
        Resized();
    }
    if (!onScreen) {
        sizeIsNews = sizeIsNews || changed;
        Resized();
    }
}

void GridModel::LayoutCells() {
    const int lines = visibleRows < rows ? visibleRows : rows;
    for (size_t place = 0; place < labels.size(); ++place) {
        if (place > 0 && static_cast<int>(place) >= Cols() * (lines < 0 ? 0 : lines)) {
            labels[place].visible = false;
            labels[place].highlit = false;
        }
    }
    if (lines == 0) {
        labels[0].visible = false;
    }
    for (int line = 0; line < lines; ++line) {
        for (int column = 0; column < Cols(); ++column) {
            const auto place = static_cast<size_t>(line * Cols() + column);
            if (place == labels.size()) {
                labels.push_back({});
            }
            const Column& source = columns[static_cast<size_t>(column)];
            Label& label = labels[place];
            label.top = 270 + line * 225;
            label.left = source.left - 15;
            label.caption.clear();
            label.visible = source.width != 0;
            label.width = label.visible ? source.width + 15 : 0;
            if (label.visible) {
                label.height = 240;
                label.underlined = source.link;
            }
        }
    }
}

void GridModel::EmptyData(int count) {
    dataColumns = Cols();
    data.assign(static_cast<size_t>(count), QStringList(dataColumns, QString()));
}

void GridModel::MoveBar(int value) {
    const int inRange = Between(bar.minimum, value, bar.maximum);
    if (inRange != bar.value) {
        bar.value = inRange;
        Scrolled();
    }
}

void GridModel::PositionBar() {
    if (!shown) {
        return;
    }
    bar.minimum = visibleRows;
    bar.maximum = bar.maximum < bar.minimum ? bar.minimum : bar.maximum;
    MoveBar(bar.value);
    if (rows <= 32767) {
        bar.maximum = rows < bar.minimum ? bar.minimum : rows;
        MoveBar(bar.value);
    }
    if (visibleRows > 1) {
        bar.page = visibleRows - 1;
    }
    bar.visible = bar.minimum != bar.maximum;
    MoveBar(top + bar.minimum);
}

QString GridModel::Padded(const QString& text, int column) const {
    const int alignment = columns[static_cast<size_t>(column)].alignment;
    return QString(alignment == 0 ? 1 : 0, u' ') + text + QString(alignment == 1 ? 1 : 0, u' ');
}

void GridModel::Refresh() {
    for (int line = 0; line < visibleRows && line < rows; ++line) {
        for (int column = 0; column < Cols(); ++column) {
            const auto place = static_cast<size_t>(line * Cols() + column);
            const auto source = static_cast<size_t>(line + top);
            if (place < labels.size() && source < data.size() && column < dataColumns) {
                labels[place].caption = Padded(data[source][column], column);
            }
        }
    }
}

void GridModel::Scrolled() {
    const int step = bar.value - bar.minimum - top;
    if (row != 0) {
        SetCurrentCell(row - step, col, false);
    }
    top = bar.value - bar.minimum;
    Refresh();
}

bool GridModel::Resized() {
    const bool relaid = height != lastHeight;
    if (relaid) {
        LayoutCells();
        lastHeight = height;
    }
    if (shown) {
        PositionBar();
        Refresh();
    }
    return relaid;
}

void GridModel::Resize(int newWidth, int newHeight) {
    if (newWidth == width && newHeight == height) {
        return;
    }
    width = newWidth;
    height = newHeight;
    if (onScreen) {
        Resized();
    } else {
        sizeIsNews = true;
    }
}

void GridModel::Show() {
    if (sizeIsNews) {
        sizeIsNews = false;
        if (Resized() && !shown) {
            Refresh();
        }
    }
    onScreen = true;
    shown = true;
    ReckonRows();
    PositionBar();
}

int GridModel::Probe(int line, int column) const {
    const int place = Cols() * (line - 1) + column;
    return place < 0 || place > static_cast<int>(labels.size()) ? -1 : place;
}

void GridModel::Paint(bool on) {
    if (row == 0 || col == 0 || Probe(row, col) == -1) {
        return;
    }
    const int start = Cols() * (row - 1);
    for (int place = 0; place < static_cast<int>(labels.size()); ++place) {
        const bool inRow = place >= start && place < start + Cols();
        if (selectType == 0 ? inRow : place == start + col - 1) {
            labels[static_cast<size_t>(place)].highlit = on;
        }
    }
}

void GridModel::SetCurrentCell(int line, int column, bool force) {
    if (line == row && column == col && !force) {
        return;
    }
    column = column < 1 ? 1 : column;
    column = column > Cols() ? Cols() : column;
    line = line < 1 ? 1 : line;
    line = line > rows ? rows : line;
    Paint(false);
    events += QStringLiteral("RowColumnChange %1 %2 %3 %4").arg(line).arg(column).arg(row).arg(col);
    if (redirect) {
        redirect(line, column);
    }
    col = column;
    row = line;
    Paint(true);
}
