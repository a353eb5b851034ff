#pragma once

/// Bounds what the test program, and each process that it starts, may take of the machine: a subject that
/// goes on for ever because it is broken ends as a failed test, not with all memory gone. 4 GB of memory each
/// (without sanitizers, which map far more than they use), and five minutes of work for a process started.
void LimitProcesses();
