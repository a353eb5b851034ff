#pragma once

#include "controls/base/Control.h"
#include "controls/base/Drawing.h"
#include "controls/clsSkin.h"

namespace gallery {

/// An area that a skin has painted. A screen reader calls it a picture.
class SkinSample : public controls::Control {
    Q_OBJECT

public:
    SkinSample(const controls::clsSkin& skin, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    controls::clsSkin skin_;
    controls::Drawing drawing_;
};

}  // namespace gallery
