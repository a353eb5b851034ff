#include "tools/portfolio/PortfolioReader.h"

#include <cstddef>
#include <cstdint>

/// Whatever the bytes are, the reader answers with faults or with filled collections, and never with a
/// failure.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const tools::Fault& fault : tools::ReadPortfolio(bytes)) {
        // A fault that says nothing, or breaks out of its line, would be of no use to whoever mends the file.
        const QString line = tools::FaultLine(QStringLiteral("portfolio"), fault);
        if (fault.rule.isEmpty() || line.contains(QLatin1Char('\n'))) {
            __builtin_trap();
        }
    }
    return 0;
}
