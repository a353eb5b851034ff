#pragma once

#include <set>

/// A button of 105 by 25 pixels told anew and plainly, by what the user does: where the mouse is, which of
/// its buttons are held ('L', 'R', 'M'), where the focus is. Beside the button there is a place for the focus
/// to go to, and another window that may hold the mouse capture and that the pointer is never on.
class NaiveButton {
public:
    int state = 0;
    bool captureHeld = false;
    bool mouseDown = false;
    int clicks = 0;
    bool enabled = true;
    bool focused = false;
    enum class Holder { Nobody, Button, Other } holder = Holder::Nobody;

    void MoveTo(int newX, int newY) {
        x = newX;
        y = newY;
        if (!held.empty()) {
            if (pressWentToButton) {
                Moved();
            }
            return;
        }
        if (holder == Holder::Other) {
            holder = Holder::Nobody;
        }
        if (holder == Holder::Button && !OnButton()) {
            Moved();
            if (holder == Holder::Button && Inside()) {
                return;  // on the outer edge nobody else hears of the pointer
            }
            GiveUp();
        }
        if (pointerWasOnButton && !OnButton()) {
            GiveUp();
        }
        pointerWasOnButton = OnButton();
        if (OnButton()) {
            Moved();
        }
    }

    void LeaveWindow() {
        x = y = 10000;
        if (pointerWasOnButton) {
            GiveUp();
        }
        pointerWasOnButton = false;
    }

    void Press(char button) {
        if (held.empty()) {
            pressWentToButton = OnButton();
        }
        held.insert(button);
        if (!pressWentToButton) {
            if (holder == Holder::Button) {
                GiveUp();
            }
            holder = Holder::Nobody;
            return;
        }
        if (holder == Holder::Other) {
            holder = Holder::Nobody;
        }
        // A second button pressed after dragging off moves no focus.
        const bool focusPassesOn = OnButton() && !focused && !enabled;
        focused = focused || OnButton();
        state = 2;
        mouseDown = true;
        leftWentDown = leftWentDown || button == 'L';
        if (focusPassesOn) {
            FocusLeaves();
        }
    }

    void Release(char button) {
        held.erase(button);
        if (pressWentToButton) {
            ReleasedOnButton(button);
        }
        if (held.empty()) {
            if (pressWentToButton && !OnButton()) {
                GiveUp();
            }
            if (!pressWentToButton && OnButton()) {
                Moved();  // the pointer is found on it without a move
            }
            pressWentToButton = false;
            pointerWasOnButton = OnButton();
        }
    }

    void FocusArrives() {
        if (focused) {
            return;
        }
        focused = true;
        state = 1;
        if (!enabled) {
            FocusLeaves();
        }
    }

    void FocusLeaves() {
        if (focused) {
            focused = false;
            state = 0;
        }
    }

    void Enter() { clicks += focused ? 1 : 0; }
    void DoClick() { clicks += enabled ? 1 : 0; }

    void OtherTakesCapture() {
        if (holder == Holder::Nobody) {
            holder = Holder::Other;
        }
    }
    void OtherGivesBack() {
        if (holder == Holder::Other) {
            holder = Holder::Nobody;
        }
    }

private:
    bool OnButton() const { return x >= 0 && x < 105 && y >= 0 && y < 25; }
    bool Inside() const { return x >= 0 && x <= 105 && y >= 0 && y <= 25; }

    void Moved() {
        mouseDown = held.count('L') + held.count('R') > 0;
        // Held and inside is 2, either of them 1, neither 0.
        state = (mouseDown ? 1 : 0) + (Inside() ? 1 : 0);
        if (!captureHeld) {
            if (holder != Holder::Nobody) {
                return;
            }
            holder = Holder::Button;
            captureHeld = true;
        }
        if (state == 0) {
            holder = Holder::Nobody;
            captureHeld = false;
        }
    }

    void GiveUp() {
        if (holder == Holder::Button) {
            holder = Holder::Nobody;
        }
        captureHeld = false;
        state = 0;
    }

    void ReleasedOnButton(char button) {
        mouseDown = false;
        if (Inside()) {
            state = 1;
            if (holder == Holder::Nobody) {
                holder = Holder::Button;
            }
        } else {
            state = 0;
            holder = Holder::Nobody;
            captureHeld = false;
        }
        if (button == 'L') {
            clicks += leftWentDown && OnButton() && enabled ? 1 : 0;
            leftWentDown = false;
        }
    }

    int x = 10000;
    int y = 10000;
    std::set<char> held;
    bool pressWentToButton = false;
    bool leftWentDown = false;
    bool pointerWasOnButton = false;
};
