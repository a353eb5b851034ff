#include "engine/sqlite/Transaction.h"

#include "engine/sqlite/ErrorMapping.h"

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

bool IsLock(int resultCode) {
    return (resultCode & 0xFF) == SQLITE_BUSY;
}

}  // namespace

bool Transaction::TryBegin() {
    const int begun = connection_.TryRun("begin immediate");
    isOpen_ = begun == SQLITE_OK;
    if (isOpen_) {
        const std::optional<Front> last = std::exchange(atBegin_, ReadFront());
        LookForLowerNumber(last);
        rows_.Undo();
    } else {
        failure_ = ToError(connection_.Handle(), begun);
    }
    return isOpen_;
}

Transaction::End Transaction::TryCommit() {
    LookForOtherCounts();
    const int committed = connection_.TryRun("commit");
    if (committed == SQLITE_OK) {
        isOpen_ = false;
        rows_.Keep();
        return End::Committed;
    }
    failure_ = ToError(connection_.Handle(), committed);
    if (IsLock(committed)) {
        return End::HeldUp;
    }
    GiveUp();
    if (!HasReachedTheDisk()) {
        return End::GivenUp;
    }
    rows_.Keep();
    return End::Committed;
}

void Transaction::GiveUp() {
    if (connection_.InTransaction()) {
        connection_.TryRun("rollback");
    }
    isOpen_ = false;
}

// A commit can fail after its decisive step (clearing the journal's first bytes), for instance while that is
// synced. Its rows are in the file then, and running them again would store them twice.
bool Transaction::HasReachedTheDisk() const {
    const std::optional<Front> now = ReadFront();
    return !JournalStands() && now && atBegin_ && now->commits == atBegin_->commits + 1;
}

// A journal whose first byte is clear holds nothing that a reader would take back. One that can't be looked
// at counts as standing: writes are rather run again than forgotten.
bool Transaction::JournalStands() const {
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
std::optional<Transaction::Front> Transaction::ReadFront() const {
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
void Transaction::LookForLowerNumber(const std::optional<Front>& last) {
    if (last && atBegin_ && last->isRollbackMode && atBegin_->isRollbackMode) {
        // It may begin again at 0.
        isOverwritten_ = isOverwritten_ || static_cast<qint32>(atBegin_->commits - last->commits) < 0;
    }
}

// This transaction alone may write.
void Transaction::LookForOtherCounts() {
    const std::optional<Front> now = ReadFront();
    if (now && atBegin_) {
        const bool isSameMode = now->isRollbackMode == atBegin_->isRollbackMode;
        const bool isSameCount = now->counts == atBegin_->counts || !now->isRollbackMode;
        isOverwritten_ = isOverwritten_ || !isSameMode || !isSameCount;
    }
}

}  // namespace engine::sqlite
