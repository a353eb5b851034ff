#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What a finished program left behind.
struct ProgramResult {
    int status = -1;  ///< -1 if it did not end by itself.
    QByteArray output;
    QByteArray errors;
};

/// Runs a program with no terminal and an empty input. Hearthbook's settings are those below configHome.
ProgramResult RunProgram(const QString& program, const QStringList& arguments, const QString& configHome);

ProgramResult RunImport(const QStringList& arguments,
                        const QString& configHome = QStringLiteral("/nonexistent"));
ProgramResult RunCreateDatabase(const QStringList& arguments);

/// What the sqlite3 program answers, of a Jet file about what mdb-export reads: readers that share nothing
/// with the engine. One line a row.
QByteArray QueryDatabase(const QString& file, const QString& query);

QByteArray FileBytes(const QString& path);
void WriteFile(const QString& path, const QByteArray& bytes);

/// A fresh Hearthbook database, made once and copied.
void CopyFreshDatabase(const QString& path);

QString ExamplePortfolio();
