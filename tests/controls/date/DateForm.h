#pragma once

#include "controls/akDate.h"
#include "support/CommaLocale.h"

#include <QLineEdit>
#include <QPushButton>

/// A form with a date control between two edit boxes, on the active window, on 14 March 2009. The focus is in
/// the first edit box.
class DateForm {
public:
    /// The locales of the three orders.
    static constexpr const char* DayFirst = "de_DE";
    static constexpr const char* MonthFirst = "en_US";
    static constexpr const char* YearFirst = "sv_SE";

    explicit DateForm(const controls::akDate::Properties& saved = {}, const char* locale = DayFirst);
    ~DateForm();
    DateForm(const DateForm&) = delete;
    DateForm& operator=(const DateForm&) = delete;

    /// The box at a place from 1 to 3.
    QLineEdit& Box(int place) { return *date.findChild<QLineEdit*>(QStringLiteral("txtDate%1").arg(place)); }
    QLineEdit& None() { return *date.findChild<QLineEdit*>(QStringLiteral("txtNone")); }
    QPushButton& Button(const char* name) { return *date.findChild<QPushButton*>(QString::fromLatin1(name)); }

    /// The texts of the boxes from left to right: "14/03/2009".
    QString Texts();
    /// The name of what has the focus.
    QString Focus() const;

    /// Presses a key on what has the focus, and lets what follows from it happen.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Types characters into what has the focus at the time of each.
    void Type(const char* characters);
    void EnterBox(int place) { Box(place).setFocus(); }
    void LeaveControl() { after.setFocus(); }

    /// Clicks on what lies at a place of the control, in pixels or in twips.
    void ClickPixel(int x, int y, Qt::MouseButton button = Qt::LeftButton);
    void ClickTwips(int X, int Y, Qt::MouseButton button = Qt::LeftButton);
    void Click(const char* buttonName);
    /// Clicks in the middle of a day's cell.
    void ClickCell(int column, int row);

private:
    CommaLocale locale_;

public:
    QWidget window;
    QLineEdit before;
    controls::akDate date;
    QLineEdit after;
};
