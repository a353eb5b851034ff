#include "engine/execution/Connection.h"

#include "engine/Waiting.h"
#include "engine/execution/ErrorMapping.h"

#include <algorithm>
#include <thread>

namespace engine::execution {

namespace {

using namespace std::chrono_literals;

constexpr auto LongestWait = 5s;

}  // namespace

Connection::~Connection() {
    Close();
}

void Connection::Open(const QByteArray& name, int flags) {
    // Before SQLite's first use in the process: counting every allocation costs more than the allocation.
    static const int memoryCounting = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    static_cast<void>(memoryCounting);
    const int opened = sqlite3_open_v2(name.constData(), &handle_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (opened != SQLITE_OK) {
        Raise(opened);
    }
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_handler(handle_, WaitForLock, this);
    inserted_.Watch(handle_);
    // Room for the cursors of a running statement, so that each insert doesn't ask the system for it.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 4096, 64);
}

void Connection::Close() {
    sqlite3_close_v2(handle_);
    handle_ = nullptr;
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

void Connection::Raise(int resultCode) {
    throw Error(FailureOf(resultCode));
}

Error Connection::FailureOf(int resultCode) {
    return ToError(handle_, resultCode);
}

qint64 Connection::Change(sqlite3_stmt* statement, const std::vector<size_t>& /*written*/) {
    const RunningStatement running(statement);
    const int step = sqlite3_step(statement);
    if (step != SQLITE_DONE) {
        Raise(step);
    }
    return sqlite3_changes64(handle_);
}

void Connection::BeginPart() {
    Run("savepoint part");
}

// Where a statement fails, SQLite may have taken the whole transaction back, and the savepoint with it.
void Connection::TakeBackPart() {
    if (InTransaction()) {
        Run("rollback to part");
    }
}

void Connection::EndPart() {
    if (InTransaction()) {
        TryRun("release part");
    }
}

size_t Connection::Memory() const {
    int used = 0;
    int highest = 0;
    sqlite3_db_status(handle_, SQLITE_DBSTATUS_CACHE_USED, &used, &highest, 0);
    return static_cast<size_t>(used);
}

void Connection::Forget() {
    sqlite3_db_release_memory(handle_);
}

std::function<void(size_t)>& Connection::ListenerToRows() {
    static std::function<void(size_t)> listener;
    return listener;
}

void Connection::OnRowsOfLiterals(std::function<void(size_t)> listener) {
    ListenerToRows() = std::move(listener);
}

void Connection::TellOfRows(size_t rows) {
    if (ListenerToRows()) {
        ListenerToRows()(rows);
    }
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

}  // namespace engine::execution
