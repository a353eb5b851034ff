#include "engine/OpenDatabases.h"

#include "engine/Database.h"

#include <algorithm>
#include <vector>

namespace engine {

namespace {

std::vector<Database*>& Registered() {
    // Never destroyed: a database that lives to the end of a process still finds it.
    static auto& databases = *new std::vector<Database*>;
    return databases;
}

void ForEachOpen(void (Database::*action)()) {
    // A copy: telling the user of a lost write may open or close databases.
    const std::vector<Database*> databases = Registered();
    for (Database* database : databases) {
        const bool stillOpen = std::count(Registered().begin(), Registered().end(), database) > 0;
        if (stillOpen) {
            (database->*action)();
        }
    }
}

}  // namespace

void RegisterDatabase(Database& database) {
    Registered().push_back(&database);
}

void UnregisterDatabase(Database& database) {
    std::erase(Registered(), &database);
}

void FlushOpenDatabases() {
    ForEachOpen(&Database::Flush);
}

void FlushOpenDatabasesUnlessHeldUp() {
    ForEachOpen(&Database::FlushUnlessHeldUp);
}

}  // namespace engine
