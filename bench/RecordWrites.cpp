#include "platform/Locale.h"
#include "platform/Process.h"
#include "support/WriteTrace.h"
#include "tools/import/ImportTool.h"

#include <QCoreApplication>
#include <QFile>

// record-writes FILE ARGUMENTS... — runs an import with these arguments, and writes each of its writes to the
// file as a statement that the sqlite3 program can read.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    platform::LoadSystemLocale();
    QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() < 2) {
        return 2;
    }
    QFile file(arguments.takeFirst());
    if (!file.open(QIODevice::WriteOnly)) {
        return 2;
    }
    const WriteTrace trace([&file](const TracedWrite& write) { file.write(write.sql.toUtf8() + ";\n"); });
    platform::RunProcess([&] {
        const int status = tools::RunImportTool(arguments);
        file.close();
        return status;
    });
}
