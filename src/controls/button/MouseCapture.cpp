#include "controls/button/MouseCapture.h"

#include "platform/Rounding.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace controls {

namespace {

/// Who holds the capture, and the filter through which all events of the program pass.
class Capture : public QObject {
public:
    using QObject::QObject;

    QWidget* Holder() const { return holder_; }
    void Take(QWidget* window) { holder_ = window; }
    void End();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool EndsBy(const QObject* watched, const QEvent& event) const;
    bool Withholds(const QObject* watched, QMouseEvent& move);
    void TellOfMove(const QMouseEvent& move, const QPointF& position);

    QPointer<QWidget> holder_;
};

Capture& TheCapture() {
    static QPointer<Capture> capture;
    if (capture == nullptr) {
        capture = new Capture(QCoreApplication::instance());
        QCoreApplication::instance()->installEventFilter(capture);
    }
    return *capture;
}

bool IsPopup(const QObject* object) {
    return object->isWidgetType() && static_cast<const QWidget*>(object)->windowType() == Qt::Popup;
}

void Capture::End() {
    const QPointer<QWidget> loser = std::exchange(holder_, nullptr);
    if (loser != nullptr) {
        QEvent lost(QEvent::UngrabMouse);
        QCoreApplication::sendEvent(loser, &lost);
    }
}

bool Capture::eventFilter(QObject* watched, QEvent* event) {
    if (holder_ == nullptr) {
        return false;
    }
    if (event->type() == QEvent::MouseMove) {
        return Withholds(watched, static_cast<QMouseEvent&>(*event));
    }
    if (EndsBy(watched, *event)) {
        End();
    }
    return false;
}

bool Capture::EndsBy(const QObject* watched, const QEvent& event) const {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
            return watched->isWidgetType() && watched != holder_;
        case QEvent::Leave:
            // With a mouse button held the moves go on arriving at the holder, and they know better.
            return watched == holder_ && !IsMouseButtonDown();
        case QEvent::Hide:
        case QEvent::ParentChange:
            return watched == holder_;
        case QEvent::EnabledChange:
            return watched == holder_ && !holder_->isEnabled();
        case QEvent::WindowDeactivate:
            return watched == holder_->window();
        case QEvent::WindowBlocked:
            return watched == holder_->window()->windowHandle();
        case QEvent::Show:
            return IsPopup(watched);
        default:
            return false;
    }
}

bool Capture::Withholds(const QObject* watched, QMouseEvent& move) {
    // A move comes by twice: on its way to a form, before the toolkit tells one control that the pointer left
    // and the next that it arrived, and on its way to a control. Told at the first, the holder has given the
    // capture back by the time that the next control wants it.
    const bool onItsWay = watched->isWindowType() || watched->isWidgetType();
    if (!onItsWay || watched == holder_ || move.buttons() != Qt::NoButton) {
        return false;
    }
    const QPointF position = holder_->mapFromGlobal(move.globalPosition());
    if (holder_->rect().contains(position.toPoint())) {
        return false;
    }
    TellOfMove(move, position);
    if (holder_ != nullptr && !IsPointInWindow(position.x(), position.y(), holder_)) {
        End();
    }
    if (holder_ == nullptr) {
        return false;
    }
    // The pointer is on the edge that counts as inside though it is somebody else's.
    move.accept();
    return true;
}

void Capture::TellOfMove(const QMouseEvent& move, const QPointF& position) {
    QMouseEvent told(QEvent::MouseMove, position, holder_->window()->mapFromGlobal(move.globalPosition()),
                     move.globalPosition(), Qt::NoButton, move.buttons(), move.modifiers(),
                     move.pointingDevice());
    QCoreApplication::sendEvent(holder_, &told);
}

}  // namespace

bool SetMouseCapture(QWidget* window) {
    const bool heldElsewhere =
        QWidget::mouseGrabber() != nullptr || QApplication::activePopupWidget() != nullptr;
    if (window == nullptr || !window->isVisible() || heldElsewhere || TheCapture().Holder() != nullptr) {
        return false;
    }
    TheCapture().Take(window);
    return true;
}

void ReleaseMouseCapture() {
    TheCapture().End();
}

bool IsPointInWindow(double x, double y, const QWidget* window) {
    if (window == nullptr) {
        return false;
    }
    const int column = platform::ToLong(x);
    const int row = platform::ToLong(y);
    return 0 <= column && column <= window->width() && 0 <= row && row <= window->height();
}

bool IsMouseButtonDown() {
    return (QGuiApplication::mouseButtons() & (Qt::LeftButton | Qt::RightButton)) != 0;
}

}  // namespace controls
