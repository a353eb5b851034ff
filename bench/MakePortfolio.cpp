#include "support/PortfolioGenerator.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

// make-portfolio TENANTS START FREQUENCY [mixed] — writes a made-up portfolio to standard output.
int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("usage: make-portfolio TENANTS START FREQUENCY [mixed]\n", stderr);
        return 2;
    }
    PortfolioSize size;
    size.tenants = std::atoi(argv[1]);
    size.start = QDate::fromString(QString::fromLatin1(argv[2]), Qt::ISODate);
    size.frequency = argv[3];
    size.mixedOrder = argc > 4 && std::strcmp(argv[4], "mixed") == 0;
    const QByteArray text = MakePortfolio(size);
    return std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout) ==
                   static_cast<size_t>(text.size())
               ? 0
               : 1;
}
