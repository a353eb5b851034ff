#pragma once

#include <QAccessible>
#include <QStringList>

/// A screen reader that runs while it lives and notes what it is told of: "Focus r1" and "Selection r1" with
/// the name of the cell, and "Rows 2 3" with the kind of a change of rows and the first row concerned.
class GridListener {
public:
    GridListener();
    GridListener(const GridListener&) = delete;
    GridListener& operator=(const GridListener&) = delete;
    ~GridListener();

    /// What it was told since the last call.
    static QStringList Heard();

private:
    QAccessible::UpdateHandler previous_;
};
