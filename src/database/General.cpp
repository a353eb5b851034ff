#include "database/General.h"

#include "platform/Failure.h"
#include "platform/SettingsStore.h"
#include "platform/Utf8.h"

namespace database {

namespace {

constexpr qsizetype BufferSize = 1024;

/// The bytes from the last to the first, each without a leading zero: a byte below 16 is one digit only,
/// which is how Hearthbook has always read such numbers.
QString NumberText(const QByteArray& bytes) {
    QString digits;
    for (const char byte : bytes) {
        digits.prepend(QString::number(static_cast<unsigned char>(byte), 16));
    }
    if (digits.isEmpty()) {
        throw platform::Failure(platform::FailureNumber::TypeMismatch, QStringLiteral("Type mismatch"));
    }
    bool fits = false;
    const qulonglong number = digits.toULongLong(&fits, 16);
    if (!fits) {
        platform::RaiseOverflow();
    }
    return QString::number(number);
}

}  // namespace

QString GetRegistrySetting(const QString& section, const QString& name, const QString& defaultValue) {
    QString value;
    if (!ReadRegistryValue(platform::LocalMachine, QStringLiteral("SOFTWARE\\Hearthbook\\") + section, name,
                           value)) {
        value = defaultValue;
    }
    if (value == QLatin1String("vbNullString")) {
        value.clear();
    }
    return value;
}

bool ReadRegistryValue(quint32 rootKey, const QString& subKey, const QString& name, QString& value) {
    const auto key = platform::OpenRegistryKey(rootKey, subKey);
    auto stored = key ? key->Query(name, BufferSize) : std::nullopt;
    if (!stored) {
        value.clear();
        return false;
    }
    if (stored->bytes.endsWith('\0')) {
        stored->bytes.chop(1);
    }
    if (stored->type == platform::RegistryType::Text) {
        value = platform::TextFromUtf8(stored->bytes);
    } else if (stored->type == platform::RegistryType::DoubleWord) {
        value = NumberText(stored->bytes);
    }
    return true;
}

}  // namespace database
