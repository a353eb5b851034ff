#include "controls/date/DateAccessible.h"

#include "controls/akDate.h"
#include "controls/base/Accessible.h"
#include "controls/date/CalendarAccessible.h"
#include "controls/date/DateSegmentBox.h"

#include <QAccessibleWidget>

#include <algorithm>

namespace controls {

namespace {

/// The control as a group, with the open calendar behind its boxes and buttons.
class DateAccessible : public QAccessibleWidget {
public:
    explicit DateAccessible(akDate* date)
        : QAccessibleWidget(date, QAccessible::Grouping), table_(new CalendarAccessible(date)) {
        tableId_ = QAccessible::registerAccessibleInterface(table_);
    }
    DateAccessible(const DateAccessible&) = delete;
    DateAccessible& operator=(const DateAccessible&) = delete;
    ~DateAccessible() override { QAccessible::deleteAccessibleInterface(tableId_); }

    CalendarAccessible* Table() const { return table_; }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.disabled = state.disabled || !qobject_cast<akDate*>(object())->Enabled();
        return state;
    }

    int childCount() const override { return static_cast<int>(Parts().size()); }

    QAccessibleInterface* child(int index) const override { return Parts().value(index); }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const QList<QAccessibleInterface*> parts = Parts();
        const auto found = std::find(parts.begin(), parts.end(), child);
        return found == parts.end() ? -1 : static_cast<int>(found - parts.begin());
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        QAccessibleInterface* found = QAccessibleWidget::childAt(x, y);
        if (found == nullptr && IsOpen() && table_->rect().contains(x, y)) {
            return table_;
        }
        return found;
    }

private:
    /// While "<None>" lies over the boxes there is no date in them to be read.
    QList<QAccessibleInterface*> Parts() const {
        QList<QAccessibleInterface*> parts;
        for (int index = 0; index < QAccessibleWidget::childCount(); ++index) {
            QAccessibleInterface* part = QAccessibleWidget::child(index);
            const bool isCovered = qobject_cast<akDate*>(object())->NoneShown() &&
                                   qobject_cast<DateSegmentBox*>(part->object()) != nullptr;
            if (!isCovered) {
                parts += part;
            }
        }
        if (IsOpen()) {
            parts += table_;
        }
        return parts;
    }

    bool IsOpen() const { return table_->isValid(); }

    /// Owned by the toolkit's register of interfaces.
    CalendarAccessible* table_;
    QAccessible::Id tableId_ = 0;
};

/// Nothing while nobody listens: a table of 43 cells need not be made for that.
CalendarAccessible* TableOf(akDate& date) {
    if (!QAccessible::isActive()) {
        return nullptr;
    }
    auto* interface = dynamic_cast<DateAccessible*>(QAccessible::queryAccessibleInterface(&date));
    return interface != nullptr ? interface->Table() : nullptr;
}

void Announce(akDate& date, QAccessible::Event what) {
    if (CalendarAccessible* table = TableOf(date)) {
        QAccessibleEvent event(table, what);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace

void RegisterDateAccessible() {
    RegisterAccessible<akDate, DateAccessible>();
}

void AnnounceDateEnabled(akDate& date) {
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(&date, changed);
    QAccessible::updateAccessibility(&event);
}

void AnnounceCalendarOpened(akDate& date) {
    Announce(date, QAccessible::ObjectShow);
}

void AnnounceCalendarChanged(akDate& date) {
    if (CalendarAccessible* table = TableOf(date)) {
        QAccessibleTableModelChangeEvent event(table, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
    Announce(date, QAccessible::NameChanged);
}

void AnnounceCalendarClosing(akDate& date) {
    Announce(date, QAccessible::ObjectHide);
}

}  // namespace controls
