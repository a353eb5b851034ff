// A form with buttons for tests on a real screen. It prints a line for each change of a button's state, for
// each click, and when a window can be used ("ready" and its number). Arguments: left and top of the form.

#include "controls/Palette.h"
#include "controls/ctlButton.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QWindow>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace controls;

void Print(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

std::vector<const ctlButton*> watched;
std::map<const ctlButton*, ButtonStates> printed;

void PrintStates() {
    for (const ctlButton* button : watched) {
        if (printed[button] != button->ButtonState()) {
            printed[button] = button->ButtonState();
            Print(button->objectName().toStdString() + " state " +
                  std::to_string(static_cast<int>(button->ButtonState())));
        }
    }
}

/// Looks at the buttons after each event.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool result = QApplication::notify(receiver, event);
        PrintStates();
        return result;
    }
};

/// A window that says once when the user sees it and can work it.
template <class Base>
class ReadyWindow : public Base {
public:
    using Base::Base;

protected:
    bool event(QEvent* event) override {
        const bool result = Base::event(event);
        if (!told_ && this->isActiveWindow() && this->windowHandle()->isExposed()) {
            told_ = true;
            Print("ready " + std::to_string(this->winId()));
        }
        return result;
    }

private:
    bool told_ = false;
};

/// A button that takes part in the story under its name.
class WatchedButton : public ctlButton {
public:
    WatchedButton(const QString& name, QPoint place, QWidget* parent) : ctlButton({.Caption = name}, parent) {
        setObjectName(name);
        setGeometry(QRect(place, QSize(105, 25)));
        watched.push_back(this);
        QObject::connect(this, &ctlButton::Click, [this] {
            PrintStates();
            Print(objectName().toStdString() + " clicked");
        });
    }
    WatchedButton(const WatchedButton&) = delete;
    WatchedButton& operator=(const WatchedButton&) = delete;
    ~WatchedButton() override {
        std::erase(watched, this);
        printed.erase(this);
    }
};

void ShowDialog(QWidget& form) {
    ReadyWindow<QDialog> dialog(&form);
    dialog.setGeometry(form.x() + 450, form.y(), 200, 100);
    const QLineEdit focus(&dialog);
    WatchedButton close(QStringLiteral("close"), {40, 40}, &dialog);
    QObject::connect(&close, &ctlButton::Click, &dialog, &QDialog::accept);
    dialog.exec();
    Print("dialog closed");
}

}  // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    InitialiseColours();
    ReadyWindow<QWidget> form;
    QLineEdit field(&form);
    field.move(40, 150);
    const WatchedButton first(QStringLiteral("first"), {40, 40}, &form);
    const WatchedButton second(QStringLiteral("second"), {145, 40}, &form);
    const WatchedButton opener(QStringLiteral("opener"), {40, 100}, &form);
    QObject::connect(&opener, &ctlButton::Click, &form, [&form] { ShowDialog(form); });
    const QStringList arguments = QApplication::arguments();
    form.setGeometry(arguments.value(1).toInt(), arguments.value(2).toInt(), 400, 200);
    form.show();
    return QApplication::exec();
}
