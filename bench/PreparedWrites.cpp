#include "RecordedWrites.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

// prepared-writes FILE DATABASE ROWS — does the writes that record-writes has recorded, with statements that
// are prepared once, and all in one transaction: what an import would take if it had nothing to do but write.
// Up to ROWS rows go in by one insert. Prints the seconds; before the clock starts, the values lie ready in
// memory.

namespace {

class Writer {
public:
    // As the import opens its file.
    explicit Writer(const char* path) {
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        Require(sqlite3_open_v2(path, &database_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
        sqlite3_db_config(database_, SQLITE_DBCONFIG_LOOKASIDE, nullptr, 4096, 64);
        Run("pragma synchronous = full");
        Run("pragma cache_size = -8192");
    }

    void WriteAll(const RecordedWrites& recorded) {
        Run("begin immediate");
        for (const std::string& sql : recorded.statements) {
            Require(sqlite3_prepare_v3(database_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                                       &statements_.emplace_back(), nullptr));
        }
        for (const RecordedWrites::Write& write : recorded.writes) {
            sqlite3_stmt* const statement = statements_[write.statement];
            for (size_t place = 0; place < write.values; ++place) {
                Bind(statement, static_cast<int>(place + 1), recorded.values[write.firstValue + place]);
            }
            Require(sqlite3_step(statement));
            sqlite3_reset(statement);
        }
        Run("commit");
    }

    void Close() {
        for (sqlite3_stmt* const statement : statements_) {
            sqlite3_finalize(statement);
        }
        Require(sqlite3_close(database_));
    }

private:
    void Run(const char* sql) { Require(sqlite3_exec(database_, sql, nullptr, nullptr, nullptr)); }

    void Require(int result) {
        if (result != SQLITE_OK && result != SQLITE_DONE) {
            std::fprintf(stderr, "prepared-writes: %s\n", sqlite3_errmsg(database_));
            std::exit(1);
        }
    }

    static void Bind(sqlite3_stmt* statement, int place, const RecordedWrites::Value& value) {
        switch (value.kind) {
            case RecordedWrites::Value::Kind::Whole:
                sqlite3_bind_int64(statement, place, value.whole);
                return;
            case RecordedWrites::Value::Kind::Real:
                sqlite3_bind_double(statement, place, value.real);
                return;
            case RecordedWrites::Value::Kind::Text:
                sqlite3_bind_text64(statement, place, value.text.data(), value.text.size(), SQLITE_STATIC,
                                    SQLITE_UTF8);
                return;
        }
    }

    sqlite3* database_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

std::string Contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: prepared-writes FILE DATABASE ROWS\n", stderr);
        return 2;
    }
    const auto rows = static_cast<size_t>(std::atoi(argv[3]));
    const RecordedWrites recorded = WithInsertsOfRows(TakeApart(Contents(argv[1])), rows);
    const auto began = std::chrono::steady_clock::now();
    Writer writer(argv[2]);
    writer.WriteAll(recorded);
    writer.Close();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - began;
    std::printf("%f\n", taken.count());
    return 0;
}
