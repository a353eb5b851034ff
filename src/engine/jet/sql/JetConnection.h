#pragma once

#include "engine/execution/Connection.h"
#include "engine/jet/sql/EngineErrors.h"
#include "engine/jet/sql/JetFile.h"

namespace engine::jet {

/// An open Jet file. SQLite plans and runs the statements, in memory: to it each table of the file is a table
/// of a module (see TableModule.h) that reads and writes the file's own pages.
class JetConnection : public execution::Connection {
public:
    explicit JetConnection(std::shared_ptr<JetFile> file);
    ~JetConnection() override;

    std::unique_ptr<execution::Transaction> MakeTransaction() override;
    bool HasTable(const std::string& name) override;
    bool TakesAnyRow(const std::string& table) override;
    std::vector<std::optional<Value>> DefaultsOf(const std::string& table) override;
    qint64 Change(sqlite3_stmt* statement, const std::vector<size_t>& written) override;
    std::optional<qint64> Empty(const std::string& table) override;
    std::optional<qint64> ChangeEach(const std::string& table, sqlite3_stmt* keys,
                                     const std::vector<size_t>& columns, sqlite3_stmt* values) override;
    std::unique_ptr<execution::LiteralRows> RowsOfLiterals(const std::string& table,
                                                           const std::vector<size_t>& columns) override;
    void BeginPart() override;
    void TakeBackPart() override;
    void EndPart() override;
    size_t Memory() const override;
    void Forget() override;

    JetFile& File() { return *file_; }

    /// Runs what changes pages: as a whole or, where it fails, not at all. Fails with engine errors alone.
    template <class Write>
    auto AsOne(Write write) {
        return WithEngineErrors([&] { return file_->AsOne(write); });
    }

    /// What a table of the module failed with, for whoever ran the statement.
    void NoteFailure(const Error& failure) { failure_ = failure; }
    /// Of the statement that is running: the columns that it names, by their places.
    const std::vector<size_t>& Written() const { return written_; }

    /// Puts rows into a table, all or none, and notes their keys.
    void Put(Table& table, std::span<RowCells> rows);

    /// A row that the group of writes has made.
    void NoteInserted(RowPlace row) { Inserted().Note(qint64{ToNumber(row)}); }

protected:
    Error FailureOf(int resultCode) override;

private:
    std::vector<RowPlace> RowsOf(sqlite3_stmt* keys);

    std::shared_ptr<JetFile> file_;
    std::optional<Error> failure_;
    std::vector<size_t> written_;
};

}  // namespace engine::jet
