#pragma once

#include "engine/execution/Transaction.h"
#include "engine/jet/sql/JetFile.h"

namespace engine::jet {

/// A transaction on a Jet file: a group of changed pages. Only one is open on a file.
class JetTransaction : public execution::Transaction {
public:
    explicit JetTransaction(JetFile& file) : file_(file) {}

    /// Rows reach the file before the entries of indexes that lead to them, and leave it after those. So a
    /// group either adds or removes.
    bool Takes(execution::WriteKind kind) const override { return kind == Kind(); }

    bool IsOverwritten() const override { return file_.Pages().IsOverwritten(); }
    void RemoveJournal() override;

protected:
    std::optional<Error> Begin() override;
    Ended Commit() override;
    void TakeBack() override;
    void RowsWent(execution::RowTally& rows) override;

private:
    JetFile& file_;
};

}  // namespace engine::jet
