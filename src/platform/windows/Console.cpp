#include "platform/Console.h"

#include "platform/Process.h"
#include "platform/Utf8.h"
#include "platform/windows/Handle.h"

#include <array>
#include <chrono>
#include <future>
#include <thread>

namespace platform {

namespace {

bool IsConsole(HANDLE stream) {
    DWORD mode = 0;
    return GetConsoleMode(stream, &mode) != 0;
}

// The progress bar moves the cursor by sequences that a console only knows when it is told to.
void KnowSequences(HANDLE console) {
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) != 0) {
        SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
}

constexpr std::chrono::milliseconds BetweenLooks{20};
constexpr DWORD LongestNews = 1000;

// Older consoles take no more than 64 KB at a time.
constexpr qsizetype MostAtATime = 8192;

std::error_code WriteToConsole(HANDLE console, const QString& text) {
    KnowSequences(console);
    for (qsizetype place = 0; place < text.size();) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(qMin(MostAtATime, text.size() - place));
        if (WriteConsoleW(console, text.utf16() + place, part, &written, nullptr) == 0 || written == 0) {
            return LastFailure();
        }
        place += written;
    }
    return {};
}

std::error_code WriteBytes(HANDLE file, const QByteArray& bytes) {
    for (qsizetype place = 0; place < bytes.size();) {
        DWORD written = 0;
        const auto part = static_cast<DWORD>(bytes.size() - place);
        if (WriteFile(file, bytes.constData() + place, part, &written, nullptr) == 0) {
            return LastFailure();
        }
        if (written == 0) {
            return std::make_error_code(std::errc::no_space_on_device);
        }
        place += written;
    }
    return {};
}

// Whoever pipes the answer in writes bytes. They are read one by one, so that nothing behind the line is
// lost.
std::optional<QString> ReadLineOfBytes(HANDLE input) {
    constexpr qsizetype Longest = 63;
    QByteArray line;
    char byte = 0;
    DWORD read = 0;
    while (line.size() < Longest && ReadFile(input, &byte, 1, &read, nullptr) != 0 && read == 1) {
        line += byte;
        if (byte == '\n') {
            break;
        }
    }
    return line.isEmpty() ? std::nullopt : std::optional(QString::fromUtf8(line));
}

// A reader that is let go of by Ctrl+C may come back before that is told to the handler.
std::optional<QString> ReadLineOfConsole(HANDLE input) {
    std::array<wchar_t, 64> line{};
    DWORD read = 0;
    SetLastError(ERROR_SUCCESS);
    const bool isRead =
        ReadConsoleW(input, line.data(), static_cast<DWORD>(line.size()), &read, nullptr) != 0;
    if (GetLastError() == ERROR_OPERATION_ABORTED) {
        Sleep(LongestNews);
    }
    return isRead && read > 0
               ? std::optional(QString::fromWCharArray(line.data(), static_cast<qsizetype>(read)))
               : std::nullopt;
}

}  // namespace

bool IsInputATerminal() {
    return IsConsole(GetStdHandle(STD_INPUT_HANDLE));
}

bool AreErrorsATerminal() {
    return IsConsole(GetStdHandle(STD_ERROR_HANDLE));
}

std::error_code WriteText(Stream stream, const QString& text) {
    const HANDLE handle = GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
    return IsConsole(handle) ? WriteToConsole(handle, text) : WriteBytes(handle, Utf8FromText(text));
}

// Not every console lets go of its reader on Ctrl+C, so reading is left to a thread, which ends with the
// process.
std::optional<QString> ReadLine() {
    std::promise<std::optional<QString>> promise;
    std::future<std::optional<QString>> line = promise.get_future();
    std::thread([answer = std::move(promise)]() mutable {
        const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
        answer.set_value(IsConsole(input) ? ReadLineOfConsole(input) : ReadLineOfBytes(input));
    }).detach();
    while (line.wait_for(BetweenLooks) != std::future_status::ready) {
        if (IsEndRequested()) {
            return std::nullopt;
        }
    }
    return line.get();
}

}  // namespace platform
