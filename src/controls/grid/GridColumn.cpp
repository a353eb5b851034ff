#include "controls/grid/GridColumn.h"

#include "controls/base/LeadingNumber.h"
#include "platform/Rounding.h"

#include <QStringList>

#include <algorithm>

namespace controls {

namespace {

constexpr QChar Separator = QLatin1Char('|');

void EndWithSeparator(QString& text) {
    if (!text.endsWith(Separator)) {
        text += Separator;
    }
}

/// What stands before each separator.
QStringList Tokens(const QString& text) {
    QStringList tokens = text.split(Separator);
    tokens.removeLast();
    return tokens;
}

/// Hands each column the token of its own, as far as both go.
template <class Setter>
void ForEachToken(std::vector<GridColumn>& columns, const QString& text, Setter set) {
    const QStringList tokens = Tokens(text);
    const size_t count = std::min(columns.size(), static_cast<size_t>(tokens.size()));
    for (size_t column = 0; column < count; ++column) {
        set(columns[column], tokens[static_cast<qsizetype>(column)]);
    }
}

}  // namespace

std::vector<GridColumn> ParseColumnStrings(ColumnStrings& strings, int twipsPerPixel) {
    for (QString* text : {&strings.Headings, &strings.Widths, &strings.Alignments, &strings.Hyperlinks}) {
        EndWithSeparator(*text);
    }
    std::vector<GridColumn> columns;
    for (const QString& heading : Tokens(strings.Headings)) {
        columns.emplace_back().Heading = heading;
    }
    ForEachToken(columns, strings.Widths, [twipsPerPixel](GridColumn& column, const QString& token) {
        const int width = platform::ToLong(LeadingNumber(token));
        column.Width = std::max(0, width / twipsPerPixel * twipsPerPixel);
    });
    ForEachToken(columns, strings.Alignments, [](GridColumn& column, const QString& token) {
        const int alignment = platform::ToLong(LeadingNumber(token));
        column.Alignment = static_cast<GridAlignment>(std::clamp(alignment, 0, 2));
    });
    ForEachToken(columns, strings.Hyperlinks, [](GridColumn& column, const QString& token) {
        column.Hyperlink = LeadingNumber(token) != 0;
    });
    return columns;
}

QString PaddedText(const QString& text, GridAlignment alignment) {
    switch (alignment) {
        case GridAlignment::Left:
            return QLatin1Char(' ') + text;
        case GridAlignment::Right:
            return text + QLatin1Char(' ');
        case GridAlignment::Centre:
            break;
    }
    return text;
}

}  // namespace controls
