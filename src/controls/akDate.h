#pragma once

#include "controls/base/Control.h"
#include "controls/date/Calendar.h"
#include "controls/date/CalendarDrawing.h"
#include "controls/date/DateSegments.h"
#include "controls/date/PictureButton.h"

#include <QDate>
#include <QPointer>

#include <array>

namespace controls {

class DateSegmentBox;
class NoneBox;

/// The date entry control: three boxes for day, month and year in the order of the user's locale, a button
/// that opens a month calendar, and, where the form allows it, the state "<None>".
///
/// The stored date follows the boxes when the focus leaves the whole control, to another control of the same
/// window: until then Value tells the date from before the typing. Whatever is typed becomes a date; the
/// control shows no message and raises no event.
///
/// No date reaches the rest of the system as a date of the year 1234 (platform::NoDate). It is shown only
/// where IncludeNone is set; elsewhere it means today.
///
/// The open calendar is drawn on the control itself, which grows over its neighbours on the form. It closes
/// when a day or "<None>" is picked, and when the focus leaves the control. See akDateCalendar.cpp.
///
/// All lengths are twips. The control has one height, 285; a form chooses its width.
class akDate : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)

public:
    struct Properties {
        bool Enabled = true;
        bool IncludeNone = false;
    };

    /// A new control: today's date, day first.
    explicit akDate(QWidget* parent = nullptr);
    /// The control as a form has saved it, in the locale's order.
    explicit akDate(const Properties& saved, QWidget* parent = nullptr);
    ~akDate() override;

    QDate Value() const;
    /// Changes nothing for an invalid date and for one outside the years 100 to 9999, which the boxes can't
    /// hold.
    void SetValue(QDate value);

    bool IncludeNone() const { return includeNone_; }
    /// Where "<None>" is showing and is no longer allowed, the date below it comes back.
    void SetIncludeNone(bool include);

    /// Passed to every box and button. Closes the calendar either way.
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    /// The ground behind the open calendar, seen beside the boxes.
    Colour BackColor() const { return backColor_; }
    void SetBackColor(Colour colour);

    /// What a screen reader calls the control: the text of the label beside it. Boxes and buttons are named
    /// after it, "Start date month".
    void SetLabel(const QString& label);
    const QString& Label() const { return label_; }

    /// Does what a click of the open button does: opens the calendar, or closes it if it is open.
    void DropDown();
    void CloseUp();

    bool DroppedDown() const { return droppedDown_; }
    bool NoneShown() const { return noneShown_; }
    /// What the open calendar shows.
    const CalendarPicture& ShownCalendar() const { return calendar_; }

    /// Does what a click on a cell of the open calendar does; nothing for a cell without a day and for one
    /// that the grid doesn't have.
    void PickDay(CalendarCell cell);
    /// Does what a click on the row "<None>" does.
    void PickNone();
    /// An assistive program clicks on a cell of the open calendar, where row 7 is "<None>". The focus comes
    /// into the control first; where it can't come, the date is stored at once.
    void ActOn(CalendarCell cell);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    // What the control is made of (akDateConstituents.cpp).
    void CreateConstituents();
    PictureButton* CreateButton(const QString& name, Arrows picture);
    void ConnectConstituents();
    void PlaceConstituents();
    void PlaceNone();
    void NameConstituents();
    std::array<QWidget*, 9> Constituents() const;
    std::array<PictureButton*, 4> CalendarButtons() const;
    /// The box at a place from 1 to 3.
    DateSegmentBox* txtDate(int place) const { return txtDate_.at(static_cast<size_t>(place - 1)); }
    void SetOwnSize(int width, int height);

    // The boxes and the focus (akDate.cpp).
    void SetSegments(int day, int month, int year);
    void EnterSegment();
    void LeaveSegment(int place);
    void ShowNone();
    void HideNone();
    /// The one of the boxes and buttons that has the focus, or keeps the place for it while another window is
    /// the active one; the control itself while it hands the focus on; null while the focus is elsewhere.
    /// This alone tells where the focus is.
    const QWidget* Focused() const;
    bool IsFocused(const QWidget& part) const { return Focused() == &part; }
    void FollowFocus();
    void LoseFocus();

    // The calendar (akDateCalendar.cpp), and painting the control.
    void Navigate(CalendarMonth (*step)(CalendarMonth));
    void Redraw();
    std::optional<int> DayToMark() const;
    void DrawClosedControl(PaintedCanvas& canvas) const;
    void RaiseOverNeighbours();
    void GoBackBelowNeighbours();

    std::array<DateSegmentBox*, 3> txtDate_{};
    PictureButton* cmdOpen_ = nullptr;
    PictureButton* cmdLeftMonth_ = nullptr;
    PictureButton* cmdRightMonth_ = nullptr;
    PictureButton* cmdLeftYear_ = nullptr;
    PictureButton* cmdRightYear_ = nullptr;
    NoneBox* txtNone_ = nullptr;

    SegmentOrder order_;
    QDate stored_;
    /// The parts last put into the boxes. The calendar navigates on month and year without changing the
    /// boxes.
    int displayDay_ = 1;
    CalendarMonth display_;
    bool enabled_ = true;
    bool includeNone_ = false;
    bool noneShown_ = false;
    bool droppedDown_ = false;
    /// The focus has come and hasn't been lost since.
    bool userIsHere_ = false;
    bool wasShown_ = false;
    Colour backColor_ = SystemColours::ButtonFace;
    QString label_;

    /// Width of the closed control's frame in twips.
    int borderWidth_;
    /// The size in pixels that the control has given itself. Being resized to it, which a hidden widget is
    /// told of late, is no wish of the form.
    QSize ownSize_;
    CalendarPicture calendar_;
    /// The widget that this one goes back below when the calendar closes.
    QPointer<QWidget> neighbourAbove_;
};

}  // namespace controls
