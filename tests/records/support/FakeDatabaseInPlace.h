#pragma once

#include "database/CurrentDatabase.h"
#include "support/FakeDatabase.h"

#include <memory>

/// A fake in the place of the open database while this lives.
class FakeDatabaseInPlace {
public:
    FakeDatabaseInPlace() { database::SetCurrentDatabase(database_); }
    ~FakeDatabaseInPlace() { database::SetCurrentDatabase(nullptr); }
    FakeDatabaseInPlace(const FakeDatabaseInPlace&) = delete;
    FakeDatabaseInPlace& operator=(const FakeDatabaseInPlace&) = delete;

    FakeDatabase* operator->() { return database_.get(); }

private:
    std::shared_ptr<FakeDatabase> database_ = std::make_shared<FakeDatabase>();
};
