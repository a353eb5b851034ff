#pragma once

#include <QString>

#include <compare>

namespace engine {

/// Fixed-point money: a 64-bit integer scaled by 10000. It becomes a double, or comes from one, by name only.
class Currency {
public:
    static constexpr qint64 Scale = 10000;

    /// Up to here a double tells four decimal places apart, also when it has been scaled.
    static constexpr double LastExact = 2.5e11;

    constexpr Currency() = default;
    static constexpr Currency FromScaled(qint64 scaled) { return Currency(scaled); }

    /// To 4 decimal places, ties to even. A value that doesn't fit 64 bits, or isn't a number, overflows
    /// (platform failure 6).
    static Currency FromDouble(double value);

    /// The amount that a double stands for, where one is kept as a double: what ToDouble has made of an
    /// amount with cents comes back as it was, up to 70,368,744,177,664. Overflows as FromDouble does.
    static Currency FromKept(double value);

    constexpr qint64 Scaled() const { return scaled_; }
    /// The nearest one.
    double ToDouble() const;

    /// To 2 decimal places, ties to even.
    Currency RoundedToCents() const;

    /// Decimal text without thousands separators and without trailing zeros: 1000, 548.39, -127.5.
    QString ToText(const QString& decimalMark) const;

    /// Overflow raises platform failure 6.
    Currency operator-(Currency other) const;

    constexpr auto operator<=>(const Currency&) const = default;

private:
    explicit constexpr Currency(qint64 scaled) : scaled_(scaled) {}
    qint64 scaled_ = 0;
};

}  // namespace engine
