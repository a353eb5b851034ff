#pragma once

#include "engine/DBEngine.h"

#include <QStringList>

namespace tools {

/// The whole of hearthbook-create-database, given its arguments without the program's name. Returns the exit
/// status: 0 done, 1 the file could not be written, 2 bad usage, a file that is there already, or help that
/// could not be printed.
int RunCreateTool(QStringList arguments);

/// Makes a fresh Hearthbook database. A failure (platform::Failure) leaves no file, and an existing file is
/// never touched: the database takes its place only when it is whole.
void CreateHearthbookDatabase(const QString& path, engine::FileFormat format = engine::FileFormat::Jet);

}  // namespace tools
