#include "controls/base/EntryBox.h"

#include "controls/base/Colour.h"
#include "controls/base/Font.h"
#include "controls/base/TypedText.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace controls {

namespace {

QPalette BlackOnWhite(QPalette palette) {
    palette.setColor(QPalette::Base, ToQColor(White));
    palette.setColor(QPalette::Text, ToQColor(Black));
    palette.setColor(QPalette::Disabled, QPalette::Text,
                     ReadableOn(ToQColor(White), ToQColor(SystemColours::GreyText)));
    return palette;
}

/// Whether the focus goes elsewhere in the window. When the window itself stops being the active one, the
/// windowing system says so with an event of its own, and what happens in another window leaves the box that
/// waits here alone.
bool IsLeaving(const QWidget& box, const QFocusEvent& event) {
    const Qt::FocusReason reason = event.reason();
    return box.isActiveWindow() && !event.spontaneous() && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

}  // namespace

EntryBox::EntryBox(const QString& text, QWidget* parent) : QLineEdit(text, parent) {
    setFrame(false);
    setFont(ControlFont());
    setPalette(BlackOnWhite(palette()));
    // The box is as wide as its digits: the room that the toolkit keeps on both sides would cut them.
    setTextMargins(-2, 0, -2, 0);
    setAcceptDrops(false);
}

void EntryBox::LeaveIfEntered() {
    if (isEntered_) {
        Leave();
    }
}

void EntryBox::Leave() {
    isEntered_ = false;
    Q_EMIT Leaving();
}

bool EntryBox::event(QEvent* event) {
    if (event->type() == QEvent::FocusAboutToChange && IsLeaving(*this, static_cast<QFocusEvent&>(*event))) {
        Leave();
    }
    return QLineEdit::event(event);
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (isEntered_) {
        return;
    }
    isEntered_ = true;
    focusCameByMouse_ = event->reason() == Qt::MouseFocusReason;
    selectAll();
    Q_EMIT Entered();
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    const QString typed = TypedText(*event);
    if (typed.isEmpty()) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    for (const QChar character : typed) {
        KeyTyped(character);
    }
}

void EntryBox::inputMethodEvent(QInputMethodEvent* event) {
    // A character may move the focus on, and the next one then belongs there.
    for (const QChar character : event->commitString()) {
        if (auto* box = qobject_cast<EntryBox*>(QApplication::focusWidget())) {
            box->KeyTyped(character);
        }
    }
}

void EntryBox::mousePressEvent(QMouseEvent* event) {
    // The click that brings the focus would otherwise put the caret somewhere and undo the selection.
    pressBroughtFocus_ = focusCameByMouse_ && event->button() == Qt::LeftButton;
    focusCameByMouse_ = false;
    if (!pressBroughtFocus_) {
        QLineEdit::mousePressEvent(event);
    }
}

void EntryBox::mouseMoveEvent(QMouseEvent* event) {
    if (!pressBroughtFocus_) {
        QLineEdit::mouseMoveEvent(event);
    }
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
    if (!std::exchange(pressBroughtFocus_, false)) {
        QLineEdit::mouseReleaseEvent(event);
    }
}

}  // namespace controls
