#include "platform/CommandLine.h"

#include "platform/Utf8.h"

namespace platform {

QStringList Arguments(int argc, char** argv) {
    QStringList arguments;
    for (int place = 1; place < argc; ++place) {
        arguments += TextFromUtf8(argv[place]);
    }
    return arguments;
}

}  // namespace platform
