#pragma once

#include "controls/base/Control.h"
#include "controls/button/ButtonLook.h"

#include <QPixmap>

namespace controls {

/// The push button of all pages and dialogs: a picture with an outline and a caption, which changes its look
/// under the mouse, with the focus and while it is pressed. As a LinkButton it looks like a link on a page.
///
/// Click is raised by a click with the left mouse button (pressed and let go inside), by letting go of any
/// mouse button on the icon, by Enter while the button has the focus, and by DoClick. A button that isn't
/// Enabled raises it for Enter alone. The Space bar does nothing. A click raises it once, and the button may
/// be destroyed by it. A double click is one click: who doubles it skips no page, and what a dialog has left
/// under the mouse isn't clicked by the second half.
///
/// A button that isn't Enabled passes the focus on as if Tab had been pressed. It goes on following mouse and
/// focus; only its look doesn't tell.
class ctlButton : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)

public:
    /// What a form saves of a button, in the order in which it is taken over.
    struct Properties {
        QString Caption = {};
        bool Default = false;
        bool Cancel = false;
        bool Enabled = true;
        bool LinkButton = false;
        Colour BackColour = White;
    };

    /// A new button.
    explicit ctlButton(QWidget* parent = nullptr);
    /// A button as it was saved.
    explicit ctlButton(const Properties& saved, QWidget* parent = nullptr);

    /// Whether the user can click it, and the look that says so. This is a field of the button's own and not
    /// isEnabled(), the flag of its window: a button whose own window is disabled shows nothing but its
    /// ground. A form that is disabled takes its buttons along, and they look like buttons that aren't
    /// Enabled.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    /// An icon in the middle of the button, empty for none. The middle is that of the time when it is set.
    const QPixmap& Pic() const { return pic_; }
    void SetPic(const QPixmap& pic);

    /// Kept for the form that saves them. The button itself makes no Enter or Escape key of its form out of
    /// them.
    bool Default() const { return default_; }
    void SetDefault(bool isDefault);
    bool Cancel() const { return cancel_; }
    void SetCancel(bool cancel);

    const QString& Caption() const { return caption_; }
    void SetCaption(const QString& caption);

    /// The ground that shows beside and below the picture, and behind a link.
    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour backColor);

    /// Setting it empties the surface, and clearing it leaves the surface as it is; the new look comes with
    /// the next change of another kind, such as the mouse arriving.
    bool LinkButton() const { return linkButton_; }
    void SetLinkButton(bool linkButton);

    /// Presses the button by program: raises Click if Enabled.
    void DoClick();

    ButtonStates ButtonState() const { return buttonState_; }
    /// This button took the mouse capture and hasn't given it back.
    bool CaptureHeld() const { return captureHeld_; }
    /// The last look at the mouse found one of its buttons held down.
    bool MouseDownFlag() const { return mouseDownFlag_; }

Q_SIGNALS:
    void Click();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using QWidget::setDisabled;
    // One letter away from SetEnabled, and the button would vanish.
    using QWidget::setEnabled;

    void SetButtonState(ButtonStates state);
    void UpdateLook();
    void Show(const ButtonLook& look);
    void ApplyHandCursor();

    void PointerMoved(const QPointF& position);
    void PointerReleased(const QPointF& position);
    /// The one end of hovering and of the capture. The capture ends by the module's own rules and tells so by
    /// QEvent::UngrabMouse; a button that couldn't get it learns from the toolkit that the pointer left, or
    /// that it is hidden.
    void PointerLost();
    bool IsOnIcon(const QPointF& position) const;

    QString caption_;
    bool cancel_ = false;
    bool default_ = false;
    bool enabled_ = true;
    bool linkButton_ = false;
    Colour backColor_ = White;
    ButtonStates buttonState_ = ButtonStates::Normal;
    bool captureHeld_ = false;
    bool mouseDownFlag_ = false;
    bool pressedByLeftButton_ = false;
    /// The mouse button that is held for the second time of a double click.
    Qt::MouseButton secondPress_ = Qt::NoButton;

    /// What the surface shows since the last UpdateLook.
    ButtonLook look_;

    /// The icon and its place in twips.
    QPixmap pic_;
    QRectF imgIcon_;
};

}  // namespace controls
