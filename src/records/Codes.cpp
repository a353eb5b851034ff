#include "records/Codes.h"

#include "platform/Failure.h"

namespace records {
namespace {

/// The first number of 1, 2, 3, 4 and 5 digits, and the first one that 16 bits can't hold.
constexpr std::array FirstOfLength{1, 10, 100, 1000, 10'000, 32'768};

/// Blanks only: other white space is a character of the name like any other.
QString Trim(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text.at(first) == u' ') {
        ++first;
    }
    while (last > first && text.at(last - 1) == u' ') {
        --last;
    }
    return last - first == text.size() ? text : text.sliced(first, last - first);
}

}  // namespace

QString CodeMaker::MakeUniqueCode(const QString& name) {
    const QString candidate = name.left(limit_);
    if (!CodeExists(candidate)) {
        return Trim(candidate);
    }

    // Taken keys are never given back, so a number once seen taken behind some text need not be tried again.
    // Without that memory a list of tenants who share a long name costs the square of its length.
    int& digits = digitsToTry_[candidate];
    for (digits = qMax(digits, 1); digits <= MostDigits; ++digits) {
        const QString base = candidate.left(limit_ - digits);
        const int first = FirstOfLength.at(static_cast<std::size_t>(digits - 1));
        const int last = FirstOfLength.at(static_cast<std::size_t>(digits)) - 1;
        int& suffix = lowestMaybeFree_.at(static_cast<std::size_t>(digits - 1))[base];
        for (suffix = qMax(suffix, first); suffix <= last; ++suffix) {
            const QString copy = base + QString::number(suffix);
            if (!CodeExists(copy)) {
                return Trim(copy);
            }
        }
    }
    platform::RaiseOverflow();
}

}  // namespace records
