#pragma once

#include "engine/execution/Connection.h"

namespace engine::sqlite {

/// An open SQLite file, taken for data only (see Hardening.h).
class FileConnection : public execution::Connection {
public:
    enum class Mode { Existing, New };

    /// The path is absolute. Fails with 3044 if it leads to a file whose own name is no text, 3343 if the
    /// file is no SQLite database after all or holds what no file of Hearthbook's does, 3027 if it can't be
    /// written or has no room beside it for a journal, 3183 if the disk is full, 3260 if locked, 3049 if it
    /// is damaged (see SoundFile.h) or has files beside it that can't be its own (see SideFiles.h).
    FileConnection(const QString& path, Mode mode);

    std::unique_ptr<execution::Transaction> MakeTransaction() override;
    bool HasTable(const std::string& name) override;
    bool TakesAnyRow(const std::string& table) override;

private:
    void OpenFile(const QString& path, Mode mode);
    void CheckFile();
    void TryJournal();
};

}  // namespace engine::sqlite
