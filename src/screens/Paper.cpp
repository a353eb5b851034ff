#include "screens/Paper.h"

#include "controls/base/Accessible.h"
#include "controls/base/ClickableAccessible.h"
#include "controls/base/Display.h"
#include "controls/base/Font.h"

#include <QLabel>
#include <QRadioButton>

namespace screens {

void PutAt(QWidget& widget, const Place& place) {
    widget.setGeometry(controls::ToPixels(place.left), controls::ToPixels(place.top),
                       controls::ToPixels(place.width), controls::ToPixels(place.height));
}

QPalette PaperPalette() {
    const QColor faint(120, 120, 120);
    const QColor face(240, 240, 240);
    QPalette palette(Qt::black, face, Qt::white, QColor(120, 120, 120), QColor(180, 180, 180), Qt::black,
                     Qt::white, Qt::white, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(37, 79, 167));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

QLabel* AddLabel(QWidget* parent, const QString& name, const QString& text, const Place& place) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFont(controls::ControlFont());
    label->setText(text);
    PutAt(*label, place);
    return label;
}

QRadioButton* AddOption(QWidget* parent, const QString& name, const QString& caption, const Place& place) {
    controls::RegisterAccessible<QRadioButton, controls::ClickableAccessible>();
    auto* option = new QRadioButton(caption, parent);
    option->setObjectName(name);
    option->setFont(controls::ControlFont());
    PutAt(*option, place);
    return option;
}

}  // namespace screens
