#pragma once

#include <functional>

namespace controls {

/// Sounds the desktop's own beep.
void SystemBeep();

/// Tests listen: from here on the beep is this call. An empty one goes back to the sound.
void SetSystemBeep(std::function<void()> beep);

}  // namespace controls
