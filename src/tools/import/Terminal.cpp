#include "tools/import/Terminal.h"

#include "platform/Console.h"

namespace tools {

bool PrintOut(const QString& text) {
    const std::error_code failure = platform::WriteText(platform::Stream::Output, text);
    if (failure) {
        PrintError(QStringLiteral("The output could not be written: %1.\n")
                       .arg(QString::fromStdString(failure.message())));
    }
    return !failure;
}

void PrintError(const QString& text) {
    static_cast<void>(platform::WriteText(platform::Stream::Errors, text));
}

bool Confirm(const QString& question) {
    PrintError(question);
    const QString answer = platform::ReadLine().value_or(QString()).trimmed().toLower();
    return answer == QLatin1String("y") || answer == QLatin1String("yes");
}

}  // namespace tools
