#pragma once

#include "controls/ctlPageHeading.h"

#include <QAccessibleWidget>

#include <vector>

namespace controls {

/// The heading as a screen reader finds it: a list of page tabs, named after the title. Behind the tabs come
/// the title itself and, while it is shown, the push button "Close".
class HeadingAccessible : public QAccessibleWidget {
public:
    explicit HeadingAccessible(ctlPageHeading* heading);
    ~HeadingAccessible() override;
    HeadingAccessible(const HeadingAccessible&) = delete;
    HeadingAccessible& operator=(const HeadingAccessible&) = delete;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    /// Null while the heading is being taken down, when assistive programs may still ask. It has no children
    /// then.
    ctlPageHeading* Heading() const;
    int TabCount() const;
    /// The child widgets that can be seen.
    QList<QWidget*> ShownWidgets() const;
    QAccessibleInterface* Tab(int tab) const;

    /// One for each tab that was asked for, made then.
    mutable std::vector<QAccessible::Id> tabs_;
};

/// Announces to assistive programs what changed. Nothing is sent while none is there.
void AnnounceTabSelected(ctlPageHeading& heading, const QString& textBefore);
void AnnounceTabEnabled(ctlPageHeading& heading, int tab);
void AnnounceTabsReplaced(ctlPageHeading& heading);

}  // namespace controls
