#include "platform/windows/Handle.h"

#include <QDir>

namespace platform {

namespace {

std::errc MeaningOf(DWORD failure) {
    switch (failure) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
            return std::errc::no_such_file_or_directory;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
            return std::errc::permission_denied;
        case ERROR_WRITE_PROTECT:
            return std::errc::read_only_file_system;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return std::errc::file_exists;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return std::errc::no_space_on_device;
        case ERROR_FILENAME_EXCED_RANGE:
            return std::errc::filename_too_long;
        case ERROR_INVALID_NAME:
        case ERROR_INVALID_PARAMETER:
            return std::errc::invalid_argument;
        case ERROR_DIRECTORY:
            return std::errc::not_a_directory;
        case ERROR_BROKEN_PIPE:
        case ERROR_NO_DATA:
            return std::errc::broken_pipe;
        case ERROR_INVALID_HANDLE:
            return std::errc::bad_file_descriptor;
        default:
            return std::errc::io_error;
    }
}

}  // namespace

// Only names that begin so may have more than 260 characters, and nothing in them is replaced any more.
std::wstring WideName(const QString& name) {
    constexpr qsizetype LongestPlainName = 240;
    QString native = QDir::toNativeSeparators(name);
    if (native.size() > LongestPlainName && !native.startsWith(QLatin1String("\\\\?\\"))) {
        native = native.startsWith(QLatin1String("\\\\")) ? QLatin1String("\\\\?\\UNC") + native.sliced(1)
                                                          : QLatin1String("\\\\?\\") + native;
    }
    return native.toStdWString();
}

std::error_code LastFailure() {
    return std::make_error_code(MeaningOf(GetLastError()));
}

std::error_code FailureUnless(bool isDone) {
    return isDone ? std::error_code() : LastFailure();
}

QByteArray ToSystemBytes(const QString& text) {
    return text.toLocal8Bit();
}

// The toolkit's own conversion drops zeros at the end, and a stored text may well have one.
QString FromSystemBytes(const char* bytes, qsizetype size) {
    const auto count = static_cast<int>(size);
    std::wstring wide(static_cast<size_t>(size), L'\0');
    const int length = count == 0 ? 0 : MultiByteToWideChar(CP_ACP, 0, bytes, count, wide.data(), count);
    wide.resize(static_cast<size_t>(length));
    return QString::fromStdWString(wide);
}

}  // namespace platform
