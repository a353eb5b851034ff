#include "platform/CommandLine.h"
#include "platform/Locale.h"
#include "platform/Process.h"
#include "tools/import/ImportTool.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    platform::RunProcess([&argc, argv] {
        const QCoreApplication application(argc, argv);
        platform::LoadSystemLocale();
        return tools::RunImportTool(platform::Arguments(argc, argv));
    });
}
