#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <functional>
#include <optional>

namespace platform {

/// The root that Hearthbook's settings lie under.
inline constexpr quint32 LocalMachine = 0x80000002;

/// Types of values, with the numbers that the exported-registry format uses.
namespace RegistryType {
inline constexpr quint32 Text = 1;
inline constexpr quint32 Binary = 3;
inline constexpr quint32 DoubleWord = 4;
}  // namespace RegistryType

/// A value with its type and its raw bytes. Text is UTF-8 and carries the terminating zero that was stored.
struct RegistryValue {
    quint32 type = 0;
    QByteArray bytes;
};

using RegistryValues = QHash<QString, RegistryValue>;  ///< By lower-cased name.

/// Reads text in the exported-registry format ("Windows Registry Editor Version 5.00", keys in brackets,
/// "name"="text", dword:, hex(n):, lines continued with a backslash), in UTF-8 or UTF-16 with its mark.
/// Gives the values by lower-cased key. Text that can't be parsed gives no keys at all: half a file would be
/// settings that nobody wrote.
QHash<QString, RegistryValues> ParseRegistryText(const QByteArray& text);

/// A key that could be opened.
class RegistryKey {
public:
    using Reader = std::function<std::optional<RegistryValue>(const QString& name, qsizetype bufferSize)>;

    explicit RegistryKey(Reader reader) : reader_(std::move(reader)) {}

    /// The value, or nothing if there is none of this name or if it is longer than the caller's buffer
    /// (in bytes, the terminating zero counted).
    std::optional<RegistryValue> Query(const QString& name, qsizetype bufferSize) const {
        return reader_(name, bufferSize);
    }

private:
    Reader reader_;
};

/// Opens a key of the settings store. On Windows that is the registry: first as 32-bit programs see it, such
/// as Hearthbook, and then as others do. Elsewhere it is the file "hearthbook/registry.reg" in
/// $XDG_CONFIG_HOME (by default ~/.config) or else in the folders of $XDG_CONFIG_DIRS (by default /etc/xdg).
/// The first folder that has the file decides. The store is read anew at each call and never written. Nothing
/// if the key isn't there. Names of keys and values are compared without regard to case.
std::optional<RegistryKey> OpenRegistryKey(quint32 root, const QString& subKey);

}  // namespace platform
