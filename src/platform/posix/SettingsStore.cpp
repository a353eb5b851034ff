#include "platform/SettingsStore.h"

#include <QByteArrayList>
#include <QFile>

#include <cstdio>
#include <filesystem>

namespace platform {

namespace {

/// Far more than a whole exported product key; a larger file is something else that got this name.
constexpr qint64 MostBytes = qint64{4} * 1024 * 1024;

// Names of folders are bytes here: those that are no text must not become the name of another folder.
bool IsAbsolute(const QByteArray& folder) {
    return folder.startsWith('/');
}

/// In the order of the base directory rules, which also say that a relative path counts as not set.
QByteArrayList ConfigurationFolders() {
    QByteArray home = qgetenv("XDG_CONFIG_HOME");
    if (!IsAbsolute(home)) {
        home = qgetenv("HOME") + "/.config";
    }
    QByteArray others = qgetenv("XDG_CONFIG_DIRS");
    if (others.isEmpty()) {
        others = "/etc/xdg";
    }
    QByteArrayList folders{home};
    folders += others.split(':');
    folders.removeIf([](const QByteArray& folder) { return !IsAbsolute(folder); });
    return folders;
}

QByteArray SettingsFile() {
    for (const QByteArray& folder : ConfigurationFolders()) {
        QByteArray path = folder + "/hearthbook/registry.reg";
        std::error_code cannotBeAsked;
        if (std::filesystem::is_regular_file(path.toStdString(), cannotBeAsked)) {
            return path;
        }
    }
    return {};
}

QHash<QString, RegistryValues> ReadSettingsFile() {
    QFile file;
    std::FILE* opened = std::fopen(SettingsFile().constData(), "rbe");
    if (opened == nullptr || !file.open(opened, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        return {};
    }
    const QByteArray text = file.read(MostBytes + 1);
    return text.size() > MostBytes ? QHash<QString, RegistryValues>() : ParseRegistryText(text);
}

std::optional<RegistryValue> ValueOf(const RegistryValues& values, const QString& name,
                                     qsizetype bufferSize) {
    const auto found = values.constFind(name.toLower());
    if (found == values.constEnd() || found->bytes.size() > bufferSize) {
        return std::nullopt;
    }
    return *found;
}

}  // namespace

std::optional<RegistryKey> OpenRegistryKey(quint32 root, const QString& subKey) {
    if (root != LocalMachine) {
        return std::nullopt;
    }
    const QHash<QString, RegistryValues> keys = ReadSettingsFile();
    const auto found = keys.constFind(QLatin1String("hkey_local_machine\\") + subKey.toLower());
    if (found == keys.constEnd()) {
        return std::nullopt;
    }
    return RegistryKey([values = *found](const QString& name, qsizetype bufferSize) {
        return ValueOf(values, name, bufferSize);
    });
}

}  // namespace platform
