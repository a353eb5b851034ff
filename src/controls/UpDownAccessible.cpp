#include "controls/UpDownAccessible.h"

#include "controls/UpDownImage.h"

#include <QPointer>

namespace controls {

namespace {

/// One half as a push button.
class HalfButton : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    HalfButton(UpDownImage* image, UpDownHalf half) : image_(image), half_(half) {}

    bool isValid() const override { return image_ != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(image_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::PushButton; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name) {
            return {};
        }
        const bool isUp = half_ == UpDownHalf::Up;
        if (image_->Label().isEmpty()) {
            return isUp ? QStringLiteral("Up") : QStringLiteral("Down");
        }
        return image_->Label() + (isUp ? QStringLiteral(" up") : QStringLiteral(" down"));
    }

    QRect rect() const override {
        const QRect area = image_->Area(half_);
        return {image_->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.disabled = !image_->isEnabled();
        state.invisible = !image_->isVisible();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
    void doAction(const QString& name) override {
        if (name == pressAction() && image_->isEnabled() && image_->isVisible()) {
            image_->Press(half_);
        }
    }

private:
    QPointer<UpDownImage> image_;
    UpDownHalf half_;
};

}  // namespace

UpDownAccessible::UpDownAccessible(UpDownImage* image)
    : QAccessibleWidget(image, QAccessible::Grouping),
      halves_{QAccessible::registerAccessibleInterface(new HalfButton(image, UpDownHalf::Up)),
              QAccessible::registerAccessibleInterface(new HalfButton(image, UpDownHalf::Down))} {
}

UpDownAccessible::~UpDownAccessible() {
    for (const QAccessible::Id half : halves_) {
        QAccessible::deleteAccessibleInterface(half);
    }
}

QString UpDownAccessible::text(QAccessible::Text kind) const {
    const auto* image = static_cast<const UpDownImage*>(widget());
    return kind == QAccessible::Name ? image->Label() : QAccessibleWidget::text(kind);
}

int UpDownAccessible::childCount() const {
    return static_cast<int>(halves_.size());
}

QAccessibleInterface* UpDownAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    return QAccessible::accessibleInterface(halves_.at(static_cast<size_t>(index)));
}

int UpDownAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child) {
            return index;
        }
    }
    return -1;
}

QAccessibleInterface* UpDownAccessible::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface* half = child(index); half->rect().contains(x, y)) {
            return half;
        }
    }
    return nullptr;
}

}  // namespace controls
