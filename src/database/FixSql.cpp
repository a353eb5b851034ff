#include "database/FixSql.h"

#include "platform/Failure.h"

#include <array>

namespace database {

namespace {

constexpr char16_t Apostrophe = u'\'';

struct Findings {
    bool oddApostrophes = false;
    bool mayHaveTruthWord = false;
};

// Pairs of letters that "true" and "false" can't do without, and that hardly any statement has.
constexpr bool IsOfTruthWord(char16_t first, char16_t second) {
    return ((first == u'r') & (second == u'u')) | ((first == u'l') & (second == u's'));
}

constexpr size_t Block = 8;

/// What was found at the first places of all blocks, at their second places, and so on.
struct FindingsByPlace {
    std::array<quint16, Block> oddApostrophes{};
    std::array<quint16, Block> truthWords{};
};

// A fixed number of places and no branch for any of them: compilers make instructions of it that look at all
// places of a block at once.
void LookThroughBlock(const char16_t* block, FindingsByPlace& findings) {
    for (size_t place = 0; place < Block; ++place) {
        findings.oddApostrophes[place] ^= static_cast<quint16>(block[place] == Apostrophe);
        findings.truthWords[place] |= static_cast<quint16>(IsOfTruthWord(block[place], block[place + 1]));
    }
}

/// One pass without a copy, as an import passes a million statements and few need more.
Findings LookThrough(const QString& statement) {
    FindingsByPlace byPlace;
    const auto* place = reinterpret_cast<const char16_t*>(statement.utf16());
    const char16_t* const end = place + statement.size();
    // The text ends with a null character, so that each of its places has a next one.
    for (; end - place >= static_cast<qsizetype>(Block); place += Block) {
        LookThroughBlock(place, byPlace);
    }
    Findings findings;
    for (; place != end; ++place) {
        findings.oddApostrophes ^= *place == Apostrophe;
        findings.mayHaveTruthWord |= IsOfTruthWord(place[0], place[1]);
    }
    for (size_t i = 0; i < Block; ++i) {
        findings.oddApostrophes ^= byPlace.oddApostrophes[i] != 0;
        findings.mayHaveTruthWord |= byPlace.truthWords[i] != 0;
    }
    return findings;
}

[[noreturn]] void RaiseNoTextBefore() {
    throw platform::Failure(platform::FailureNumber::InvalidProcedureCall,
                            QStringLiteral("Invalid procedure call or argument"));
}

/// `before` ends with the three characters in front of the apostrophe: a comparison, or the end of "like".
bool OpensText(QStringView before) {
    const QStringView window = before.last(3);
    return window.contains(QLatin1Char('=')) || window.contains(QLatin1Char('<')) ||
           window.contains(QLatin1Char('>')) || window.contains(QLatin1String("ke"), Qt::CaseInsensitive);
}

/// What follows a text when the statement goes on.
bool ClosesText(QStringView after) {
    if (after.size() <= 4) {
        return false;
    }
    const QStringView window = after.first(4);
    for (const QLatin1String opening :
         {QLatin1String(" and"), QLatin1String("  an"), QLatin1String(" or "), QLatin1String(" ord")}) {
        if (window.compare(opening, Qt::CaseInsensitive) == 0) {
            return true;
        }
    }
    return false;
}

/// True if the apostrophe between these two pieces of the statement is data that its author glued in.
bool IsStray(QStringView before, QStringView after) {
    if (!before.isEmpty()) {
        if (before.size() < 3) {
            RaiseNoTextBefore();
        }
        if (OpensText(before)) {
            return false;
        }
    }
    return !ClosesText(after) && !after.isEmpty();
}

void DoubleStrayApostrophes(QString& statement) {
    const QString original = statement;
    statement.clear();
    statement.reserve(original.size() + original.count(QChar(Apostrophe)));
    const QStringView source(original);
    qsizetype copied = 0;
    for (qsizetype place = source.indexOf(Apostrophe); place >= 0;
         place = source.indexOf(Apostrophe, place + 1)) {
        statement += source.sliced(copied, place - copied);
        copied = place;
        bool stray = false;
        try {
            stray = IsStray(statement, source.sliced(place + 1));
        } catch (...) {
            // The error log shows the statement as far as it had been rewritten.
            statement += source.sliced(copied);
            throw;
        }
        if (stray) {
            statement += QChar(Apostrophe);
        }
    }
    statement += source.sliced(copied);
}

}  // namespace

QString& FixSql(QString& statement) {
    const Findings findings = LookThrough(statement);
    if (findings.mayHaveTruthWord) {
        statement.replace(QLatin1String("false"), QLatin1String("0"));
        statement.replace(QLatin1String("true"), QLatin1String("-1"));
    }
    if (findings.oddApostrophes) {
        DoubleStrayApostrophes(statement);
    }
    return statement;
}

}  // namespace database
