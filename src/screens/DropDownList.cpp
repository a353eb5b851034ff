#include "screens/DropDownList.h"

#include "controls/base/AccessibilityBus.h"
#include "controls/base/Accessible.h"
#include "controls/base/ArrowFace.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/FieldFrame.h"
#include "screens/ListAccessible.h"

#include <QListView>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace screens {

using controls::FieldState;
using controls::PaintedCanvas;
using controls::ToTwips;

namespace {

/// Pixels that the frame has at most, and where the text of the fields above and below begins.
constexpr int Border = 2;
constexpr int TextLeft = 4;

}  // namespace

DropDownList::DropDownList(QWidget* parent) : QComboBox(parent) {
    controls::RegisterAccessible<DropDownList, ListAccessible>();
    RegisterEntriesAccessible();
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        QAccessibleValueChangeEvent event(this, text);
        QAccessible::updateAccessibility(&event);
    });
    setFocusPolicy(Qt::StrongFocus);
}

void DropDownList::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionComboBox look;
    initStyleOption(&look);
    const bool isOpen = look.state.testFlag(QStyle::State_Sunken);
    const FieldState state = controls::FieldStateOf(*this, hasFocus() || isOpen);
    const QRect inside = rect() - QMargins(Border, Border, Border, Border);
    const int buttonLeft = inside.right() + 1 - inside.height();

    QPainter painter(this);
    PaintedCanvas canvas(&painter, width(), height());
    controls::DrawFieldGround(canvas, canvas.Width(), canvas.Height(), state);
    controls::DrawFieldFrame(canvas, canvas.Width(), canvas.Height(), state);
    controls::DrawArrowFace(painter, {buttonLeft, inside.top(), inside.height(), inside.height()},
                            {.Enabled = isEnabled(), .IsDown = isOpen});
    canvas.SetFont(font());
    const QString text = canvas.Elided(look.currentText, ToTwips(buttonLeft - Border - TextLeft));
    canvas.Print(ToTwips(TextLeft), (canvas.Height() - canvas.TextHeight(text)) / 2.0, text,
                 controls::FieldText(state));
}

void DropDownList::keyPressEvent(QKeyEvent* event) {
    // The keys of an open list don't come here.
    const int before = currentIndex();
    QComboBox::keyPressEvent(event);
    TellChoiceOtherThan(before);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        const int before = currentIndex();
        QComboBox::wheelEvent(event);
        TellChoiceOtherThan(before);
    } else {
        event->ignore();
    }
}

void DropDownList::TellChoiceOtherThan(int before) {
    // Of the value alone screen readers say nothing.
    if (currentIndex() != before && currentIndex() >= 0 && QAccessible::isActive()) {
        controls::TellBusOfDescendant(*this,
                                      *QAccessible::queryAccessibleInterface(view())->child(currentIndex()));
    }
}

}  // namespace screens
