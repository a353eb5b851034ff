#pragma once

#include <QString>

#include <vector>

namespace controls {

/// The texts of a list by row and column, both counted from 0. Adding a row at the end costs the same however
/// many there are, and rows that nobody has written to cost nothing.
///
/// A place outside of the store is failure 9 (subscript out of range), and so is a negative number of rows.
class GridRowStore {
public:
    /// Empties the store and gives it this many empty rows.
    void Recreate(int rows, int columns);

    /// Adds empty rows at the end or drops the last ones. The other rows keep their texts.
    void Resize(int rows);

    /// Takes one row out; those behind it move up.
    void RemoveRow(int row);

    int Rows() const { return rows_; }
    bool Holds(int row, int column) const;
    QString Text(int row, int column) const;
    void SetText(int row, int column, const QString& text);

private:
    void Require(int row, int column) const;
    size_t PlaceOf(int row, int column) const;
    void DropTextsBehind(int rows);

    int rows_ = 0;
    int columns_ = 0;
    /// Row by row, as far as the last row that was ever written to.
    std::vector<QString> texts_;
};

}  // namespace controls
