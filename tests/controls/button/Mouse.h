#pragma once

#include <QPoint>
#include <QWidget>

/// The user's mouse over one window that is shown. What it does goes the whole way through Qt: to the window,
/// then to the control that the pointer is on or that was pressed, with Enter and Leave in between.
/// The place (0, 0) of the window itself can't be pressed. Buttons still held at the end are let go.
class Mouse {
public:
    explicit Mouse(QWidget& window) : window_(window) {}
    Mouse(const Mouse&) = delete;
    Mouse& operator=(const Mouse&) = delete;
    ~Mouse();

    /// Moves to a pixel of the widget, which may lie outside of it but not outside of the window unless a
    /// button is held.
    void MoveTo(const QWidget& widget, QPoint place);
    void MoveTo(const QWidget& widget) { MoveTo(widget, widget.rect().center()); }

    /// Moves to where no window is.
    void LeaveWindow();

    /// Presses or lets go a button where the pointer is.
    void Press(Qt::MouseButton button = Qt::LeftButton);
    void Release(Qt::MouseButton button = Qt::LeftButton);

    /// Moves there, presses and lets go.
    void Click(const QWidget& widget, Qt::MouseButton button = Qt::LeftButton);

private:
    QPoint PlaceInWindow() const;

    QWidget& window_;
    QPoint place_;
    Qt::MouseButtons held_;
};
