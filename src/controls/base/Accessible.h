#pragma once

#include <QAccessible>

namespace controls {

/// From here on, assistive programs see each Widget through an Interface, which is constructed with a pointer
/// to it. Each control says this once of itself.
template <class Widget, class Interface>
void RegisterAccessible() {
    static const bool installed = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* widget = qobject_cast<Widget*>(object);
            return widget != nullptr ? new Interface(widget) : nullptr;
        });
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace controls
