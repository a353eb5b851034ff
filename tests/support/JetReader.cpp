#include "support/JetReader.h"

#include <QFile>

bool IsJetFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(32).mid(4).startsWith("Standard Jet DB");
}
