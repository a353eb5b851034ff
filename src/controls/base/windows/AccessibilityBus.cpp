#include "controls/base/AccessibilityBus.h"

#include <QAccessible>

namespace controls {

// Assistive programs know no state here but those that the toolkit passes on.
void TellBusOfState(QObject&, const QString&, bool) {
}

// They know of no part by itself either: the part says that the focus is on it.
void TellBusOfDescendant(QObject&, QAccessibleInterface& descendant) {
    QAccessibleEvent event(&descendant, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

}  // namespace controls
