#include "support/Workplace.h"

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"

#include <QDir>
#include <QFile>

Workplace::Workplace() : configHome_(qgetenv("XDG_CONFIG_HOME")), configDirs_(qgetenv("XDG_CONFIG_DIRS")) {
    qputenv("XDG_CONFIG_HOME", directory_.filePath(QStringLiteral("config")).toLocal8Bit());
    qputenv("XDG_CONFIG_DIRS", directory_.filePath(QStringLiteral("system-config")).toLocal8Bit());
    platform::SetProgramDirectory(directory_.path());
}

Workplace::~Workplace() {
    platform::SetProgramDirectory(QString());
    qputenv("XDG_CONFIG_HOME", configHome_);
    qputenv("XDG_CONFIG_DIRS", configDirs_);
}

void Workplace::WriteSettings(const QByteArray& text) const {
    QDir(directory_.path()).mkpath(QStringLiteral("config/hearthbook"));
    QFile file(directory_.filePath(QStringLiteral("config/hearthbook/registry.reg")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size()) {
        qFatal("The settings file can't be written");
    }
}

QString Workplace::ErrorLogPath() const {
    const QDate today = platform::Today();
    return directory_.filePath(QStringLiteral("err%1%2.log")
                                   .arg(platform::ShortMonthName(today.month()))
                                   .arg(today.year() % 100, 2, 10, QLatin1Char('0')));
}

QString Workplace::ErrorLog() const {
    QFile file(ErrorLogPath());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void Workplace::RemoveErrorLog() const {
    QFile::remove(ErrorLogPath());
}
