#pragma once

#include "shell/WizardPages.h"

#include <vector>

namespace controls {
class Canvas;
}

/// Module UI: the start of the process and the frame of its form.
namespace shell {

/// The wizard from its start to its end. Returns the status of the process if the event loop ends by itself.
/// A failure that nobody handles, also one while the form is made, ends the process here, while there are
/// message boxes to tell it.
int Main(int argc, char** argv, std::vector<PageKind> kinds = Pages());

/// White ground with the frame that stands for a border.
void PaintMainForm(controls::Canvas& form);

}  // namespace shell
