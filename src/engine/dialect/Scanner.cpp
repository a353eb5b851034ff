#include "engine/dialect/Scanner.h"

#include "engine/Error.h"
#include "platform/Utf8.h"

#include <algorithm>

namespace engine::dialect {

void Scanner::RaiseSyntax(const QString& what, QStringView near) {
    throw Error(ErrorNumber::Syntax,
                QStringLiteral("Syntax error: %1 near \"%2\".").arg(what, near.left(40).toString()));
}

void Scanner::Run() {
    while (!AtEnd()) {
        const char16_t character = *place_;
        if (IsBlank(character)) {
            ++place_;
        } else if (IsNameStart(character)) {
            TakeBareName();
        } else if (TakeLiteral()) {
            continue;
        } else if (character == u'[') {
            TakeBracketedName();
        } else if (character == u';') {
            TakeEnd();
        } else {
            TakeSymbol();
        }
    }
}

void Scanner::PutUtf8(CharacterRoom& room, QStringView text, bool isAscii) {
    if (isAscii) {
        room.PutAscii(text);
    } else {
        room.Put(platform::Utf8FromText(text));
    }
}

bool Scanner::Skip(std::u16string_view expected) {
    // Nearly always a comma, or a hundred characters and more.
    const bool isShort = expected.size() == 1;
    if (static_cast<size_t>(end_ - place_) < expected.size() ||
        (isShort ? *place_ != expected[0] : !std::equal(expected.begin(), expected.end(), place_))) {
        return false;
    }
    place_ += expected.size();
    return true;
}

void Scanner::TakeBareName() {
    const Place begin = place_;
    char16_t joined = 0;
    for (; !AtEnd() && Is(*place_, NameStart | Digit); ++place_) {
        joined |= *place_;
    }
    // Two names need a blank between them; nothing else in a shape does.
    if (afterName_) {
        statement_.shape.Put(' ');
    }
    afterName_ = true;
    PutUtf8(statement_.shape, Since(begin), joined < 0x80);
}

void Scanner::TakeBracketedName() {
    const Place begin = place_;
    place_ = std::find(begin, end_, u']');
    if (AtEnd()) {
        RaiseSyntax(QStringLiteral("a name has no closing bracket"), From(begin));
    }
    ++place_;
    if (std::any_of(begin, place_, [](char16_t character) { return character < u' '; })) {
        RaiseSyntax(QStringLiteral("a control character in a name"), Since(begin));
    }
    afterName_ = false;
    statement_.shape.Put(platform::Utf8FromText(Since(begin)));
}

void Scanner::TakeEnd() {
    ++place_;
    while (!AtEnd() && IsBlank(*place_)) {
        ++place_;
    }
    if (!AtEnd()) {
        throw Error(ErrorNumber::TextAfterStatement,
                    QStringLiteral("Characters found after the end of the statement: \"%1\".")
                        .arg(From(place_).left(40).toString()));
    }
}

void Scanner::TakeSymbol() {
    // "?" is the sign of a lifted literal in a shape, so it can't be let in from outside.
    if (*place_ < u' ' || *place_ == 0x7F || *place_ == u'?') {
        RaiseSyntax(QStringLiteral("unexpected character"), From(place_));
    }
    afterName_ = false;
    statement_.shape.Put(static_cast<char>(*place_++));
}

}  // namespace engine::dialect
