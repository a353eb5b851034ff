#include "support/CalendarListener.h"

// Qt tells nothing until its platform says that somebody listens, and no public interface can say so.
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <utility>

namespace {

QStringList told;

QString What(QAccessible::Event event) {
    switch (event) {
        case QAccessible::ObjectShow:
            return QStringLiteral("shown ");
        case QAccessible::ObjectHide:
            return QStringLiteral("hidden ");
        case QAccessible::NameChanged:
            return QStringLiteral("name ");
        case QAccessible::TableModelChanged:
            return QStringLiteral("cells ");
        default:
            return QStringLiteral("something else of ");
    }
}

void Note(QAccessibleEvent* event) {
    QAccessibleInterface* source = event->accessibleInterface();
    if (source != nullptr && source->role() == QAccessible::Table) {
        told += What(event->type()) + source->text(QAccessible::Name);
    }
}

void Switch(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

}  // namespace

CalendarListener::CalendarListener() : before_(QAccessible::installUpdateHandler(Note)) {
    told.clear();
    Switch(true);
}

CalendarListener::~CalendarListener() {
    Switch(false);
    QAccessible::installUpdateHandler(before_);
}

QStringList CalendarListener::Take() {
    return std::exchange(told, {});
}
