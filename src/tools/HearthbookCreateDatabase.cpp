#include "platform/Locale.h"
#include "platform/Process.h"
#include "tools_core/import/CommandLine.h"
#include "tools_core/schema/CreateTool.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    platform::RunProcess([&argc, argv] {
        const QCoreApplication application(argc, argv);
        platform::LoadSystemLocale();
        return tools::RunCreateTool(tools::Arguments(argc, argv));
    });
}
