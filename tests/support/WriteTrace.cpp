#include "support/WriteTrace.h"

#include "engine/execution/Connection.h"
#include "engine/jet/Journal.h"

#include <QStringList>

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

struct Listeners {
    WriteTrace::Listener onWrite;
    std::function<void()> onCommit;
};

Listeners& CurrentListeners() {
    static Listeners listeners;
    return listeners;
}

bool IsWrite(sqlite3_stmt* statement) {
    const char* sql = sqlite3_sql(statement);
    return sqlite3_stmt_readonly(statement) == 0 &&
           (std::strncmp(sql, "insert", 6) == 0 || std::strncmp(sql, "update", 6) == 0 ||
            std::strncmp(sql, "delete", 6) == 0);
}

// An insert of several rows as one insert for each: where a ")" outside of a text is followed by another "(",
// a row ends.
QStringList SingleRows(const QString& sql) {
    const qsizetype begin = sql.indexOf(QStringLiteral(" values("));
    if (begin < 0) {
        return {sql};
    }
    const QString head = sql.left(begin + 7);
    QStringList rows;
    qsizetype rowBegin = begin + 7;
    bool inText = false;
    for (qsizetype place = rowBegin; place < sql.size(); ++place) {
        inText = inText != (sql[place] == QLatin1Char('\''));
        if (!inText && sql[place] == QLatin1Char(')')) {
            rows += head + sql.mid(rowBegin, place + 1 - rowBegin);
            rowBegin = place + 3;
        }
    }
    return rows;
}

int OnStatementDone(unsigned /*kind*/, void* /*context*/, void* subject, void* /*duration*/) {
    auto* statement = static_cast<sqlite3_stmt*>(subject);
    const Listeners& listeners = CurrentListeners();
    if (listeners.onCommit && std::strcmp(sqlite3_sql(statement), "commit") == 0 &&
        sqlite3_get_autocommit(sqlite3_db_handle(statement)) != 0) {
        listeners.onCommit();
    }
    if (!listeners.onWrite || !IsWrite(statement)) {
        return 0;
    }
    TracedWrite write;
    write.doneAt = std::chrono::steady_clock::now();
    write.changedRows = sqlite3_changes64(sqlite3_db_handle(statement));
    char* expanded = sqlite3_expanded_sql(statement);
    const QStringList rows = SingleRows(QString::fromUtf8(expanded));
    sqlite3_free(expanded);
    if (rows.size() > 1) {
        write.changedRows = 1;
    }
    for (const QString& row : rows) {
        write.sql = row;
        listeners.onWrite(write);
    }
    return 0;
}

void OnRowsOfLiterals(std::size_t rows) {
    for (; CurrentListeners().onWrite && rows > 0; --rows) {
        CurrentListeners().onWrite({{}, 1, std::chrono::steady_clock::now()});
    }
}

int OnConnection(sqlite3* connection, const char** /*error*/, const sqlite3_api_routines* /*api*/) {
    sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, OnStatementDone, nullptr);
    return SQLITE_OK;
}

// A group of a Jet file is finished when its journal has been made void, with a sync.
class TracedJournal : public engine::jet::DiskFile {
public:
    explicit TracedJournal(std::unique_ptr<engine::jet::DiskFile> file) : file_(std::move(file)) {}

    std::uint64_t Size() override { return file_->Size(); }
    void Read(std::uint64_t at, std::span<std::uint8_t> bytes) override { file_->Read(at, bytes); }
    void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) override {
        file_->Write(at, bytes);
        const bool isVoid =
            std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
        isFinished_ = hasGroup_ && isVoid;
        hasGroup_ = hasGroup_ || !isVoid;
    }
    void Resize(std::uint64_t size) override { file_->Resize(size); }
    void Sync() override {
        file_->Sync();
        if (isFinished_) {
            isFinished_ = hasGroup_ = false;
            CurrentListeners().onCommit();
        }
    }

private:
    std::unique_ptr<engine::jet::DiskFile> file_;
    bool hasGroup_ = false;
    bool isFinished_ = false;
};

class TracedJetDisk : public engine::jet::Disk {
public:
    std::unique_ptr<engine::jet::DiskFile> Make(const QString& path) override { return below_->Make(path); }
    std::unique_ptr<engine::jet::DiskFile> Open(const QString& path) override { return below_->Open(path); }
    std::unique_ptr<engine::jet::DiskFile> OpenOrMake(const QString& path,
                                                      const QString& permissionsOf) override {
        auto file = below_->OpenOrMake(path, permissionsOf);
        return path.endsWith(engine::jet::Journal::NameFor({})) && CurrentListeners().onCommit
                   ? std::make_unique<TracedJournal>(std::move(file))
                   : std::move(file);
    }
    bool IsThere(const QString& path) override { return below_->IsThere(path); }
    void Remove(const QString& path) override { below_->Remove(path); }
    void Rename(const QString& from, const QString& to) override { below_->Rename(from, to); }

    /// The disk in use, or back to that.
    void Begin() {
        below_ = &engine::jet::DiskInUse();
        engine::jet::UseDisk(this);
    }
    void End() { engine::jet::UseDisk(below_); }

private:
    engine::jet::Disk* below_ = nullptr;
};

// Outlives the files that a test leaves open to the end of the process.
TracedJetDisk& JetDisk() {
    static TracedJetDisk& disk = *new TracedJetDisk;
    return disk;
}

// SQLite takes the function in this disguise.
void (*ConnectionHook())() {
    return reinterpret_cast<void (*)()>(OnConnection);
}

}  // namespace

WriteTrace::WriteTrace(Listener onWrite, std::function<void()> onCommit) {
    CurrentListeners() = {std::move(onWrite), std::move(onCommit)};
    sqlite3_auto_extension(ConnectionHook());
    engine::execution::Connection::OnRowsOfLiterals(OnRowsOfLiterals);
    JetDisk().Begin();
}

WriteTrace::~WriteTrace() {
    sqlite3_cancel_auto_extension(ConnectionHook());
    engine::execution::Connection::OnRowsOfLiterals({});
    JetDisk().End();
    CurrentListeners() = {};
}
