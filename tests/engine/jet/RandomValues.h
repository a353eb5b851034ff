#pragma once

#include "engine/Value.h"
#include "engine/jet/TableLayout.h"

#include <random>

namespace engine::jet {

/// Values for columns, at random: null and the ends of each range more often than chance would have it, the
/// same ones again and again, and texts of what is awkward in them.
class RandomValues {
public:
    explicit RandomValues(std::uint64_t seed) : random_(seed) {}

    /// From 0, and below the end.
    int Below(int end) { return static_cast<int>(random_() % static_cast<std::uint64_t>(end)); }
    bool OneIn(int many) { return Below(many) == 0; }

    /// A value that the column can hold, but for texts that nothing can (IsStorable).
    Value ValueFor(const Column& column);

private:
    qint64 Whole(qint64 least, qint64 most);
    double Fraction();
    QDateTime Moment();
    QString Text(int most);
    QByteArray Bytes(int size);
    Value LongText();

    std::mt19937_64 random_;
};

/// Not so where a text begins with U+FEFF, and so would be taken for a compressed one, but can't be
/// compressed.
bool IsStorable(const Value& value);

}  // namespace engine::jet
