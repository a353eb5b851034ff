#include "gallery/SkinSample.h"

#include "controls/base/Accessible.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace gallery {

namespace {

class SkinAccessible : public QAccessibleWidget {
public:
    explicit SkinAccessible(QWidget* sample) : QAccessibleWidget(sample, QAccessible::Graphic) {}
};

}  // namespace

SkinSample::SkinSample(const controls::clsSkin& skin, QWidget* parent)
    : controls::Control(parent), skin_(skin) {
    controls::RegisterAccessible<SkinSample, SkinAccessible>();
}

void SkinSample::resizeEvent(QResizeEvent* event) {
    Control::resizeEvent(event);
    drawing_.Begin(Width(), Height(), depth());
    skin_.DrawGradient(&drawing_, 0, 0, Width(), Height());
}

void SkinSample::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    controls::PaintedCanvas canvas(&painter, width(), height());
    drawing_.DrawOn(canvas);
}

}  // namespace gallery
