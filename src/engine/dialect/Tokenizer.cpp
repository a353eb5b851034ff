#include "engine/dialect/Tokenizer.h"

#include "engine/Error.h"

#include <QDate>

#include <algorithm>
#include <charconv>

namespace engine::dialect {

namespace {

bool IsBlank(char16_t character) {
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

bool IsDigit(char16_t character) {
    return character >= u'0' && character <= u'9';
}

// Letters beyond ASCII may stand in names; what they are is for the engine's table of names to say.
bool IsNameStart(char16_t character) {
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z') ||
           character == u'_' || character >= 0x80;
}

[[noreturn]] void RaiseSyntax(const QString& what, QStringView near) {
    throw Error(ErrorNumber::Syntax,
                QStringLiteral("Syntax error: %1 near \"%2\".").arg(what, near.left(40).toString()));
}

class Scanner {
public:
    Scanner(QStringView text, ShapedStatement& statement) : text_(text), statement_(statement) {}

    void Run() {
        while (place_ < text_.size()) {
            const char16_t character = At(place_);
            if (IsBlank(character)) {
                ++place_;
            } else if (character == u'\'' || character == u'"') {
                TakeText(character);
            } else if (IsNameStart(character)) {
                TakeBareName();
            } else if (IsDigit(character) || StartsSignedNumber()) {
                TakeNumber();
            } else if (character == u'#') {
                TakeDate();
            } else if (character == u'[') {
                TakeBracketedName();
            } else if (character == u';') {
                TakeEnd();
            } else {
                TakeSymbol();
            }
        }
    }

private:
    char16_t At(qsizetype place) const { return text_[place].unicode(); }

    bool DigitAt(qsizetype place) const { return place < text_.size() && IsDigit(At(place)); }

    // There is no arithmetic in the dialect: a minus sign before a digit always belongs to the number.
    bool StartsSignedNumber() const {
        const qsizetype first = place_ + (At(place_) == u'-' ? 1 : 0);
        return DigitAt(first) || (first < text_.size() && At(first) == u'.' && DigitAt(first + 1));
    }

    void AddLiteral(const Literal& literal) {
        afterName_ = false;
        statement_.shape += '?';
        statement_.literals.push_back(literal);
    }

    void AppendUtf8(QStringView part) {
        for (qsizetype i = 0; i < part.size(); ++i) {
            const char16_t character = part[i].unicode();
            if (character >= 0x80) {
                statement_.texts += part.sliced(i).toUtf8().toStdString();
                return;
            }
            statement_.texts += static_cast<char>(character);
        }
    }

    void TakeText(char16_t quote) {
        const qsizetype begin = place_;
        Literal literal{.kind = LiteralKind::Text, .offset = statement_.texts.size()};
        qsizetype partBegin = ++place_;
        for (;; ++place_) {
            if (place_ >= text_.size()) {
                RaiseSyntax(QStringLiteral("a text has no closing quote"), text_.sliced(begin));
            }
            if (At(place_) != quote) {
                continue;
            }
            const bool doubled = place_ + 1 < text_.size() && At(place_ + 1) == quote;
            const qsizetype partEnd = doubled ? place_ + 1 : place_;
            AppendUtf8(text_.sliced(partBegin, partEnd - partBegin));
            literal.characters += partEnd - partBegin;
            if (!doubled) {
                break;
            }
            partBegin = ++place_ + 1;
        }
        ++place_;
        literal.length = statement_.texts.size() - literal.offset;
        AddLiteral(literal);
    }

    void TakeBareName() {
        const qsizetype begin = place_;
        bool plain = true;
        while (place_ < text_.size() && (IsNameStart(At(place_)) || IsDigit(At(place_)))) {
            plain = plain && At(place_) < 0x80;
            ++place_;
        }
        // Two names need a blank between them; nothing else in a shape does.
        if (afterName_) {
            statement_.shape += ' ';
        }
        afterName_ = true;
        const QStringView name = text_.sliced(begin, place_ - begin);
        if (plain) {
            for (const QChar character : name) {
                statement_.shape += static_cast<char>(character.unicode());
            }
        } else {
            statement_.shape += name.toUtf8().toStdString();
        }
    }

    void SkipBlanks() {
        while (place_ < text_.size() && IsBlank(At(place_))) {
            ++place_;
        }
    }

    void TakeBracketedName() {
        const qsizetype end = text_.indexOf(u']', place_);
        if (end < 0) {
            RaiseSyntax(QStringLiteral("a name has no closing bracket"), text_.sliced(place_));
        }
        const QStringView name = text_.sliced(place_, end - place_ + 1);
        if (std::any_of(name.begin(), name.end(), [](QChar character) { return character < u' '; })) {
            RaiseSyntax(QStringLiteral("a control character in a name"), name);
        }
        afterName_ = false;
        statement_.shape += name.toUtf8().toStdString();
        place_ = end + 1;
    }

    void TakeNumber() {
        const qsizetype begin = place_;
        std::string digits;
        bool whole = true;
        if (At(place_) == u'-') {
            digits += '-';
            ++place_;
        }
        while (place_ < text_.size() && (IsDigit(At(place_)) || (whole && At(place_) == u'.'))) {
            whole = whole && At(place_) != u'.';
            digits += static_cast<char>(At(place_++));
        }
        TakeExponent(digits, whole);
        if (place_ < text_.size() && IsNameStart(At(place_))) {
            RaiseSyntax(QStringLiteral("a number runs into a name"), text_.sliced(begin));
        }
        Literal literal;
        const char* const last = digits.data() + digits.size();
        if (whole && std::from_chars(digits.data(), last, literal.integer).ec == std::errc()) {
            literal.kind = LiteralKind::Integer;
        } else {
            literal.kind = LiteralKind::Real;
            if (std::from_chars(digits.data(), last, literal.real).ec != std::errc()) {
                RaiseSyntax(QStringLiteral("a number is out of range"), text_.sliced(begin));
            }
        }
        AddLiteral(literal);
    }

    void TakeExponent(std::string& digits, bool& whole) {
        if (place_ >= text_.size() || (At(place_) | 0x20) != u'e') {
            return;
        }
        const bool sign = place_ + 1 < text_.size() && (At(place_ + 1) == u'+' || At(place_ + 1) == u'-');
        qsizetype place = place_ + (sign ? 2 : 1);
        if (!DigitAt(place)) {
            return;
        }
        whole = false;
        digits += 'e';
        if (sign && At(place_ + 1) == u'-') {
            digits += '-';
        }
        for (; DigitAt(place); ++place) {
            digits += static_cast<char>(At(place));
        }
        place_ = place;
    }

    int TakeDatePart(qsizetype end, int mostDigits) {
        int number = 0;
        int digits = 0;
        for (; place_ < end && IsDigit(At(place_)) && digits < mostDigits; ++digits) {
            number = number * 10 + (At(place_++) - u'0');
        }
        return digits == 0 ? -1 : number;
    }

    bool TakeDateSeparator(qsizetype end) {
        if (place_ >= end || (At(place_) != u'/' && At(place_) != u'-' && At(place_) != u'.')) {
            return false;
        }
        ++place_;
        return true;
    }

    void TakeDate() {
        const qsizetype begin = place_++;
        const qsizetype end = text_.indexOf(u'#', place_);
        if (end < 0) {
            RaiseSyntax(QStringLiteral("a date has no closing \"#\""), text_.sliced(begin));
        }
        const int month = TakeDatePart(end, 2);
        const bool firstSeparator = TakeDateSeparator(end);
        const int day = TakeDatePart(end, 2);
        const bool secondSeparator = TakeDateSeparator(end);
        const qsizetype yearBegin = place_;
        const int year = TakeDatePart(end, 4);
        // Years of two digits would leave the century to a guess.
        if (!firstSeparator || !secondSeparator || place_ != end || place_ - yearBegin != 4 ||
            !QDate::isValid(year, month, day)) {
            RaiseSyntax(QStringLiteral("not a date in the order month, day, year"), text_.sliced(begin));
        }
        place_ = end + 1;
        Literal literal{.kind = LiteralKind::Date, .offset = statement_.texts.size(), .length = 10};
        literal.characters = 10;
        AppendDigits(year, 1000);
        statement_.texts += '-';
        AppendDigits(month, 10);
        statement_.texts += '-';
        AppendDigits(day, 10);
        AddLiteral(literal);
    }

    void AppendDigits(int number, int highest) {
        for (int digit = highest; digit > 0; digit /= 10) {
            statement_.texts += static_cast<char>('0' + number / digit % 10);
        }
    }

    void TakeEnd() {
        ++place_;
        SkipBlanks();
        if (place_ < text_.size()) {
            throw Error(ErrorNumber::TextAfterStatement,
                        QStringLiteral("Characters found after the end of the statement: \"%1\".")
                            .arg(text_.sliced(place_).left(40).toString()));
        }
    }

    void TakeSymbol() {
        const char16_t character = At(place_);
        // "?" is the sign of a lifted literal in a shape, so it can't be let in from outside.
        if (character < u' ' || character == 0x7F || character == u'?') {
            RaiseSyntax(QStringLiteral("unexpected character"), text_.sliced(place_));
        }
        afterName_ = false;
        statement_.shape += static_cast<char>(character);
        ++place_;
    }

    QStringView text_;
    ShapedStatement& statement_;
    qsizetype place_ = 0;
    bool afterName_ = false;
};

}  // namespace

void Tokenize(const QString& text, ShapedStatement& statement) {
    // Emptied, not replaced: the buffers keep their room from statement to statement.
    statement.shape.clear();
    statement.literals.clear();
    statement.texts.clear();
    Scanner(text, statement).Run();
}

}  // namespace engine::dialect
