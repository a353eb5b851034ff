#include "support/ScreenReader.h"

// Qt tells nothing until its platform says that somebody listens, and no public interface can say so.
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <utility>

namespace {

QStringList heard;

void Hear(QAccessibleEvent* event) {
    const QString child = QString::number(event->child());
    switch (event->type()) {
        case QAccessible::Selection:
            heard += QStringLiteral("selection ") + child;
            break;
        case QAccessible::ObjectReorder:
            heard += QStringLiteral("reorder");
            break;
        case QAccessible::StateChanged: {
            const auto changed = static_cast<QAccessibleStateChangeEvent*>(event)->changedStates();
            QString text = QStringLiteral("state ");
            text += changed.selected ? QStringLiteral("selected ") : QString();
            text += changed.disabled ? QStringLiteral("disabled ") : QString();
            heard += text + child;
            break;
        }
        default:
            break;
    }
}

void Switch(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

}  // namespace

ScreenReader::ScreenReader() {
    heard.clear();
    QAccessible::installUpdateHandler(Hear);
    Switch(true);
}

ScreenReader::~ScreenReader() {
    Switch(false);
    QAccessible::installUpdateHandler(nullptr);
}

QStringList ScreenReader::Heard() {
    return std::exchange(heard, {});
}
