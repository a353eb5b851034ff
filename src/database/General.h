#pragma once

#include <QString>

/// Module General: reading settings that Hearthbook wrote.
namespace database {

/// The value of a setting in a section (a subkey of the product's key), or the default if it can't be read.
/// The text "vbNullString" stands for an empty value.
QString GetRegistrySetting(const QString& section, const QString& name, const QString& defaultValue);

/// Reads one value. False, with an empty value, if the key can't be opened or the value can't be read into
/// 1024 characters. A value that is neither text nor a number leaves `value` as it was and gives true.
bool ReadRegistryValue(quint32 rootKey, const QString& subKey, const QString& name, QString& value);

}  // namespace database
