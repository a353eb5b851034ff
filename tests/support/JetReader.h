#pragma once

#include <QString>
#include <QStringList>

/// Whether a file is a Jet file by its first bytes.
bool IsJetFile(const QString& path);

/// Copies tables of a Jet file, all if none are named, into a new SQLite file, as jet_reader.py reads them,
/// which shares nothing with the engine. A failure aborts the test program.
void CopyJetTables(const QString& path, const QString& copy, const QStringList& tables = {});
