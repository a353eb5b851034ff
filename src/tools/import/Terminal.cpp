#include "tools_core/import/Terminal.h"

#include "platform/Utf8.h"

#include <unistd.h>

#include <array>
#include <cstdio>

namespace tools {

namespace {

void Print(const QString& text, std::FILE* stream) {
    const QByteArray bytes = platform::Utf8FromText(text);
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

}  // namespace

bool IsInputATerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool AreErrorsATerminal() {
    return isatty(STDERR_FILENO) != 0;
}

void PrintOut(const QString& text) {
    Print(text, stdout);
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
