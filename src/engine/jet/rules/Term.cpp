#include "engine/jet/rules/Term.h"

#include "platform/Clock.h"

#include <array>

namespace engine::jet {

namespace {

// No rule is longer in a file of this format.
constexpr qsizetype LongestExpression = 2048;

bool IsDigit(QChar character) {
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

bool BeginsName(QChar character) {
    return character.isLetter() || character == QLatin1Char('_');
}

// Each of the routines takes one kind of word from the front of what is left, or says no.
class WordReader {
public:
    explicit WordReader(const QString& expression) : left_(expression) {}

    std::optional<std::vector<Word>> Read() {
        for (SkipBlanks(); !left_.isEmpty(); SkipBlanks()) {
            const QChar next = left_.front();
            const bool isTaken = BeginsName(next)            ? TakeName()
                                 : BeginsNumber()            ? TakeNumber()
                                 : next == QLatin1Char('"')  ? TakeText(next)
                                 : next == QLatin1Char('\'') ? TakeText(next)
                                 : next == QLatin1Char('#')  ? TakeDate()
                                 : next == QLatin1Char('[')  ? TakeBracketedName()
                                                             : TakeSymbol();
            if (!isTaken) {
                return std::nullopt;
            }
        }
        return std::move(words_);
    }

private:
    void SkipBlanks() {
        while (!left_.isEmpty() && left_.front().isSpace()) {
            left_ = left_.mid(1);
        }
    }

    QChar At(qsizetype place) const { return place < left_.size() ? left_[place] : QChar(); }

    QString Take(qsizetype size) {
        QString taken = left_.left(size).toString();
        left_ = left_.mid(size);
        return taken;
    }

    bool TakeName() {
        qsizetype size = 1;
        while (BeginsName(At(size)) || IsDigit(At(size))) {
            ++size;
        }
        words_.push_back({Word::Kind::Name, Take(size), {}});
        return true;
    }

    bool TakeBracketedName() {
        const qsizetype end = left_.indexOf(QLatin1Char(']'));
        if (end < 0) {
            return false;
        }
        const QString name = Take(end + 1);
        words_.push_back({Word::Kind::BracketedName, name.mid(1, end - 1), {}});
        return true;
    }

    bool BeginsNumber() const { return IsDigit(At(0)) || (At(0) == QLatin1Char('.') && IsDigit(At(1))); }

    qsizetype SkipDigits(qsizetype place) const {
        while (IsDigit(At(place))) {
            ++place;
        }
        return place;
    }

    // Whole where it is written so.
    bool TakeNumber() {
        qsizetype end = SkipDigits(0);
        const bool isWhole = At(end) != QLatin1Char('.');
        if (!isWhole) {
            end = SkipDigits(end + 1);
        }
        if (BeginsName(At(end)) || At(end) == QLatin1Char('.')) {
            return false;
        }
        const QString digits = Take(end);
        bool isHeld = false;
        Value number = qint64{digits.toLongLong(&isHeld)};
        if (!isWhole || !isHeld) {
            number = digits.toDouble(&isHeld);
        }
        words_.push_back({Word::Kind::Literal, digits, number});
        return isHeld;
    }

    bool TakeText(QChar quote) {
        QString text;
        for (qsizetype place = 1; place < left_.size(); ++place) {
            if (left_[place] != quote) {
                text += left_[place];
            } else if (At(place + 1) == quote) {
                text += left_[place++];
            } else {
                words_.push_back({Word::Kind::Literal, Take(place + 1), text});
                return true;
            }
        }
        return false;
    }

    // Years of two digits would leave the century to a guess.
    bool TakeDate() {
        const qsizetype end = left_.indexOf(QLatin1Char('#'), 1);
        if (end < 0) {
            return false;
        }
        const QString written = Take(end + 1);
        const QDate date = QDate::fromString(written.mid(1, end - 1).trimmed(), QStringLiteral("M/d/yyyy"));
        words_.push_back({Word::Kind::Literal, written, FromDate(date)});
        return date.isValid();
    }

    bool TakeSymbol() {
        constexpr std::array<const char*, 10> Symbols{"<=", ">=", "<>", "<", ">", "=", "(", ")", ",", "-"};
        for (const char* symbol : Symbols) {
            if (left_.startsWith(QLatin1String(symbol))) {
                words_.push_back({Word::Kind::Symbol, Take(QLatin1String(symbol).size()), {}});
                return true;
            }
        }
        return false;
    }

    QStringView left_;
    std::vector<Word> words_;
};

struct NamedValue {
    const char* name;
    bool value;
};
constexpr std::array<NamedValue, 6> YesAndNo{
    {{"Yes", true}, {"No", false}, {"True", true}, {"False", false}, {"On", true}, {"Off", false}}};

struct NamedMoment {
    const char* name;
    Moment moment;
};
constexpr std::array<NamedMoment, 3> Moments{
    {{"Date", Moment::Today}, {"Now", Moment::Now}, {"Time", Moment::TimeOfDay}}};

std::optional<Moment> MomentOf(const Word& word) {
    for (const NamedMoment& known : Moments) {
        if (word.IsKeyword(known.name)) {
            return known.moment;
        }
    }
    return std::nullopt;
}

std::optional<Value> NamedValueOf(const Word& word) {
    if (word.IsKeyword("Null")) {
        return Null();
    }
    for (const NamedValue& known : YesAndNo) {
        if (word.IsKeyword(known.name)) {
            return known.value;
        }
    }
    return std::nullopt;
}

std::optional<Value> Negative(const Value& number) {
    if (const auto* whole = std::get_if<qint64>(&number)) {
        return -*whole;
    }
    if (const auto* real = std::get_if<double>(&number)) {
        return -*real;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::vector<Word>> WordsOf(const QString& expression) {
    return expression.size() > LongestExpression ? std::nullopt : WordReader(expression).Read();
}

// To the second, as the original engine's clock goes.
Value ValueNow(Moment moment) {
    if (moment == Moment::Today) {
        return FromDate(platform::Today());
    }
    const QDateTime now = platform::Now();
    const QTime time(now.time().hour(), now.time().minute(), now.time().second());
    // A time of day is one of the day from which days are counted.
    return QDateTime(moment == Moment::Now ? now.date() : QDate(1899, 12, 30), time, Qt::UTC);
}

Value ValueNow(const Term& term) {
    const auto* moment = std::get_if<Moment>(&term);
    return moment == nullptr ? std::get<Value>(term) : ValueNow(*moment);
}

std::optional<Term> TakeTerm(const std::vector<Word>& words, std::size_t& place, Parentheses parentheses) {
    const auto has = [&words, place](std::size_t ahead, const char* symbol) {
        return place + ahead < words.size() && words[place + ahead].IsSymbol(symbol);
    };
    if (place >= words.size()) {
        return std::nullopt;
    }
    const Word& word = words[place];
    const bool isCall = has(1, "(") && has(2, ")");
    if (const auto moment = MomentOf(word);
        moment && (isCall || (parentheses == Parentheses::MayBeLeftOut && !has(1, "(")))) {
        place += isCall ? 3 : 1;
        return *moment;
    }
    const bool isNegative = word.IsSymbol("-") && place + 1 < words.size();
    std::optional<Value> value = isNegative                         ? Negative(words[place + 1].literal)
                                 : word.kind == Word::Kind::Literal ? std::optional(word.literal)
                                                                    : NamedValueOf(word);
    if (!value) {
        return std::nullopt;
    }
    place += isNegative ? 2 : 1;
    return *value;
}

}  // namespace engine::jet
