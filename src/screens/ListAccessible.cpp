#include "screens/ListAccessible.h"

#include "controls/base/Action.h"
#include "screens/DropDownList.h"

#include <QListView>
#include <QPointer>

#include <map>

namespace screens {

namespace {

/// One entry. It knows its place only, counted from 0, and is invalid while the list has no such place.
class EntryAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    EntryAccessible(DropDownList* list, int place) : list_(list), place_(place) {}

    bool isValid() const override { return list_ != nullptr && place_ < list_->count(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return list_ != nullptr ? QAccessible::queryAccessibleInterface(list_->view()) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? list_->itemText(place_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        if (!isValid() || !list_->view()->isVisible()) {
            return {};
        }
        const QAbstractItemView& view = *list_->view();
        const QRect place = view.visualRect(view.model()->index(place_, 0));
        return {view.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const bool isOpen = list_->view()->isVisible();
        state.selectable = true;
        state.focusable = true;
        state.selected = list_->currentIndex() == place_;
        state.focused = isOpen && list_->view()->currentIndex().row() == place_;
        state.invisible = !isOpen;
        state.disabled = !list_->isEnabled();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override {
        return isValid() && controls::CanBeActedOn(*list_) ? QStringList{pressAction()} : QStringList();
    }
    void doAction(const QString& action) override {
        if (actionNames().contains(action)) {
            list_->hidePopup();
            controls::BringFocus(*list_);
            list_->setCurrentIndex(place_);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<DropDownList> list_;
    int place_;
};

/// The entries as a list, which is visible while it's open.
class EntriesAccessible : public QAccessibleWidget {
public:
    EntriesAccessible(QListView* view, DropDownList* list)
        : QAccessibleWidget(view, QAccessible::List), list_(list) {}
    EntriesAccessible(const EntriesAccessible&) = delete;
    EntriesAccessible& operator=(const EntriesAccessible&) = delete;
    ~EntriesAccessible() override {
        for (const auto& [place, id] : entries_) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        // It's an entry that has the focus.
        state.focused = false;
        return state;
    }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(list_); }
    int childCount() const override { return list_ != nullptr ? list_->count() : 0; }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) {
            return nullptr;
        }
        auto [entry, isNew] = entries_.try_emplace(index, QAccessible::Id{0});
        if (isNew) {
            entry->second = QAccessible::registerAccessibleInterface(new EntryAccessible(list_, index));
        }
        return QAccessible::accessibleInterface(entry->second);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (const auto& [place, id] : entries_) {
            if (QAccessible::accessibleInterface(id) == child) {
                return place;
            }
        }
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int place = 0; place < childCount(); ++place) {
            if (child(place)->rect().contains(x, y)) {
                return child(place);
            }
        }
        return nullptr;
    }

private:
    QPointer<DropDownList> list_;
    mutable std::map<int, QAccessible::Id> entries_;
};

}  // namespace

ListAccessible::ListAccessible(DropDownList* list) : QAccessibleWidget(list, QAccessible::ComboBox) {
}

DropDownList& ListAccessible::List() const {
    return *static_cast<DropDownList*>(widget());
}

void* ListAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                              : QAccessibleWidget::interface_cast(type);
}

QString ListAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? List().currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State ListAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = List().view()->isVisible();
    state.readOnly = true;
    return state;
}

QAccessibleInterface* ListAccessible::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(List().view()) : nullptr;
}

int ListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    return child != nullptr && child->object() == List().view() ? 0 : -1;
}

QStringList ListAccessible::actionNames() const {
    return controls::CanBeActedOn(List()) ? QStringList{showMenuAction(), pressAction()} : QStringList();
}

void ListAccessible::doAction(const QString& action) {
    if (!actionNames().contains(action)) {
        return;
    }
    if (List().view()->isVisible()) {
        List().hidePopup();
    } else {
        controls::BringFocus(List());
        List().showPopup();
    }
}

QString ListAccessible::text(int startOffset, int endOffset) const {
    return startOffset <= endOffset ? List().currentText().mid(startOffset, endOffset - startOffset)
                                    : QString();
}

int ListAccessible::characterCount() const {
    return static_cast<int>(List().currentText().size());
}

void ListAccessible::selection(int /*selectionIndex*/, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = 0;
}

QString ListAccessible::attributes(int /*offset*/, int* startOffset, int* endOffset) const {
    *startOffset = 0;
    *endOffset = characterCount();
    return {};
}

void RegisterEntriesAccessible() {
    static const bool installed = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* view = qobject_cast<QListView*>(object);
            QObject* box = view != nullptr ? view->parent() : nullptr;
            auto* list = box != nullptr ? qobject_cast<DropDownList*>(box->parent()) : nullptr;
            return list != nullptr ? new EntriesAccessible(view, list) : nullptr;
        });
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace screens
