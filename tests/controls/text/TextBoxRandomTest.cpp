#include "controls/text/UpDownImage.h"
#include "support/MoneyLocale.h"
#include "support/PrintQt.h"
#include "text/NaiveTextBox.h"
#include "text/TextBoxOnScreen.h"

#include <QTest>

#include <random>

namespace {

using namespace Qt::StringLiterals;
using controls::UpDownImage;

unsigned int Seed() {
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("WRENFIELD_SEED", &isGiven);
    return isGiven ? static_cast<unsigned int>(given) : 20261121U;
}

/// Lets a control and its second statement live through the same events.
class TextBoxRandomTest : public TextBoxTest {
protected:
    int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }
    bool Chance(int percent) { return Below(100) < percent; }

    template <class Item>
    Item OneOf(const QList<Item>& items) {
        return items.at(Below(static_cast<int>(items.size())));
    }

    void Begin(const MoneyMarks& marks) {
        marks_ = marks;
        Load({.Text = u""_s, .ShowUpDown = true});
        naive.decimalSeparator = marks.decimalSeparator;
        naive.thousandSeparator = marks.thousandSeparator;
    }

    QString AnyText() {
        QString text;
        const QString alphabet = u"0123456789012345678901234567890--+.,' ax"_s + marks_.decimalSeparator +
                                 marks_.thousandSeparator;
        for (int left = Below(8); left > 0; --left) {
            text += alphabet.at(Below(static_cast<int>(alphabet.size())));
        }
        return text;
    }

    void PressKey() {
        const bool selecting = Chance(25);
        const Qt::KeyboardModifiers shift = selecting ? Qt::ShiftModifier : Qt::NoModifier;
        switch (Below(7)) {
            case 0:
                note = u"Backspace"_s;
                Press(Qt::Key_Backspace);
                naive.Backspace();
                break;
            case 1:
                note = u"Delete"_s;
                Press(Qt::Key_Delete);
                naive.Delete();
                break;
            case 2:
                note = u"left"_s;
                Press(Qt::Key_Left, shift);
                naive.MoveTo(naive.caret - 1, selecting);
                break;
            case 3:
                note = u"right"_s;
                Press(Qt::Key_Right, shift);
                naive.MoveTo(naive.caret + 1, selecting);
                break;
            case 4:
                note = u"home"_s;
                Press(Qt::Key_Home, shift);
                naive.MoveTo(0, selecting);
                break;
            case 5:
                note = u"end"_s;
                Press(Qt::Key_End, shift);
                naive.MoveTo(1000, selecting);
                break;
            default:
                note = u"all"_s;
                Press(Qt::Key_A, Qt::ControlModifier);
                naive.SelectAll();
        }
    }

    void TypeKey() {
        const QString keys =
            u"01234567890123456789.,-'+ xE_:"_s + marks_.decimalSeparator + marks_.thousandSeparator;
        const QChar key = keys.at(Below(static_cast<int>(keys.size())));
        note = u"type "_s + key;
        Type(key);
        naive.Type(key);
    }

    void PasteSomething() {
        // An empty clipboard is another program's doing and not the control's.
        const QString text = AnyText() + u"7"_s;
        note = u"paste "_s + text;
        Paste(text);
        naive.Paste(text);
    }

    void ComposeSomething() {
        const QString text = AnyText();
        note = u"compose "_s + text;
        Compose(text);
        for (const QChar key : text) {
            naive.Type(key);
        }
    }

    void SetSomething() {
        const QString text = AnyText();
        note = u"set "_s + text;
        TheControl().SetText(text);
        naive.SetText(text);
    }

    void ChangeFocus() {
        note = naive.hasFocus ? u"leave"_s : u"come"_s;
        if (naive.hasFocus) {
            Leave();
            naive.LoseFocus();
        } else {
            Focus();
            naive.GetFocus();
        }
    }

    void PressUpDown() {
        const bool up = Chance(50);
        note = up ? u"up"_s : u"down"_s;
        QTest::mouseClick(TheControl().findChild<UpDownImage*>(u"imgUpDown"_s), Qt::LeftButton, {},
                          QPoint(8, up ? Below(10) : 10 + Below(9)));
        if (up) {
            naive.StepUp();
        } else {
            naive.StepDown();
        }
    }

    void ChangeProperty() {
        note = u"property"_s;
        switch (Below(6)) {
            case 0:
                naive.isNumeric = Chance(75);
                TheControl().SetIsNumeric(naive.isNumeric);
                break;
            case 1:
                naive.decimalPlaces = OneOf<int>({0, 0, 1, 2, 2, 4, -1});
                TheControl().SetDecimalPlaces(static_cast<qint16>(naive.decimalPlaces));
                break;
            case 2:
                naive.allowNegative = Chance(50);
                TheControl().SetAllowNegative(naive.allowNegative);
                break;
            case 3:
                naive.maxLength = OneOf<int>({0, 0, 3, 6});
                TheControl().SetMaxLength(naive.maxLength);
                break;
            case 4:
                naive.locked = Chance(20);
                TheControl().SetLocked(naive.locked);
                break;
            default:
                naive.increment = OneOf<double>({0, 0.1, 0.25, 1, 1, 7.5, -1});
                TheControl().SetUpDownIncrement(naive.increment);
        }
    }

    /// Only a box with the focus gets keys.
    void Happen() {
        const int kind = Below(100);
        if (kind < 45 && naive.hasFocus) {
            TypeKey();
        } else if (kind < 70 && naive.hasFocus) {
            PressKey();
        } else if (kind < 76 && naive.hasFocus) {
            // The system's input methods know that a locked box is none of their business.
            if (naive.locked || Chance(50)) {
                PasteSomething();
            } else {
                ComposeSomething();
            }
        } else if (kind < 80) {
            SetSomething();
        } else if (kind < 86) {
            ChangeFocus();
        } else if (kind < 93) {
            PressUpDown();
        } else {
            ChangeProperty();
        }
    }

    bool Agree() {
        EXPECT_EQ(Text(), naive.text);
        EXPECT_EQ(Caret(), naive.caret);
        EXPECT_EQ(TheBox().selectedText(), naive.Selected());
        EXPECT_EQ(TheControl().Value(), naive.Value());
        EXPECT_EQ(TakeChanges(), std::exchange(naive.changes, {}));
        EXPECT_EQ(TheBox().hasFocus(), naive.hasFocus);
        return !HasFailure();
    }

    void LiveThrough(int events) {
        for (int event = 1; event <= events; ++event) {
            const QString before = naive.text;
            Happen();
            if (!Agree()) {
                FAIL() << "event " << event << ": " << note.toStdString() << ", on \"" << before.toStdString()
                       << "\"; WRENFIELD_SEED=" << Seed();
            }
        }
    }

    std::mt19937 random{Seed()};
    NaiveTextBox naive;
    QString note;

private:
    MoneyMarks marks_;
};

struct Place {
    const char* name;
    MoneyMarks marks;
};

void PrintTo(const Place& place, std::ostream* out) {
    *out << place.name;
}

class TextBoxRandomPlaces : public TextBoxRandomTest, public ::testing::WithParamInterface<Place> {};

TEST_P(TextBoxRandomPlaces, TheControlAndItsSecondStatementAgreeOnEveryEvent) {
    const MoneyLocale locale(GetParam().marks);
    Begin(GetParam().marks);
    LiveThrough(10000);
}

INSTANTIATE_TEST_SUITE_P(, TextBoxRandomPlaces,
                         ::testing::Values(Place{"Points", {u"."_s, u","_s}},
                                           Place{"Commas", {u","_s, u"."_s}},
                                           Place{"NarrowBlanks", {u","_s, u"\u202F"_s}},
                                           Place{"LongMarks", {u"::"_s, u"'_"_s}}),
                         [](const auto& place) { return std::string(place.param.name); });

}  // namespace
