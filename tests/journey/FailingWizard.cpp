// A wizard whose form can't be made: its only page fails while it is built.

#include "platform/Failure.h"
#include "platform/Process.h"
#include "shell/UI.h"

int main(int argc, char** argv) {
    platform::RunProcess([argc, argv] {
        shell::PageKind kind = shell::Pages().front();
        kind.Make = [](QWidget* /*parent*/) -> QWidget* {
            throw platform::Failure(7, QStringLiteral("Out of memory"));
        };
        return shell::Main(argc, argv, {kind});
    });
}
