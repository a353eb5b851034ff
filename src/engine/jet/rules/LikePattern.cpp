#include "engine/jet/rules/LikePattern.h"

#include <algorithm>

namespace engine::jet {

std::optional<LikePattern::Element> LikePattern::ReadBrackets(QStringView inside) {
    Element element;
    element.isNegated = inside.startsWith(QLatin1Char('!'));
    if (element.isNegated) {
        inside = inside.mid(1);
    }
    if (inside.isEmpty()) {
        return std::nullopt;
    }
    while (!inside.isEmpty()) {
        const bool isRange = inside.size() >= 3 && inside[1] == QLatin1Char('-');
        const Range range{inside[0].toCaseFolded(), inside[isRange ? 2 : 0].toCaseFolded()};
        if (range.last < range.first) {
            return std::nullopt;
        }
        element.ranges.push_back(range);
        inside = inside.mid(isRange ? 3 : 1);
    }
    return element;
}

std::optional<LikePattern> LikePattern::Read(QStringView pattern) {
    LikePattern read;
    while (!pattern.isEmpty()) {
        const QChar next = pattern.front();
        qsizetype size = 1;
        Element element;
        if (next == QLatin1Char('[')) {
            size = pattern.indexOf(QLatin1Char(']')) + 1;
            const auto inside = size == 0 ? std::nullopt : ReadBrackets(pattern.mid(1, size - 2));
            if (!inside) {
                return std::nullopt;
            }
            element = *inside;
        } else if (next == QLatin1Char('*')) {
            element.isAnyText = true;
        } else if (next == QLatin1Char('#')) {
            element.ranges = {{QLatin1Char('0'), QLatin1Char('9')}};
        } else if (next != QLatin1Char('?')) {
            element.ranges = {{next.toCaseFolded(), next.toCaseFolded()}};
        }
        read.elements_.push_back(std::move(element));
        pattern = pattern.mid(size);
    }
    return read;
}

bool LikePattern::Element::Matches(QChar character) const {
    const QChar folded = character.toCaseFolded();
    const bool isInside =
        ranges.empty() || std::any_of(ranges.begin(), ranges.end(), [folded](const Range& range) {
            return range.first <= folded && folded <= range.last;
        });
    return isInside != isNegated;
}

// Only the last "*" that was met is ever tried with more characters: what lies before it fits already.
bool LikePattern::Matches(QStringView text) const {
    qsizetype at = 0;
    std::size_t element = 0;
    qsizetype retryAt = -1;
    std::size_t retryElement = 0;
    while (at < text.size()) {
        if (element < elements_.size() && elements_[element].isAnyText) {
            retryAt = at;
            retryElement = ++element;
        } else if (element < elements_.size() && elements_[element].Matches(text[at])) {
            ++at;
            ++element;
        } else if (retryAt >= 0) {
            at = ++retryAt;
            element = retryElement;
        } else {
            return false;
        }
    }
    return std::all_of(elements_.begin() + static_cast<std::ptrdiff_t>(element), elements_.end(),
                       [](const Element& left) { return left.isAnyText; });
}

}  // namespace engine::jet
