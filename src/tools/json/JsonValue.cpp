#include "tools/json/JsonValue.h"

#include "tools/json/Fault.h"

namespace tools {

const JsonValue* JsonValue::Member(const QString& name) const {
    const qsizetype place = parts ? parts->names.indexOf(name) : -1;
    return place < 0 ? nullptr : &parts->items[static_cast<std::size_t>(place)];
}

QString JsonValue::Shown() const {
    switch (kind) {
        case JsonKind::Boolean:
            return boolean ? QStringLiteral("true") : QStringLiteral("false");
        case JsonKind::Number:
            return tools::Shown(text);
        case JsonKind::Text:
            return ShownQuoted(text);
        case JsonKind::Array:
            return QStringLiteral("an array");
        case JsonKind::Object:
            return QStringLiteral("an object");
        case JsonKind::Null:
            break;
    }
    return QStringLiteral("null");
}

}  // namespace tools
