#include "support/ScreenReader.h"

// Qt tells of nothing until its platform says that somebody listens, and only the platform's own interface
// can say so: QAccessible::setActive is no more than a message to observers.
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include <utility>

namespace {

ScreenReader* running = nullptr;

void SwitchAccessibility(bool on) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(on);
}

QString Changed(const QAccessible::State& states) {
    QString text = QStringLiteral("state ");
    text += states.disabled ? QStringLiteral("disabled ") : QString();
    text += states.pressed ? QStringLiteral("pressed ") : QString();
    text += states.selected ? QStringLiteral("selected ") : QString();
    return text;
}

QString Changed(const QAccessibleTableModelChangeEvent& rows) {
    switch (rows.modelChangeType()) {
        case QAccessibleTableModelChangeEvent::ModelReset:
            return QStringLiteral("rows reset ");
        case QAccessibleTableModelChangeEvent::RowsInserted:
            return QStringLiteral("rows inserted %1 ").arg(rows.firstRow());
        case QAccessibleTableModelChangeEvent::RowsRemoved:
            return QStringLiteral("rows removed %1 ").arg(rows.firstRow());
        default:
            return QStringLiteral("rows otherwise ");
    }
}

/// Empty for a kind that is not noted.
QString What(const QAccessibleEvent& event) {
    switch (event.type()) {
        case QAccessible::Focus:
            return QStringLiteral("focus ");
        case QAccessible::Selection:
            return QStringLiteral("selection ");
        case QAccessible::SelectionRemove:
            return QStringLiteral("deselection ");
        case QAccessible::StateChanged:
            return Changed(static_cast<const QAccessibleStateChangeEvent&>(event).changedStates());
        case QAccessible::NameChanged:
            return QStringLiteral("name ");
        case QAccessible::ObjectShow:
            return QStringLiteral("shown ");
        case QAccessible::ObjectHide:
            return QStringLiteral("hidden ");
        case QAccessible::ObjectReorder:
            return QStringLiteral("reorder ");
        case QAccessible::TableModelChanged:
            return Changed(static_cast<const QAccessibleTableModelChangeEvent&>(event));
        default:
            return {};
    }
}

}  // namespace

ScreenReader::ScreenReader(Interest interest)
    : interest_(std::move(interest)), previous_(QAccessible::installUpdateHandler(Hear)) {
    running = this;
    SwitchAccessibility(true);
}

ScreenReader::~ScreenReader() {
    SwitchAccessibility(false);
    running = nullptr;
    QAccessible::installUpdateHandler(previous_);
}

QStringList ScreenReader::Heard() {
    return std::exchange(heard_, {});
}

void ScreenReader::Hear(QAccessibleEvent* event) {
    const QAccessibleInterface* about = event->accessibleInterface();
    const QString what = What(*event);
    if (about == nullptr || what.isEmpty() || (running->interest_ && !running->interest_(*about))) {
        return;
    }
    running->heard_ += (what + about->text(QAccessible::Name)).trimmed();
}
