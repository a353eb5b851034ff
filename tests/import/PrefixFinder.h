#pragma once

#include "support/WriteTrace.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What a stopped import left: the number of rows of each table, and all rows as one text.
struct LeftBehind {
    QStringList rowCounts;
    QString contents;
    /// How many writes of the whole import the file holds, found by FindPrefixes; -1 if it holds no prefix of
    /// them.
    int prefix = -1;
};

LeftBehind LeftIn(const QString& database);

/// Replays the writes of a whole import, one by one and in their order, on a fresh SQLite file, and finds for
/// each stopped import after which of them its file looked just so.
void FindPrefixes(const QString& freshDatabase, const std::vector<TracedWrite>& writes,
                  const std::vector<LeftBehind*>& imports);
