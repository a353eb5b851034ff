#include "support/HalfWritten.h"

#include "engine/DBEngine.h"
#include "support/FaultyDisk.h"

// A disk that fails from then on takes nothing back, and so leaves what a killed program leaves.
void LeaveHalfWritten(const QString& path, const QString& statement) {
    constexpr int SecondPage = 5;  // Behind three operations on the journal, and the first page.
    FaultyDisk disk;
    const auto database = engine::DBEngine::Instance().OpenDatabase(path);
    database->OnLostWrite([](const engine::Error& /*error*/, const QString& /*write*/) {});
    database->Execute(statement);
    disk.FailAt(SecondPage, FaultyDisk::Fault::FromThenOn);
    database->Flush();
}
