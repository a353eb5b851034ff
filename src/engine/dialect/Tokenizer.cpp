#include "engine/dialect/Tokenizer.h"

#include "engine/Error.h"
#include "platform/Utf8.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <charconv>

namespace engine::dialect {

namespace {

enum CharacterClass : quint8 { Blank = 1, Digit = 2, NameStart = 4 };

constexpr std::array<quint8, 128> ClassesOfCharacters = [] {
    std::array<quint8, 128> classes{};
    for (size_t character = 0; character < classes.size(); ++character) {
        const bool blank = character == ' ' || (character >= '\t' && character <= '\r');
        const bool digit = character >= '0' && character <= '9';
        const size_t lower = character | 0x20;
        const bool nameStart = (lower >= 'a' && lower <= 'z') || character == '_';
        classes[character] = blank ? Blank : digit ? Digit : nameStart ? NameStart : 0;
    }
    return classes;
}();

// Letters beyond ASCII may stand in names; what they are is for the engine's table of names to say.
bool Is(char16_t character, int classes) {
    return ((character < 128 ? ClassesOfCharacters[character] : quint8{NameStart}) & classes) != 0;
}

bool IsBlank(char16_t character) {
    return Is(character, Blank);
}

bool IsDigit(char16_t character) {
    return Is(character, Digit);
}

bool IsNameStart(char16_t character) {
    return Is(character, NameStart);
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
        statement_.shape.Put('?');
        statement_.literals.push_back(literal);
    }

    void AppendUtf8(QStringView part) {
        const auto beyond =
            std::find_if(part.begin(), part.end(), [](QChar character) { return character >= QChar(0x80); });
        char* const place = statement_.texts.Extend(static_cast<size_t>(beyond - part.begin()));
        std::transform(part.begin(), beyond, place,
                       [](QChar character) { return static_cast<char>(character.unicode()); });
        if (beyond != part.end()) {
            statement_.texts.Put(platform::Utf8FromText(part.sliced(beyond - part.begin())));
        }
    }

    void TakeText(char16_t quote) {
        const qsizetype begin = place_;
        Literal literal{.kind = LiteralKind::Text, .offset = statement_.texts.Size()};
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
        literal.length = statement_.texts.Size() - literal.offset;
        AddLiteral(literal);
    }

    void TakeBareName() {
        const qsizetype begin = place_;
        char16_t joined = 0;
        for (; place_ < text_.size() && Is(At(place_), NameStart | Digit); ++place_) {
            joined |= At(place_);
        }
        // Two names need a blank between them; nothing else in a shape does.
        if (afterName_) {
            statement_.shape.Put(' ');
        }
        afterName_ = true;
        const QStringView name = text_.sliced(begin, place_ - begin);
        if (joined < 0x80) {
            char* const place = statement_.shape.Extend(static_cast<size_t>(name.size()));
            std::transform(name.begin(), name.end(), place,
                           [](QChar character) { return static_cast<char>(character.unicode()); });
        } else {
            statement_.shape.Put(platform::Utf8FromText(name));
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
        statement_.shape.Put(platform::Utf8FromText(name));
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
        Literal literal{.kind = LiteralKind::Date, .offset = statement_.texts.Size(), .length = 10};
        literal.characters = 10;
        AppendDigits(year, 1000);
        statement_.texts.Put('-');
        AppendDigits(month, 10);
        statement_.texts.Put('-');
        AppendDigits(day, 10);
        AddLiteral(literal);
    }

    void AppendDigits(int number, int highest) {
        for (int digit = highest; digit > 0; digit /= 10) {
            statement_.texts.Put(static_cast<char>('0' + number / digit % 10));
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
        statement_.shape.Put(static_cast<char>(character));
        ++place_;
    }

    QStringView text_;
    ShapedStatement& statement_;
    qsizetype place_ = 0;
    bool afterName_ = false;
};

}  // namespace

void Tokenize(const QString& text, ShapedStatement& statement) {
    // A character takes three bytes at most, and a blank may come before it.
    const size_t most = static_cast<size_t>(text.size()) * 4 + 4;
    statement.shape.StartOver(most);
    statement.literals.clear();
    statement.texts.StartOver(most);
    Scanner(text, statement).Run();
}

}  // namespace engine::dialect
