#include "tools/import/Terminal.h"

#include "platform/Utf8.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

namespace tools {

namespace {

bool Print(const QString& text, std::FILE* stream) {
    const QByteArray bytes = platform::Utf8FromText(text);
    const auto size = static_cast<std::size_t>(bytes.size());
    return std::fwrite(bytes.constData(), 1, size, stream) == size && std::fflush(stream) == 0;
}

}  // namespace

bool IsInputATerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool AreErrorsATerminal() {
    return isatty(STDERR_FILENO) != 0;
}

bool PrintOut(const QString& text) {
    if (Print(text, stdout)) {
        return true;
    }
    const std::string reason = std::generic_category().message(errno);
    PrintError(QStringLiteral("The output could not be written: %1.\n").arg(QString::fromStdString(reason)));
    return false;
}

void PrintError(const QString& text) {
    Print(text, stderr);
}

bool Confirm(const QString& question) {
    PrintError(question);
    std::array<char, 64> line{};
    if (std::fgets(line.data(), static_cast<int>(line.size()), stdin) == nullptr) {
        return false;
    }
    const QString answer = QString::fromUtf8(line.data()).trimmed().toLower();
    return answer == QLatin1String("y") || answer == QLatin1String("yes");
}

}  // namespace tools
