#include "tools/import/CommandLine.h"

#include "platform/Utf8.h"

namespace tools {

QStringList Arguments(int argc, char** argv) {
    QStringList arguments;
    for (int place = 1; place < argc; ++place) {
        arguments += platform::TextFromUtf8(argv[place]);
    }
    return arguments;
}

}  // namespace tools
