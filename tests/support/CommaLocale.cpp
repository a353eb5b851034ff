#include "support/CommaLocale.h"

#include "platform/Locale.h"

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <clocale>
#include <stdexcept>

namespace {

/// One folder for all locales of a test run, as building one takes a second.
const QTemporaryDir& LocaleFolder() {
    static const QTemporaryDir folder;
    return folder;
}

void BuildLocale(const QByteArray& name) {
    const QString target = LocaleFolder().filePath(QString::fromLatin1(name) + QLatin1String(".UTF-8"));
    if (QFile::exists(target)) {
        return;
    }
    QProcess localedef;
    localedef.start(QStringLiteral("localedef"), {QStringLiteral("-i"), QString::fromLatin1(name),
                                                  QStringLiteral("-f"), QStringLiteral("UTF-8"), target});
    if (!localedef.waitForFinished(-1) || !QFile::exists(target)) {
        throw std::runtime_error("localedef can't build " + name.toStdString() +
                                 " (are the locale sources installed?)");
    }
}

void Restore(const char* variable, const QByteArray& value) {
    if (value.isNull()) {
        qunsetenv(variable);
    } else {
        qputenv(variable, value);
    }
}

}  // namespace

CommaLocale::CommaLocale(const QByteArray& name)
    : localesBefore_(qgetenv("LOCPATH")), localeBefore_(qgetenv("LC_ALL")) {
    BuildLocale(name);
    qputenv("LOCPATH", LocaleFolder().path().toLocal8Bit());
    qputenv("LC_ALL", name + ".UTF-8");
    platform::LoadSystemLocale();
    if (std::setlocale(LC_ALL, nullptr) != name + ".UTF-8") {
        throw std::runtime_error("The locale " + name.toStdString() + " is not in force");
    }
}

CommaLocale::~CommaLocale() {
    Restore("LOCPATH", localesBefore_);
    Restore("LC_ALL", localeBefore_);
    platform::LoadSystemLocale();
}
