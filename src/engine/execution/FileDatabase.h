#pragma once

#include "engine/DBEngine.h"
#include "engine/Database.h"
#include "engine/ImportLock.h"
#include "engine/execution/WriteGroup.h"

namespace engine::execution {

/// A database in a file, behind the engine's surface.
class FileDatabase : public Database {
public:
    ~FileDatabase() override;

    void Execute(const QString& statement) override;
    std::unique_ptr<Recordset> OpenRecordset(const QString& statement, short type, short lockEdit) override;
    void Flush() override;
    void FlushUnlessHeldUp() override;
    void LockForImport() override;
    void RefuseWrites(const Error& why) override;
    std::vector<Error> CheckWritten() override;
    void OnLostWrite(LostWriteListener listener) override;

protected:
    /// The file must exist.
    FileDatabase(QString path, std::unique_ptr<Connection> connection);

    Connection& Connected() { return *connection_; }

private:
    friend class Dynaset;
    friend class ForwardOnlySet;

    std::unique_ptr<Recordset> Open(const QString& statement, short type, short lockEdit);

    QString path_;
    std::unique_ptr<Connection> connection_;
    std::shared_ptr<ImportLock> importLock_ = ImportLock::Of(path_);
    SchemaCache schemas_{*connection_};
    StatementCache statements_{*connection_, schemas_};
    WriteExecutor executor_{*connection_, statements_};
    std::unique_ptr<Transaction> transaction_ = connection_->MakeTransaction();
    WriteGroup group_{*connection_, statements_, executor_, *transaction_, *importLock_};
};

/// Has a new file filled, and closes it when all of that is on the disk. A row that is lost on its way there
/// is a failure like one that is refused.
void FillNewFile(std::unique_ptr<Database> database, const DBEngine::FillDatabase& fill);

}  // namespace engine::execution
