#include "controls/ctlButton.h"

#include "controls/base/Accessible.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"
#include "controls/base/HandCursor.h"
#include "controls/base/Keys.h"
#include "controls/button/ButtonAccessible.h"
#include "controls/button/MouseCapture.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace controls {

namespace {

enum class Input { PointerMoved, MousePressed, MouseReleased, FocusArrived, FocusLeft, PointerLost };

struct Mouse {
    bool down = false;
    bool inside = false;
};

/// The whole state machine. What came before doesn't matter: the state tells where mouse and focus are now.
ButtonStates StateAfter(Input input, Mouse mouse = {}) {
    switch (input) {
        case Input::PointerMoved:
            if (mouse.down && mouse.inside) {
                return ButtonStates::Down;
            }
            // Pressed and dragged off looks like the mouse hovering: the press can still be completed.
            return mouse.down || mouse.inside ? ButtonStates::Hover : ButtonStates::Normal;
        case Input::MousePressed:
            return ButtonStates::Down;
        case Input::MouseReleased:
            return mouse.inside ? ButtonStates::Hover : ButtonStates::Normal;
        case Input::FocusArrived:
            return ButtonStates::Hover;
        case Input::FocusLeft:
        case Input::PointerLost:
            break;
    }
    return ButtonStates::Normal;
}

}  // namespace

ctlButton::ctlButton(QWidget* parent) : Control(parent) {
    RegisterAccessible<ctlButton, ButtonAccessible>();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setFont(ControlFont());
    ApplyHandCursor();
}

ctlButton::ctlButton(const Properties& saved, QWidget* parent) : ctlButton(parent) {
    SetCaption(saved.Caption);
    SetDefault(saved.Default);
    SetCancel(saved.Cancel);
    SetEnabled(saved.Enabled);
    SetLinkButton(saved.LinkButton);
    SetBackColor(saved.BackColour);
}

void ctlButton::SetEnabled(bool enabled) {
    if (enabled == enabled_) {
        return;
    }
    enabled_ = enabled;
    UpdateLook();
    if (enabled_) {
        ApplyHandCursor();
    } else {
        unsetCursor();
    }
    AnnounceEnabled(*this);
}

void ctlButton::SetPic(const QPixmap& pic) {
    pic_ = pic;
    if (!pic_.isNull()) {
        const QSizeF size = pic_.deviceIndependentSize() * TwipsPerPixel();
        imgIcon_ = QRectF(QPointF((Width() - size.width()) / 2, (Height() - size.height()) / 2), size);
    }
    update();
}

void ctlButton::SetDefault(bool isDefault) {
    default_ = isDefault;
    UpdateLook();
}

void ctlButton::SetCancel(bool cancel) {
    cancel_ = cancel;
}

void ctlButton::SetCaption(const QString& caption) {
    const bool changed = caption != caption_;
    caption_ = caption;
    UpdateLook();
    if (changed) {
        AnnounceCaption(*this);
    }
}

void ctlButton::SetBackColor(Colour backColor) {
    backColor_ = backColor;
    UpdateLook();
}

void ctlButton::SetLinkButton(bool linkButton) {
    linkButton_ = linkButton;
    if (linkButton_) {
        Show({.BackColor = backColor_});
    }
}

void ctlButton::DoClick() {
    if (enabled_) {
        Q_EMIT Click();
    }
}

void ctlButton::SetButtonState(ButtonStates state) {
    if (state == buttonState_) {
        return;
    }
    const bool pressedChanged = (state == ButtonStates::Down) != (buttonState_ == ButtonStates::Down);
    buttonState_ = state;
    UpdateLook();
    if (pressedChanged) {
        AnnouncePressed(*this);
    }
}

void ctlButton::UpdateLook() {
    // Only a window that is disabled itself shows nothing. On a form that is disabled as a whole, a button
    // looks as one that can't be clicked.
    Show({.Blank = !isEnabledTo(parentWidget()),
          .Caption = caption_,
          .BackColor = backColor_,
          .Enabled = enabled_ && isEnabled(),
          .LinkButton = linkButton_,
          .State = buttonState_});
}

void ctlButton::Show(const ButtonLook& look) {
    if (look != look_) {
        look_ = look;
        update();
    }
}

void ctlButton::ApplyHandCursor() {
    setCursor(HandCursor());
}

void ctlButton::PointerMoved(const QPointF& position) {
    const bool inside = IsPointInWindow(position.x(), position.y(), this);
    mouseDownFlag_ = IsMouseButtonDown();
    SetButtonState(StateAfter(Input::PointerMoved, {.down = mouseDownFlag_, .inside = inside}));
    captureHeld_ = captureHeld_ || SetMouseCapture(this);
    if (captureHeld_ && !mouseDownFlag_ && !inside) {
        ReleaseMouseCapture();
    }
}

void ctlButton::PointerReleased(const QPointF& position) {
    mouseDownFlag_ = false;
    const bool inside = IsPointInWindow(position.x(), position.y(), this);
    SetButtonState(StateAfter(Input::MouseReleased, {.inside = inside}));
    if (inside) {
        // Whatever happened during the press, the capture is needed to see the pointer leave.
        SetMouseCapture(this);
    } else {
        ReleaseMouseCapture();
    }
}

void ctlButton::PointerLost() {
    captureHeld_ = false;
    SetButtonState(StateAfter(Input::PointerLost));
}

bool ctlButton::IsOnIcon(const QPointF& position) const {
    const QPointF twips = position * TwipsPerPixel();
    return !pic_.isNull() && imgIcon_.left() <= twips.x() && twips.x() <= imgIcon_.right() &&
           imgIcon_.top() <= twips.y() && twips.y() <= imgIcon_.bottom();
}

bool ctlButton::event(QEvent* event) {
    if (event->type() == QEvent::UngrabMouse) {
        PointerLost();
        return true;
    }
    return Control::event(event);
}

void ctlButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        pressedByLeftButton_ = false;
        UpdateLook();
    }
    Control::changeEvent(event);
}

void ctlButton::enterEvent(QEnterEvent* event) {
    // Where a form or a page opens under a pointer that rests, no move follows.
    if (!IsMouseButtonDown()) {
        PointerMoved(event->position());
    }
}

void ctlButton::focusInEvent(QFocusEvent* /*event*/) {
    if (!enabled_) {
        SendTab();
    }
    SetButtonState(StateAfter(Input::FocusArrived));
}

void ctlButton::focusOutEvent(QFocusEvent* /*event*/) {
    SetButtonState(StateAfter(Input::FocusLeft));
}

void ctlButton::hideEvent(QHideEvent* /*event*/) {
    pressedByLeftButton_ = false;
    PointerLost();
}

void ctlButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT Click();
        return;
    }
    Control::keyPressEvent(event);
}

void ctlButton::leaveEvent(QEvent* /*event*/) {
    // The pointer can leave without a move that would tell, such as over the edge of the form. With a mouse
    // button held the moves go on arriving, and they know better.
    if (!IsMouseButtonDown()) {
        PointerLost();
    }
}

void ctlButton::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    secondPress_ = event->button();
}

void ctlButton::mouseMoveEvent(QMouseEvent* event) {
    PointerMoved(event->position());
}

void ctlButton::mousePressEvent(QMouseEvent* event) {
    pressedByLeftButton_ = pressedByLeftButton_ || event->button() == Qt::LeftButton;
    secondPress_ = Qt::NoButton;
    mouseDownFlag_ = true;
    SetButtonState(StateAfter(Input::MousePressed));
}

void ctlButton::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF position = event->position();
    const bool ofLeftButton = event->button() == Qt::LeftButton;
    const bool wasPressed = ofLeftButton && std::exchange(pressedByLeftButton_, false);
    const bool endsDoubleClick = event->button() == std::exchange(secondPress_, Qt::NoButton);
    PointerReleased(position);
    const bool inside = IsPointInWindow(position.x(), position.y(), this);
    const bool clicked = wasPressed && rect().contains(position.toPoint());
    if (!endsDoubleClick && (clicked || (inside && IsOnIcon(position)))) {
        DoClick();
    }
}

void ctlButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    DrawLook(canvas, look_, font());
    if (!pic_.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(ToPixels(imgIcon_.left()), ToPixels(imgIcon_.top()), pic_);
    }
}

void ctlButton::resizeEvent(QResizeEvent* /*event*/) {
    UpdateLook();
}

}  // namespace controls
