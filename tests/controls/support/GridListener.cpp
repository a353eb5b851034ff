#include "support/GridListener.h"

// Qt tells nothing until its platform says that somebody listens, and no public interface can say so.
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <utility>

namespace {

QStringList heard;

void Hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TableModelChanged) {
        const auto* change = static_cast<QAccessibleTableModelChangeEvent*>(event);
        heard += QStringLiteral("Rows %1 %2").arg(change->modelChangeType()).arg(change->firstRow());
        return;
    }
    const bool focus = event->type() == QAccessible::Focus;
    if (!focus && event->type() != QAccessible::Selection) {
        return;
    }
    const QAccessibleInterface* part = event->accessibleInterface();
    heard += (focus ? QStringLiteral("Focus ") : QStringLiteral("Selection ")) +
             (part != nullptr ? part->text(QAccessible::Name) : QStringLiteral("nothing"));
}

void Switch(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

}  // namespace

GridListener::GridListener() : previous_(QAccessible::installUpdateHandler(Hear)) {
    heard.clear();
    Switch(true);
}

GridListener::~GridListener() {
    Switch(false);
    QAccessible::installUpdateHandler(previous_);
}

QStringList GridListener::Heard() {
    return std::exchange(heard, {});
}
