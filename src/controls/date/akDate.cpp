#include "controls/akDate.h"

#include "controls/base/Keys.h"
#include "controls/date/DateAccessible.h"
#include "controls/date/DateLayout.h"
#include "controls/date/DateSegmentBox.h"
#include "controls/date/NoneBox.h"
#include "platform/Clock.h"
#include "platform/NoDate.h"

#include <QApplication>

namespace controls {

akDate::akDate(QWidget* parent) : Control(parent), borderWidth_(DateLayout::BorderWidth) {
    RegisterDateAccessible();
    // The ground is painted whole.
    setAttribute(Qt::WA_OpaquePaintEvent);
    CreateConstituents();
    ConnectConstituents();
    NameConstituents();
    PlaceConstituents();
    SetOwnSize(borderWidth_, DateLayout::BorderHeight);
    SetValue(platform::Today());
}

akDate::akDate(const Properties& saved, QWidget* parent) : akDate(parent) {
    SetEnabled(saved.Enabled);
    order_ = FindDateOrder();
    NameConstituents();
    PlaceConstituents();
    SetValue(stored_);
    includeNone_ = saved.IncludeNone;
}

akDate::~akDate() {
    // The boxes go after this, and one with the focus takes it along: nobody is here to follow it then.
    qApp->disconnect(this);
}

QDate akDate::Value() const {
    return noneShown_ ? platform::NoDate() : stored_;
}

void akDate::SetValue(QDate value) {
    if (!IsInRange(value)) {
        return;
    }
    if (platform::IsNoDate(value)) {
        value = platform::Today();
        ShowNone();
    } else {
        HideNone();
    }
    stored_ = value;
    SetSegments(value.day(), value.month(), value.year());
    if (droppedDown_) {
        Redraw();
    }
}

void akDate::SetIncludeNone(bool include) {
    includeNone_ = include;
    if (!include) {
        HideNone();
    }
    if (droppedDown_) {
        SetOwnSize(CalendarPlaces::Width, OpenHeight(includeNone_));
        Redraw();
    }
}

void akDate::SetEnabled(bool enabled) {
    const bool changes = enabled != enabled_;
    enabled_ = enabled;
    CloseUp();
    // The one with the focus comes last, so that the focus leaves the control at once and not by way of the
    // others.
    QWidget* last = nullptr;
    for (QWidget* constituent : Constituents()) {
        if (IsFocused(*constituent)) {
            last = constituent;
        } else {
            constituent->setEnabled(enabled);
        }
    }
    if (last != nullptr) {
        last->setEnabled(enabled);
    }
    if (changes) {
        AnnounceDateEnabled(*this);
    }
    update();
}

void akDate::SetBackColor(Colour colour) {
    backColor_ = colour;
    update();
}

void akDate::SetLabel(const QString& label) {
    label_ = label;
    NameConstituents();
}

void akDate::SetSegments(int day, int month, int year) {
    const SegmentTexts texts = TextsOf(day, month, year);
    txtDate(order_.DayIndex)->setText(texts.day);
    txtDate(order_.MonthIndex)->setText(texts.month);
    txtDate(order_.YearIndex)->setText(texts.year);
    displayDay_ = day;
    display_ = {month, year};
}

void akDate::EnterSegment() {
    if (noneShown_ && txtNone_->isEnabled()) {
        txtNone_->setFocus();
    }
}

void akDate::LeaveSegment(int place) {
    const QString text = txtDate(place)->text();
    QString corrected;
    if (place == order_.DayIndex) {
        corrected = CorrectedDay(text);
    } else if (place == order_.MonthIndex) {
        corrected = CorrectedMonth(text);
    } else {
        corrected = CorrectedYear(text);
    }
    if (corrected != text) {
        txtDate(place)->setText(corrected);
    }
}

void akDate::ShowNone() {
    if (!includeNone_) {
        return;
    }
    noneShown_ = true;
    PlaceNone();
    txtNone_->show();
    txtNone_->raise();
    for (DateSegmentBox* box : txtDate_) {
        // Tab finds "<None>" in the place of the boxes below it. It would be led back to it from them
        // whichever way it goes, and never get out of the control backwards.
        box->setFocusPolicy(Qt::ClickFocus);
        if (IsFocused(*box)) {
            txtNone_->setFocus();
        }
    }
}

void akDate::HideNone() {
    if (!noneShown_) {
        return;
    }
    noneShown_ = false;
    for (DateSegmentBox* box : txtDate_) {
        box->setFocusPolicy(Qt::StrongFocus);
    }
    if (IsFocused(*txtNone_)) {
        txtDate(1)->setFocus();
    }
    txtNone_->hide();
}

void akDate::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    if (enabled_) {
        txtDate(1)->setFocus();
    } else {
        SendTab();
    }
}

const QWidget* akDate::Focused() const {
    const QWidget* focused = window()->focusWidget();
    return focused == this || isAncestorOf(focused) ? focused : nullptr;
}

void akDate::FollowFocus() {
    if (Focused() != nullptr) {
        userIsHere_ = true;
        return;
    }
    // What another window does while it is the active one is none of this control's business.
    if (userIsHere_ && isActiveWindow()) {
        userIsHere_ = false;
        LoseFocus();
    }
}

void akDate::LoseFocus() {
    for (DateSegmentBox* box : txtDate_) {
        box->Leave();
    }
    stored_ = DateFromTexts({.day = txtDate(order_.DayIndex)->text(),
                             .month = txtDate(order_.MonthIndex)->text(),
                             .year = txtDate(order_.YearIndex)->text()},
                            stored_);
    SetSegments(stored_.day(), stored_.month(), stored_.year());
    CloseUp();
}

}  // namespace controls
