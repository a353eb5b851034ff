#pragma once

#include "engine/DBEngine.h"

#include <QStringList>

/// The format of the database files that tests make: Jet 4, unless the variable WRENFIELD_FORMAT says
/// "sqlite". Whatever holds for one must hold for the other, so the same tests run once for each.
inline engine::FileFormat FormatUnderTest() {
    return qgetenv("WRENFIELD_FORMAT") == "sqlite" ? engine::FileFormat::Sqlite : engine::FileFormat::Jet;
}

/// As the tools know it.
inline const char* NameOfFormat() {
    return FormatUnderTest() == engine::FileFormat::Jet ? "jet" : "sqlite";
}

/// What the engine adds to the name of a database for the files that it keeps beside it.
inline QStringList EndsOfFilesBeside() {
    return FormatUnderTest() == engine::FileFormat::Jet
               ? QStringList{QStringLiteral(".journal")}
               : QStringList{QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};
}
