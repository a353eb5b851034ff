#include "engine/sqlite/Hardening.h"

#include <initializer_list>

namespace engine::sqlite {

namespace {

// Hearthbook's tables have at most some 20 columns, and the format that its files began with took 255.
constexpr int MostColumns = 255;
// The 16 rows that are inserted as one take some thousands.
constexpr int LongestStatement = 200'000;
// Memos hold some thousand characters. Pictures are longer, but deleting them takes no look at them.
constexpr int LongestValue = 1024 * 1024;
constexpr int LongestPattern = 100;

// A table takes some 7 steps, so that this is enough for 4,000 tables and indexes; Hearthbook has 36.
constexpr int StepsAtOnce = 1000;
constexpr int MostTimes = 30;

}  // namespace

void Harden(sqlite3* handle) {
    // Names in quotes are names and nothing else.
    for (const int option :
         {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_TRUSTED_SCHEMA,
          SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_FKEY,
          SQLITE_DBCONFIG_WRITABLE_SCHEMA, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION}) {
        sqlite3_db_config(handle, option, 0, nullptr);
    }
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // Without modules no virtual table comes to life. The pragmas that are read like tables are none of them.
    sqlite3_drop_modules(handle, nullptr);
    sqlite3_limit(handle, SQLITE_LIMIT_COLUMN, MostColumns);
    sqlite3_limit(handle, SQLITE_LIMIT_SQL_LENGTH, LongestStatement);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, LongestValue);
    sqlite3_limit(handle, SQLITE_LIMIT_LIKE_PATTERN_LENGTH, LongestPattern);
    sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
}

ReadingBudget::ReadingBudget(sqlite3* handle) : handle_(handle), left_(MostTimes) {
    sqlite3_progress_handler(handle_, StepsAtOnce, Spend, this);
}

ReadingBudget::~ReadingBudget() {
    sqlite3_progress_handler(handle_, 0, nullptr, nullptr);
}

int ReadingBudget::Spend(void* budget) {
    return --static_cast<ReadingBudget*>(budget)->left_ < 0 ? 1 : 0;
}

}  // namespace engine::sqlite
