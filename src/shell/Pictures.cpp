#include "shell/Pictures.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QWidget>

/// The picture lies in this library, which programs only take the parts of that they name. Outside of all
/// namespaces, as the toolkit wants it.
static void BringPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace shell {

namespace {

QString PictureFile() {
    BringPictures();
    return QStringLiteral(":/pictures/wrenfield-wizard.svg");
}

class Picture : public QWidget {
public:
    explicit Picture(QWidget* parent) : QWidget(parent), renderer_(PictureFile()) {
        setObjectName(QStringLiteral("Image1"));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        renderer_.render(&painter, QRectF(rect()));
    }

private:
    QSvgRenderer renderer_;
};

}  // namespace

QIcon WizardIcon() {
    QSvgRenderer renderer(PictureFile());
    QIcon icon;
    for (const int side : {16, 32, 48, 128}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

void AddPicture(QWidget* page, const screens::Place& place) {
    screens::PutAt(*new Picture(page), place);
}

}  // namespace shell
