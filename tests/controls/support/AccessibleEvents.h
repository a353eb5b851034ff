#pragma once

#include <QAccessible>
#include <QObject>

#include <vector>

/// Switches accessibility on while it lives, as a running screen reader does, and notes what an object tells
/// it.
class AccessibleEvents {
public:
    struct Event {
        QAccessible::Event type;
        /// The states that changed, for an event of that kind.
        QAccessible::State changed;
    };

    explicit AccessibleEvents(QObject& object);
    AccessibleEvents(const AccessibleEvents&) = delete;
    AccessibleEvents& operator=(const AccessibleEvents&) = delete;
    ~AccessibleEvents();

    /// The events since the last call.
    std::vector<Event> Take();

private:
    static void Hear(QAccessibleEvent* event);

    QObject& object_;
    QAccessible::UpdateHandler previous_;
    std::vector<Event> heard_;
};
