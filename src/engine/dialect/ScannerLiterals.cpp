#include "engine/dialect/Scanner.h"

#include <QDate>

#include <algorithm>
#include <charconv>
#include <string>

namespace engine::dialect {

namespace {

char* PutTwoDigits(char* place, int number) {
    *place++ = static_cast<char>('0' + number / 10);
    *place++ = static_cast<char>('0' + number % 10);
    return place;
}

void PutIsoDate(CharacterRoom& room, int year, int month, int day) {
    char* place = room.Extend(10);
    place = PutTwoDigits(place, year / 100);
    place = PutTwoDigits(place, year % 100);
    *place++ = '-';
    place = PutTwoDigits(place, month);
    *place++ = '-';
    PutTwoDigits(place, day);
}

}  // namespace

bool Scanner::TakeLiteral() {
    const char16_t character = Next();
    if (character == u'\'' || character == u'"') {
        TakeText(character);
    } else if (IsDigit(character) || StartsSignedNumber()) {
        TakeNumber();
    } else if (character == u'#') {
        TakeDate();
    } else {
        return false;
    }
    return true;
}

// There is no arithmetic in the dialect: a minus sign before a digit always belongs to the number.
bool Scanner::StartsSignedNumber() const {
    const Place first = place_ + (Next() == u'-' ? 1 : 0);
    return IsDigit(At(first)) || (At(first) == u'.' && IsDigit(At(first + 1)));
}

// Once all of the literal has been passed.
Literal& Scanner::AddLiteral(LiteralKind kind, Place begin) {
    afterName_ = false;
    statement_.shape.Put('?');
    Literal& literal = statement_.literals.emplace_back();
    literal.kind = kind;
    literal.begin = begin - begin_;
    literal.end = place_ - begin_;
    return literal;
}

void Scanner::TakeText(char16_t quote) {
    const Place begin = place_;
    const size_t offset = statement_.texts.Size();
    qsizetype characters = 0;
    Place partBegin = ++place_;
    char16_t joined = 0;
    for (;; ++place_) {
        if (AtEnd()) {
            RaiseSyntax(QStringLiteral("a text has no closing quote"), From(begin));
        }
        joined |= *place_;
        if (*place_ != quote) {
            continue;
        }
        const bool doubled = At(place_ + 1) == quote;
        const QStringView part(partBegin, doubled ? place_ + 1 : place_);
        PutUtf8(statement_.texts, part, joined < 0x80);
        characters += part.size();
        if (!doubled) {
            break;
        }
        partBegin = ++place_ + 1;
    }
    ++place_;
    Literal& literal = AddLiteral(LiteralKind::Text, begin);
    literal.offset = offset;
    literal.length = statement_.texts.Size() - offset;
    literal.characters = characters;
}

void Scanner::TakeNumber() {
    const Place begin = place_;
    // Most numbers are a single digit.
    if (IsDigit(*begin) && !Is(At(begin + 1), Digit | NameStart) && At(begin + 1) != u'.') {
        ++place_;
        AddLiteral(LiteralKind::Integer, begin).integer = *begin - u'0';
        return;
    }
    if (*place_ == u'-') {
        ++place_;
    }
    SkipDigits();
    bool whole = true;
    if (Next() == u'.') {
        whole = false;
        ++place_;
        SkipDigits();
    }
    if (SkipExponent()) {
        whole = false;
    }
    if (IsNameStart(Next())) {
        RaiseSyntax(QStringLiteral("a number runs into a name"), From(begin));
    }
    ReadNumber(AddLiteral(LiteralKind::Integer, begin), whole);
}

void Scanner::ReadNumber(Literal& literal, bool whole) const {
    const Place begin = begin_ + literal.begin;
    const std::string digits(begin, place_);
    const char* const last = digits.data() + digits.size();
    if (whole && std::from_chars(digits.data(), last, literal.integer).ec == std::errc()) {
        return;
    }
    literal.kind = LiteralKind::Real;
    if (std::from_chars(digits.data(), last, literal.real).ec != std::errc()) {
        RaiseSyntax(QStringLiteral("a number is out of range"), From(begin));
    }
}

void Scanner::SkipDigits() {
    while (IsDigit(Next())) {
        ++place_;
    }
}

bool Scanner::SkipExponent() {
    if ((Next() | 0x20) != u'e') {
        return false;
    }
    const bool sign = At(place_ + 1) == u'+' || At(place_ + 1) == u'-';
    const Place digits = place_ + (sign ? 2 : 1);
    if (!IsDigit(At(digits))) {
        return false;
    }
    place_ = digits;
    SkipDigits();
    return true;
}

template <int MostDigits>
inline int Scanner::TakeDatePart() {
    int number = 0;
    int digits = 0;
    for (; digits < MostDigits && IsDigit(Next()); ++digits) {
        number = number * 10 + (*place_++ - u'0');
    }
    return digits == 0 ? -1 : number;
}

bool Scanner::TakeDateSeparator() {
    if (Next() != u'/' && Next() != u'-' && Next() != u'.') {
        return false;
    }
    ++place_;
    return true;
}

void Scanner::TakeDate() {
    const Place begin = place_++;
    const int month = TakeDatePart<2>();
    const bool firstSeparator = TakeDateSeparator();
    const int day = TakeDatePart<2>();
    const bool secondSeparator = TakeDateSeparator();
    const Place yearBegin = place_;
    const int year = TakeDatePart<4>();
    // Years of two digits would leave the century to a guess.
    const bool isWritten = firstSeparator && secondSeparator && place_ - yearBegin == 4 && Next() == u'#';
    if (!isWritten || !QDate::isValid(year, month, day)) {
        RaiseSyntax(std::find(begin + 1, end_, u'#') == end_
                        ? QStringLiteral("a date has no closing \"#\"")
                        : QStringLiteral("not a date in the order month, day, year"),
                    From(begin));
    }
    ++place_;
    Literal& literal = AddLiteral(LiteralKind::Date, begin);
    literal.offset = statement_.texts.Size();
    literal.length = 10;
    literal.characters = 10;
    PutIsoDate(statement_.texts, year, month, day);
}

}  // namespace engine::dialect
