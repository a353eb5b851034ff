#include "date/DateForm.h"

#include "controls/base/Display.h"
#include "platform/Clock.h"
#include "support/OnScreen.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

namespace {

/// The control finds today's date when it is made.
const controls::akDate::Properties& OnTheDay(const controls::akDate::Properties& saved) {
    platform::PinToday(QDate(2009, 3, 14));
    return saved;
}

}  // namespace

DateForm::DateForm(const controls::akDate::Properties& saved, const char* locale)
    : locale_(locale), before(&window), date(OnTheDay(saved), &window), after(&window) {
    before.setObjectName(QStringLiteral("before"));
    date.setObjectName(QStringLiteral("date"));
    after.setObjectName(QStringLiteral("after"));
    window.resize(controls::ToPixels(6000), controls::ToPixels(4000));
    before.setGeometry(controls::ToPixels(150), 0, 60, 20);
    after.setGeometry(controls::ToPixels(4500), 0, 60, 20);
    date.Move(600, 600, 1575, 285);
    ShowAndActivate(window);
    before.setFocus();
}

DateForm::~DateForm() {
    platform::PinToday(QDate());
}

QString DateForm::Texts() {
    return Box(1).text() + QLatin1Char('/') + Box(2).text() + QLatin1Char('/') + Box(3).text();
}

QString DateForm::Focus() const {
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr ? focused->objectName() : QString();
}

void DateForm::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    if (modifiers != Qt::NoModifier) {
        // The user lets go of them too.
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Shift);
    }
    QCoreApplication::processEvents();
}

void DateForm::Type(const char* characters) {
    for (const char* character = characters; *character != '\0'; ++character) {
        QTest::keyClick(QApplication::focusWidget(), *character);
        QCoreApplication::processEvents();
    }
}

void DateForm::ClickPixel(int x, int y, Qt::MouseButton button) {
    // Through the window, so that the click finds what lies on top.
    QTest::mouseClick(window.windowHandle(), button, Qt::NoModifier, date.mapTo(&window, QPoint(x, y)));
    QCoreApplication::processEvents();
}

void DateForm::ClickTwips(int X, int Y, Qt::MouseButton button) {
    ClickPixel(X / controls::TwipsPerPixel(), Y / controls::TwipsPerPixel(), button);
}

void DateForm::Click(const char* buttonName) {
    const QPoint middle = Button(buttonName).geometry().center();
    ClickPixel(middle.x(), middle.y());
}

void DateForm::ClickCell(int column, int row) {
    ClickTwips((column - 1) * 350 + 25 + 175, (row - 1) * 190 + 800 + 95);
}
