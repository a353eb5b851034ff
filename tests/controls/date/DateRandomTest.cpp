#include "date/DateForm.h"
#include "date/NaiveDate.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace controls;
using namespace Qt::StringLiterals;

constexpr int Events = 10'000;

struct Order {
    const char* locale;
    const char* letters;
};

/// Does the same to a real date control and to the naive one.
class Pair {
public:
    Pair(const Order& order, unsigned seed)
        : form_({.IncludeNone = true}, order.locale),
          naive_(QString::fromLatin1(order.letters), {2009, 3, 14}, true),
          random_(seed) {}

    /// One random event; says which.
    QString Step() {
        switch (Pick(24)) {
            case 0:
            case 1:
            case 2:
            case 3:
            case 4:
            case 5:
                return Type(QLatin1Char(static_cast<char>('0' + Pick(10))));
            case 6:
                return Type(QStringLiteral("/\\-")[Pick(3)]);
            case 7:
                return Type(QLatin1Char('\b'));
            case 8:
                return Type(QStringLiteral("x .\r\x1b")[Pick(5)]);
            case 9:
                return Key(Pick(2) == 0 ? Qt::Key_Left : Qt::Key_Right);
            case 10:
                return Key(
                    std::array{Qt::Key_Home, Qt::Key_End, Qt::Key_Delete}[static_cast<size_t>(Pick(3))]);
            case 11:
            case 12:
                return Key(Pick(3) == 0 ? Qt::Key_Backtab : Qt::Key_Tab);
            case 13:
                return Paste();
            case 14:
                return ClickBox(Pick(3) + 1);
            case 15:
            case 16:
                return ClickOpen();
            case 17:
            case 18:
            case 19:
                return ClickBelow();
            case 20:
                return SetValue();
            case 21:
                return SetSwitch();
            case 22:
                return Pick(2) == 0 ? DropDown() : CloseUp();
            default:
                return MoveFocus();
        }
    }

    void Compare() {
        EXPECT_EQ(form_.Texts(), naive_.Texts());
        EXPECT_EQ(form_.Focus(), naive_.Focus());
        EXPECT_EQ(form_.date.NoneShown(), naive_.None());
        EXPECT_EQ(form_.None().isVisible(), naive_.None());
        EXPECT_EQ(form_.date.DroppedDown(), naive_.Open());
        const PlainDay stored = naive_.Stored();
        EXPECT_EQ(form_.date.Value(),
                  naive_.None() ? QDate(1234, 3, 14) : QDate(stored.year, stored.month, stored.day));
        if (auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            box != nullptr && box->objectName().startsWith(u"txtDate"_s)) {
            EXPECT_EQ(box->selectedText(), naive_.SelectedText());
        }
        if (naive_.Open()) {
            const CalendarPicture& shown = form_.date.ShownCalendar();
            EXPECT_EQ(MonthTitle(shown.shown), naive_.Title());
            EXPECT_EQ(shown.markedDay.value_or(-1), naive_.Marked());
            EXPECT_EQ(form_.date.size(), QSize(167, form_.date.IncludeNone() ? 144 : 131));
        } else {
            EXPECT_EQ(form_.date.size(), QSize(105, 19));
        }
    }

    int opened = 0;
    int noneShown = 0;
    int daysPicked = 0;

private:
    int Pick(int choices) { return std::uniform_int_distribution<int>(0, choices - 1)(random_); }

    QString Type(QChar character) {
        const Qt::Key key = character == QLatin1Char('\b')   ? Qt::Key_Backspace
                            : character == QLatin1Char('\r') ? Qt::Key_Return
                            : character == QLatin1Char(' ')  ? Qt::Key_Space
                            : character.unicode() == 27      ? Qt::Key_Escape
                                                             : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), key, QString(character),
                            Qt::NoModifier);
        naive_.Character(character);
        return u"character "_s + QString::number(character.unicode());
    }

    QString Key(Qt::Key key) {
        form_.Press(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        const QString name = QKeySequence(key).toString();
        naive_.Key(name == u"Del"_s ? u"Delete"_s : name);
        return name;
    }

    QString Paste() {
        const QString text = QStringList{u"7"_s, u"x7"_s, u"-4"_s, u"2."_s, u"1987"_s, u"0"_s}[Pick(6)];
        QApplication::clipboard()->setText(text);
        form_.Press(Qt::Key_V, Qt::ControlModifier);
        naive_.Paste(text);
        return u"paste "_s + text;
    }

    QString ClickBox(int place) {
        // At its right end, where the caret of any other box would go behind the text.
        form_.ClickPixel(form_.Box(place).geometry().right(), 9);
        naive_.ClickBox(place);
        return u"click on box %1"_s.arg(place);
    }

    QString ClickOpen() {
        form_.Click("cmdOpen");
        naive_.ClickButton(u"cmdOpen"_s);
        opened += naive_.Open() ? 1 : 0;
        return u"click on cmdOpen"_s;
    }

    QString ClickBelow() {
        const int x = Pick(170);
        const int y = 19 + Pick(130);
        const bool wasOpen = naive_.Open();
        form_.ClickPixel(x, y);
        naive_.ClickBelow(x, y);
        daysPicked += wasOpen && !naive_.Open() && !naive_.None() ? 1 : 0;
        noneShown += wasOpen && naive_.None() ? 1 : 0;
        return u"click at %1, %2"_s.arg(x).arg(y);
    }

    QString SetValue() {
        if (Pick(3) == 0) {
            form_.date.SetValue(QDate(1234, 1 + Pick(12), 1));
            naive_.SetValue(std::nullopt);
            return u"no date"_s;
        }
        if (Pick(10) == 0) {
            form_.date.SetValue(Pick(2) == 0 ? QDate() : QDate(10000, 1, 1));
            return u"a date that is none"_s;
        }
        static constexpr std::array Years{100, 101, 1999, 2000, 2008, 2009, 2010, 9999};
        const QDate date = QDate(Years.at(static_cast<size_t>(Pick(static_cast<int>(Years.size())))), 1, 1)
                               .addDays(Pick(365));
        form_.date.SetValue(date);
        naive_.SetValue(PlainDay{date.year(), date.month(), date.day()});
        return date.toString(Qt::ISODate);
    }

    QString SetSwitch() {
        // Mostly on, as else nothing would happen for long.
        const bool on = Pick(4) != 0;
        if (Pick(2) == 0) {
            form_.date.SetEnabled(on);
            naive_.SetEnabled(on);
            return on ? u"enabled"_s : u"disabled"_s;
        }
        form_.date.SetIncludeNone(on);
        naive_.SetIncludeNone(on);
        return on ? u"with none"_s : u"without none"_s;
    }

    QString DropDown() {
        form_.date.DropDown();
        naive_.DropDown();
        return u"DropDown"_s;
    }

    QString CloseUp() {
        form_.date.CloseUp();
        naive_.CloseUp();
        return u"CloseUp"_s;
    }

    QString MoveFocus() {
        switch (Pick(4)) {
            case 0:
                form_.before.setFocus();
                naive_.FocusOutside(u"before"_s);
                return u"focus before"_s;
            case 1:
                form_.after.setFocus();
                naive_.FocusOutside(u"after"_s);
                return u"focus after"_s;
            default:
                form_.date.setFocus();
                naive_.FocusControl();
                return u"focus on the control"_s;
        }
    }

    DateForm form_;
    NaiveDate naive_;
    std::mt19937 random_;
};

class DateRandomTest : public ::testing::TestWithParam<Order> {};

TEST_P(DateRandomTest, BehavesAsTheNaiveOneDoes) {
    bool isGiven = false;
    const unsigned given = qEnvironmentVariable("WRENFIELD_SEED").toUInt(&isGiven);
    const unsigned seed = isGiven ? given : 20261121U;
    Pair pair(GetParam(), seed);
    QStringList last;
    for (int step = 1; step <= Events; ++step) {
        last += pair.Step();
        QCoreApplication::processEvents();
        pair.Compare();
        if (HasFailure()) {
            FAIL() << "WRENFIELD_SEED=" << seed << ", event " << step << "; the last ones: "
                   << last.mid(qMax(0, static_cast<int>(last.size()) - 12)).join(u"; "_s).toStdString();
        }
    }
    // The events have led everywhere.
    EXPECT_GT(pair.opened, 100);
    EXPECT_GT(pair.noneShown, 20);
    EXPECT_GT(pair.daysPicked, 100);
}

INSTANTIATE_TEST_SUITE_P(Orders, DateRandomTest,
                         ::testing::Values(Order{DateForm::DayFirst, "dmy"},
                                           Order{DateForm::MonthFirst, "mdy"},
                                           Order{DateForm::YearFirst, "ymd"}),
                         [](const auto& row) { return row.param.letters; });

}  // namespace
