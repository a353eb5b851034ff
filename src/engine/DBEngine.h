#pragma once

#include "engine/Database.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace engine {

/// What this engine calls itself in its failures.
QString EngineName();

/// The engine's default session. It has no settings; it is kept because its holder stands for an engine in
/// use.
class Workspace {};

/// Formats of database files that are read and made here.
enum class FileFormat {
    Jet,  ///< Jet 4, Hearthbook's own.
    Sqlite,
};

/// One column of a table to be created.
struct ColumnDefinition {
    QString name;
    DataType type = dbText;
    int size = 0;  ///< Characters, of a text column only.
};

struct IndexDefinition {
    QString name;
    std::vector<QString> columns;
    bool unique = false;
};

struct TableDefinition {
    QString name;
    std::vector<ColumnDefinition> columns;
    std::vector<IndexDefinition> indexes;
};

/// The engine itself. There is one in a process, made on first use.
class DBEngine {
public:
    static DBEngine& Instance();

    /// The one workspace has place 0; any other fails with 3265.
    std::shared_ptr<Workspace> Workspaces(int place);

    /// Opens an existing database, shared and writable, by what its first bytes say it is. Everything that
    /// open databases still hold is brought to the disk first. Fails with 3044 if no file can have this name,
    /// 3024 if there is no such file, 3343 if it is a folder, empty or of a format that isn't read here (the
    /// description says what was found), 3027 if it can't be written or no journal can be made beside it,
    /// 3183 if the disk has no room for one, 3260 if it is locked, be it for reading or only for writing.
    std::unique_ptr<Database> OpenDatabase(const QString& name, bool exclusive = false,
                                           bool readOnly = false);

    /// Makes a new database file with these tables and the rows that `fill` writes into them. Fails with 3044
    /// if no file can have this name, 3204 if it is there already or one that the database would take for its
    /// own; a failure midway, of a row too, leaves no file.
    using FillDatabase = std::function<void(Database& fresh)>;
    void CreateDatabase(const QString& path, FileFormat format, const std::vector<TableDefinition>& tables,
                        const FillDatabase& fill = {});

    /// Brings all that open databases hold to the disk. For the event loop, and for ends of the process.
    void FlushAll();

private:
    DBEngine();
    std::shared_ptr<Workspace> workspace_;
};

}  // namespace engine
