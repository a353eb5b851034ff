#pragma once

#include "engine/Database.h"
#include "engine/ImportLock.h"
#include "engine/sqlite/WriteGroup.h"

namespace engine::sqlite {

/// True for the first bytes of a SQLite file.
bool IsSqliteHeader(const QByteArray& firstBytes);

/// A SQLite file behind the engine's surface.
class SqliteDatabase : public Database {
public:
    /// The file must exist.
    explicit SqliteDatabase(const QString& path);
    ~SqliteDatabase() override;

    void Execute(const QString& statement) override;
    std::unique_ptr<Recordset> OpenRecordset(const QString& statement, short type, short lockEdit) override;
    void Flush() override;
    void FlushUnlessHeldUp() override;
    void LockForImport() override;
    void CopyTo(const QString& path) override;
    void OnLostWrite(LostWriteListener listener) override;

private:
    friend class Dynaset;
    friend class ForwardOnlySet;

    std::unique_ptr<Recordset> Open(const QString& statement, short type, short lockEdit);

    QString path_;
    Connection connection_;
    std::shared_ptr<ImportLock> importLock_ = ImportLock::Of(path_);
    SchemaCache schemas_{connection_};
    StatementCache statements_{connection_, schemas_};
    WriteExecutor executor_{connection_, statements_};
    WriteGroup group_{connection_, statements_, executor_, *importLock_};
};

}  // namespace engine::sqlite
