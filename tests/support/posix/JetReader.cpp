#include "support/JetReader.h"

#include <QProcess>

void CopyJetTables(const QString& path, const QString& copy, const QStringList& tables) {
    QProcess reader;
    reader.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    reader.start(QStringLiteral("python3"),
                 QStringList{QStringLiteral("-B"), QStringLiteral(JET_READER), path, copy} + tables);
    if (!reader.waitForFinished(300'000) || reader.exitStatus() != QProcess::NormalExit ||
        reader.exitCode() != 0) {
        qFatal("%s can't be read", qPrintable(path));
    }
}
