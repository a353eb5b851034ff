#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>

/// One write that a program's database connection has done: the statement with its values, how many rows it
/// changed, and when it was done. Rows that went in by one statement share its moment.
struct TracedWrite {
    QString sql;
    std::int64_t changedRows = 0;
    std::chrono::steady_clock::time_point doneAt;
};

/// Hands every write on connections opened from here on in this process to the listener, until the trace is
/// destroyed, and tells each group of writes that has come to the disk. Settings are not writes. On a Jet
/// file removals of all rows and updates to the same values are no statements of the connection's, and aren't
/// told; of inserts that waited it isn't told what they were.
class WriteTrace {
public:
    using Listener = std::function<void(const TracedWrite&)>;

    explicit WriteTrace(Listener onWrite, std::function<void()> onCommit = {});
    ~WriteTrace();
    WriteTrace(const WriteTrace&) = delete;
    WriteTrace& operator=(const WriteTrace&) = delete;
};
