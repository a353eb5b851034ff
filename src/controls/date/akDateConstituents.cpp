// What the date control is made of: its boxes and buttons, their places, names and connections.

#include "controls/akDate.h"
#include "controls/base/Display.h"
#include "controls/date/DateLayout.h"
#include "controls/date/DateSegmentBox.h"
#include "controls/date/NoneBox.h"

#include <QApplication>
#include <QResizeEvent>

#include <algorithm>

namespace controls {

namespace {

/// Between both ends of a length in twips, in whole pixels.
QRect PixelPlace(int left, int top, int width, int height) {
    return {ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height)};
}

void Place(QWidget& widget, int left, int top, int width, int height) {
    widget.setGeometry(PixelPlace(left, top, width, height));
}

}  // namespace

void akDate::CreateConstituents() {
    const std::array<QString, 3> texts{QStringLiteral("01"), QStringLiteral("01"), QStringLiteral("2000")};
    for (size_t place = 0; place < txtDate_.size(); ++place) {
        txtDate_[place] = new DateSegmentBox(texts[place], this);
        txtDate_[place]->setObjectName(QStringLiteral("txtDate%1").arg(place + 1));
    }
    cmdOpen_ = CreateButton(QStringLiteral("cmdOpen"), Arrows::Down);
    cmdLeftMonth_ = CreateButton(QStringLiteral("cmdLeftMonth"), Arrows::Left);
    cmdRightMonth_ = CreateButton(QStringLiteral("cmdRightMonth"), Arrows::Right);
    cmdLeftYear_ = CreateButton(QStringLiteral("cmdLeftYear"), Arrows::TwoLeft);
    cmdRightYear_ = CreateButton(QStringLiteral("cmdRightYear"), Arrows::TwoRight);
    for (PictureButton* button : CalendarButtons()) {
        button->hide();
    }
    txtNone_ = new NoneBox(this);
    txtNone_->setObjectName(QStringLiteral("txtNone"));
    txtNone_->hide();
    // It lies over the boxes, so that is where Tab looks for it.
    setTabOrder(txtDate_[2], txtNone_);
    setTabOrder(txtNone_, cmdOpen_);
}

PictureButton* akDate::CreateButton(const QString& name, Arrows picture) {
    auto* button = new PictureButton(picture, this);
    button->setObjectName(name);
    return button;
}

void akDate::ConnectConstituents() {
    const int last = static_cast<int>(txtDate_.size());
    for (int place = 1; place <= last; ++place) {
        DateSegmentBox* box = txtDate(place);
        DateSegmentBox* next = txtDate(place == last ? 1 : place + 1);
        DateSegmentBox* previous = txtDate(place == 1 ? last : place - 1);
        connect(box, &DateSegmentBox::NextSegment, next, [next] { next->setFocus(); });
        connect(box, &DateSegmentBox::PreviousSegment, previous, [previous] { previous->setFocus(); });
        connect(box, &EntryBox::Entered, this, &akDate::EnterSegment);
        connect(box, &EntryBox::Leaving, this, [this, place] { LeaveSegment(place); });
        connect(box, &EntryBox::LeftUnfocused, this, &akDate::LoseFocus);
    }
    connect(txtNone_, &NoneBox::DateWanted, this, [this](const QString& character) {
        HideNone();
        txtDate(1)->TakeKey(character);
    });
    connect(cmdOpen_, &PictureButton::clicked, this, &akDate::DropDown);
    connect(cmdLeftMonth_, &PictureButton::clicked, this, [this] { Navigate(MonthBefore); });
    connect(cmdRightMonth_, &PictureButton::clicked, this, [this] { Navigate(MonthAfter); });
    connect(cmdLeftYear_, &PictureButton::clicked, this, [this] { Navigate(YearBefore); });
    connect(cmdRightYear_, &PictureButton::clicked, this, [this] { Navigate(YearAfter); });
    connect(qApp, &QApplication::focusChanged, this, &akDate::FollowFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* old, const QWidget* now) {
        // The frame is that of all boxes together.
        if (isAncestorOf(old) != isAncestorOf(now)) {
            update();
        }
    });
}

void akDate::PlaceConstituents() {
    const DateLayout& layout = order_.IsYearFirst() ? YearFirstLayout : YearLastLayout;
    for (size_t place = 0; place < txtDate_.size(); ++place) {
        // The first box has room to spare: the digits of all three move together, to read as one date.
        constexpr std::array Sides{DateSegmentBox::Side::Right, DateSegmentBox::Side::Middle,
                                   DateSegmentBox::Side::Left};
        const DateLayout::Box& box = layout.boxes[place];
        txtDate_[place]->Place(
            PixelPlace(box.left, DateLayout::BorderMargin, box.width, DateLayout::BoxHeight),
            box.maximumLength, Sides[place]);
    }
    Place(*cmdOpen_, borderWidth_ - DateLayout::BorderMargin - DateLayout::OpenButtonSize,
          DateLayout::BorderMargin, DateLayout::OpenButtonSize, DateLayout::OpenButtonSize);
    constexpr int ButtonTop = 360;
    constexpr int ButtonWidth = 225;
    constexpr int ButtonHeight = 195;
    Place(*cmdLeftYear_, 45, ButtonTop, ButtonWidth, ButtonHeight);
    Place(*cmdLeftMonth_, 255, ButtonTop, ButtonWidth, ButtonHeight);
    Place(*cmdRightMonth_, 2010, ButtonTop, ButtonWidth, ButtonHeight);
    Place(*cmdRightYear_, 2235, ButtonTop, ButtonWidth, ButtonHeight);
    PlaceNone();
}

void akDate::PlaceNone() {
    const int width = borderWidth_ - 2 * DateLayout::BorderMargin - DateLayout::OpenButtonSize;
    Place(*txtNone_, YearLastLayout.boxes[0].left, DateLayout::BorderMargin, std::max(0, width),
          DateLayout::BoxHeight);
}

void akDate::NameConstituents() {
    const auto name = [this](QWidget* widget, const QString& suffix) {
        widget->setAccessibleName((label_ + QLatin1Char(' ') + suffix).trimmed());
    };
    setAccessibleName(label_);
    name(txtDate(order_.DayIndex), QStringLiteral("day"));
    name(txtDate(order_.MonthIndex), QStringLiteral("month"));
    name(txtDate(order_.YearIndex), QStringLiteral("year"));
    name(txtNone_, QStringLiteral("none"));
    name(cmdOpen_, QStringLiteral("calendar"));
    cmdLeftYear_->setAccessibleName(QStringLiteral("Previous year"));
    cmdLeftMonth_->setAccessibleName(QStringLiteral("Previous month"));
    cmdRightMonth_->setAccessibleName(QStringLiteral("Next month"));
    cmdRightYear_->setAccessibleName(QStringLiteral("Next year"));
}

std::array<QWidget*, 9> akDate::Constituents() const {
    return {txtDate_[0],    txtDate_[1],  txtDate_[2],   cmdOpen_, cmdLeftMonth_,
            cmdRightMonth_, cmdLeftYear_, cmdRightYear_, txtNone_};
}

std::array<PictureButton*, 4> akDate::CalendarButtons() const {
    return {cmdLeftMonth_, cmdRightMonth_, cmdLeftYear_, cmdRightYear_};
}

void akDate::resizeEvent(QResizeEvent* event) {
    Control::resizeEvent(event);
    if (size() == ownSize_) {
        return;
    }
    const int wantedWidth = Width();
    CloseUp();
    borderWidth_ = wantedWidth;
    SetOwnSize(borderWidth_, DateLayout::BorderHeight);
    PlaceConstituents();
    update();
}

void akDate::showEvent(QShowEvent* event) {
    Control::showEvent(event);
    if (!wasShown_) {
        wasShown_ = true;
        CloseUp();
        SetOwnSize(borderWidth_, DateLayout::BorderHeight);
    }
}

void akDate::SetOwnSize(int width, int height) {
    ownSize_ = {ToPixels(width), ToPixels(height)};
    resize(ownSize_);
}

}  // namespace controls
