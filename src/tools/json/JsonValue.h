#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace tools {

enum class JsonKind : unsigned char { Null, Boolean, Number, Text, Array, Object };

/// One value of a document. A number keeps its text as well, so that a fault can quote it as it was written.
struct JsonValue {
    struct Parts {
        std::vector<JsonValue> items;  ///< Elements of an array, values of an object's members.
        QStringList names;             ///< Names of an object's members, in the order of the file.
    };

    JsonKind kind = JsonKind::Null;
    bool boolean = false;
    double number = 0;
    QString text;
    /// Of an array or an object; null for the others, which are most of a document and have no room to spare.
    std::unique_ptr<Parts> parts;

    /// The member's value, or null if there is none.
    const JsonValue* Member(const QString& name) const;

    /// The value as a fault shows it.
    QString Shown() const;
};

}  // namespace tools
