#include "engine/jet/rules/Describe.h"

namespace engine::jet {

QString Describe(const Value& value) {
    constexpr qsizetype MostShown = 60;
    if (IsNull(value)) {
        return QStringLiteral("Null");
    }
    if (const auto* bytes = std::get_if<QByteArray>(&value)) {
        return QStringLiteral("%1 bytes").arg(bytes->size());
    }
    QString text = ToText(value);
    if (!std::holds_alternative<QString>(value)) {
        return text;
    }
    return text.size() > MostShown ? QStringLiteral("\"%1...\"").arg(text.left(MostShown))
                                   : QStringLiteral("\"%1\"").arg(text);
}

}  // namespace engine::jet
