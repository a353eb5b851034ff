#include "tools/import/ConsoleMessageBoxes.h"

#include "tools/import/Terminal.h"

namespace tools {

namespace {

// What a file calls its tables must not work the terminal.
QString FitForATerminal(QString text) {
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control && character != QLatin1Char('\n')) {
            character = QChar::ReplacementCharacter;
        }
    }
    return text;
}

}  // namespace

ConsoleMessageBoxes::ConsoleMessageBoxes(ProgressBar& progressBar) : progressBar_(progressBar) {
    platform::SetMessageBoxPort(this);
}

ConsoleMessageBoxes::~ConsoleMessageBoxes() {
    platform::SetMessageBoxPort(nullptr);
}

platform::Answer ConsoleMessageBoxes::Show(const platform::MessageBoxRequest& request) {
    ++shown_;
    progressBar_.Clear();
    PrintError(request.title + QStringLiteral(": ") + FitForATerminal(request.text.trimmed()) +
               QLatin1Char('\n'));
    return request.buttons == platform::Buttons::Ok ? platform::Answer::Ok : platform::Answer::No;
}

}  // namespace tools
