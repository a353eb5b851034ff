#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tools {

enum class JsonKind : unsigned char { Null, Boolean, Number, Text, Array, Object };

/// One value of a document. A number keeps its text as well, so that a fault can quote it as it was written.
struct JsonValue {
    JsonKind kind = JsonKind::Null;
    bool boolean = false;
    double number = 0;
    QString text;
    std::vector<JsonValue> items;  ///< Elements of an array, values of an object's members.
    QStringList names;             ///< Names of an object's members, in the order of the file.

    /// The member's value, or null if there is none.
    const JsonValue* Member(const QString& name) const;

    /// The value as a fault shows it.
    QString Shown() const;
};

}  // namespace tools
