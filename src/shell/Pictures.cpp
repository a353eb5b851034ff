#include "shell/Pictures.h"

#include "shell/DrawPicture.h"

#include <QPainter>
#include <QWidget>

/// The picture lies in this library, which programs only take the parts of that they name. Outside of all
/// namespaces, as the toolkit wants it.
static void BringPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace shell {

namespace {

class WarningSign : public QWidget {
public:
    explicit WarningSign(QWidget* parent) : QWidget(parent) {
        BringPictures();
        setObjectName(QStringLiteral("Image1"));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        DrawPicture(painter, QStringLiteral("warning"), rect());
    }
};

}  // namespace

QIcon WizardIcon() {
    BringPictures();
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        DrawPicture(painter, QStringLiteral("wrenfield-wizard"), pixmap.rect());
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

void AddWarningSign(QWidget* page, const screens::Place& place) {
    screens::PutAt(*new WarningSign(page), place);
}

}  // namespace shell
