#pragma once

#include <QByteArray>

/// Puts a locale of another country in force while it lives, by default one that writes "1.234,56" and
/// "24.12.2026". It is built for the test, as few machines have any but their own; a test that can't have
/// it fails.
class CommaLocale {
public:
    /// The name of a locale source: "de_DE", "fr_FR".
    explicit CommaLocale(const QByteArray& name = "de_DE");
    ~CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    QByteArray localesBefore_;
    QByteArray localeBefore_;
};
