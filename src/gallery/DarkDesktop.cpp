#include "gallery/DarkDesktop.h"

#include <QApplication>
#include <QPalette>

namespace gallery {

void PretendDarkDesktop() {
    const QColor text(240, 240, 240);
    const QColor faint(130, 130, 130);
    const QColor highlight(61, 142, 201);
    QPalette dark(text, QColor(60, 60, 60), QColor(90, 90, 90), QColor(30, 30, 30), QColor(45, 45, 45), text,
                  Qt::white, QColor(25, 25, 25), QColor(45, 45, 45));
    dark.setColor(QPalette::Midlight, QColor(75, 75, 75));
    dark.setColor(QPalette::Shadow, QColor(10, 10, 10));
    dark.setColor(QPalette::Highlight, highlight);
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, faint);
    }
    QApplication::setPalette(dark);
}

}  // namespace gallery
