#include "platform/Locale.h"
#include "platform/Process.h"
#include "tools/import/CommandLine.h"
#include "tools/schema/CreateTool.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    platform::RunProcess([&argc, argv] {
        const QCoreApplication application(argc, argv);
        platform::LoadSystemLocale();
        return tools::RunCreateTool(tools::Arguments(argc, argv));
    });
}
