#pragma once

#include <QDate>
#include <QString>

#include <ostream>

/// Lets the test runner show Qt's values in its messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QDate& date, std::ostream* out) {
    *out << date.toString(Qt::ISODate).toStdString();
}
