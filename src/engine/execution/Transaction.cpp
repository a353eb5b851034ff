#include "engine/execution/Transaction.h"

namespace engine::execution {

bool Transaction::TryBegin(WriteKind kind) {
    failure_ = Begin();
    isOpen_ = !failure_;
    kind_ = kind;
    if (isOpen_) {
        rows_.Undo();
    }
    return isOpen_;
}

Transaction::End Transaction::TryCommit() {
    Ended ended = Commit();
    failure_ = std::move(ended.failure);
    isOpen_ = ended.end == End::HeldUp;
    if (ended.end == End::Committed) {
        rows_.Keep();
    }
    return ended.end;
}

void Transaction::Wrote(const std::string& table, qint64 rows) {
    rows_.Add(table, rows);
    if (rows < 0) {
        RowsWent(rows_);
    }
}

void Transaction::GiveUp() {
    TakeBack();
    isOpen_ = false;
}

}  // namespace engine::execution
