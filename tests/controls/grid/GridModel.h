#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// What a list does, told a second time: on a display of 15 twips to the pixel, slowly, and with nothing of
/// the list's own code. Where the list fails, the model throws the failure's number.
class GridModel {
public:
    struct Label {
        QString caption;
        bool visible = false;
        bool highlit = false;
        bool underlined = false;
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 210;
    };
    struct Column {
        QString heading;
        int width = 1500;
        int left = 0;
        int alignment = 0;
        bool link = false;
    };
    struct Bar {
        int minimum = 0;
        int maximum = 32767;
        int value = 0;
        int page = 1;
        bool visible = false;
    };

    /// A list loaded with no rows.
    GridModel(const QString& headings, const QString& widths, int selectType, int loadedHeight);

    void AddItem(const QString& text);
    void RemoveItem(int number);
    void SetRows(int count);
    QString TextMatrix(int line, int column);
    void SetTextMatrix(int line, int column, const QString& text);
    void SetTopRow(int number);
    void SetAbsoluteRow(int number);
    void SetRow(int number);
    void SetCol(int number);
    void SetCurrentCell(int line, int column, bool force);
    void SetBulk(bool on);
    void SetColWidth(int column, int width);
    /// 0 headings, 1 widths, 2 alignments, 3 links.
    void SetString(int which, const QString& text);
    void SetSelectorWidth(int width);
    void SetColumnHeading(int column, const QString& text);
    void SetRowHeight(int value);
    void RefreshFonts();

    void Show();
    void Hide() { onScreen = false; }
    void Resize(int newWidth, int newHeight);
    void Wheel(int notches);
    void SetBarValue(int value);
    /// An arrow key: 'L', 'R', 'U' or 'D'.
    void Arrow(char direction);
    void ClickPixel(int x, int y);

    int AbsoluteRow() const { return row == 0 ? 0 : top + row; }
    int Cols() const { return static_cast<int>(columns.size()); }

    std::vector<Column> columns;
    std::vector<QStringList> data;
    std::vector<Label> labels = std::vector<Label>(1);
    std::vector<Label> heads = std::vector<Label>(1);
    Bar bar;
    int rows = 0;
    int visibleRows = 0;
    int top = 0;
    int row = 0;
    int col = 0;
    int selectType = 0;
    int selectorWidth = 255;
    int width = 6000;
    int height = 0;
    int lastHeight = 0;
    /// How many columns there were when the data was last emptied.
    int dataColumns = 0;
    bool bulk = false;
    bool shown = false;
    bool onScreen = false;
    bool sizeIsNews = true;
    QStringList strings;
    QStringList events;
    /// What a handler of the owner makes of a new position.
    std::function<void(int&, int&)> redirect;

private:
    void Parse();
    void LayoutColumns();
    void ReckonRows();
    void LayoutCells();
    void EmptyData(int count);
    void PositionBar();
    void Refresh();
    void Scrolled();
    bool Resized();
    void MoveBar(int value);
    int Probe(int line, int column) const;
    void Paint(bool on);
    QString Padded(const QString& text, int column) const;
    bool Address(int& line, int& column) const;
    QString& Stored(int line, int column);
};
