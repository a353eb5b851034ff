#pragma once

#include <sqlite3.h>

namespace engine::sqlite {

/// Makes a connection take a file for data only, whoever made it. Nothing that the file declares runs: no
/// triggers, no views, no virtual tables, no cascading deletes. Statements and values have limits that those
/// of Hearthbook never come near, so that a file can't ask for endless work or memory; what goes beyond them
/// fails like any other statement.
///
/// Must come before the first look into the file.
void Harden(sqlite3* handle);

/// While it lives, the work on statements is counted and ended (with 3049) when it is more than reading the
/// list of the tables of any sound file can take. For that reading alone, which comes first and is at the
/// mercy of a file whose pages run in circles.
///
/// Nothing else needs a budget: once the file has been found sound (see SoundFile.h), no page is reached
/// twice and nothing is computed for a row, so that each statement takes at most as long as going through its
/// rows.
class ReadingBudget {
public:
    explicit ReadingBudget(sqlite3* handle);
    ~ReadingBudget();
    ReadingBudget(const ReadingBudget&) = delete;
    ReadingBudget& operator=(const ReadingBudget&) = delete;

private:
    static int Spend(void* budget);

    sqlite3* handle_;
    int left_;
};

}  // namespace engine::sqlite
