#pragma once

#include <QString>

#include <sqlite3.h>

/// Whether a file is a Jet file by its first bytes.
bool IsJetFile(const QString& path);

/// Copies the tables of a Jet file, as another program (mdb-export) reads them, into a database in memory:
/// those whose names occur in the text. Values get the form that a SQLite file would have, rows their order
/// in the file. A failure aborts the test program.
void CopyJetTables(const QString& path, const QString& text, sqlite3* into);

/// The same into a new SQLite file.
void CopyJetTables(const QString& path, const QString& text, const QString& into);
