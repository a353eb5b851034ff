#include "engine/jet/Disk.h"
#include "engine/jet/DiskFailure.h"
#include "platform/FilePlaces.h"
#include "platform/FileStatus.h"
#include "platform/windows/Handle.h"

#include <algorithm>

namespace engine::jet {

namespace {

using platform::Handle;

[[noreturn]] void Raise(const QString& path, const char* what, const std::error_code& reason) {
    RaiseDiskFailure(path, what, reason, reason == std::errc::no_space_on_device);
}

[[noreturn]] void RaiseLast(const QString& path, const char* what) {
    Raise(path, what, platform::LastFailure());
}

OVERLAPPED PlaceAt(std::uint64_t at) {
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(at);
    place.OffsetHigh = static_cast<DWORD>(at >> 32);
    return place;
}

// Nobody can remove or replace the file while it is open, which is what everybody expects here.
HANDLE OpenFile(const QString& path, DWORD disposition) {
    return CreateFileW(platform::WideName(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, disposition,
                       FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

class SystemFile : public DiskFile {
public:
    SystemFile(QString path, HANDLE file) : path_(std::move(path)), file_(file) {}

    std::uint64_t Size() override {
        LARGE_INTEGER size{};
        if (GetFileSizeEx(file_.Get(), &size) == 0) {
            RaiseLast(path_, "looked at");
        }
        return static_cast<std::uint64_t>(size.QuadPart);
    }

    void Read(std::uint64_t at, std::span<std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            OVERLAPPED place = PlaceAt(at);
            DWORD read = 0;
            if (ReadFile(file_.Get(), bytes.data(), Step(bytes.size()), &read, &place) == 0) {
                RaiseLast(path_, "read");
            }
            if (read == 0) {
                Raise(path_, "read", std::make_error_code(std::errc::io_error));
            }
            bytes = bytes.subspan(read);
            at += read;
        }
    }

    void Write(std::uint64_t at, std::span<const std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            OVERLAPPED place = PlaceAt(at);
            DWORD written = 0;
            if (WriteFile(file_.Get(), bytes.data(), Step(bytes.size()), &written, &place) == 0) {
                RaiseLast(path_, "written");
            }
            if (written == 0) {
                Raise(path_, "written", std::make_error_code(std::errc::no_space_on_device));
            }
            bytes = bytes.subspan(written);
            at += written;
        }
    }

    void Resize(std::uint64_t size) override {
        FILE_END_OF_FILE_INFO end{};
        end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
        if (SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end) == 0) {
            RaiseLast(path_, "cut or lengthened");
        }
    }

    void Sync() override {
        if (FlushFileBuffers(file_.Get()) == 0) {
            RaiseLast(path_, "brought to the disk");
        }
    }

private:
    static DWORD Step(std::size_t size) {
        constexpr std::size_t Most = std::size_t{1} << 30;
        return static_cast<DWORD>(std::min(size, Most));
    }

    QString path_;
    Handle file_;
};

class RealDisk : public Disk {
public:
    // A link leads on here, unlike below: the database was opened by a name of the user's.
    std::unique_ptr<DiskFile> Open(const QString& path) override {
        return Opened(path, "opened",
                      CreateFileW(platform::WideName(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    std::unique_ptr<DiskFile> Make(const QString& path) override {
        return Opened(path, "made", OpenFile(path, CREATE_NEW));
    }

    // A new file gets its permissions from the folder that it lies in, as the other one did.
    std::unique_ptr<DiskFile> OpenOrMake(const QString& path, const QString& permissionsOf) override {
        if (const std::error_code failure = platform::LookFor(permissionsOf)) {
            Raise(permissionsOf, "looked at", failure);
        }
        auto file = Opened(path, "opened", OpenFile(path, OPEN_ALWAYS));
        const auto found = platform::WhatHasName(path);
        if (!found || found->kind != platform::FileKind::Regular) {
            Raise(path, "opened", std::make_error_code(std::errc::invalid_argument));
        }
        return file;
    }

    bool IsThere(const QString& path) override { return !platform::LookFor(path); }

    void Remove(const QString& path) override {
        if (const std::error_code failure = platform::RemoveFile(path)) {
            Raise(path, "removed", failure);
        }
    }

    void Rename(const QString& from, const QString& to) override {
        if (const std::error_code failure = platform::RenameWithoutReplacing(from, to)) {
            Raise(to, "made", failure);
        }
    }

private:
    static std::unique_ptr<DiskFile> Opened(const QString& path, const char* what, HANDLE file) {
        if (file == INVALID_HANDLE_VALUE) {
            RaiseLast(path, what);
        }
        return std::make_unique<SystemFile>(path, file);
    }
};

}  // namespace

// Outlives the databases that a program holds open to its very end.
Disk& SystemDisk() {
    static RealDisk& disk = *new RealDisk;
    return disk;
}

}  // namespace engine::jet
