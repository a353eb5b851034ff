#include "controls/base/Action.h"

#include "controls/base/EntryBox.h"

#include <QApplication>

namespace controls {

bool CanBeActedOn(const QWidget& widget) {
    const QWidget* inFront = QApplication::activeModalWidget();
    const bool isBlocked =
        inFront != nullptr && inFront != widget.window() && !inFront->isAncestorOf(widget.window());
    return widget.isEnabled() && widget.isVisible() && !isBlocked;
}

void BringFocus(QWidget& widget) {
    widget.setFocus(Qt::OtherFocusReason);
    if (widget.isActiveWindow()) {
        return;
    }
    widget.window()->activateWindow();
    for (EntryBox* box : widget.window()->findChildren<EntryBox*>()) {
        if (box != &widget) {
            box->LeaveUnfocused();
        }
    }
}

}  // namespace controls
