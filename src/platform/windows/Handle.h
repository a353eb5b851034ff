#pragma once

#include <QString>

#include <windows.h>

#include <string>
#include <system_error>

/// What the sources of this folder, and those of the engine's of the same name, share.
namespace platform {

/// A handle of the system, closed with its object.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (IsOpen()) {
            CloseHandle(handle_);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    bool IsOpen() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

/// The name that the system's wide calls take, of a file of any length.
std::wstring WideName(const QString& name);

/// Why the last call of the system has failed, as one of std::errc.
std::error_code LastFailure();
std::error_code FailureUnless(bool isDone);

/// Text as the system's calls for bytes take and give it.
QByteArray ToSystemBytes(const QString& text);
QString FromSystemBytes(const char* bytes, qsizetype size);

}  // namespace platform
