#include "engine/execution/SecondRun.h"

#include "engine/Waiting.h"

namespace engine::execution {

namespace {

// The program is asked so often whether it goes on.
constexpr size_t WritesBetweenQuestions = 64;

/// A part of a transaction that can be taken back alone.
class Part {
public:
    explicit Part(Connection& connection) : connection_(connection) { connection_.BeginPart(); }
    ~Part() { connection_.EndPart(); }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    void TakeBack() { connection_.TakeBackPart(); }

private:
    Connection& connection_;
};

[[noreturn]] void RaiseCopyIsLost() {
    throw Error(ErrorNumber::RecordDeleted,
                QStringLiteral("Record is deleted: what this copies could not be stored before as it was."));
}

}  // namespace

void SecondRun::Run(size_t ran) {
    ran_ = ran;
    Run(0, log_.Size());
}

void SecondRun::Run(size_t begin, size_t end) {
    if (begin == end || cutAt_ || Attempt(begin, end)) {
        return;
    }
    if (cutAt_) {
        cutAt_ = begin;
        return;
    }
    if (end - begin == 1) {
        Lose(begin, *failure_);
        return;
    }
    const bool isLocked = failure_->Number() == ErrorNumber::Locked;
    if (isLocked) {
        // The lock has been waited for, and is one for all of them.
        for (size_t place = begin; place < end; ++place) {
            Lose(place, *failure_);
        }
        return;
    }
    const size_t middle = begin + (end - begin) / 2;
    Run(begin, middle);
    Run(middle, end);
}

// Runs the writes as one transaction. False if it had to be given up.
bool SecondRun::Attempt(size_t begin, size_t end) {
    if (!transaction_.TryBegin(kind_)) {
        failure_ = transaction_.Failure();
        return false;
    }
    if (!RunAll(begin, end)) {
        transaction_.GiveUp();
        return false;
    }
    const Transaction::End committed = transaction_.TryCommit();
    if (committed == Transaction::End::Committed) {
        return true;
    }
    failure_ = transaction_.Failure();
    if (committed == Transaction::End::HeldUp) {
        transaction_.GiveUp();
    }
    return false;
}

bool SecondRun::RunAll(size_t begin, size_t end) {
    for (size_t place = begin; place < end; ++place) {
        if (place % WritesBetweenQuestions == 0 && !GoesOn()) {
            cutAt_ = place;
            return true;
        }
        try {
            RunOne(place);
        } catch (const Error& error) {
            if (transaction_.IsLost()) {
                failure_ = error;
                return false;
            }
            Lose(place, error);
        }
    }
    return true;
}

void SecondRun::RunOne(size_t place) {
    losses_.erase(place);
    lostChanges_.erase(place);
    Write write = log_.At(place);
    if (auto* row = std::get_if<RowWrite>(&write)) {
        FindRow(*row, place);
    }
    executor_.Prepare(write);
    if (executor_.IsCopy()) {
        RunCopy(write, place);
    } else {
        executor_.Run(write);
    }
    transaction_.Wrote(executor_.Table().name, executor_.Added());
    rows_.MadeAgain(place, connection_.Inserted().Runs());
}

void SecondRun::FindRow(RowWrite& row, size_t place) const {
    if (row.kind == RowWrite::Kind::Insert) {
        return;
    }
    const MadeRows::Row found = rows_.Find(*row.table, row.key, place);
    if (!found.key) {
        throw Error(
            ErrorNumber::RecordDeleted,
            QStringLiteral("Record is deleted: it could not be stored before. It was to come from: %1")
                .arg(Describe(log_.At(found.madeBy))));
    }
    row.key = *found.key;
}

// What was made of the copy's rows afterwards was made of all of them.
void SecondRun::RunCopy(const Write& copy, size_t place) {
    Part part(connection_);
    try {
        RequireUnchangedRows(place);
        executor_.Run(copy);
        if (place < ran_ && connection_.Inserted().Count() != rows_.CountOf(place)) {
            RaiseCopyIsLost();
        }
    } catch (const Error&) {
        part.TakeBack();
        throw;
    }
}

// A row that would be copied without a change that was made to it before.
void SecondRun::RequireUnchangedRows(size_t place) {
    for (auto lost = lostChanges_.begin(); lost != lostChanges_.end() && lost->first < place; ++lost) {
        const LostChange& change = lost->second;
        if (change.table != &executor_.Source()) {
            continue;
        }
        if (!change.key) {
            RaiseCopyIsLost();
        }
        Part trial(connection_);
        const bool isCopied = executor_.CopyOne(*change.key);
        trial.TakeBack();
        if (isCopied) {
            RaiseCopyIsLost();
        }
    }
}

void SecondRun::Lose(size_t place, const Error& error) {
    losses_.insert_or_assign(place, error);
    rows_.Lose(place);
    const Write write = log_.At(place);
    if (const auto* row = std::get_if<RowWrite>(&write)) {
        const std::optional<qint64> key = rows_.Find(*row->table, row->key, place).key;
        if (row->kind != RowWrite::Kind::Insert && key) {
            lostChanges_.insert_or_assign(place, LostChange{row->table.get(), key});
        }
        return;
    }
    try {
        executor_.Prepare(write);
        if (executor_.IsSweeping()) {
            lostChanges_.insert_or_assign(place, LostChange{&executor_.Table(), std::nullopt});
        }
    } catch (const Error&) {
        // It was prepared before; what can't be now, for want of a schema that can be read, changes nothing.
    }
}

}  // namespace engine::execution
