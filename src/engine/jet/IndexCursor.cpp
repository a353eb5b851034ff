#include "engine/jet/IndexCursor.h"

#include <cstdlib>

namespace engine::jet {

IndexCursor::IndexCursor(const TreeReader& tree, TreeStep step, Unsettled)
    : tree_(tree), leaf_(tree.Open(step.page)), place_(step.place) {
}

IndexCursor::IndexCursor(const TreeReader& tree, TreeStep step) : IndexCursor(tree, step, Unsettled()) {
    Settle();
}

IndexCursor IndexCursor::Before(const TreeReader& tree, TreeStep step) {
    IndexCursor cursor(tree, step, Unsettled());
    cursor.Previous();
    return cursor;
}

// The place may be behind the last entry of its leaf.
void IndexCursor::Settle() {
    while (place_ == leaf_.Used()) {
        if (!StepToLeaf(Direction::Next)) {
            entry_.clear();
            return;
        }
    }
    Take(place_);
}

void IndexCursor::Next() {
    place_ = leaf_.Behind(place_);
    Settle();
}

void IndexCursor::Previous() {
    while (place_ == 0) {
        if (!StepToLeaf(Direction::Previous)) {
            entry_.clear();
            return;
        }
    }
    Take(leaf_.Before(place_));
}

bool IndexCursor::StepToLeaf(Direction direction) {
    const bool goesOn = direction == Direction::Next;
    const PageNumber from = leaf_.Number();
    const PageNumber to = goesOn ? leaf_.Next() : leaf_.Previous();
    if (to == 0) {
        return false;
    }
    const IndexPage leaf = tree_.Open(to);
    const PageNumber back = goesOn ? leaf.Previous() : leaf.Next();
    if (!leaf.IsLeaf() || back != from) {
        RaiseDamagedIndex(from, QStringLiteral("has page %1 for a neighbour, which has not").arg(to));
    }
    leavesPassed_ += goesOn ? 1 : -1;
    if (std::abs(leavesPassed_) > tree_.PageCount()) {
        RaiseDamagedIndex(from, QStringLiteral("has neighbours that lead in a circle"));
    }
    leaf_ = leaf;
    place_ = goesOn ? 0 : leaf_.Used();
    return true;
}

void IndexCursor::Take(std::size_t place) {
    place_ = place;
    leaf_.CopyEntry(place, entry_);
}

}  // namespace engine::jet
