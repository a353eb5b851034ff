#pragma once

#include <QString>

#include <optional>

/// The repair of statements told once more, slowly and with places counted from 1, to hold the real one
/// against. Nothing where the real one fails.
inline std::optional<QString> NaiveFixSql(QString text) {
    text.replace(QLatin1String("false"), QLatin1String("0"));
    text.replace(QLatin1String("true"), QLatin1String("-1"));
    if (text.count(QLatin1Char('\'')) % 2 == 0) {
        return text;
    }
    const auto holdsOneOf = [](const QString& piece, std::initializer_list<const char*> signs) {
        for (const char* sign : signs) {
            if (piece.toLower().contains(QLatin1String(sign))) {
                return true;
            }
        }
        return false;
    };
    for (qsizetype p = 1; p <= text.length(); ++p) {
        if (text.mid(p - 1, 1) != QLatin1String("'")) {
            continue;
        }
        if (p >= 2) {
            if (p - 3 < 1) {
                return std::nullopt;
            }
            if (holdsOneOf(text.mid(p - 3 - 1, 3), {"=", "<", ">", "ke"})) {
                continue;
            }
        }
        if (p < text.length() - 4 && holdsOneOf(text.mid(p + 1 - 1, 4), {" and", "  an", " or ", " ord"})) {
            continue;
        }
        if (p == text.length()) {
            continue;
        }
        text = text.left(p) + QLatin1Char('\'') + text.mid(p);
        ++p;
    }
    return text;
}
