#include "grid/GridModel.h"

#include <cstdlib>

void GridModel::AddItem(const QString& text) {
    ++rows;
    if (rows == 1) {
        EmptyData(0);
    }
    data.resize(static_cast<size_t>(rows + 1), QStringList(dataColumns, QString()));
    QStringList values = text.split(u'\t');
    if (values.last().isEmpty()) {
        values.removeLast();
    }
    for (int column = 0; column < Cols() && column < values.size(); ++column) {
        if (column >= dataColumns) {
            throw 9;
        }
        data[static_cast<size_t>(rows - 1)][column] = values[column];
    }
    if (!bulk) {
        if (rows <= visibleRows) {
            LayoutCells();
            Refresh();
        }
        PositionBar();
    }
}

void GridModel::RemoveItem(int number) {
    const int gone = number == 0 ? top + row : number;
    if (gone < 1 || gone > rows) {
        return;
    }
    if (rows > 1) {
        if (gone > static_cast<int>(data.size())) {
            throw 9;
        }
        data.erase(data.begin() + gone - 1);
        data.resize(static_cast<size_t>(rows - 1));
    }
    --rows;
    if (gone >= rows - top || gone > rows - visibleRows) {
        LayoutCells();
    }
    PositionBar();
    Refresh();
    if (row > rows) {
        row = 0;
    }
    if (row > visibleRows) {
        row = visibleRows;
    }
    SetCurrentCell(row, col, true);
    if (rows == 0) {
        labels[0].highlit = false;
    }
}

void GridModel::SetRows(int count) {
    rows = count;
    if (rows == 0) {
        labels[0].highlit = false;
    } else {
        EmptyData(rows);
    }
    LayoutCells();
    PositionBar();
    if (row > rows) {
        row = 0;
    }
}

bool GridModel::Address(int& line, int& column) const {
    line = line == 0 ? top + row : line;
    column = column == 0 ? col : column;
    return line != 0 && column >= 1 && line - 1 <= rows && column <= Cols();
}

QString& GridModel::Stored(int line, int column) {
    if (line < 1 || line > static_cast<int>(data.size()) || column > dataColumns) {
        throw 9;
    }
    return data[static_cast<size_t>(line - 1)][column - 1];
}

QString GridModel::TextMatrix(int line, int column) {
    return Address(line, column) ? Stored(line, column) : QString();
}

void GridModel::SetTextMatrix(int line, int column, const QString& text) {
    if (!Address(line, column)) {
        return;
    }
    Stored(line, column) = text;
    const int place = Probe(line - top, column - 1);
    if (place == static_cast<int>(labels.size())) {
        throw 9;
    }
    if (place != -1) {
        labels[static_cast<size_t>(place)].caption = Padded(text, column - 1);
    }
}

void GridModel::SetTopRow(int number) {
    int offset = number - 1 < 0 ? 0 : number - 1;
    offset = offset > rows - visibleRows ? rows - visibleRows : offset;
    MoveBar(bar.minimum + (offset < 0 ? 0 : offset));
}

void GridModel::SetAbsoluteRow(int number) {
    int wanted = number == 0 ? 1 : number;
    wanted = wanted > rows ? rows : wanted;
    col = col == 0 ? 1 : col;
    if (wanted > visibleRows + top) {
        SetTopRow(wanted - visibleRows + 1);
        SetCurrentCell(visibleRows, col, false);
        return;
    }
    if (wanted <= top) {
        SetTopRow(wanted);
    }
    SetCurrentCell(wanted - top, col, true);
}

void GridModel::SetRow(int number) {
    const int line = number > visibleRows ? visibleRows : number;
    col = col == 0 ? 1 : col;
    SetCurrentCell(line < 1 ? 1 : line, col, false);
}

void GridModel::SetCol(int number) {
    SetCurrentCell(row, number, false);
}

void GridModel::SetBulk(bool on) {
    bulk = on;
    if (!on) {
        LayoutCells();
        Refresh();
        PositionBar();
    }
}

void GridModel::SetColWidth(int column, int newWidth) {
    if (column >= 1 && column <= Cols()) {
        columns[static_cast<size_t>(column - 1)].width = newWidth < 0 ? 0 : newWidth - newWidth % 15;
        LayoutColumns();
    }
}

void GridModel::SetString(int which, const QString& text) {
    strings[which] = text;
    Parse();
    LayoutColumns();
}

void GridModel::SetSelectorWidth(int newWidth) {
    selectorWidth = newWidth;
    LayoutCells();
}

void GridModel::SetColumnHeading(int column, const QString& text) {
    if (column >= 1 && column <= Cols()) {
        columns[static_cast<size_t>(column - 1)].heading = text;
        heads[static_cast<size_t>(column - 1)].caption = text;
    }
}

void GridModel::SetRowHeight(int value) {
    if (value == labels[0].height) {
        return;
    }
    bulk = true;
    labels[0].height = value;
    SetBulk(false);
    ReckonRows();
    PositionBar();
}

void GridModel::RefreshFonts() {
    LayoutCells();
    Refresh();
}

void GridModel::Wheel(int notches) {
    if (!onScreen || !bar.visible) {
        return;
    }
    const int lines = bar.page < 3 ? bar.page : 3;
    for (int notch = 0; notch < std::abs(notches); ++notch) {
        MoveBar(bar.value + (notches < 0 ? lines : -lines));
    }
}

void GridModel::SetBarValue(int value) {
    MoveBar(value);
}

void GridModel::Arrow(char direction) {
    switch (direction) {
        case 'L':
            SetCol(col - 1);
            break;
        case 'R':
            SetCol(col + 1);
            break;
        case 'U':
            SetAbsoluteRow(AbsoluteRow() - 1);
            break;
        default:
            SetAbsoluteRow(AbsoluteRow() + 1);
            break;
    }
}

void GridModel::ClickPixel(int x, int y) {
    const auto hit = [x, y](const Label& label) {
        return label.visible && x >= label.left / 15 && x < (label.left + label.width) / 15 &&
               y >= label.top / 15 && y < (label.top + label.height) / 15;
    };
    for (int place = static_cast<int>(labels.size()) - 1; place >= 0; --place) {
        if (hit(labels[static_cast<size_t>(place)])) {
            const int column = place % Cols() + 1;
            SetCurrentCell(place / Cols() + 1, column, false);
            const bool link =
                place < static_cast<int>(labels.size()) && labels[static_cast<size_t>(place)].underlined;
            events += link ? QStringLiteral("HyperLinkClick %1").arg(column) : QStringLiteral("Click");
            return;
        }
    }
    for (int place = static_cast<int>(heads.size()) - 1; place >= 0; --place) {
        if (hit(heads[static_cast<size_t>(place)])) {
            events += QStringLiteral("HeadClick %1").arg(place);
            return;
        }
    }
}
