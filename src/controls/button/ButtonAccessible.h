#pragma once

#include <QAccessibleWidget>

namespace controls {

class ctlButton;

/// A button as screen readers see it: a push button named by its caption, which can be pressed. It tells
/// whether it is Enabled and held down.
class ButtonAccessible : public QAccessibleWidget {
public:
    explicit ButtonAccessible(ctlButton* button);

    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    /// A press brings the focus, as a click does. It is done once the present event is: a click may open a
    /// dialog, and the assistive program would wait for its answer until that is closed.
    void doAction(const QString& action) override;

private:
    const ctlButton& Button() const;
};

/// Announces to assistive programs what has just changed.
void AnnounceCaption(ctlButton& button);
void AnnounceEnabled(ctlButton& button);
void AnnouncePressed(ctlButton& button);

}  // namespace controls
