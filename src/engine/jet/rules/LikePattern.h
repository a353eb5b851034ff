#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <vector>

namespace engine::jet {

/// A pattern of texts: "*" stands for any characters, "?" for one, "#" for a digit, [a-z5] for one of these
/// characters and [!a-z5] for one of all others. Letters go without regard to case.
class LikePattern {
public:
    /// None for a pattern with brackets that don't close, hold nothing, or have a range that runs backwards.
    static std::optional<LikePattern> Read(QStringView pattern);

    /// In as many steps as the text and the pattern are long, multiplied, whatever the pattern.
    bool Matches(QStringView text) const;

private:
    struct Range {
        QChar first;
        QChar last;
    };
    struct Element {
        bool isAnyText = false;
        bool isNegated = false;
        std::vector<Range> ranges;  ///< None of them: any character.

        bool Matches(QChar character) const;
    };

    static std::optional<Element> ReadBrackets(QStringView inside);

    std::vector<Element> elements_;
};

}  // namespace engine::jet
