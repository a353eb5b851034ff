#include "database/FixSql.h"
#include "platform/Failure.h"
#include "support/NaiveFixSql.h"

#include <cstdlib>

/// Whatever the statement, the repair gives what the slowly told rule gives, and fails where that fails.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString statement = QString::fromUtf8(bytes);
    std::optional<QString> fixed;
    try {
        QString text = statement;
        fixed = database::FixSql(text);
    } catch (const platform::Failure&) {
        fixed.reset();
    }
    if (fixed != NaiveFixSql(statement)) {
        std::abort();
    }
    return 0;
}
