#pragma once

#include <QString>

#include <functional>

namespace platform {

enum class Buttons { Ok, YesNo };
enum class Icon { None, Question };
enum class Answer { Ok, Yes, No };

/// One message box. The text is plain text, never markup, and may hold line breaks.
/// A question always has No as its default button.
struct MessageBoxRequest {
    QString text;
    QString title;
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;

    bool operator==(const MessageBoxRequest&) const = default;
};

/// The one doorway for message boxes: the wizard shows real ones, the batch tool prints, tests record.
class MessageBoxPort {
public:
    MessageBoxPort() = default;
    MessageBoxPort(const MessageBoxPort&) = delete;
    MessageBoxPort& operator=(const MessageBoxPort&) = delete;
    virtual ~MessageBoxPort() = default;

    /// Returns when the user has pressed a button, and says which one.
    virtual Answer Show(const MessageBoxRequest& request) = 0;
};

/// The title of boxes that name none: the application's.
QString ApplicationTitle();

/// Sets where boxes go. The port is not owned and must outlive its use; null goes back to the first port,
/// which prints to standard error and answers Ok or No.
void SetMessageBoxPort(MessageBoxPort* port);

/// Something that has to be done before a box holds the program up, such as bringing writes to the disk.
/// May be called several times; the actions run in that order.
void BeforeMessageBox(std::function<void()> action);

/// A box with an OK button.
void ShowMessageBox(const QString& text, const QString& title = ApplicationTitle());

/// A box with the question icon, Yes and No. True on Yes.
bool AskQuestion(const QString& text, const QString& title = ApplicationTitle());

}  // namespace platform
