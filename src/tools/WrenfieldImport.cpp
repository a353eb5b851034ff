#include "platform/Locale.h"
#include "platform/Process.h"
#include "tools/import/CommandLine.h"
#include "tools/import/ImportTool.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    platform::RunProcess([&argc, argv] {
        const QCoreApplication application(argc, argv);
        platform::LoadSystemLocale();
        return tools::RunImportTool(tools::Arguments(argc, argv));
    });
}
