#include "gallery/Staging.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QWidget>

namespace gallery {

void StageFocus(QWidget* sample) {
    QFocusEvent arrival(QEvent::FocusIn, Qt::OtherFocusReason);
    QApplication::sendEvent(sample, &arrival);
}

void StagePress(QWidget* sample) {
    const QPointF middle = sample->rect().center();
    QMouseEvent press(QEvent::MouseButtonPress, middle, sample->mapToGlobal(middle), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(sample, &press);
}

}  // namespace gallery
