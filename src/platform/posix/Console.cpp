#include "platform/Console.h"

#include "platform/Utf8.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

namespace platform {

bool IsInputATerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool AreErrorsATerminal() {
    return isatty(STDERR_FILENO) != 0;
}

std::error_code WriteText(Stream stream, const QString& text) {
    std::FILE* const file = stream == Stream::Output ? stdout : stderr;
    const QByteArray bytes = Utf8FromText(text);
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool hasArrived = std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0;
    return hasArrived ? std::error_code() : std::error_code(errno, std::generic_category());
}

std::optional<QString> ReadLine() {
    std::array<char, 64> line{};
    if (std::fgets(line.data(), static_cast<int>(line.size()), stdin) == nullptr) {
        return std::nullopt;
    }
    return QString::fromUtf8(line.data());
}

}  // namespace platform
