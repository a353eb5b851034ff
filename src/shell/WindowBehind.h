#pragma once

class QWidget;

namespace shell {

/// The window that a message box belongs in front of, also while it isn't active yet or another program is.
/// Null if there is none.
QWidget* WindowBehind();

}  // namespace shell
