#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Reads a database file as another program would: through a connection of its own.
/// Each row is its values joined by "|"; null shows as "NULL". A failure aborts the test program.
QStringList ReadRows(const QString& path, const char* sql);

/// All rows of these tables, in the order of their keys, through one connection.
QHash<QString, QStringList> ReadTables(const QString& path, const QStringList& tables);

/// Runs statements on the file as another program would, or, on a Jet file, another database of this process:
/// the statements are those of the dialect then. False if one of them failed.
bool RunElsewhere(const QString& path, const char* sql, int waitMilliseconds = 5000);
