#pragma once

#include "platform/MessageBox.h"

namespace shell {

/// Message boxes on the screen, in front of the window that is active: plain text as it stands, the buttons
/// "OK" or "Yes" and "No", with No as the default of every question. It is also the answer of Escape and of
/// the box's close button, but on Windows, where the system's questions take no other answer than a button.
class ScreenMessageBoxes : public platform::MessageBoxPort {
public:
    platform::Answer Show(const platform::MessageBoxRequest& request) override;
};

}  // namespace shell
