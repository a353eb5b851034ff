// Runs statements on a database file, each ended by a zero byte in the standard input, for tests that prepare
// what was there before.

#include "engine/DBEngine.h"

#include <QFile>

#include <cstdio>

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("Usage: write-rows FILE < STATEMENTS\n", stderr);
        return 2;
    }
    QFile input;
    input.open(stdin, QIODevice::ReadOnly);
    try {
        const auto database = engine::DBEngine::Instance().OpenDatabase(QFile::decodeName(arguments[1]));
        const QByteArrayList statements = input.readAll().split('\0');
        for (qsizetype place = 0; place + 1 < statements.size(); ++place) {
            database->Execute(QString::fromUtf8(statements[place]));
        }
        database->Flush();
    } catch (const platform::Failure& failure) {
        std::fprintf(stderr, "%d: %s\n", failure.Number(), qPrintable(failure.Description()));
        return 1;
    }
    return 0;
}
