#pragma once

namespace controls {
class Canvas;
}

/// Module UI: the start of the process and the frame of its form.
namespace shell {

/// The wizard from its start to its end. Returns the status of the process if the event loop ends by itself.
int Main(int argc, char** argv);

/// White ground with the frame that stands for a border.
void PaintMainForm(controls::Canvas& form);

}  // namespace shell
