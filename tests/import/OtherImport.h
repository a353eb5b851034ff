#pragma once

#include "support/FaultyDisk.h"

#include <QString>

#include <memory>
#include <vector>

/// What an import in a process of its own is to do.
struct ImportOrder {
    QString portfolio;
    QString database;
    QString errors;    ///< The file for what it tells on standard error. Nobody reads it if there is none.
    QString log;       ///< The folder of its error log.
    QString progress;  ///< The file of an ImportProgress that hears of it, if there is one.

    /// Its process ends at this operation of the disk, as FaultyDisk does it; never at 0.
    int endAt = 0;
    FaultyDisk::Fault end = FaultyDisk::Fault::EndBefore;
    /// Groups end with so many writes, and not by time; 0 for groups as they are.
    size_t writesOfGroup = 0;

    /// What another program does meanwhile: a line for the system's shell, run until it succeeds, once so
    /// many writes are done; only when a group has come to the disk, or else behind a write.
    QString strike;
    size_t strikeAfter = 0;
    bool strikeBetweenGroups = false;
};

/// An import in a process of its own, as of 2026-11-21.
class OtherImport {
public:
    explicit OtherImport(const ImportOrder& order);
    /// Kills it unless it has ended.
    ~OtherImport();
    OtherImport(const OtherImport&) = delete;
    OtherImport& operator=(const OtherImport&) = delete;

    bool HasEnded();

    /// As the system does it, with no chance to tidy up. Comes back when the process is gone.
    void Kill();

    /// Waits for its end. -1 if it was killed.
    int ExitStatus();

    /// How the system asks a process to end: what is added to 128 for its exit status.
    static const std::vector<int>& Requests();
    void AskToEnd(int request);

    /// As another import's refusal names it.
    QString NameInRefusals() const;

private:
    class Process;
    std::unique_ptr<Process> process_;
};

/// Does what is ordered in this process, and gives the exit status. What is put in place for it stays to the
/// end of the process.
int CarryOut(const ImportOrder& order);
