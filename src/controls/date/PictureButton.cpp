#include "controls/date/PictureButton.h"

#include "controls/base/Accessible.h"
#include "controls/base/ClickableAccessible.h"

#include <QKeyEvent>
#include <QPainter>

namespace controls {

PictureButton::PictureButton(Arrows picture, QWidget* parent) : QPushButton(parent), picture_(picture) {
    RegisterAccessible<PictureButton, ClickableAccessible>();
    // Enter belongs to the button that has the focus and to no other of the dialog.
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void PictureButton::mouseDoubleClickEvent(QMouseEvent* event) {
    if (picture_ != Arrows::Down) {
        QPushButton::mouseDoubleClickEvent(event);
    }
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    DrawArrowFace(painter, rect(),
                  {.Picture = picture_, .Enabled = isEnabled(), .IsDown = isDown(), .HasFocus = hasFocus()});
}

}  // namespace controls
