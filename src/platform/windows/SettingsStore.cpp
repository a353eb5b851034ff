#include "platform/SettingsStore.h"

#include "platform/windows/Handle.h"

#include <memory>
#include <type_traits>

namespace platform {

namespace {

using OpenKey = std::shared_ptr<std::remove_pointer_t<HKEY>>;

OpenKey TryOpen(quint32 root, const QByteArray& subKey, REGSAM view) {
    // A root is its number, with its sign, as a handle.
    const auto rootKey = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(root)));
    HKEY key = nullptr;
    // No more than is needed: users who may not write there can read their settings all the same.
    if (RegOpenKeyExA(rootKey, subKey.constData(), 0, KEY_QUERY_VALUE | view, &key) != ERROR_SUCCESS) {
        return nullptr;
    }
    return {key, RegCloseKey};
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

std::optional<RegistryValue> ValueOf(HKEY key, const QString& name, qsizetype bufferSize) {
    QByteArray bytes(bufferSize, '\0');
    DWORD type = 0;
    auto size = static_cast<DWORD>(bufferSize);
    // A value that is longer fails.
    if (RegQueryValueExA(key, ToSystemBytes(name).constData(), nullptr, &type,
                         reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    bytes.truncate(static_cast<qsizetype>(size));
    return RegistryValue{type,
                         IsText(type) ? FromSystemBytes(bytes.constData(), bytes.size()).toUtf8() : bytes};
}

}  // namespace

// A 32-bit Hearthbook has written where 64-bit programs see nothing unless they ask for it.
std::optional<RegistryKey> OpenRegistryKey(quint32 root, const QString& subKey) {
    const QByteArray name = ToSystemBytes(subKey);
    OpenKey key = TryOpen(root, name, KEY_WOW64_32KEY);
    if (!key) {
        key = TryOpen(root, name, KEY_WOW64_64KEY);
    }
    if (!key) {
        return std::nullopt;
    }
    return RegistryKey(
        [key](const QString& value, qsizetype bufferSize) { return ValueOf(key.get(), value, bufferSize); });
}

}  // namespace platform
