#include "controls/heading/HeadingAccessible.h"

#include <QPointer>

namespace controls {

namespace {

/// One tab. Its place is counted from 0; it is no longer valid once the heading has fewer tabs or is gone.
class TabAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    TabAccessible(ctlPageHeading* heading, int tab) : heading_(heading), tab_(tab) {}

    bool isValid() const override { return heading_ != nullptr && tab_ < heading_->TabStrip().Count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(heading_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? heading_->TabStrip().TabNames[tab_] : QString();
    }

    QRect rect() const override {
        if (!isValid()) {
            return {};
        }
        const QRect place = heading_->TabPixels(tab_);
        return {heading_->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.selectable = true;
        state.selected = heading_->TabStrip().IsCurrent(tab_);
        state.disabled = !CanBeClicked();
        state.invisible = !heading_->isVisible();
        state.offscreen = !heading_->rect().intersects(heading_->TabPixels(tab_));
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override {
        return isValid() && CanBeClicked() ? QStringList(pressAction()) : QStringList();
    }

    void doAction(const QString& name) override {
        if (isValid() && CanBeClicked() && name == pressAction()) {
            heading_->ClickTab(tab_);
        }
    }

    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    bool CanBeClicked() const { return heading_->isEnabled() && heading_->TabStrip().TabEnabled[tab_]; }

    QPointer<ctlPageHeading> heading_;
    int tab_;
};

void TellState(ctlPageHeading& heading, int tab, QAccessible::State changed) {
    QAccessibleStateChangeEvent event(&heading, changed);
    event.setChild(tab);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

HeadingAccessible::HeadingAccessible(ctlPageHeading* heading)
    : QAccessibleWidget(heading, QAccessible::PageTabList) {
}

HeadingAccessible::~HeadingAccessible() {
    for (const QAccessible::Id tab : tabs_) {
        QAccessible::deleteAccessibleInterface(tab);
    }
}

ctlPageHeading* HeadingAccessible::Heading() const {
    return qobject_cast<ctlPageHeading*>(object());
}

int HeadingAccessible::TabCount() const {
    return Heading() != nullptr ? Heading()->TabStrip().Count() : 0;
}

QList<QWidget*> HeadingAccessible::ShownWidgets() const {
    QList<QWidget*> shown;
    if (Heading() == nullptr) {
        return shown;
    }
    for (QWidget* child : Heading()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (!child->isHidden()) {
            shown.append(child);
        }
    }
    return shown;
}

QAccessibleInterface* HeadingAccessible::Tab(int tab) const {
    while (static_cast<int>(tabs_.size()) <= tab) {
        // Qt owns it from here on; the destructor gives it back by its number.
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        tabs_.push_back(QAccessible::registerAccessibleInterface(
            new TabAccessible(Heading(), static_cast<int>(tabs_.size()))));
    }
    return QAccessible::accessibleInterface(tabs_[static_cast<size_t>(tab)]);
}

int HeadingAccessible::childCount() const {
    return TabCount() + static_cast<int>(ShownWidgets().size());
}

QAccessibleInterface* HeadingAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    return index < TabCount() ? Tab(index)
                              : QAccessible::queryAccessibleInterface(ShownWidgets()[index - TabCount()]);
}

int HeadingAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child) {
            return index;
        }
    }
    return -1;
}

QAccessibleInterface* HeadingAccessible::childAt(int x, int y) const {
    // Backwards, as the child widgets lie above the tabs.
    for (int index = childCount() - 1; index >= 0; --index) {
        if (child(index)->rect().contains(x, y)) {
            return child(index);
        }
    }
    return nullptr;
}

void AnnounceTabSelected(ctlPageHeading& heading, const QString& textBefore) {
    const HeadingTabs& tabs = heading.TabStrip();
    if (!QAccessible::isActive() || tabs.CurrentTab == textBefore) {
        return;
    }
    QAccessible::State selected;
    selected.selected = true;
    for (int tab = 0; tab < tabs.Count(); ++tab) {
        if (tabs.IsCurrent(tab)) {
            QAccessibleEvent event(&heading, QAccessible::Selection);
            event.setChild(tab);
            QAccessible::updateAccessibility(&event);
        }
        if (tabs.TabNames[tab] == textBefore) {
            QAccessibleEvent event(&heading, QAccessible::SelectionRemove);
            event.setChild(tab);
            QAccessible::updateAccessibility(&event);
        }
        if (tabs.IsCurrent(tab) || tabs.TabNames[tab] == textBefore) {
            TellState(heading, tab, selected);
        }
    }
}

void AnnounceTabEnabled(ctlPageHeading& heading, int tab) {
    if (!QAccessible::isActive() || tab >= heading.TabStrip().Count()) {
        return;
    }
    QAccessible::State disabled;
    disabled.disabled = true;
    TellState(heading, tab, disabled);
}

void AnnounceTabsReplaced(ctlPageHeading& heading) {
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&heading, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
    }
}

}  // namespace controls
