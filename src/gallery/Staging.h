#pragma once

class QWidget;

namespace gallery {

/// Lets a sample look as if it had the focus, without taking the focus from the one that has it.
void StageFocus(QWidget* sample);

/// Lets a sample look as if the left mouse button were held down on it. The user's own mouse takes over as
/// soon as it comes there.
void StagePress(QWidget* sample);

}  // namespace gallery
