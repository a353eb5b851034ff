#include "support/AwkwardFileSystem.h"

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

AwkwardFileSystem* inPlace = nullptr;

void TellOfNaming(const char* step, const char* from, const char* to) {
    if (inPlace != nullptr && inPlace->beforeNaming) {
        inPlace->beforeNaming(step, from, to);
    }
}

int Fail(int number) {
    errno = number;
    return -1;
}

bool IsFolder(int file) {
    struct stat found {};
    return fstat(file, &found) == 0 && S_ISDIR(found.st_mode);
}

}  // namespace

// These stand in for the system's own functions in every program that links them.

extern "C" int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                         unsigned flags) noexcept {
    TellOfNaming("rename", from, to);
    if (inPlace != nullptr && !inPlace->knowsRenamingWithoutReplacing && (flags & RENAME_NOREPLACE) != 0) {
        return Fail(EINVAL);
    }
    return static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

extern "C" int link(const char* from, const char* to) noexcept {
    TellOfNaming("link", from, to);
    if (inPlace != nullptr && !inPlace->knowsLinks) {
        return Fail(EPERM);
    }
    return static_cast<int>(syscall(SYS_link, from, to));
}

extern "C" int fsync(int file) {
    if (inPlace != nullptr && !inPlace->storesFolders && IsFolder(file)) {
        return Fail(EIO);
    }
    return static_cast<int>(syscall(SYS_fsync, file));
}

AwkwardFileSystem::AwkwardFileSystem() {
    inPlace = this;
}

AwkwardFileSystem::~AwkwardFileSystem() {
    inPlace = nullptr;
}
