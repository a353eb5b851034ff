#include "controls/ctlButton.h"
#include "support/GalleryOnScreen.h"

#include <QApplication>

namespace {

using controls::ButtonStates;
using controls::ctlButton;
using gallery::Sheet;

using GalleryFocusTest = GalleryOnScreen;

bool TakesTheFocus(const QWidget* widget) {
    if (!widget->isVisible() || !widget->isEnabled() || (widget->focusPolicy() & Qt::TabFocus) == 0) {
        return false;
    }
    const auto* button = qobject_cast<const ctlButton*>(widget);
    // One that is not Enabled passes it on, and the staged ones look as they do with the focus already.
    return button == nullptr || (button->Enabled() && button->ButtonState() == ButtonStates::Normal);
}

TEST_F(GalleryFocusTest, IsSeenOnEveryControlThatTakesIt) {
    OnEachSheet([this](Sheet* sheet) {
        for (QWidget* widget : sheet->findChildren<QWidget*>()) {
            window.Log().setFocus();
            QApplication::processEvents();
            if (!TakesTheFocus(widget)) {
                continue;
            }
            const QImage without = sheet->grab().toImage();
            widget->setFocus();
            QApplication::processEvents();
            EXPECT_NE(sheet->grab().toImage(), without)
                << qPrintable(sheet->Title()) << ": " << qPrintable(widget->accessibleName()) << " "
                << qPrintable(widget->objectName());
        }
    });
}

TEST_F(GalleryFocusTest, IsWhereTheSheetWantsItWhenItComesOnView) {
    Show("Text box");
    EXPECT_EQ(QApplication::focusWidget()->parentWidget()->objectName(), QStringLiteral("With the focus"));
    Show("Button");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("With the focus"));
}

}  // namespace
