#include "engine/sqlite/FileTransaction.h"

#include "engine/execution/ErrorMapping.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <utility>

namespace engine::sqlite {

namespace {

// The front of a database file, as the file format tells: the mode, and the number that counts its commits,
// followed by the size and by what is free in it.
// The mode is 1 for rollback and 2 for a log beside the file, which has counts of its own.
constexpr int FrontOffset = 18;
constexpr int CommitsOffset = 24 - FrontOffset;
constexpr int FrontEnd = 40 - FrontOffset;
constexpr char LogMode = 2;

// Emptying a large database takes a journal as large as the file, which should not fill the disk any longer.
constexpr const char* KeptJournalSize = "pragma journal_size_limit = 8388608";

bool IsLock(int resultCode) {
    return (resultCode & 0xFF) == SQLITE_BUSY;
}

}  // namespace

std::optional<Error> FileTransaction::Begin() {
    const int begun = connection_.TryRun("begin immediate");
    if (begun != SQLITE_OK) {
        return execution::ToError(connection_.Handle(), begun);
    }
    const std::optional<Front> last = std::exchange(atBegin_, ReadFront());
    LookForLowerNumber(last);
    return std::nullopt;
}

FileTransaction::Ended FileTransaction::Commit() {
    LookForOtherCounts();
    const int committed = connection_.TryRun("commit");
    if (committed == SQLITE_OK) {
        return {};
    }
    const Error failure = execution::ToError(connection_.Handle(), committed);
    if (IsLock(committed)) {
        return {End::HeldUp, failure};
    }
    TakeBack();
    return {HasReachedTheDisk() ? End::Committed : End::GivenUp, failure};
}

void FileTransaction::TakeBack() {
    if (connection_.InTransaction()) {
        connection_.TryRun("rollback");
    }
}

// Not sooner than the first write: a database that is only looked at must stay as it is. The answers are not
// looked at, since another program may keep the file in a mode of its own.
void FileTransaction::KeepJournal() {
    if (!isJournalKept_) {
        connection_.TryRun("pragma journal_mode = persist");
        connection_.TryRun(KeptJournalSize);
        isJournalKept_ = true;
    }
}

void FileTransaction::RemoveJournal() {
    if (isJournalKept_) {
        connection_.TryRun("pragma journal_mode = delete");
        isJournalKept_ = false;
    }
}

// A commit can fail after its decisive step (clearing the journal's first bytes), for instance while that is
// synced. Its rows are in the file then, and running them again would store them twice.
bool FileTransaction::HasReachedTheDisk() const {
    const std::optional<Front> now = ReadFront();
    return !JournalStands() && now && atBegin_ && now->commits == atBegin_->commits + 1;
}

// A journal whose first byte is clear holds nothing that a reader would take back. One that can't be looked
// at counts as standing: writes are rather run again than forgotten.
bool FileTransaction::JournalStands() const {
    const char* database = sqlite3_db_filename(connection_.Handle(), "main");
    QFile journal(QString::fromUtf8(sqlite3_filename_journal(database)));
    if (!journal.exists()) {
        return false;
    }
    char first = 0;
    return !journal.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
           (journal.getChar(&first) && first != 0);
}

// None if the disk fails. What a file that was cut off no longer holds is read as 0.
std::optional<FileTransaction::Front> FileTransaction::ReadFront() const {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection_.Handle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (file == nullptr || file->pMethods == nullptr) {
        return std::nullopt;
    }
    std::array<char, FrontEnd> bytes{};
    const int read = file->pMethods->xRead(file, bytes.data(), FrontEnd, FrontOffset);
    if (read != SQLITE_OK && read != SQLITE_IOERR_SHORT_READ) {
        return std::nullopt;
    }
    return Front{bytes[0] != LogMode, qFromBigEndian<quint32>(bytes.data() + CommitsOffset),
                 QByteArray(bytes.data() + CommitsOffset, FrontEnd - CommitsOffset)};
}

// Other programs may have written since the last transaction.
void FileTransaction::LookForLowerNumber(const std::optional<Front>& last) {
    if (last && atBegin_ && last->isRollbackMode && atBegin_->isRollbackMode) {
        // It may begin again at 0.
        isOverwritten_ = isOverwritten_ || static_cast<qint32>(atBegin_->commits - last->commits) < 0;
    }
}

// This transaction alone may write.
void FileTransaction::LookForOtherCounts() {
    const std::optional<Front> now = ReadFront();
    if (now && atBegin_) {
        const bool isSameMode = now->isRollbackMode == atBegin_->isRollbackMode;
        const bool isSameCount = now->counts == atBegin_->counts || !now->isRollbackMode;
        isOverwritten_ = isOverwritten_ || !isSameMode || !isSameCount;
    }
}

}  // namespace engine::sqlite
