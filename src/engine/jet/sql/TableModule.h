#pragma once

namespace engine::jet {

class JetConnection;

/// What the tables of a Jet file are to SQLite: tables of a module of this name. Each is named as in the
/// file, has the file's columns, and a row's key is its place (RowPlace) as a number.
inline constexpr const char* TableModuleName = "jet";

/// Makes it known to the connection, which must outlive all of its tables.
void AddTableModule(JetConnection& connection);

}  // namespace engine::jet
