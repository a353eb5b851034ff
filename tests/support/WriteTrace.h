#pragma once

#include <QString>

#include <cstdint>
#include <functional>

/// One write that a program's database connection has done: the statement with its values, how many rows it
/// changed, and when it was done (nanoseconds of the monotonic clock).
struct TracedWrite {
    QString sql;
    std::int64_t changedRows = 0;
    std::int64_t moment = 0;
};

/// Hands every write on connections opened from here on in this process to the listener, until the trace is
/// destroyed. Transactions and settings are not writes.
class WriteTrace {
public:
    using Listener = std::function<void(const TracedWrite&)>;

    explicit WriteTrace(Listener listener);
    ~WriteTrace();
    WriteTrace(const WriteTrace&) = delete;
    WriteTrace& operator=(const WriteTrace&) = delete;
};

std::int64_t MonotonicNanoseconds();
