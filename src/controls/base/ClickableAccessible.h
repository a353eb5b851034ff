#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace controls {

/// A button, check box or option of the toolkit as assistive programs see it. What they press or toggle is
/// clicked, the focus first; the toolkit's own way leaves the focus where it is and raises no click for a
/// toggle.
class ClickableAccessible : public QAccessibleWidget {
public:
    explicit ClickableAccessible(QAbstractButton* button);

    QString text(QAccessible::Text text) const override;
    /// Where a click takes effect: check boxes and options leave out the room beside their captions.
    QRect rect() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    /// A click is done once the present event is, as it may open a dialog.
    void doAction(const QString& action) override;

private:
    QAbstractButton& Button() const;
    const QString& ClickAction() const;
};

}  // namespace controls
