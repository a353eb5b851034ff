#include "support/GalleryOnScreen.h"

#include <QAccessible>
#include <QHash>

namespace {

using gallery::Sheet;

using GalleryAccessibleTest = GalleryOnScreen;

bool IsInput(QAccessible::Role role) {
    switch (role) {
        case QAccessible::Button:
        case QAccessible::EditableText:
        case QAccessible::Graphic:
        case QAccessible::List:
        case QAccessible::PageTab:
        case QAccessible::Table:
            return true;
        default:
            return false;
    }
}

/// What a screen reader finds below a place that the user can see, rows of tables left out.
void Collect(QAccessibleInterface* place, QList<QAccessibleInterface*>& found) {
    if (place == nullptr || place->state().invisible) {
        return;
    }
    if (IsInput(place->role())) {
        found += place;
    }
    if (place->role() == QAccessible::Table || place->role() == QAccessible::List) {
        return;
    }
    for (int index = 0; index < place->childCount(); ++index) {
        Collect(place->child(index), found);
    }
}

TEST_F(GalleryAccessibleTest, EveryInputHasANameAndNoTwoTheSame) {
    OnEachSheet([this](const Sheet* sheet) {
        QList<QAccessibleInterface*> inputs;
        Collect(QAccessible::queryAccessibleInterface(&window), inputs);
        QHash<QString, int> names;
        for (QAccessibleInterface* input : inputs) {
            const QString name = input->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty())
                << qPrintable(sheet->Title()) << ": role " << static_cast<int>(input->role());
            EXPECT_EQ(++names[name], 1) << qPrintable(sheet->Title() + QStringLiteral(": ") + name);
        }
        // The tabs of the sheets and the log are always among them.
        EXPECT_GT(inputs.size(), 10) << qPrintable(sheet->Title());
    });
}

TEST_F(GalleryAccessibleTest, EveryWidgetThatTakesTheFocusHasARole) {
    OnEachSheet([](const Sheet* sheet) {
        for (QWidget* widget : sheet->findChildren<QWidget*>()) {
            if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            // The text box itself hands the focus on to the box in it.
            QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(
                widget->focusProxy() != nullptr ? widget->focusProxy() : widget);
            ASSERT_NE(interface, nullptr);
            EXPECT_TRUE(IsInput(interface->role()))
                << qPrintable(widget->objectName()) << " " << static_cast<int>(interface->role());
        }
    });
}

}  // namespace
