#pragma once

#include "controls/base/ArrowFace.h"

#include <QPushButton>

namespace controls {

/// A small button with a picture in place of a caption. It is pressed by the mouse, by the space bar and by
/// Enter, and has a frame within its edge while it has the focus. A double click on the arrow that opens is
/// one click; on one that steps each press is a step.
class PictureButton : public QPushButton {
    Q_OBJECT

public:
    PictureButton(Arrows picture, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Arrows picture_;
};

}  // namespace controls
