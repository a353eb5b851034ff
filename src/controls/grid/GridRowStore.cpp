#include "controls/grid/GridRowStore.h"

#include "platform/Failure.h"

namespace controls {

namespace {

[[noreturn]] void RaiseOutOfRange() {
    throw platform::Failure(platform::FailureNumber::SubscriptOutOfRange,
                            QStringLiteral("Subscript out of range"));
}

}  // namespace

void GridRowStore::Recreate(int rows, int columns) {
    if (rows < 0 || columns < 0) {
        RaiseOutOfRange();
    }
    texts_.clear();
    rows_ = rows;
    columns_ = columns;
}

void GridRowStore::Resize(int rows) {
    if (rows < 0) {
        RaiseOutOfRange();
    }
    DropTextsBehind(rows);
    rows_ = rows;
}

void GridRowStore::RemoveRow(int row) {
    Require(row, 0);
    if (PlaceOf(row, 0) < texts_.size()) {
        const auto first = texts_.begin() + static_cast<std::ptrdiff_t>(PlaceOf(row, 0));
        texts_.erase(first, first + columns_);
    }
    --rows_;
}

bool GridRowStore::Holds(int row, int column) const {
    return row >= 0 && row < rows_ && column >= 0 && column < columns_;
}

QString GridRowStore::Text(int row, int column) const {
    Require(row, column);
    const size_t place = PlaceOf(row, column);
    return place < texts_.size() ? texts_[place] : QString();
}

void GridRowStore::SetText(int row, int column, const QString& text) {
    Require(row, column);
    const size_t endOfRow = PlaceOf(row + 1, 0);
    if (texts_.size() < endOfRow) {
        // Grows by leaps, so that a list filled row by row isn't copied again and again.
        texts_.resize(endOfRow);
    }
    texts_[PlaceOf(row, column)] = text;
}

void GridRowStore::Require(int row, int column) const {
    if (!Holds(row, column)) {
        RaiseOutOfRange();
    }
}

size_t GridRowStore::PlaceOf(int row, int column) const {
    return static_cast<size_t>(row) * static_cast<size_t>(columns_) + static_cast<size_t>(column);
}

void GridRowStore::DropTextsBehind(int rows) {
    if (PlaceOf(rows, 0) < texts_.size()) {
        texts_.resize(PlaceOf(rows, 0));
    }
}

}  // namespace controls
