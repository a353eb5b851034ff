// The date control's calendar: opening and closing it, moving through the months, picking a day, painting.

#include "controls/akDate.h"
#include "controls/base/Action.h"
#include "controls/base/Display.h"
#include "controls/base/FieldFrame.h"
#include "controls/base/Font.h"
#include "controls/base/LeadingNumber.h"
#include "controls/date/DateAccessible.h"
#include "controls/date/DateLayout.h"
#include "controls/date/DateSegmentBox.h"
#include "controls/date/NoneBox.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace controls {

namespace {

/// A slash as far from the digits before it as from those behind it.
void DrawSlash(PaintedCanvas& canvas, const DateSegmentBox& before, const DateSegmentBox& behind,
               const QColor& colour) {
    const QString slash = QStringLiteral("/");
    const int space = ToTwips(behind.DigitsBegin() - before.DigitsEnd()) - canvas.TextWidth(slash);
    canvas.Print(ToTwips(before.DigitsEnd()) + space / 2.0,
                 (DateLayout::BorderHeight - canvas.TextHeight(slash)) / 2.0, slash, colour);
}

}  // namespace

void akDate::DropDown() {
    if (droppedDown_) {
        CloseUp();
        return;
    }
    droppedDown_ = true;
    // Growing is news to the form, which must find the month there that it will see.
    Redraw();
    RaiseOverNeighbours();
    SetOwnSize(CalendarPlaces::Width, OpenHeight(includeNone_));
    for (PictureButton* button : CalendarButtons()) {
        button->show();
    }
    AnnounceCalendarOpened(*this);
}

void akDate::CloseUp() {
    if (!droppedDown_) {
        return;
    }
    AnnounceCalendarClosing(*this);
    for (PictureButton* button : CalendarButtons()) {
        if (button == Focused()) {
            // A hidden button would hand the focus on to whatever comes next, out of the control.
            cmdOpen_->setFocus();
        }
    }
    droppedDown_ = false;
    for (PictureButton* button : CalendarButtons()) {
        button->hide();
    }
    SetOwnSize(borderWidth_, DateLayout::BorderHeight);
    GoBackBelowNeighbours();
    update();
}

void akDate::Navigate(CalendarMonth (*step)(CalendarMonth)) {
    display_ = step(display_);
    Redraw();
}

void akDate::Redraw() {
    calendar_ = {.shown = display_,
                 .days = BuildDayGrid(display_),
                 .markedDay = DayToMark(),
                 .IncludeNone = includeNone_,
                 .closedHeight = DateLayout::BorderHeight};
    for (PictureButton* button : CalendarButtons()) {
        // Who can't see the title hears it with the button that changes it.
        button->setAccessibleDescription(MonthTitle(display_));
    }
    AnnounceCalendarChanged(*this);
    update();
}

std::optional<int> akDate::DayToMark() const {
    const bool isOnShow = LeadingNumber(txtDate(order_.YearIndex)->text()) == display_.year &&
                          LeadingNumber(txtDate(order_.MonthIndex)->text()) == display_.month;
    return isOnShow ? std::optional(displayDay_) : std::nullopt;
}

void akDate::PickDay(CalendarCell cell) {
    if (!droppedDown_ || cell.column < 0 || cell.column > DayColumns || cell.row < 0 || cell.row > DayRows) {
        return;
    }
    const int day = calendar_.days.at(static_cast<size_t>(cell.column)).at(static_cast<size_t>(cell.row));
    if (day == -1) {
        return;
    }
    SetSegments(day, display_.month, display_.year);
    CloseUp();
    HideNone();
}

void akDate::PickNone() {
    if (droppedDown_) {
        ShowNone();
        CloseUp();
    }
}

void akDate::ActOn(CalendarCell cell) {
    if (!isActiveWindow() || Focused() == nullptr) {
        BringFocus(*cmdOpen_);
    }
    if (cell.row > DayRows) {
        PickNone();
    } else {
        PickDay(cell);
    }
    if (!isActiveWindow()) {
        LoseFocus();
    }
}

void akDate::mousePressEvent(QMouseEvent* event) {
    if (!droppedDown_) {
        return;
    }
    const int X = TwipsAt(event->position().x());
    const int Y = TwipsAt(event->position().y());
    if (Y >= CalendarPlaces::GridTop && Y <= CalendarPlaces::GridEnd) {
        if (const auto cell = CellAt(X, Y)) {
            PickDay(*cell);
        }
        // A click that no day takes ends here, on the grid's last line too.
        if (droppedDown_) {
            return;
        }
    }
    if (Y >= CalendarPlaces::GridEnd) {
        ShowNone();
        CloseUp();
    }
}

void akDate::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ToQColor(backColor_));
    PaintedCanvas canvas(&painter, width(), height());
    DrawClosedControl(canvas);
    if (droppedDown_) {
        DrawFrame(canvas, calendar_);
        DrawDays(canvas, calendar_);
    }
}

void akDate::DrawClosedControl(PaintedCanvas& canvas) const {
    const FieldState state =
        enabled_ ? FieldStateOf(*this, isAncestorOf(QApplication::focusWidget())) : FieldState::Disabled;
    DrawFieldGround(canvas, borderWidth_, DateLayout::BorderHeight, state);
    DrawFieldFrame(canvas, borderWidth_, DateLayout::BorderHeight, state);
    canvas.SetFont(ControlFont());
    DrawSlash(canvas, *txtDate_[0], *txtDate_[1], FieldText(state));
    DrawSlash(canvas, *txtDate_[1], *txtDate_[2], FieldText(state));
}

void akDate::RaiseOverNeighbours() {
    neighbourAbove_ = nullptr;
    if (parentWidget() == nullptr) {
        return;
    }
    const QObjectList& siblings = parentWidget()->children();
    for (auto place = siblings.indexOf(this) + 1; place < siblings.size(); ++place) {
        auto* sibling = qobject_cast<QWidget*>(siblings[place]);
        if (sibling != nullptr && !sibling->isWindow()) {
            neighbourAbove_ = sibling;
            break;
        }
    }
    raise();
}

void akDate::GoBackBelowNeighbours() {
    // The order in which a screen reader goes through the form is that of the stack.
    if (neighbourAbove_ != nullptr && neighbourAbove_->parentWidget() == parentWidget()) {
        stackUnder(neighbourAbove_);
    }
    neighbourAbove_ = nullptr;
}

}  // namespace controls
