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
    IncludeNone_ = saved.IncludeNone;
}

akDate::~akDate() {
    // The boxes go after this, and one with the focus takes it along: nobody is here to follow it then.
    qApp->disconnect(this);
}

QDate akDate::Value() const {
    return NoneShown_ ? platform::NoDate() : stored_;
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
    if (DroppedDown_) {
        Redraw();
    }
}

void akDate::SetIncludeNone(bool include) {
    IncludeNone_ = include;
    if (!include) {
        HideNone();
    }
    if (DroppedDown_) {
        SetOwnSize(CalendarPlaces::Width, OpenHeight(IncludeNone_));
        Redraw();
    }
}

void akDate::SetEnabled(bool enabled) {
    Enabled_ = enabled;
    CloseUp();
    // The one with the focus comes last, so that the focus leaves the control at once and not by way of the
    // others.
    QWidget* last = nullptr;
    for (QWidget* constituent : Constituents()) {
        if (HasFocus(constituent)) {
            last = constituent;
        } else {
            constituent->setEnabled(enabled);
        }
    }
    if (last != nullptr) {
        last->setEnabled(enabled);
    }
    update();
}

void akDate::SetBackColor(Colour colour) {
    BackColor_ = colour;
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
    DisplayDay_ = day;
    display_ = {month, year};
}

void akDate::EnterSegment() {
    if (NoneShown_ && txtNone_->isEnabled()) {
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
    if (!IncludeNone_) {
        return;
    }
    NoneShown_ = true;
    PlaceNone();
    txtNone_->show();
    txtNone_->raise();
    for (DateSegmentBox* box : txtDate_) {
        // Tab finds "<None>" in the place of the boxes below it. It would be led back to it from them
        // whichever way it goes, and never get out of the control backwards.
        box->setFocusPolicy(Qt::ClickFocus);
        if (HasFocus(box)) {
            txtNone_->setFocus();
        }
    }
}

void akDate::HideNone() {
    if (!NoneShown_) {
        return;
    }
    NoneShown_ = false;
    for (DateSegmentBox* box : txtDate_) {
        box->setFocusPolicy(Qt::StrongFocus);
    }
    if (HasFocus(txtNone_)) {
        txtDate(1)->setFocus();
    }
    txtNone_->hide();
}

void akDate::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    if (Enabled_) {
        txtDate(1)->setFocus();
    } else {
        SendTab();
    }
}

void akDate::FollowFocus(const QWidget* now) {
    if (now == this || isAncestorOf(now)) {
        focusIsInside_ = true;
        return;
    }
    // While another window is the active one, the focus is still kept here for the user's coming back.
    if (focusIsInside_ && isActiveWindow()) {
        focusIsInside_ = false;
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
