#include "shell/DrawPicture.h"

#include <QPainter>
#include <QSvgRenderer>

namespace shell {

void DrawPicture(QPainter& painter, const QString& name, const QRect& place) {
    QSvgRenderer(QStringLiteral(":/pictures/%1.svg").arg(name)).render(&painter, place);
}

}  // namespace shell
