#pragma once

#include <QHash>
#include <QSet>
#include <QString>

#include <array>

namespace records {

/// Makes the short keys that Hearthbook's tables use out of names: the first characters of the name as they
/// are, and where that key is taken already, its end replaced by the lowest number that is free.
///
/// Keys are compared before blanks are trimmed off and stored afterwards, so a name cut right behind a blank
/// can get the key of another record. Hearthbook's own keys have always been made so.
class CodeMaker {
public:
    /// The limit is the key's greatest length in characters. About so many keys will be taken.
    CodeMaker(int limit, int expectedCodes) : limit_(limit) { taken_.reserve(expectedCodes); }

    /// The key for a name among all those taken so far. It is not taken by this call.
    /// Numbers end at 32767; platform failure 6 beyond.
    QString MakeUniqueCode(const QString& name);

    bool CodeExists(const QString& candidate) const { return taken_.contains(candidate); }

    void Take(const QString& code) { taken_.insert(code); }

private:
    static constexpr int MostDigits = 5;

    int limit_;
    QSet<QString> taken_;
    /// By candidate: with fewer digits all numbers are taken.
    QHash<QString, int> digitsToTry_;
    /// By number of digits and by the text before the number: all lower numbers of so many digits are taken.
    std::array<QHash<QString, int>, MostDigits> lowestMaybeFree_;
};

}  // namespace records
