#include "engine/sqlite/Transaction.h"

#include "engine/sqlite/ErrorMapping.h"

#include <QFile>
#include <QtEndian>

#include <array>

namespace engine::sqlite {

namespace {

// The place in a database file of the number that counts its commits, as the file format tells.
constexpr int ChangeCounterOffset = 24;

bool IsLock(int resultCode) {
    return (resultCode & 0xFF) == SQLITE_BUSY;
}

}  // namespace

bool Transaction::TryBegin() {
    const int begun = connection_.TryRun("begin immediate");
    isOpen_ = begun == SQLITE_OK;
    if (isOpen_) {
        changeCounterBefore_ = ChangeCounter();
    } else {
        failure_ = ToError(connection_.Handle(), begun);
    }
    return isOpen_;
}

Transaction::End Transaction::TryCommit() {
    const int committed = connection_.TryRun("commit");
    if (committed == SQLITE_OK) {
        isOpen_ = false;
        return End::Committed;
    }
    failure_ = ToError(connection_.Handle(), committed);
    if (IsLock(committed)) {
        return End::HeldUp;
    }
    GiveUp();
    return HasReachedTheDisk() ? End::Committed : End::GivenUp;
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
    return !JournalStands() && ChangeCounter() == changeCounterBefore_ + 1;
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

quint32 Transaction::ChangeCounter() const {
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

}  // namespace engine::sqlite
