#include "platform/MessageBox.h"

#include "platform/Console.h"

#include <vector>

namespace platform {

namespace {

/// Where boxes go in a program without windows.
class StandardErrorPort : public MessageBoxPort {
public:
    Answer Show(const MessageBoxRequest& request) override {
        static_cast<void>(WriteText(Stream::Errors,
                                    request.title + QLatin1String(": ") + request.text + QLatin1Char('\n')));
        return request.buttons == Buttons::Ok ? Answer::Ok : Answer::No;
    }
};

MessageBoxPort* currentPort = nullptr;

std::vector<std::function<void()>>& ActionsBefore() {
    // Never destroyed: a box may still have to be shown while the process takes itself down.
    static auto& actions = *new std::vector<std::function<void()>>;
    return actions;
}

void RunActionsBefore() {
    // A box that an action itself shows, to tell of a lost write, is a part of that action.
    static bool running = false;
    if (running) {
        return;
    }
    running = true;
    // A copy: an action may add another one.
    const std::vector<std::function<void()>> actions = ActionsBefore();
    for (const std::function<void()>& action : actions) {
        try {
            action();
        } catch (...) {
            // The box has to be seen all the same, and what failed here is due again at the next box and at
            // the end of the process.
        }
    }
    running = false;
}

Answer Show(const MessageBoxRequest& request) {
    RunActionsBefore();
    static StandardErrorPort firstPort;
    return (currentPort != nullptr ? *currentPort : firstPort).Show(request);
}

}  // namespace

QString ApplicationTitle() {
    return QStringLiteral("Wrenfield Wizard");
}

void SetMessageBoxPort(MessageBoxPort* port) {
    currentPort = port;
}

void BeforeMessageBox(std::function<void()> action) {
    ActionsBefore().push_back(std::move(action));
}

void ShowMessageBox(const QString& text, const QString& title) {
    Show({text, title, Buttons::Ok, Icon::None});
}

bool AskQuestion(const QString& text, const QString& title) {
    return Show({text, title, Buttons::YesNo, Icon::Question}) == Answer::Yes;
}

}  // namespace platform
