#pragma once

#include <QAbstractButton>

namespace controls {

/// A cross in a dark square that answers a click. It lights up a little under the mouse and takes no keys.
class CloseImage : public QAbstractButton {
    Q_OBJECT

public:
    explicit CloseImage(QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace controls
