#pragma once

#include "engine/dialect/CharacterClass.h"
#include "engine/dialect/Tokenizer.h"

#include <QStringView>

#include <string_view>

namespace engine::dialect {

/// Walks through the text of a statement and puts what it finds into a ShapedStatement whose rooms are large
/// enough. It fails as Tokenize does (see Tokenizer.h).
class Scanner {
public:
    /// What has been passed before lies in the statement already.
    Scanner(QStringView text, ShapedStatement& statement, qsizetype passed = 0)
        : begin_(text.utf16()), end_(begin_ + text.size()), place_(begin_ + passed), statement_(statement) {}

    /// Takes all that follows.
    void Run();

    /// Takes the literal that begins here; false if none does.
    bool TakeLiteral();

    /// Goes past this text; false if another one follows.
    bool Skip(std::u16string_view expected);

    qsizetype Passed() const { return place_ - begin_; }
    bool AtEnd() const { return place_ == end_; }
    /// The character that follows, or 0 at the end.
    char16_t Next() const { return At(place_); }

private:
    using Place = const char16_t*;

    [[noreturn]] static void RaiseSyntax(const QString& what, QStringView near);

    /// 0 beyond the end.
    char16_t At(Place place) const { return place < end_ ? *place : char16_t{0}; }
    QStringView Since(Place begin) const { return {begin, place_}; }
    QStringView From(Place begin) const { return {begin, end_}; }
    static void PutUtf8(CharacterRoom& room, QStringView text, bool isAscii);

    void TakeBareName();
    void TakeBracketedName();
    void TakeEnd();
    void TakeSymbol();

    bool StartsSignedNumber() const;
    Literal& AddLiteral(LiteralKind kind, Place begin);
    void TakeText(char16_t quote);
    void TakeNumber();
    void ReadNumber(Literal& literal, bool whole) const;
    void SkipDigits();
    bool SkipExponent();
    void TakeDate();
    template <int MostDigits>
    int TakeDatePart();
    bool TakeDateSeparator();

    const Place begin_;
    const Place end_;
    Place place_;
    ShapedStatement& statement_;
    bool afterName_ = false;
};

}  // namespace engine::dialect
