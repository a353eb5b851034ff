#include "controls/base/AccessibilityBus.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace controls {

void TellBusOfState(QObject& object, const QString& state, bool on) {
    QAccessibleInterface* interface =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(&object) : nullptr;
    // The toolkit's own connection, by which the object is known to those who listen.
    QDBusConnection bus(QStringLiteral("a11y"));
    if (interface == nullptr || !bus.isConnected()) {
        return;
    }
    QDBusMessage message = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(interface)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("StateChanged"));
    message << state << (on ? 1 : 0) << 0 << QVariant::fromValue(QDBusVariant(0)) << QVariantMap();
    bus.send(message);
}

}  // namespace controls
