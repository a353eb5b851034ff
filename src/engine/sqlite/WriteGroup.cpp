#include "engine/sqlite/WriteGroup.h"

#include "platform/MessageBox.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <thread>

namespace engine::sqlite {

namespace {

using namespace std::chrono_literals;

// Writes of at most 50 milliseconds may be lost with the power; the rest is left for the commit itself, and
// for a machine that is busy with other things.
constexpr auto LongestGroup = 35ms;

// A program that waits for its turn looks in at least every 100 milliseconds and gives up after some seconds.
// A pause of more than that, this often, lets everybody in.
constexpr auto OthersWaitAtMost = 3s;
constexpr auto TurnOfOthers = 110ms;

// How long the writes of a group that could not be committed may together wait for a lock.
constexpr auto LongestWaitRunningAgain = 5s;

// Emptying a large database takes a journal as large as the file, which should not fill the disk any longer.
constexpr const char* KeptJournalSize = "pragma journal_size_limit = 8388608";

// The place in a database file of the number that counts its commits, as the file format tells.
constexpr int ChangeCounterOffset = 24;

}  // namespace

void WriteGroup::Perform(Write write) {
    CommitIfDue();
    const auto* statement = std::get_if<QString>(&write);
    if (statement != nullptr && LetWait(*statement)) {
        log_.Add(std::move(write));
        if (batch_.IsFull()) {
            RunBatch();
        }
        return;
    }
    RunBatch();
    executor_.Prepare(write);
    Begin();
    try {
        executor_.Run(write);
    } catch (const Error&) {
        if (connection_.InTransaction()) {
            throw;
        }
        // SQLite has given up the group because of this write.
        RunAgain(log_.TakeAll());
        try {
            RunAlone(write);
        } catch (const Error&) {
            TellOfLosses();
            throw;
        }
        TellOfLosses();
        return;
    }
    log_.Add(std::move(write));
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
    try {
        Begin();
    } catch (const Error&) {
        batch_.DropLast();
        throw;
    }
    return true;
}

void WriteGroup::RunBatch() {
    if (batch_.IsEmpty()) {
        return;
    }
    try {
        batch_.Run();
    } catch (const Error&) {
        // Its writes had been accepted: each gets its chance on its own, as all of the group do.
        GiveUp();
    }
}

void WriteGroup::BeforeReading() {
    RunBatch();
    CommitIfDue();
}

void WriteGroup::Begin() {
    if (open_) {
        return;
    }
    importLock_.Require();
    KeepJournal();
    connection_.Run("begin immediate");
    open_ = true;
    began_ = Clock::now();
    if (began_ - ended_ > TurnOfOthers) {
        othersHadTheirTurn_ = began_;
    }
    changeCounterBefore_ = ChangeCounter();
}

void WriteGroup::CommitIfDue() {
    if (open_ && !connection_.InTransaction()) {
        // A failing read can make SQLite give up the group as well.
        GiveUp();
    }
    if (!open_ || Clock::now() - began_ < LongestGroup) {
        return;
    }
    RunBatch();
    const int committed = TryCommit();
    if (committed == SQLITE_OK) {
        LetOthersWrite();
    } else if ((committed & 0xFF) != SQLITE_BUSY) {
        GiveUp();
    }
}

void WriteGroup::Commit() {
    RunBatch();
    if (open_ && TryCommit() != SQLITE_OK) {
        GiveUp();
    }
    RemoveJournal();
}

// Groups that follow each other write into the journal of the one before, since the room of a file that is
// there costs nothing to get. Not sooner than the first write: a database that is only looked at must stay as
// it is. The answers are not looked at, since another program may keep the file in a mode of its own.
void WriteGroup::KeepJournal() {
    if (!isJournalKept_) {
        connection_.TryRun("pragma journal_mode = persist");
        connection_.TryRun(KeptJournalSize);
        isJournalKept_ = true;
    }
}

void WriteGroup::RemoveJournal() {
    if (isJournalKept_) {
        connection_.TryRun("pragma journal_mode = delete");
        isJournalKept_ = false;
    }
}

int WriteGroup::TryCommit() {
    const int committed = connection_.TryRun("commit");
    if (committed == SQLITE_OK) {
        open_ = false;
        ended_ = Clock::now();
        log_.Clear();
    }
    return committed;
}

void WriteGroup::GiveUp() {
    if (connection_.InTransaction()) {
        connection_.TryRun("rollback");
    }
    if (HasReachedTheDisk()) {
        open_ = false;
        log_.Clear();
        return;
    }
    RunAgain(log_.TakeAll());
    TellOfLosses();
}

// A commit can fail after its decisive step (clearing the journal's first bytes), for instance while that is
// synced. Its rows are in the file then, and running them again would store them twice.
bool WriteGroup::HasReachedTheDisk() const {
    return !JournalStands() && ChangeCounter() == changeCounterBefore_ + 1;
}

// A journal whose first byte is clear holds nothing that a reader would take back. One that can't be looked
// at counts as standing: writes are rather run again than forgotten.
bool WriteGroup::JournalStands() const {
    const char* database = sqlite3_db_filename(connection_.Handle(), "main");
    QFile journal(QString::fromUtf8(sqlite3_filename_journal(database)));
    if (!journal.exists()) {
        return false;
    }
    char first = 0;
    return !journal.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
           (journal.getChar(&first) && first != 0);
}

quint32 WriteGroup::ChangeCounter() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection_.Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::array<char, 4> bytes{};
    if (file == nullptr || file->pMethods == nullptr ||
        file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), ChangeCounterOffset) !=
            SQLITE_OK) {
        return changeCounterBefore_;
    }
    return qFromBigEndian<quint32>(bytes.data());
}

void WriteGroup::RunAgain(std::vector<Write> writes) {
    open_ = false;
    batch_.DropAll();
    // On a full disk the room of the journal is what a row may still need.
    RemoveJournal();
    connection_.LimitWaiting(Clock::now() + LongestWaitRunningAgain);
    for (Write& write : writes) {
        try {
            RunAlone(write);
        } catch (const Error& error) {
            losses_.push_back({error, Describe(write)});
        }
    }
    connection_.LimitWaiting(std::nullopt);
}

void WriteGroup::RunAlone(Write& write) {
    executor_.Prepare(write);
    try {
        executor_.Run(write);
    } catch (const Error& error) {
        auto* row = std::get_if<RowWrite>(&write);
        const bool keyTaken = row != nullptr && row->kind == RowWrite::Kind::Insert && row->key != 0 &&
                              error.Number() == ErrorNumber::DuplicateKey;
        if (!keyTaken) {
            throw;
        }
        // Another program has used the key in between. Nobody knows this row by it yet.
        row->key = 0;
        executor_.Prepare(write);
        executor_.Run(write);
    }
}

void WriteGroup::LetOthersWrite() {
    if (Clock::now() - othersHadTheirTurn_ < OthersWaitAtMost) {
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

}  // namespace engine::sqlite
