#include "support/JetReader.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QThread>

namespace {

// The name that a file has below Wine: each drive is a folder there.
QString NameBelow(const QString& path) {
    return qEnvironmentVariable("WINEPREFIX") + QStringLiteral("/dosdevices/") + path.left(2).toLower() +
           path.mid(2);
}

QByteArray ContentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

// The reader is a program of the system below Wine. These run, but nothing can be asked of their process.
void CopyJetTables(const QString& path, const QString& copy, const QStringList& tables) {
    const QString script = QStringLiteral(
        "python3 -B \"$@\" > \"$3.told\" 2>&1; echo $? > \"$3.new\"; mv \"$3.new\" \"$3.status\"");
    const QString status = copy + QStringLiteral(".status");
    QProcess::startDetached(QStringLiteral("Z:/bin/sh"),
                            QStringList{QStringLiteral("-c"), script, QStringLiteral("sh"),
                                        QStringLiteral(JET_READER), NameBelow(path), NameBelow(copy)} +
                                tables);
    const QDeadlineTimer deadline(300'000);
    while (!QFile::exists(status) && !deadline.hasExpired()) {
        QThread::msleep(1);
    }
    if (ContentOf(status).trimmed() != "0") {
        qFatal("%s can't be read: %s", qPrintable(path),
               ContentOf(copy + QStringLiteral(".told")).constData());
    }
}
