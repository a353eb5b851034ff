#include "engine/sqlite/Connection.h"

#include "engine/Waiting.h"
#include "engine/sqlite/ErrorMapping.h"
#include "engine/sqlite/Hardening.h"
#include "engine/sqlite/SideFiles.h"
#include "engine/sqlite/SoundFile.h"
#include "platform/Files.h"

#include <algorithm>
#include <thread>

namespace engine::sqlite {

namespace {

using namespace std::chrono_literals;

constexpr auto LongestWait = 5s;

// Room for the pages that one group of writes touches. A fixed room keeps the memory of long imports flat.
constexpr const char* PageCache = "pragma cache_size = -8192";

constexpr const char* LookIntoTheFile = "select 1 from sqlite_master limit 1";

}  // namespace

Connection::Connection(const QString& path, Mode mode) {
    try {
        OpenFile(path, mode);
        CheckSideFiles(handle_);
        CheckFile();
        if (mode == Mode::Existing) {
            RequireSound(*this);
        }
    } catch (...) {
        Close();
        throw;
    }
}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    sqlite3_close_v2(handle_);
    handle_ = nullptr;
}

void Connection::OpenFile(const QString& path, Mode mode) {
    // Before SQLite's first use in the process: counting every allocation costs more than the allocation.
    static const int memoryCounting = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(memoryCounting);
    const int creation = mode == Mode::New ? SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE : 0;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &handle_,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | creation, nullptr);
    if (opened != SQLITE_OK) {
        Raise(opened);
    }
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_handler(handle_, WaitForLock, this);
    inserted_.Watch(handle_);
    // Room for the cursors of a running statement, so that each insert doesn't ask the system for it.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 4096, 64);
    Harden(handle_);
}

void Connection::CheckFile() {
    // A link may have led here, and the journal is looked for by this name.
    if (!QByteArrayView(sqlite3_db_filename(handle_, "main")).isValidUtf8()) {
        throw Error(ErrorNumber::InvalidPath,
                    QStringLiteral("The database lies under a name that is not a valid path: %1.")
                        .arg(platform::WhyNoName()));
    }
    {
        // The first look into the file: it finds foreign, damaged and locked ones.
        const ReadingBudget budget(handle_);
        Run(LookIntoTheFile);
    }
    Run("pragma synchronous = full");
    Run(PageCache);
    if (sqlite3_db_readonly(handle_, "main") == 1) {
        Raise(SQLITE_READONLY);
    }
    // Somebody who has the file for himself would make every write wait in vain: better to know it now.
    Run("begin immediate");
    TryJournal();
    Run("rollback");
    // Whether the journal could be removed is told to the next one who looks.
    Run(LookIntoTheFile);
}

// A page that is changed in memory alone: its journal is made before, and removed when it is changed back, so
// that a folder or a disk that takes none is found before there is anything to lose. The file stays as it is.
void Connection::TryJournal() {
    const int changed = TryRun("pragma user_version = 0");
    if (changed == SQLITE_READONLY_DIRECTORY || (changed & 0xFF) == SQLITE_CANTOPEN) {
        throw Error(
            ErrorNumber::ReadOnlyDatabase,
            QStringLiteral("Cannot update. Database or object is read-only: no journal can be made at '%1'.")
                .arg(QString::fromUtf8(sqlite3_filename_journal(sqlite3_db_filename(handle_, "main")))));
    }
    if (changed != SQLITE_OK) {
        Raise(changed);
    }
}

StatementHandle Connection::Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const int prepared = sqlite3_prepare_v3(handle_, sql.data(), static_cast<int>(sql.size()),
                                            SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (prepared != SQLITE_OK) {
        Raise(prepared);
    }
    return StatementHandle(statement);
}

int Connection::TryRun(const char* sql) {
    return sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr);
}

void Connection::Run(const char* sql) {
    const int run = TryRun(sql);
    if (run != SQLITE_OK) {
        Raise(run);
    }
}

void Connection::Raise(int resultCode) const {
    throw ToError(handle_, resultCode);
}

int Connection::WaitForLock(void* connection, int attempt) {
    auto* self = static_cast<Connection*>(connection);
    const Moment now = std::chrono::steady_clock::now();
    if (attempt == 0) {
        self->waitingBegan_ = now;
    }
    const Moment end = self->waitingEnd_.value_or(self->waitingBegan_ + LongestWait);
    self->hasWaitedInVain_ = self->hasWaitedInVain_ || now >= end;
    if (self->hasWaitedInVain_ || !GoesOn()) {
        return 0;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(attempt + 1, 10)));
    return 1;
}

}  // namespace engine::sqlite
