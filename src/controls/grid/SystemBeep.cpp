#include "controls/grid/SystemBeep.h"

#include <QApplication>

#include <utility>

namespace controls {

namespace {

std::function<void()>& Listener() {
    static std::function<void()> listener;
    return listener;
}

}  // namespace

void SystemBeep() {
    if (Listener()) {
        Listener()();
    } else {
        QApplication::beep();
    }
}

void SetSystemBeep(std::function<void()> beep) {
    Listener() = std::move(beep);
}

}  // namespace controls
