#include "text/NaiveTextBox.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace {

/// All digits of a number, without an exponent: of 17 ways to write it with ever more digits, the first that
/// reads as the same number.
QString Digits(double number) {
    for (int significant = 1; significant <= 17; ++significant) {
        const QString scientific = QString::number(number, 'e', significant - 1);
        if (scientific.toDouble() != number) {
            continue;
        }
        const QStringList parts = scientific.split(u'e');
        QString digits = QString(parts[0]).remove(u'-').remove(u'.');
        int point = parts[1].toInt() + 1;
        while (point <= 0) {
            digits.prepend(u'0');
            ++point;
        }
        while (digits.size() < point) {
            digits.append(u'0');
        }
        if (digits.size() > point) {
            digits.insert(point, u'.');
        }
        return (number < 0 ? QStringLiteral("-") : QString()) + digits;
    }
    return QStringLiteral("0");
}

int CountDecimals(double number) {
    const QStringList sides = Digits(number).split(u'.');
    return sides.size() == 2 ? static_cast<int>(sides[1].size()) : 0;
}

/// To the decimals that the two numbers have.
double Sum(double one, double other) {
    const long double scale = std::pow(10.0L, std::max(CountDecimals(one), CountDecimals(other)));
    const long double rounded = std::round((static_cast<long double>(one) + other) * scale);
    return static_cast<double>(rounded / scale);
}

}  // namespace

int NaiveTextBox::From() const {
    return std::min(caret, anchor);
}

int NaiveTextBox::To() const {
    return std::max(caret, anchor);
}

QString NaiveTextBox::Selected() const {
    return text.mid(From(), To() - From());
}

void NaiveTextBox::RemoveSelected() {
    text = text.left(From()) + text.mid(To());
    caret = anchor = From();
}

void NaiveTextBox::Insert(const QString& piece) {
    RemoveSelected();
    text = text.left(caret) + piece + text.mid(caret);
    caret = anchor = caret + static_cast<int>(piece.size());
}

bool NaiveTextBox::KeyIsRefused(QChar key) const {
    if (!isNumeric) {
        return key == u'\'';
    }
    if (key == thousandSeparator[0]) {
        return false;
    }
    if (QStringLiteral("0123456789").contains(key)) {
        return false;
    }
    if (key == decimalSeparator[0]) {
        return text.contains(decimalSeparator) || decimalPlaces == 0;
    }
    if (key == u'-') {
        return !allowNegative || text.contains(u'-');
    }
    return true;
}

void NaiveTextBox::Type(QChar key) {
    if (KeyIsRefused(key)) {
        return;
    }
    byKey_ = isNumeric;
    const bool isFull = maxLength > 0 && text.size() - (To() - From()) + 1 > maxLength;
    if (!isFull && !locked) {
        Insert(key);
        React();
    }
    byKey_ = false;
}

void NaiveTextBox::Backspace() {
    byKey_ = isNumeric;
    if (!locked && (From() != To() || caret > 0)) {
        if (From() == To()) {
            anchor = caret - 1;
        }
        RemoveSelected();
        React();
    }
    byKey_ = false;
}

void NaiveTextBox::Delete() {
    if (!locked && (From() != To() || caret < text.size())) {
        if (From() == To()) {
            anchor = caret + 1;
        }
        RemoveSelected();
        React();
    }
}

void NaiveTextBox::MoveTo(int place, bool selecting) {
    caret = std::clamp(place, 0, static_cast<int>(text.size()));
    if (!selecting) {
        anchor = caret;
    }
}

void NaiveTextBox::SelectAll() {
    anchor = 0;
    caret = static_cast<int>(text.size());
}

void NaiveTextBox::Paste(const QString& pasted) {
    const int others = static_cast<int>(text.size()) - (To() - From());
    const QString fitting = maxLength > 0 ? pasted.left(std::max(0, maxLength - others)) : pasted;
    if (!locked && !fitting.isEmpty()) {
        Insert(fitting);
        React();
    }
}

void NaiveTextBox::ReplaceAll(const QString& newText) {
    const int before = hasFocus ? caret : 0;
    if (text != newText) {
        text = newText;
        React();
    }
    MoveTo(before, false);
}

void NaiveTextBox::SetText(const QString& newText) {
    if (newText != text) {
        ReplaceAll(newText);
    }
}

void NaiveTextBox::GetFocus() {
    hasFocus = true;
    caret = 0;
    anchor = static_cast<int>(text.size());
}

void NaiveTextBox::LoseFocus() {
    hasFocus = false;
    anchor = caret;
    if (isNumeric && !IsNumber(text)) {
        SetText(Written(NumberInFront(text)));
    }
}

void NaiveTextBox::StepUp() {
    FinishStep(Sum(NumberInFront(text), increment));
}

void NaiveTextBox::StepDown() {
    const double number = Sum(NumberInFront(text), -increment);
    if (number < 0 && !allowNegative) {
        quiet_ = true;
        ReplaceAll(QStringLiteral("0"));
        return;
    }
    FinishStep(number);
}

void NaiveTextBox::FinishStep(double number) {
    text = Written(number);
    if (allowNegative && NumberInFront(text) > 0) {
        text = u'+' + text;
    }
    caret = 0;
    anchor = static_cast<int>(text.size());
    quiet_ = false;
    React();
}

void NaiveTextBox::React() {
    if (quiet_) {
        return;
    }
    if (isNumeric) {
        const QString before = text;
        PutRight();
        if (text != before) {
            MoveTo(caret, false);
        }
    }
    changes.append(byKey_);
}

void NaiveTextBox::PutRight() {
    if (text.contains(u'-')) {
        if (text[0] != u'-') {
            text = u'-' + QString(text).remove(u'-');
        }
        if (!allowNegative) {
            text = text.mid(1);
        }
    }
    const int place = static_cast<int>(text.indexOf(decimalSeparator)) + 1;
    if (place > 0) {
        text = text.left(std::max(0, place + decimalPlaces));
        if (decimalPlaces == 0) {
            text = text.left(text.size() - 1);
        }
    }
    if (text != QString() && text != QStringLiteral("-") && !IsNumber(text)) {
        text = Written(NumberInFront(text));
    }
}

bool NaiveTextBox::IsNumber(const QString& candidate) const {
    const QString decimal = QRegularExpression::escape(decimalSeparator);
    const QString thousand = QRegularExpression::escape(thousandSeparator);
    const QRegularExpression pattern(
        QStringLiteral("^\\s*[+-]?\\s*(?:[0-9]|%2)*(?:%1[0-9]*)?\\s*$").arg(decimal, thousand),
        QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(candidate).hasMatch() &&
           candidate.contains(QRegularExpression(QStringLiteral("[0-9]")));
}

double NaiveTextBox::Value() const {
    if (!IsNumber(text)) {
        return 0;
    }
    const QString plain = QString(text)
                              .remove(thousandSeparator)
                              .replace(decimalSeparator, QStringLiteral("."))
                              .remove(QRegularExpression(QStringLiteral("\\s"),
                                                         QRegularExpression::UseUnicodePropertiesOption));
    return plain.toDouble();
}

double NaiveTextBox::NumberInFront(const QString& of) const {
    const QRegularExpression pattern(QStringLiteral("^\\s*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))"),
                                     QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(of).captured(1).toDouble();
}

QString NaiveTextBox::Written(double number) const {
    return number == 0 ? QStringLiteral("0") : Digits(number).replace(u'.', decimalSeparator);
}
