#pragma once

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QSize>
#include <QString>
#include <QWindow>

#include <functional>

/// Window programs for tests on a real screen tell on their output, line by line, what happens to them. Lines
/// are told from the moment when the first window is ready.
///
/// Tells a line, after what has become of the watched values until now.
void Tell(const QString& line);

/// A value that takes part in the story while it lives. Each time when an event has changed it, it is told:
/// "<name> <value>".
class Watched {
public:
    Watched(QString name, std::function<QString()> value);
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;
    ~Watched();

    static void TellChanges();

private:
    QString name_;
    std::function<QString()> value_;
    QString told_;
};

/// The text of a box as the user sees it: "12|5" with the caret, "|[125]" with what is selected. Without the
/// focus the text alone.
QString Marked(const QLineEdit& box);

/// From here on each move of the focus is told: "focus " and the path of the widget that has it, by the names
/// of the objects, and for a box its text as the user sees it.
void TellFocus();

/// Looks at the watched values after each event.
class StoryApplication : public QApplication {
public:
    StoryApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

void TellReady(WId window);

/// A window that says once when the user sees it and can work it: "ready" and its number. All that its being
/// active brings with it has happened by then.
template <class Base>
class ReadyWindow : public Base {
public:
    using Base::Base;

protected:
    bool event(QEvent* event) override {
        const bool result = Base::event(event);
        if (!isReady_ && this->isActiveWindow() && this->windowHandle()->isExposed()) {
            isReady_ = true;
            QMetaObject::invokeMethod(
                this, [this] { TellReady(this->winId()); }, Qt::QueuedConnection);
        }
        return result;
    }

private:
    bool isReady_ = false;
};

/// Shows the form of a program where its first two arguments (left and top) say, and works until it is ended.
int RunForm(QWidget& form, QSize size);
