#include "engine/jet/sql/TableModule.h"

#include "engine/jet/sql/JetConnection.h"
#include "engine/jet/sql/RowCursor.h"
#include "engine/jet/sql/SqlTable.h"

namespace engine::jet {

namespace {

// Failures stay on this side: SQLite is given a code, and whoever ran the statement gets the failure. The
// code is one that makes SQLite end the statement and nothing else.
template <class Routine>
int Guarded(JetConnection& connection, Routine routine) {
    try {
        WithEngineErrors(routine);
        return SQLITE_OK;
    } catch (const Error& failure) {
        connection.NoteFailure(failure);
    }
    return SQLITE_ERROR;
}

SqlTable& TableOf(sqlite3_vtab* table) {
    return *static_cast<SqlTable*>(table);
}

RowCursor& CursorOf(sqlite3_vtab_cursor* cursor) {
    return *static_cast<RowCursor*>(cursor);
}

JetConnection& ConnectionOf(sqlite3_vtab_cursor* cursor) {
    return TableOf(cursor->pVtab).Connection();
}

int Connect(sqlite3* handle, void* context, int /*count*/, const char* const* arguments, sqlite3_vtab** table,
            char** /*message*/) {
    constexpr int NameAt = 2;
    auto& connection = *static_cast<JetConnection*>(context);
    return Guarded(connection, [&] {
        auto made = std::make_unique<SqlTable>(connection, QString::fromUtf8(arguments[NameAt]));
        const int declared = sqlite3_declare_vtab(handle, made->Declaration().c_str());
        if (declared != SQLITE_OK) {
            throw Error(ErrorNumber::Other, QString::fromUtf8(sqlite3_errmsg(handle)));
        }
        *table = made.release();
    });
}

int Disconnect(sqlite3_vtab* table) {
    delete &TableOf(table);
    return SQLITE_OK;
}

int BestIndex(sqlite3_vtab* table, sqlite3_index_info* plan) {
    return Guarded(TableOf(table).Connection(), [&] { TableOf(table).Plan(*plan); });
}

int OpenCursor(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor) {
    return Guarded(TableOf(table).Connection(),
                   [&] { *cursor = std::make_unique<RowCursor>(TableOf(table)).release(); });
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
    delete &CursorOf(cursor);
    return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int plan, const char* /*text*/, int count, sqlite3_value** values) {
    return Guarded(ConnectionOf(cursor), [&] { CursorOf(cursor).Begin(plan, {values, values + count}); });
}

int Next(sqlite3_vtab_cursor* cursor) {
    return Guarded(ConnectionOf(cursor), [&] { CursorOf(cursor).Next(); });
}

int IsAtEnd(sqlite3_vtab_cursor* cursor) {
    return CursorOf(cursor).IsAtEnd() ? 1 : 0;
}

int GiveColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    // What a statement doesn't change is not asked for.
    if (sqlite3_vtab_nochange(context) != 0) {
        return SQLITE_OK;
    }
    return Guarded(ConnectionOf(cursor), [&] { CursorOf(cursor).Give(context, column); });
}

int GiveKey(sqlite3_vtab_cursor* cursor, sqlite3_int64* key) {
    *key = CursorOf(cursor).Key();
    return SQLITE_OK;
}

int Write(sqlite3_vtab* table, int count, sqlite3_value** values, sqlite3_int64* key) {
    constexpr int FirstColumn = 2;
    return Guarded(TableOf(table).Connection(), [&] {
        if (count == 1) {
            TableOf(table).Delete(sqlite3_value_int64(values[0]));
        } else if (sqlite3_value_type(values[0]) == SQLITE_NULL) {
            *key = TableOf(table).Insert({values + FirstColumn, values + count});
        } else {
            TableOf(table).Update(sqlite3_value_int64(values[0]), {values + FirstColumn, values + count});
        }
    });
}

sqlite3_module Module() {
    sqlite3_module module{};
    module.iVersion = 1;
    module.xCreate = Connect;
    module.xConnect = Connect;
    module.xBestIndex = BestIndex;
    module.xDisconnect = Disconnect;
    module.xDestroy = Disconnect;
    module.xOpen = OpenCursor;
    module.xClose = CloseCursor;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = IsAtEnd;
    module.xColumn = GiveColumn;
    module.xRowid = GiveKey;
    module.xUpdate = Write;
    return module;
}

}  // namespace

void AddTableModule(JetConnection& connection) {
    static const sqlite3_module module = Module();
    sqlite3_create_module_v2(connection.Handle(), TableModuleName, &module, &connection, nullptr);
}

}  // namespace engine::jet
