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

QString PictureFile(const char* name) {
    BringPictures();
    return QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(name));
}

class WarningSign : public QWidget {
public:
    explicit WarningSign(QWidget* parent) : QWidget(parent), renderer_(PictureFile("warning")) {
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
    QSvgRenderer renderer(PictureFile("wrenfield-wizard"));
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

void AddWarningSign(QWidget* page, const screens::Place& place) {
    screens::PutAt(*new WarningSign(page), place);
}

}  // namespace shell
