#include "support/AccessibleEvents.h"

// Qt tells of nothing until its platform says that somebody listens, and only the platform's own interface
// can say so: QAccessible::setActive is no more than a message to observers.
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <utility>

namespace {

AccessibleEvents* listening = nullptr;

void SwitchAccessibility(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

}  // namespace

AccessibleEvents::AccessibleEvents(QObject& object)
    : object_(object), previous_(QAccessible::installUpdateHandler(Hear)) {
    listening = this;
    SwitchAccessibility(true);
}

AccessibleEvents::~AccessibleEvents() {
    SwitchAccessibility(false);
    listening = nullptr;
    QAccessible::installUpdateHandler(previous_);
}

std::vector<AccessibleEvents::Event> AccessibleEvents::Take() {
    return std::exchange(heard_, {});
}

void AccessibleEvents::Hear(QAccessibleEvent* event) {
    if (listening == nullptr || event->object() != &listening->object_) {
        return;
    }
    Event heard{event->type(), {}};
    if (event->type() == QAccessible::StateChanged) {
        heard.changed = static_cast<QAccessibleStateChangeEvent*>(event)->changedStates();
    }
    listening->heard_.push_back(heard);
}
