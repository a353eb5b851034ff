#include "controls/base/AccessibilityBus.h"

#include <QAccessible>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace controls {

namespace {

/// Who on the bus has an object, and which one it is.
struct Reference {
    QString service;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Reference& reference) {
    argument.beginStructure();
    argument << reference.service << reference.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Reference& reference) {
    argument.beginStructure();
    argument >> reference.service >> reference.path;
    argument.endStructure();
    return argument;
}

/// The toolkit's own connection, by which objects are known to those who listen.
QDBusConnection Bus() {
    return QDBusConnection(QStringLiteral("a11y"));
}

QString PathOf(QAccessibleInterface& interface) {
    return QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&interface));
}

/// Kind, detail and two values are what every event on this bus has.
void Send(QObject& object, const QString& event, const QString& kind, int detail, const QVariant& value) {
    QAccessibleInterface* interface =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(&object) : nullptr;
    const QDBusConnection bus = Bus();
    if (interface == nullptr || !bus.isConnected()) {
        return;
    }
    QDBusMessage message =
        QDBusMessage::createSignal(PathOf(*interface), QStringLiteral("org.a11y.atspi.Event.Object"), event);
    message << kind << detail << 0 << QVariant::fromValue(QDBusVariant(value)) << QVariantMap();
    bus.send(message);
}

}  // namespace

void TellBusOfState(QObject& object, const QString& state, bool on) {
    Send(object, QStringLiteral("StateChanged"), state, on ? 1 : 0, 0);
}

void TellBusOfDescendant(QObject& object, QAccessibleInterface& descendant) {
    static const QMetaType registered = qDBusRegisterMetaType<Reference>();
    static_cast<void>(registered);
    const Reference reference{Bus().baseService(), QDBusObjectPath(PathOf(descendant))};
    Send(object, QStringLiteral("ActiveDescendantChanged"), QString(),
         descendant.parent()->indexOfChild(&descendant), QVariant::fromValue(reference));
}

}  // namespace controls
