#include "engine/Waiting.h"

namespace engine {

namespace {
WaitingListener* current = nullptr;
}

void SetWaitingListener(WaitingListener* listener) {
    current = listener;
}

bool GoesOn() {
    return current == nullptr || current->GoesOn();
}

void TellHeldUp(bool isHeldUp) {
    if (current != nullptr) {
        current->HeldUp(isHeldUp);
    }
}

}  // namespace engine
