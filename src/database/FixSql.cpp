#include "database/FixSql.h"

#include "platform/Failure.h"

namespace database {

namespace {

constexpr QLatin1Char Apostrophe('\'');

struct Findings {
    qsizetype apostrophes = 0;
    bool hasTruthWord = false;
};

/// True if "true" or "false" ends with this "e". Nearly always its neighbour tells that it doesn't.
bool EndsTruthWord(const QChar* begin, const QChar* end) {
    const qsizetype length = end - begin;
    if (length >= 3 && end[-1] == QLatin1Char('u')) {
        return end[-2] == QLatin1Char('r') && end[-3] == QLatin1Char('t');
    }
    return length >= 4 && end[-1] == QLatin1Char('s') && end[-2] == QLatin1Char('l') &&
           end[-3] == QLatin1Char('a') && end[-4] == QLatin1Char('f');
}

/// One pass without a copy, as an import passes a million statements and few need more.
Findings LookThrough(const QString& statement) {
    Findings findings;
    const QChar* const begin = statement.constData();
    const QChar* const end = begin + statement.size();
    for (const QChar* place = begin; place != end; ++place) {
        if (*place == Apostrophe) {
            ++findings.apostrophes;
        } else if (*place == QLatin1Char('e')) {
            findings.hasTruthWord = findings.hasTruthWord || EndsTruthWord(begin, place);
        }
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

void DoubleStrayApostrophes(QString& statement, qsizetype apostrophes) {
    const QString original = statement;
    statement.clear();
    statement.reserve(original.size() + apostrophes);
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
            statement += Apostrophe;
        }
    }
    statement += source.sliced(copied);
}

}  // namespace

QString& FixSql(QString& statement) {
    const Findings findings = LookThrough(statement);
    if (findings.hasTruthWord) {
        statement.replace(QLatin1String("false"), QLatin1String("0"));
        statement.replace(QLatin1String("true"), QLatin1String("-1"));
    }
    if (findings.apostrophes % 2 != 0) {
        DoubleStrayApostrophes(statement, findings.apostrophes);
    }
    return statement;
}

}  // namespace database
