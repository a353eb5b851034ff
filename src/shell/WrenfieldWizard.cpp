#include "platform/Process.h"
#include "shell/UI.h"

int main(int argc, char** argv) {
    platform::RunProcess([argc, argv] { return shell::Main(argc, argv); });
}
