#pragma once

#include "engine/jet/TreeReader.h"

namespace engine::jet {

/// An entry of an index, from which one gets to the next and to the one before. Stands for as long as the
/// index isn't changed and the statement goes on.
///
/// Whatever the pages say, a walk ends: neighbours that don't know each other, and leaves that lead on for
/// ever, fail with DatabaseDamaged.
class IndexCursor {
public:
    /// The first entry of a leaf that isn't before the place, or the first of the leaves behind it.
    IndexCursor(const TreeReader& tree, TreeStep step);
    /// The last entry before the place, in its leaf or those before it.
    static IndexCursor Before(const TreeReader& tree, TreeStep step);

    /// False when all entries, in the direction of the last step, have been passed. Then nothing else may be
    /// called any more.
    bool HasEntry() const { return !entry_.empty(); }

    KeyView EntryKey() const { return KeyView(entry_).first(entry_.size() - IndexForm::RowSize); }
    /// The row's page times 256, and the number of the row in it.
    std::uint32_t Row() const { return NumberOf(KeyView(entry_).last(IndexForm::RowSize)); }

    void Next();
    void Previous();

private:
    enum class Direction { Next, Previous };

    struct Unsettled {};
    IndexCursor(const TreeReader& tree, TreeStep step, Unsettled);

    bool StepToLeaf(Direction direction);
    void Settle();
    void Take(std::size_t place);

    TreeReader tree_;
    IndexPage leaf_;
    std::size_t place_;
    Key entry_;
    /// From the leaf where the walk began.
    std::int64_t leavesPassed_ = 0;
};

}  // namespace engine::jet
