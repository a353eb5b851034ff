#pragma once

#include <QAccessibleWidget>

#include <array>

namespace controls {

class UpDownImage;

/// What assistive programs see of an up/down image: a group with the push buttons up and down.
class UpDownAccessible : public QAccessibleWidget {
public:
    explicit UpDownAccessible(UpDownImage* image);
    UpDownAccessible(const UpDownAccessible&) = delete;
    UpDownAccessible& operator=(const UpDownAccessible&) = delete;
    ~UpDownAccessible() override;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    std::array<QAccessible::Id, 2> halves_;
};

}  // namespace controls
