#include "platform/CommandLine.h"
#include "platform/Locale.h"
#include "platform/Process.h"
#include "tools/schema/CreateTool.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    platform::RunProcess([&argc, argv] {
        const QCoreApplication application(argc, argv);
        platform::LoadSystemLocale();
        return tools::RunCreateTool(platform::Arguments(argc, argv));
    });
}
