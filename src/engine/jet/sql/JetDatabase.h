#pragma once

#include "engine/DBEngine.h"
#include "engine/execution/FileDatabase.h"
#include "engine/jet/sql/JetFile.h"

namespace engine::jet {

/// True for the first bytes of a file of the family, be it of a format that is read here or not.
bool IsJetHeader(const QByteArray& firstBytes);

/// A Jet 4 file behind the engine's surface.
class JetDatabase : public execution::FileDatabase {
public:
    /// The file must exist.
    explicit JetDatabase(const QString& path);

    void LockForImport() override;
    void RequireWritable(const QStringList& tables) override;
    void CopyTo(const QString& path) override;

private:
    explicit JetDatabase(std::shared_ptr<JetFile> file);

    std::shared_ptr<JetFile> file_;
};

/// Makes a new Jet 4 file with these tables and the rows that `fill`, if any, writes. Fails with 3204 if the
/// file or one of those that are kept beside it is there already; a failure leaves none.
void CreateDatabaseFile(const QString& path, const std::vector<TableDefinition>& tables,
                        const DBEngine::FillDatabase& fill);

}  // namespace engine::jet
