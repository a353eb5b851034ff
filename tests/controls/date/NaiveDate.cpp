#include "date/NaiveDate.h"

#include "date/NaiveDays.h"

#include <algorithm>

namespace {

const QStringList calendarButtons{QStringLiteral("cmdLeftMonth"), QStringLiteral("cmdRightMonth"),
                                  QStringLiteral("cmdLeftYear"), QStringLiteral("cmdRightYear")};

bool IsOutside(const QString& name) {
    return name == QLatin1String("before") || name == QLatin1String("after");
}

}  // namespace

NaiveDate::NaiveDate(const QString& order, PlainDay today, bool includeNone)
    : order_(order), today_(today), include_(includeNone) {
    BoxOf('y').room = 4;
    stored_ = today;
    SetParts(today.year, today.month, today.day);
}

QString NaiveDate::Texts() const {
    return boxes_[0].text + QLatin1Char('/') + boxes_[1].text + QLatin1Char('/') + boxes_[2].text;
}

QString NaiveDate::SelectedText() const {
    const int place = FocusedBox();
    if (place == 0) {
        return {};
    }
    const Box& box = boxes_.at(static_cast<size_t>(place - 1));
    return box.text.mid(box.from, box.to - box.from);
}

int NaiveDate::FocusedBox() const {
    return focus_.startsWith(QLatin1String("txtDate")) ? focus_.right(1).toInt() : 0;
}

int NaiveDate::PlaceOf(char role) const {
    return static_cast<int>(order_.indexOf(QLatin1Char(role))) + 1;
}

void NaiveDate::SetText(Box& box, const QString& text) {
    box.text = text;
    box.caret = static_cast<int>(box.text.length());
    box.from = box.to = 0;
}

void NaiveDate::Insert(Box& box, const QString& text) {
    const auto rest = static_cast<int>(box.text.length()) - (box.to - box.from);
    const QString piece = text.left(std::max(0, box.room - rest));
    if (piece.isEmpty()) {
        return;
    }
    if (box.to > box.from) {
        box.text.remove(box.from, box.to - box.from);
        box.caret = box.from;
    }
    box.text.insert(box.caret, piece);
    box.caret += static_cast<int>(piece.length());
    box.from = box.to = 0;
}

void NaiveDate::SetParts(int year, int month, int day) {
    const auto padded = [](int number, int digits) {
        return number < 0 ? QStringLiteral("-%1").arg(-number, digits, 10, QLatin1Char('0'))
                          : QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
    };
    SetText(BoxOf('d'), padded(day, 2));
    SetText(BoxOf('m'), padded(month, 2));
    SetText(BoxOf('y'), padded(year, 4));
    display_ = {year, month, day};
}

void NaiveDate::Correct(int place) {
    Box& box = BoxAt(place);
    const double number = NaiveNumber(box.text);
    const QChar role = order_[place - 1];
    QString text = box.text;
    if (role == QLatin1Char('d')) {
        text = number > 31 ? QStringLiteral("31") : number < 1 ? QStringLiteral("1") : text;
    } else if (role == QLatin1Char('m')) {
        text = number > 12 ? QStringLiteral("12") : number < 0 ? QStringLiteral("1") : text;
    } else if (text.length() == 0) {
        text = QStringLiteral("2000");
    } else if (text.length() == 1) {
        text = QStringLiteral("200") + text;
    } else if (text.length() == 2) {
        text = (number < 50 ? QStringLiteral("20") : QStringLiteral("19")) + text;
    } else if (text.length() == 3) {
        text += QLatin1Char('0');
    }
    SetText(box, text);
}

void NaiveDate::Go(const QString& to) {
    if (to == focus_) {
        return;
    }
    if (FocusedBox() != 0) {
        Correct(FocusedBox());
    }
    const QString from = focus_;
    focus_ = to;
    if (FocusedBox() != 0) {
        if (none_) {
            focus_ = QStringLiteral("txtNone");
        } else {
            Box& box = BoxAt(FocusedBox());
            box.from = 0;
            box.to = box.caret = static_cast<int>(box.text.length());
        }
    }
    if (!IsOutside(from) && IsOutside(focus_)) {
        Compose();
    }
}

void NaiveDate::GoToBox(int place) {
    const int wrapped = place == 0 ? 3 : place == 4 ? 1 : place;
    Go(QStringLiteral("txtDate%1").arg(wrapped));
}

void NaiveDate::Compose() {
    stored_ = NaiveCompose(BoxOf('d').text, BoxOf('m').text, BoxOf('y').text, stored_);
    SetParts(stored_.year, stored_.month, stored_.day);
    CloseUp();
}

QStringList NaiveDate::TabStops() const {
    QStringList stops{QStringLiteral("before")};
    if (enabled_) {
        if (none_) {
            stops << QStringLiteral("txtNone");
        } else {
            stops << QStringLiteral("txtDate1") << QStringLiteral("txtDate2") << QStringLiteral("txtDate3");
        }
        stops << QStringLiteral("cmdOpen");
        if (open_) {
            stops << calendarButtons;
        }
    }
    return stops << QStringLiteral("after");
}

void NaiveDate::Tab(int direction) {
    const QStringList stops = TabStops();
    const auto here = stops.indexOf(focus_);
    Go(stops[(here + direction + stops.size()) % stops.size()]);
}

void NaiveDate::Character(QChar character) {
    if (focus_ == QLatin1String("txtNone")) {
        HideNone();
    } else if (focus_.startsWith(QLatin1String("cmd"))) {
        if (character == QLatin1Char(' ') || character == QLatin1Char('\r')) {
            ClickButton(focus_);
        }
        return;
    }
    const int place = FocusedBox();
    if (place == 0) {
        return;
    }
    Box& box = BoxAt(place);
    if (character == QLatin1Char('\b')) {
        Insert(box, QStringLiteral("."));
    } else if (QStringLiteral("/\\-").contains(character)) {
        GoToBox(place + 1);
    } else if (QStringLiteral("0123456789").contains(character)) {
        SetText(box, box.to > box.from ? QString(character) : box.text + character);
        if (box.text.length() == box.room) {
            GoToBox(place + 1);
        }
    }
}

void NaiveDate::Key(const QString& name) {
    const int place = FocusedBox();
    const bool onButton = focus_.startsWith(QLatin1String("cmd"));
    if (name == QLatin1String("Tab") || (onButton && name == QLatin1String("Right"))) {
        Tab(1);
    } else if (name == QLatin1String("Backtab") || (onButton && name == QLatin1String("Left"))) {
        Tab(-1);
    } else if (place != 0 && name == QLatin1String("Left")) {
        GoToBox(place - 1);
    } else if (place != 0 && name == QLatin1String("Right")) {
        GoToBox(place + 1);
    } else if (place != 0) {
        Box& box = BoxAt(place);
        if (name == QLatin1String("Delete")) {
            if (box.to == box.from && box.caret < box.text.length()) {
                box.text.remove(box.caret, 1);
            } else {
                box.text.remove(box.from, box.to - box.from);
                box.caret = box.to > box.from ? box.from : box.caret;
            }
        } else {
            box.caret = name == QLatin1String("Home") ? 0 : static_cast<int>(box.text.length());
        }
        box.from = box.to = 0;
    }
}

void NaiveDate::Paste(const QString& text) {
    if (FocusedBox() != 0) {
        Insert(BoxAt(FocusedBox()), text);
    }
}

void NaiveDate::FocusOutside(const QString& name) {
    Go(name);
}

void NaiveDate::FocusControl() {
    if (!enabled_) {
        // It passes through the control, which composes its date on the way out.
        focus_ = QStringLiteral("after");
        Compose();
        return;
    }
    Go(QStringLiteral("date"));
    Go(QStringLiteral("txtDate1"));
}

void NaiveDate::SetValue(std::optional<PlainDay> value) {
    if (value) {
        HideNone();
    } else {
        ShowNone();
    }
    stored_ = value.value_or(today_);
    SetParts(stored_.year, stored_.month, stored_.day);
    if (open_) {
        Redraw();
    }
}

void NaiveDate::ShowNone() {
    if (!include_) {
        return;
    }
    none_ = true;
    if (FocusedBox() != 0) {
        Go(QStringLiteral("txtNone"));
    }
}

void NaiveDate::HideNone() {
    none_ = false;
    if (focus_ == QLatin1String("txtNone")) {
        Go(QStringLiteral("txtDate1"));
    }
}

void NaiveDate::SetIncludeNone(bool include) {
    include_ = include;
    if (!include) {
        HideNone();
    }
    if (open_) {
        Redraw();
    }
}

void NaiveDate::SetEnabled(bool enabled) {
    CloseUp();
    enabled_ = enabled;
    if (!enabled && !IsOutside(focus_)) {
        Go(QStringLiteral("after"));
    }
}

void NaiveDate::DropDown() {
    if (open_) {
        CloseUp();
        return;
    }
    open_ = true;
    Redraw();
}

void NaiveDate::CloseUp() {
    if (open_ && calendarButtons.contains(focus_)) {
        Go(QStringLiteral("cmdOpen"));
    }
    open_ = false;
}

void NaiveDate::Redraw() {
    title_ = NaiveMonth(display_.month) + QLatin1Char(' ') + QString::number(display_.year);
    const bool isOnShow =
        NaiveNumber(BoxOf('y').text) == display_.year && NaiveNumber(BoxOf('m').text) == display_.month;
    marked_ = isOnShow ? display_.day : -1;
}

void NaiveDate::Step(const QString& button) {
    display_.year += button == QLatin1String("cmdRightYear")  ? 1
                     : button == QLatin1String("cmdLeftYear") ? -1
                                                              : 0;
    display_.month += button == QLatin1String("cmdRightMonth")  ? 1
                      : button == QLatin1String("cmdLeftMonth") ? -1
                                                                : 0;
    if (display_.month == 13) {
        display_.month = 1;
        ++display_.year;
    }
    if (display_.month == 0) {
        display_.month = 12;
        --display_.year;
    }
    Redraw();
}

void NaiveDate::ClickBox(int place) {
    if (!enabled_) {
        return;
    }
    if (!none_ && FocusedBox() == place) {
        Box& box = BoxAt(place);
        box.from = 0;
        box.to = box.caret = static_cast<int>(box.text.length());
        return;
    }
    if (focus_ != QLatin1String("txtNone")) {
        GoToBox(place);
    }
}

void NaiveDate::ClickButton(const QString& name) {
    const bool isCalendars = calendarButtons.contains(name);
    if (!enabled_ || (isCalendars && !open_)) {
        return;
    }
    Go(name);
    if (isCalendars) {
        Step(name);
    } else {
        DropDown();
    }
}

void NaiveDate::ClickBelow(int x, int y) {
    const int h = include_ ? 144 : 131;
    if (!open_ || x >= 167 || y >= h) {
        return;
    }
    // The four buttons, in pixels.
    if (y >= 24 && y < 37) {
        const std::array<int, 4> lefts{17, 134, 3, 149};
        for (int button = 3; button >= 0; --button) {
            const int left = lefts.at(static_cast<size_t>(button));
            if (x >= left && x < left + 15) {
                ClickButton(calendarButtons[button]);
                return;
            }
        }
    }
    ClickSurface(x * 15, y * 15);
}

int NaiveDate::CellValue(int column, int row) const {
    return column == 0 || row == 0 ? 0 : NaiveCell(display_.year, display_.month, column, row);
}

void NaiveDate::ClickSurface(int X, int Y) {
    if (Y < 800) {
        return;
    }
    if (Y <= 1940) {
        const int column = NaiveHalfToEven(X - 25 + 175, 350);
        const int row = NaiveHalfToEven(Y - 800 + 95, 190);
        if (column == 8 || CellValue(column, row) == -1) {
            return;
        }
        SetParts(display_.year, display_.month, CellValue(column, row));
        CloseUp();
        HideNone();
    }
    if (Y >= 1940) {
        ShowNone();
        CloseUp();
    }
}
