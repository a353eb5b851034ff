#include "platform/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace platform {

namespace {

/// Far more than a whole exported product key; a larger file is something else that got this name.
constexpr qint64 MostBytes = qint64{4} * 1024 * 1024;

QString Environment(const char* name) {
    return QFile::decodeName(qgetenv(name));
}

/// In the order of the base directory rules, which also say that a relative path counts as not set.
QStringList ConfigurationFolders() {
    QString home = Environment("XDG_CONFIG_HOME");
    if (!QDir::isAbsolutePath(home)) {
        home = QDir::homePath() + QLatin1String("/.config");
    }
    QString others = Environment("XDG_CONFIG_DIRS");
    if (others.isEmpty()) {
        others = QStringLiteral("/etc/xdg");
    }
    QStringList folders{home};
    for (const QString& folder : others.split(QLatin1Char(':'))) {
        if (QDir::isAbsolutePath(folder)) {
            folders += folder;
        }
    }
    return folders;
}

QString SettingsFile() {
    for (const QString& folder : ConfigurationFolders()) {
        QString path = folder + QLatin1String("/hearthbook/registry.reg");
        if (QFileInfo(path).isFile()) {
            return path;
        }
    }
    return {};
}

QHash<QString, RegistryValues> ReadSettingsFile() {
    const QString path = SettingsFile();
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray text = file.read(MostBytes + 1);
    return text.size() > MostBytes ? QHash<QString, RegistryValues>() : ParseRegistryText(text);
}

}  // namespace

std::optional<RegistryValue> RegistryKey::Query(const QString& name, qsizetype bufferSize) const {
    const auto found = values_.constFind(name.toLower());
    if (found == values_.constEnd() || found->bytes.size() > bufferSize) {
        return std::nullopt;
    }
    return *found;
}

std::optional<RegistryKey> OpenRegistryKey(quint32 root, const QString& subKey) {
    if (root != HKEY_LOCAL_MACHINE) {
        return std::nullopt;
    }
    const QHash<QString, RegistryValues> keys = ReadSettingsFile();
    const auto found = keys.constFind(QLatin1String("hkey_local_machine\\") + subKey.toLower());
    if (found == keys.constEnd()) {
        return std::nullopt;
    }
    return RegistryKey(*found);
}

}  // namespace platform
