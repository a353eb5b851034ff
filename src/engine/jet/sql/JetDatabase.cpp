#include "engine/jet/sql/JetDatabase.h"

#include "engine/NewFile.h"
#include "engine/jet/Journal.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/sql/JetConnection.h"
#include "platform/Clock.h"

#include <QFile>

#include <algorithm>
#include <iterator>

namespace engine::jet {

namespace {

const QStringList& SideFileEnds() {
    static const QStringList ends{Journal::NameFor({})};  // The lock file has no end of its own.
    return ends;
}

NewTable ToNewTable(const TableDefinition& table) {
    NewTable made;
    made.name = table.name;
    for (const ColumnDefinition& column : table.columns) {
        NewColumn& added = made.columns.emplace_back();
        added.name = column.name;
        added.type = static_cast<std::uint8_t>(column.type);
        added.size = column.size;
    }
    for (const IndexDefinition& index : table.indexes) {
        NewIndex& added = made.indexes.emplace_back();
        added.name = index.name;
        added.isUnique = index.unique;
        for (const QString& column : index.columns) {
            added.columns.push_back({column, true});
        }
    }
    return made;
}

void MakeTables(const QString& path, const std::vector<TableDefinition>& tables) {
    std::vector<NewTable> made;
    made.reserve(tables.size());
    for (const TableDefinition& table : tables) {
        made.push_back(ToNewTable(table));
    }
    MakeDatabase(DiskInUse(), path, made, QDateTime(platform::Today(), QTime(0, 0)), KeepIndexes);
}

// The bytes of a file that nobody writes to meanwhile.
void CopyBytes(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly)) {
        throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: %1.").arg(source.errorString()));
    }
    const std::unique_ptr<DiskFile> copy = DiskInUse().Make(to);
    std::vector<std::uint8_t> bytes(1024 * PageSize);
    std::uint64_t at = 0;
    while (const qint64 size =
               source.read(reinterpret_cast<char*>(bytes.data()), static_cast<qint64>(bytes.size()))) {
        if (size < 0) {
            throw Error(ErrorNumber::DiskError, QStringLiteral("Disk error: %1.").arg(source.errorString()));
        }
        copy->Write(at, std::span(bytes).first(static_cast<std::size_t>(size)));
        at += static_cast<std::uint64_t>(size);
    }
    copy->Sync();
}

}  // namespace

bool IsJetHeader(const QByteArray& firstBytes) {
    const QByteArray name = firstBytes.mid(4);
    return name.startsWith("Standard Jet DB") || name.startsWith("Standard ACE DB");
}

JetDatabase::JetDatabase(const QString& path) : JetDatabase(JetFile::Of(path)) {
}

JetDatabase::JetDatabase(std::shared_ptr<JetFile> file)
    : FileDatabase(file->Path(), std::make_unique<JetConnection>(file)), file_(std::move(file)) {
}

void JetDatabase::LockForImport() {
    FileDatabase::LockForImport();
    file_->BeAlone();
}

void JetDatabase::RequireWritable(const QStringList& tables) {
    QStringList known;
    std::copy_if(tables.begin(), tables.end(), std::back_inserter(known),
                 [this](const QString& table) { return file_->HasTable(table); });
    file_->Tables().RequireUnderstood(known);
}

void JetDatabase::CopyTo(const QString& path) {
    Flush();
    RequireOtherName(path, {Journal::NameFor(file_->Path()), FileUsers::LockFileFor(file_->Path())});
    NewFile file(path, SideFileEnds());
    CopyBytes(file_->Path(), file.Path());
    file.TakePermissionsOf(file_->Path());
    file.TakePlace();
}

void CreateDatabaseFile(const QString& path, const std::vector<TableDefinition>& tables,
                        const DBEngine::FillDatabase& fill) {
    NewFile file(path, SideFileEnds());
    MakeTables(file.Path(), tables);
    if (fill) {
        execution::FillNewFile(std::make_unique<JetDatabase>(file.Path()), fill);
    }
    file.TakePlace();
}

}  // namespace engine::jet
