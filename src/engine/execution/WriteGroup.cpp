#include "engine/execution/WriteGroup.h"

#include "engine/Waiting.h"
#include "engine/execution/SecondRun.h"
#include "platform/MessageBox.h"

#include <thread>

namespace engine::execution {

namespace {

using namespace std::chrono_literals;

// Writes of at most 50 milliseconds may be lost with the power; the rest is left for the commit itself, and
// for a machine that is busy with other things.
constexpr auto LongestGroup = 35ms;

// A program that waits for its turn looks in at least every 100 milliseconds and gives up after some seconds.
// A pause of more than that, this often, lets everybody in.
constexpr auto OthersWaitAtMost = 3s;
constexpr auto TurnOfOthers = 110ms;

// A statement that looks at no more rows than these takes next to no time.
constexpr int FewRows = 1000;

// How long the second run of a group may in all wait for locks.
constexpr auto LongestWaitRunningAgain = 5s;

// What a group that is held up may take in memory.
constexpr size_t MostMemory = 64UL * 1024 * 1024;

Error LockedError() {
    return {ErrorNumber::Locked,
            QStringLiteral("Couldn't write; another program reads the database and does not let go of it.")};
}

}  // namespace

void WriteGroup::Execute(const QString& statement) {
    CommitIfDue();
    RequireRoom();
    if (LetWait(statement)) {
        log_.Add(statement);
        if (batch_.IsFull()) {
            RunBatch();
        }
        return;
    }
    RunBatch();
    RunNow(statement);
}

void WriteGroup::BeforeRow() {
    CommitIfDue();
    RequireRoom();
    RunBatch();
}

void WriteGroup::BeforeChangingRow() {
    BeforeRow();
    EndUnlessItTakes(WriteKind::Adds);
}

void WriteGroup::BeforeRemovingRow(const TableSchema& table, qint64 key) {
    BeforeRow();
    EndUnlessItTakes(KindOfRemoval(table, key));
}

void WriteGroup::ChangeRow(RowWrite row) {
    RunNow(std::move(row));
}

bool WriteGroup::LetWait(const QString& statement) {
    InsertBatch::Answer answer = batch_.Offer(statement);
    if (answer == InsertBatch::Answer::OthersFirst) {
        RunBatch();
        answer = batch_.Offer(statement);
    }
    if (answer != InsertBatch::Answer::Taken) {
        return false;
    }
    if (transaction_.IsOpen() && !transaction_.Takes(WriteKind::Adds)) {
        batch_.DropLast();
        EndUnlessItTakes(WriteKind::Adds);
        batch_.Offer(statement);
    }
    try {
        Begin(WriteKind::Adds);
    } catch (const Error&) {
        batch_.DropLast();
        throw;
    }
    return true;
}

void WriteGroup::RunBatch() {
    const size_t rows = batch_.Rows();
    if (rows == 0) {
        return;
    }
    const TableSchema& table = batch_.Table();
    try {
        batch_.Run();
    } catch (const Error&) {
        // Its writes had been accepted: each gets its chance on its own, as all of the group do.
        transaction_.GiveUp();
        RunAgain(log_.Size());
        TellOfLosses();
        return;
    }
    transaction_.Wrote(table.name, static_cast<qint64>(rows));
    rows_.Add(log_.Size() - rows, rows, table, connection_.Inserted().Runs());
}

void WriteGroup::RunNow(Write write) {
    executor_.Prepare(write);
    if (executor_.IsSweeping()) {
        if (executor_.IsTableLargerThan(FewRows)) {
            // Nobody knows how long it takes, and what was written before it has only its own time.
            CommitBefore(LongestGroup);
        }
        executor_.Prepare(write);
    } else if (executor_.IsCopy()) {
        CommitBefore(copyTook_);
        executor_.Prepare(write);
    }
    const WriteKind kind = KindOf(write);
    if (std::holds_alternative<QString>(write) && transaction_.IsOpen() && !transaction_.Takes(kind)) {
        EndUnlessItTakes(kind);
        executor_.Prepare(write);
    }
    Begin(kind);
    const Clock::time_point began = Clock::now();
    try {
        executor_.Run(write);
    } catch (const Error&) {
        if (!transaction_.IsLost()) {
            throw;
        }
        // SQLite has given up the group because of this write, which is the last to run again.
        RunAgainWith(std::move(write));
        return;
    }
    if (executor_.IsCopy()) {
        copyTook_ = Clock::now() - began;
    }
    transaction_.Wrote(executor_.Table().name, executor_.Added());
    rows_.Add(log_.Size(), 1, executor_.Table(), connection_.Inserted().Runs());
    log_.Add(std::move(write));
}

// A row that the file didn't have before the group is none that it loses.
WriteKind WriteGroup::KindOfRemoval(const TableSchema& table, qint64 key) const {
    return rows_.Has(table, key) ? WriteKind::Adds : WriteKind::Removes;
}

WriteKind WriteGroup::KindOf(const Write& write) const {
    if (!executor_.IsRemoval(write)) {
        return WriteKind::Adds;
    }
    const auto* row = std::get_if<RowWrite>(&write);
    return row != nullptr ? KindOfRemoval(*row->table, row->key) : WriteKind::Removes;
}

void WriteGroup::EndUnlessItTakes(WriteKind kind) {
    if (transaction_.IsOpen() && !transaction_.Takes(kind)) {
        RunBatch();
        TryCommit();
    }
}

void WriteGroup::RunAgainWith(Write write) {
    log_.Add(std::move(write));
    const size_t last = log_.Size() - 1;
    const std::optional<Error> failure = RunAgain(last);
    TellOfLosses();
    if (failure) {
        throw *failure;
    }
}

void WriteGroup::BeforeReading() {
    RunBatch();
    CommitIfDue(readingTook_);
    if (!transaction_.IsOpen()) {
        connection_.RenewPatience();
    }
    readingBegan_ = Clock::now();
}

void WriteGroup::AfterReading() {
    readingTook_ = Clock::now() - readingBegan_;
}

void WriteGroup::Begin(WriteKind kind) {
    if (transaction_.IsOpen()) {
        return;
    }
    importLock_.Require();
    transaction_.KeepJournal();
    connection_.RenewPatience();
    kind_ = kind;
    if (!transaction_.TryBegin(kind)) {
        throw Error(transaction_.Failure());
    }
    began_ = Clock::now();
    if (began_ - ended_ > TurnOfOthers) {
        othersHadTheirTurn_ = began_;
    }
}

void WriteGroup::CommitIfDue(Clock::duration expected) {
    if (transaction_.IsLost()) {
        // A failing read can make SQLite give up the group as well.
        GiveUp();
    }
    if (!transaction_.IsOpen() || !IsDue(expected)) {
        return;
    }
    RunBatch();
    if (TryCommit()) {
        LetOthersWrite();
    }
}

bool WriteGroup::IsDue(Clock::duration expected) const {
    if (endAfter_) {
        return log_.Size() >= *endAfter_;
    }
    const Clock::time_point now = Clock::now();
    return now - began_ + expected >= LongestGroup && (!IsHeldUp() || now - triedAt_ >= LongestGroup);
}

void WriteGroup::CommitBefore(Clock::duration expected) {
    if (log_.Size() > 0) {
        CommitIfDue(expected);
    }
}

void WriteGroup::Commit() {
    RunBatch();
    if (transaction_.IsOpen()) {
        connection_.RenewPatience();
        if (!TryCommit()) {
            GiveUp();
        }
    }
    transaction_.RemoveJournal();
}

void WriteGroup::CommitUnlessHeldUp() {
    RunBatch();
    if (transaction_.IsOpen()) {
        TryCommit();
    }
    if (!transaction_.IsOpen()) {
        transaction_.RemoveJournal();
    }
}

// False if another program holds the group up. Where the disk fails, what can be stored is on it afterwards.
bool WriteGroup::TryCommit() {
    if (!transaction_.IsOpen()) {
        return true;
    }
    const bool wasHeldUp = IsHeldUp();
    triedAt_ = Clock::now();
    switch (transaction_.TryCommit()) {
        case Transaction::End::Committed:
            GroupEnded();
            break;
        case Transaction::End::GivenUp:
            RunAgain(log_.Size());
            TellOfLosses();
            break;
        case Transaction::End::HeldUp:
            if (!wasHeldUp && IsHeldUp()) {
                TellHeldUp(true);
                isHeldUpTold_ = true;
            }
            return false;
    }
    return true;
}

bool WriteGroup::IsHeldUp() const {
    return transaction_.IsOpen() && connection_.HasWaitedInVain();
}

void WriteGroup::RequireRoom() {
    if (!IsHeldUp() || Memory() <= MostMemory) {
        return;
    }
    connection_.RenewPatience();
    if (!TryCommit()) {
        throw LockedError();
    }
}

size_t WriteGroup::Memory() const {
    return log_.Memory() + connection_.Memory();
}

void WriteGroup::GiveUp() {
    transaction_.GiveUp();
    if (GoesOn()) {
        RunAgain(log_.Size());
    } else {
        LoseFrom(0);
        GroupEnded();
    }
    TellOfLosses();
}

// Only the first `ran` writes of the log have run before; the failure is that of the one behind them.
std::optional<Error> WriteGroup::RunAgain(size_t ran) {
    batch_.DropAll();
    // On a full disk the room of the journal is what a row may still need.
    transaction_.RemoveJournal();
    connection_.RenewPatience();
    connection_.LimitWaiting(Clock::now() + LongestWaitRunningAgain);
    SecondRun second(connection_, transaction_, executor_, log_, rows_, kind_);
    second.Run(ran);
    connection_.LimitWaiting(std::nullopt);
    connection_.RenewPatience();

    std::optional<Error> failure;
    for (const auto& [place, error] : second.Losses()) {
        if (place < ran) {
            losses_.push_back({error, Describe(log_.At(place))});
        } else {
            failure = error;
        }
    }
    if (second.CutAt()) {
        LoseFrom(*second.CutAt());
    }
    held_.Follow(rows_);
    GroupEnded();
    return failure;
}

// The program is about to end, and the user waits for that: one report for all of them.
void WriteGroup::LoseFrom(size_t place) {
    if (place < log_.Size()) {
        losses_.push_back(
            {LockedError(), QStringLiteral("The last writes are not in the file (%1). The first of them: %2")
                                .arg(log_.Size() - place)
                                .arg(Describe(log_.At(place)))});
    }
}

void WriteGroup::GroupEnded() {
    ended_ = Clock::now();
    log_.Clear();
    rows_.Clear();
    held_.GroupEnded();
    connection_.RenewPatience();
    if (isHeldUpTold_) {
        isHeldUpTold_ = false;
        TellHeldUp(false);
    }
}

void WriteGroup::LetOthersWrite() {
    if (!transaction_.LetsOthersWrite() || Clock::now() - othersHadTheirTurn_ < OthersWaitAtMost) {
        return;
    }
    std::this_thread::sleep_for(TurnOfOthers);
    othersHadTheirTurn_ = Clock::now();
}

// Only after all writes have had their second run: telling the user may take long, and may write again.
void WriteGroup::TellOfLosses() {
    const std::vector<Loss> losses = std::move(losses_);
    losses_.clear();
    for (const Loss& loss : losses) {
        if (lostWriteListener_) {
            lostWriteListener_(loss.error, loss.write);
        } else {
            platform::ShowMessageBox(loss.error.Description() + QLatin1Char('\n') + loss.write);
        }
    }
}

}  // namespace engine::execution
