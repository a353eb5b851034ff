#pragma once

#include "support/CommaLocale.h"

#include <QByteArray>
#include <QString>

/// Puts the locale of a country in force while it lives, also for the controls, which otherwise ask only once
/// in a run. Controls that are made before it keep theirs.
class CountryLocale {
public:
    /// The name of a locale source: "ja_JP".
    explicit CountryLocale(const QByteArray& name);
    ~CountryLocale();
    CountryLocale(const CountryLocale&) = delete;
    CountryLocale& operator=(const CountryLocale&) = delete;

private:
    CommaLocale locale_;
};

/// How a made-up locale writes money. What is empty gets no answer.
struct MoneyMarks {
    QString decimalSeparator;
    QString thousandSeparator;
    QString digits = QStringLiteral("2");
};

/// Lets the controls that are made while it lives find such a locale.
class MoneyLocale {
public:
    explicit MoneyLocale(const MoneyMarks& marks);
    ~MoneyLocale();
    MoneyLocale(const MoneyLocale&) = delete;
    MoneyLocale& operator=(const MoneyLocale&) = delete;
};
