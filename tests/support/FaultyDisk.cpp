#include "support/FaultyDisk.h"

#include "engine/Error.h"
#include "engine/jet/Disk.h"
#include "support/EndAtOnce.h"

#include <QtGlobal>

#include <sqlite3.h>

#include <functional>
#include <set>
#include <string_view>

namespace {

struct State {
    int failAt = 0;
    int failAgainAfter = 0;
    int failAgain = 0;
    FaultyDisk::Fault fault = FaultyDisk::Fault::Once;
    int operations = 0;
    int syncs = 0;
    int faults = 0;
    std::string firstFault;
    std::string badBytes;
};

State state;
long long roomInAll = 0;
sqlite3_vfs shim;
sqlite3_vfs* real = nullptr;

struct ShimFile {
    sqlite3_file base;
    sqlite3_file* file;
};

sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<ShimFile*>(file)->file;
}

std::set<ShimFile*> openFiles;
std::set<engine::jet::DiskFile*> openJetFiles;

bool Fits(sqlite3_int64 more) {
    sqlite3_int64 taken = 0;
    for (engine::jet::DiskFile* open : openJetFiles) {
        taken += static_cast<sqlite3_int64>(open->Size());
    }
    for (ShimFile* open : openFiles) {
        sqlite3_int64 size = 0;
        open->file->pMethods->xFileSize(open->file, &size);
        taken += size;
    }
    return taken + more <= roomInAll;
}

bool FailsAgain() {
    const int after = state.operations - state.failAt - state.failAgainAfter;
    return after >= 0 && after < state.failAgain;
}

// So much of a write is done when the process ends in the middle of it.
template <class Bytes>
auto FirstHalf(Bytes size) {
    constexpr Bytes SectorSize = 512;
    return size / 2 / SectorSize * SectorSize;
}

// Whether this operation is to fail. A full disk stops only what needs more room.
// Of a write, `doHalf` does the first half.
bool Fails(const char* kind, bool needsRoom, const std::function<void()>& doHalf = {}) {
    ++state.operations;
    const bool reached = state.failAt > 0 && state.operations >= state.failAt;
    bool fails = false;
    switch (state.fault) {
        case FaultyDisk::Fault::Once:
            fails = state.operations == state.failAt || FailsAgain();
            break;
        case FaultyDisk::Fault::FromThenOn:
            fails = reached;
            break;
        case FaultyDisk::Fault::FullFromThenOn:
            fails = reached && needsRoom;
            break;
        case FaultyDisk::Fault::EndBefore:
        case FaultyDisk::Fault::EndWithin:
            if (reached && state.fault == FaultyDisk::Fault::EndWithin && doHalf) {
                doHalf();
            }
            if (reached) {
                EndAtOnce(FaultyDisk::EndStatus);
            }
            break;
    }
    if (fails && state.faults++ == 0) {
        state.firstFault = kind;
    }
    return fails;
}

int Close(sqlite3_file* file) {
    openFiles.erase(reinterpret_cast<ShimFile*>(file));
    const int closed = Real(file)->pMethods->xClose(Real(file));
    sqlite3_free(Real(file));
    return closed;
}

int Read(sqlite3_file* file, void* bytes, int amount, sqlite3_int64 offset) {
    return Real(file)->pMethods->xRead(Real(file), bytes, amount, offset);
}

int Write(sqlite3_file* file, const void* bytes, int amount, sqlite3_int64 offset) {
    sqlite3_int64 size = 0;
    Real(file)->pMethods->xFileSize(Real(file), &size);
    const std::string_view written(static_cast<const char*>(bytes), static_cast<size_t>(amount));
    if (!state.badBytes.empty() && written.find(state.badBytes) != std::string_view::npos) {
        return SQLITE_IOERR_WRITE;
    }
    const sqlite3_int64 more = offset + amount - size;
    if (roomInAll > 0 && more > 0 && !Fits(more)) {
        ++state.faults;
        return SQLITE_FULL;
    }
    const auto doHalf = [&] { Real(file)->pMethods->xWrite(Real(file), bytes, FirstHalf(amount), offset); };
    if (Fails("write", more > 0, doHalf)) {
        return state.fault == FaultyDisk::Fault::FullFromThenOn ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    }
    return Real(file)->pMethods->xWrite(Real(file), bytes, amount, offset);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return Fails("truncate", false) ? SQLITE_IOERR_TRUNCATE
                                    : Real(file)->pMethods->xTruncate(Real(file), size);
}

int Sync(sqlite3_file* /*file*/, int /*flags*/) {
    ++state.syncs;
    // Nobody takes the power away here, and a real sync would be most of what a sweep of faults waits for.
    return Fails("sync", false) ? SQLITE_IOERR_FSYNC : SQLITE_OK;
}

int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return Real(file)->pMethods->xFileSize(Real(file), size);
}

int Lock(sqlite3_file* file, int level) {
    return Fails("lock", false) ? SQLITE_IOERR_LOCK : Real(file)->pMethods->xLock(Real(file), level);
}

int Unlock(sqlite3_file* file, int level) {
    return Real(file)->pMethods->xUnlock(Real(file), level);
}

int CheckReservedLock(sqlite3_file* file, int* reserved) {
    return Real(file)->pMethods->xCheckReservedLock(Real(file), reserved);
}

int FileControl(sqlite3_file* file, int operation, void* argument) {
    return Real(file)->pMethods->xFileControl(Real(file), operation, argument);
}

int SectorSize(sqlite3_file* file) {
    return Real(file)->pMethods->xSectorSize(Real(file));
}

int DeviceCharacteristics(sqlite3_file* file) {
    return Real(file)->pMethods->xDeviceCharacteristics(Real(file));
}

const sqlite3_io_methods Methods = {
    .iVersion = 1,
    .xClose = Close,
    .xRead = Read,
    .xWrite = Write,
    .xTruncate = Truncate,
    .xSync = Sync,
    .xFileSize = FileSize,
    .xLock = Lock,
    .xUnlock = Unlock,
    .xCheckReservedLock = CheckReservedLock,
    .xFileControl = FileControl,
    .xSectorSize = SectorSize,
    .xDeviceCharacteristics = DeviceCharacteristics,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int Open(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    auto* shimFile = reinterpret_cast<ShimFile*>(file);
    shimFile->base.pMethods = nullptr;
    shimFile->file = static_cast<sqlite3_file*>(sqlite3_malloc(real->szOsFile));
    const int opened = real->xOpen(real, name, shimFile->file, flags, outFlags);
    if (opened != SQLITE_OK) {
        sqlite3_free(shimFile->file);
        return opened;
    }
    shimFile->base.pMethods = &Methods;
    openFiles.insert(shimFile);
    return SQLITE_OK;
}

int Delete(sqlite3_vfs* /*vfs*/, const char* name, int syncFolder) {
    return Fails("remove", false) ? SQLITE_IOERR_DELETE : real->xDelete(real, name, syncFolder);
}

[[noreturn]] void RaiseDiskError(const char* kind) {
    throw engine::Error(engine::ErrorNumber::DiskError,
                        QStringLiteral("Disk error: %1.").arg(QLatin1String(kind)));
}

void FailIfTold(const char* kind) {
    if (Fails(kind, false)) {
        RaiseDiskError(kind);
    }
}

// The same for Jet files, which don't stand on SQLite's files.
class FaultyJetFile : public engine::jet::DiskFile {
public:
    explicit FaultyJetFile(std::unique_ptr<engine::jet::DiskFile> file) : file_(std::move(file)) {
        openJetFiles.insert(this);
    }
    ~FaultyJetFile() override { openJetFiles.erase(this); }
    FaultyJetFile(const FaultyJetFile&) = delete;
    FaultyJetFile& operator=(const FaultyJetFile&) = delete;

    std::uint64_t Size() override { return file_->Size(); }
    void Read(std::uint64_t at, std::span<std::uint8_t> bytes) override { file_->Read(at, bytes); }
    void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) override {
        const std::string_view written(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        if (!state.badBytes.empty() && written.find(state.badBytes) != std::string_view::npos) {
            RaiseDiskError("write");
        }
        const auto more = static_cast<sqlite3_int64>(at + bytes.size()) - static_cast<sqlite3_int64>(Size());
        const bool isFull = roomInAll > 0 && more > 0 && !Fits(more);
        state.faults += isFull ? 1 : 0;
        const auto doHalf = [&] { file_->Write(at, bytes.first(FirstHalf(bytes.size()))); };
        if (isFull || Fails("write", more > 0, doHalf)) {
            if (isFull || state.fault == FaultyDisk::Fault::FullFromThenOn) {
                throw engine::Error(engine::ErrorNumber::DiskFull, QStringLiteral("Disk full."));
            }
            RaiseDiskError("write");
        }
        file_->Write(at, bytes);
    }
    void Resize(std::uint64_t size) override {
        FailIfTold("truncate");
        file_->Resize(size);
    }
    void Sync() override {
        ++state.syncs;
        FailIfTold("sync");
    }

private:
    std::unique_ptr<engine::jet::DiskFile> file_;
};

class FaultyJetDisk : public engine::jet::Disk {
public:
    std::unique_ptr<engine::jet::DiskFile> Make(const QString& path) override {
        return std::make_unique<FaultyJetFile>(system_.Make(path));
    }
    std::unique_ptr<engine::jet::DiskFile> Open(const QString& path) override {
        return std::make_unique<FaultyJetFile>(system_.Open(path));
    }
    std::unique_ptr<engine::jet::DiskFile> OpenOrMake(const QString& path,
                                                      const QString& permissionsOf) override {
        return std::make_unique<FaultyJetFile>(system_.OpenOrMake(path, permissionsOf));
    }
    bool IsThere(const QString& path) override { return system_.IsThere(path); }
    void Remove(const QString& path) override {
        FailIfTold("remove");
        system_.Remove(path);
    }
    void Rename(const QString& from, const QString& to) override { system_.Rename(from, to); }

private:
    engine::jet::Disk& system_ = engine::jet::SystemDisk();
};

// Outlives the files that a test leaves open to the end of the process.
engine::jet::Disk& JetDisk() {
    static FaultyJetDisk& disk = *new FaultyJetDisk;
    return disk;
}

}  // namespace

FaultyDisk::FaultyDisk() {
    real = sqlite3_vfs_find(nullptr);
    shim = *real;
    shim.zName = "faulty-disk";
    shim.szOsFile = sizeof(ShimFile);
    shim.pNext = nullptr;
    shim.xOpen = Open;
    shim.xDelete = Delete;
    if (sqlite3_vfs_register(&shim, 1) != SQLITE_OK) {
        qFatal("The faulty disk can't be put in place");
    }
    engine::jet::UseDisk(&JetDisk());
    Repair();
}

FaultyDisk::~FaultyDisk() {
    roomInAll = 0;
    engine::jet::UseDisk(nullptr);
    sqlite3_vfs_unregister(&shim);
    sqlite3_vfs_register(real, 1);
}

void FaultyDisk::FailAt(int n, Fault fault) {
    state = State();
    state.failAt = n;
    state.fault = fault;
}

void FaultyDisk::HoldAtMost(long long bytes) {
    roomInAll = bytes;
}

void FaultyDisk::FailOnBytes(const std::string& bytes) {
    state.badBytes = bytes;
}

void FaultyDisk::FailAgainAfter(int n, int operations) {
    state.failAgainAfter = n;
    state.failAgain = operations;
}

int FaultyDisk::Operations() const {
    return state.operations;
}

int FaultyDisk::Syncs() const {
    return state.syncs;
}

int FaultyDisk::Faults() const {
    return state.faults;
}

std::string FaultyDisk::FirstFault() const {
    return state.firstFault;
}
