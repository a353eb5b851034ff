// Gives a column of a Jet file a rule of its own, as only the designer of another program does. For tests
// that prepare such a file.

#include "engine/jet/rules/RulesFile.h"

#include <QFile>

#include <cstdio>

int main(int count, char** arguments) {
    if (count != 5) {
        std::fputs("Usage: put-rule FILE TABLE COLUMN RULE\n", stderr);
        return 2;
    }
    using engine::jet::PropertyBytes;
    const QString file = QFile::decodeName(arguments[1]);
    try {
        const QByteArray block =
            PropertyBytes().OfColumn(arguments[3], "ValidationRule", QString::fromUtf8(arguments[4])).Block();
        engine::jet::RulesFile(engine::jet::SystemDisk(), file).SetProperties(arguments[2], block);
    } catch (const platform::Failure& failure) {
        std::fprintf(stderr, "%d: %s\n", failure.Number(), qPrintable(failure.Description()));
        return 1;
    }
    return QFile::remove(engine::jet::Journal::NameFor(file)) ? 0 : 1;
}
