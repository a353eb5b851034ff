#include "button/Mouse.h"
#include "button/NaiveButton.h"
#include "controls/button/MouseCapture.h"
#include "controls/ctlButton.h"
#include "support/OnScreen.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <deque>
#include <random>
#include <sstream>
#include <string>

namespace {

using namespace controls;

constexpr int Events = 10'000;

unsigned Seed() {
    const QByteArray wanted = qgetenv("WRENFIELD_SEED");
    return wanted.isEmpty() ? 20261121U : wanted.toUInt();
}

/// Gives a button and the model of one the same random day.
class ButtonRandomTest : public ::testing::Test {
protected:
    ButtonRandomTest() : button(&window), field(&window), other(&window), mouse(window), random(Seed()) {
        window.resize(400, 200);
        button.setGeometry(40, 40, 105, 25);
        field.setGeometry(40, 100, 105, 25);
        other.setGeometry(250, 150, 20, 20);
        QObject::connect(&button, &ctlButton::Click, [this] { ++clicks; });
        ShowAndActivate(window);
        field.setFocus();
    }
    ~ButtonRandomTest() override { ReleaseMouseCapture(); }

    int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); }

    /// A place around the button, often on or near one of its edges.
    QPoint AnyPlace() {
        static const int columns[] = {-7, -1, 0, 1, 50, 103, 104, 105, 106, 120};
        static const int rows[] = {-7, -1, 0, 1, 12, 23, 24, 25, 26, 40};
        return {columns[Below(10)], rows[Below(10)]};
    }

    void Note(const std::string& event) {
        latest.push_back(event);
        if (latest.size() > 25) {
            latest.pop_front();
        }
    }

    void Move() {
        QPoint place = AnyPlace();
        while (place == last) {
            place = AnyPlace();
        }
        last = place;
        Note("move to " + std::to_string(place.x()) + ", " + std::to_string(place.y()));
        mouse.MoveTo(button, place);
        model.MoveTo(place.x(), place.y());
    }

    void PressOrRelease() {
        static const Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton,
                                                  Qt::MiddleButton};
        const Qt::MouseButton which = buttons[Below(4)];
        const char letter = which == Qt::LeftButton ? 'L' : which == Qt::RightButton ? 'R' : 'M';
        if (held.testFlag(which)) {
            Note(std::string("release ") + letter);
            held.setFlag(which, false);
            mouse.Release(which);
            model.Release(letter);
        } else if (last.x() < 1000) {
            Note(std::string("press ") + letter);
            held.setFlag(which);
            mouse.Press(which);
            model.Press(letter);
        }
    }

    void Leave() {
        if (held == Qt::NoButton && last.x() < 1000) {
            Note("leave the window");
            last = {10000, 10000};
            mouse.LeaveWindow();
            model.LeaveWindow();
        }
    }

    void Focus() {
        if (Below(2) == 0) {
            Note("focus arrives");
            button.setFocus();
            QCoreApplication::processEvents();
            model.FocusArrives();
        } else {
            Note("focus leaves");
            field.setFocus();
            model.FocusLeaves();
        }
    }

    void Work() {
        switch (Below(5)) {
            case 0:
                Note("toggle Enabled");
                model.enabled = !model.enabled;
                button.SetEnabled(model.enabled);
                break;
            case 1:
                Note("Enter");
                QTest::keyClick(window.windowHandle(), Below(2) == 0 ? Qt::Key_Return : Qt::Key_Enter);
                model.Enter();
                break;
            case 2:
                Note("DoClick");
                button.DoClick();
                model.DoClick();
                break;
            case 3:
                Note("another takes the capture");
                SetMouseCapture(&other);
                model.OtherTakesCapture();
                break;
            default:
                Note("another gives the capture back");
                if (model.holder == NaiveButton::Holder::Other) {
                    ReleaseMouseCapture();
                }
                model.OtherGivesBack();
                break;
        }
    }

    void Step() {
        const int kind = Below(20);
        if (kind < 9) {
            Move();
        } else if (kind < 14) {
            PressOrRelease();
        } else if (kind < 15) {
            Leave();
        } else if (kind < 17) {
            Focus();
        } else {
            Work();
        }
    }

    bool Agrees() const {
        return static_cast<int>(button.ButtonState()) == model.state &&
               button.CaptureHeld() == model.captureHeld && button.MouseDownFlag() == model.mouseDown &&
               button.hasFocus() == model.focused && clicks == model.clicks;
    }

    std::string Difference() const {
        std::ostringstream text;
        text << "state " << static_cast<int>(button.ButtonState()) << " (model " << model.state
             << "), capture " << button.CaptureHeld() << " (" << model.captureHeld << "), mouse down "
             << button.MouseDownFlag() << " (" << model.mouseDown << "), focus " << button.hasFocus() << " ("
             << model.focused << "), clicks " << clicks << " (" << model.clicks << ")\nafter";
        for (const std::string& event : latest) {
            text << "\n  " << event;
        }
        return text.str();
    }

    QWidget window;
    ctlButton button;
    QLineEdit field;
    QWidget other;
    Mouse mouse;
    int clicks = 0;

    NaiveButton model;
    std::mt19937 random;
    QPoint last{10000, 10000};
    Qt::MouseButtons held;
    std::deque<std::string> latest;
};

TEST_F(ButtonRandomTest, AgreesWithThePlainModelAllDayLong) {
    int downs = 0;
    int hovers = 0;
    int captures = 0;
    for (int step = 0; step < Events; ++step) {
        Step();
        ASSERT_TRUE(Agrees()) << "WRENFIELD_SEED=" << Seed() << ", event " << step << ": " << Difference();
        downs += model.state == 2 ? 1 : 0;
        hovers += model.state == 1 ? 1 : 0;
        captures += model.captureHeld ? 1 : 0;
    }
    // The day was a full one.
    EXPECT_GT(downs, Events / 50);
    EXPECT_GT(hovers, Events / 10);
    EXPECT_GT(captures, Events / 10);
    EXPECT_GT(clicks, Events / 50);
}

}  // namespace
