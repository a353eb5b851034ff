#pragma once

#include "engine/Database.h"

namespace tools {

/// Holds the place of a database while none is open. StartDatabase ends the process if it can't open one and
/// none is in place, with a status that says "done with failures"; with this in place it comes back.
class NoDatabase : public engine::Database {
public:
    void Execute(const QString&) override { Refuse(); }
    std::unique_ptr<engine::Recordset> OpenRecordset(const QString&, short, short) override { Refuse(); }
    void Flush() override {}
    void LockForImport() override { Refuse(); }
    void CopyTo(const QString&) override { Refuse(); }
    void OnLostWrite(LostWriteListener) override {}

private:
    [[noreturn]] static void Refuse() { platform::RaiseObjectNotSet(); }
};

}  // namespace tools
