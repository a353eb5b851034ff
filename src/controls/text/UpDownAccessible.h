#pragma once

#include <QAccessibleWidget>

namespace controls {

class UpDownButton;
class UpDownImage;

/// What assistive programs see of an up/down image: a group with the push buttons up and down.
class UpDownAccessible : public QAccessibleWidget {
public:
    explicit UpDownAccessible(UpDownImage* image);

    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;

private:
    UpDownImage& Image() const;
};

/// One half of the image as a push button.
class UpDownButtonAccessible : public QAccessibleObject, public QAccessibleActionInterface {
public:
    explicit UpDownButtonAccessible(UpDownButton* button);

    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int index) const override;
    int childCount() const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    QStringList keyBindingsForAction(const QString& name) const override;
    void doAction(const QString& name) override;

private:
    UpDownButton& Button() const;
};

}  // namespace controls
