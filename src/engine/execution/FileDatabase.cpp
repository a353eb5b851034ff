#include "engine/execution/FileDatabase.h"

#include "engine/OpenDatabases.h"
#include "engine/execution/CheckWritten.h"
#include "engine/execution/Dynaset.h"
#include "engine/execution/ForwardOnlySet.h"

namespace engine::execution {

FileDatabase::FileDatabase(QString path, std::unique_ptr<Connection> connection)
    : path_(std::move(path)), connection_(std::move(connection)) {
    RegisterDatabase(*this);
}

FileDatabase::~FileDatabase() {
    UnregisterDatabase(*this);
    group_.Commit();
}

void FileDatabase::Execute(const QString& statement) {
    group_.Execute(statement);
}

std::unique_ptr<Recordset> FileDatabase::OpenRecordset(const QString& statement, short type, short lockEdit) {
    group_.BeforeReading();
    std::unique_ptr<Recordset> rows = Open(statement, type, lockEdit);
    group_.AfterReading();
    return rows;
}

std::unique_ptr<Recordset> FileDatabase::Open(const QString& statement, short type, short lockEdit) {
    dialect::ShapedStatement shaped;
    const PreparedStatement& prepared = *statements_.ForText(statement, shaped);
    if (prepared.parsed.kind != dialect::StatementKind::Select) {
        throw Error(ErrorNumber::InvalidOperation,
                    QStringLiteral("Invalid operation: only a select has rows."));
    }
    if (type == dbOpenDynaset) {
        return std::make_unique<Dynaset>(*this, prepared, shaped, lockEdit == dbReadOnly);
    }
    if (type == dbOpenForwardOnly) {
        return std::make_unique<ForwardOnlySet>(*this, prepared, shaped);
    }
    throw Error(ErrorNumber::InvalidOperation,
                QStringLiteral("Invalid operation: no row set of type %1.").arg(type));
}

void FileDatabase::Flush() {
    group_.Commit();
}

void FileDatabase::FlushUnlessHeldUp() {
    group_.CommitUnlessHeldUp();
}

void FileDatabase::LockForImport() {
    importLock_->Take();
}

void FileDatabase::RefuseWrites(const Error& why) {
    importLock_->Refuse(why);
}

std::vector<Error> FileDatabase::CheckWritten() {
    Flush();
    return execution::CheckWritten(*connection_, *transaction_, path_, importLock_->File());
}

void FileDatabase::OnLostWrite(LostWriteListener listener) {
    group_.OnLostWrite(std::move(listener));
}

void FillNewFile(std::unique_ptr<Database> database, const DBEngine::FillDatabase& fill) {
    std::optional<Error> loss;
    database->OnLostWrite([&loss](const Error& error, const QString&) { loss = loss.value_or(error); });
    fill(*database);
    database->Flush();
    if (loss) {
        throw Error(*loss);
    }
}

}  // namespace engine::execution
