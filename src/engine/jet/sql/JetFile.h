#pragma once

#include "engine/jet/FileUsers.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/rules/RuledTables.h"

#include <memory>
#include <optional>
#include <string>

namespace engine::jet {

/// A Jet file that is open in this process: its pages and tables. There is one for each file, so that the
/// databases that are open on it see what the others have written.
class JetFile {
public:
    /// That of the file that the absolute path leads to. Fails with 3343 if it is none that is read here,
    /// 3260 if another program is writing to it, 3049 if it is damaged, 3027 if it can't be written or no
    /// journal can be made beside it, 3043 if the disk fails.
    static std::shared_ptr<JetFile> Of(const QString& path);

    explicit JetFile(const QString& path);

    /// At the end of the process: removes what tells others that its files are in use. What is written to
    /// them must be on the disk.
    static void LeaveAll();

    /// Keeps everybody else out, from now on until the file is closed: nobody here can write to a file that
    /// others use. Fails with 3260, after 5 seconds, naming who has it open.
    void BeAlone();

    PagedFile& Pages() { return pages_; }
    const QString& Path() const { return path_; }

    /// Without regard to case. Tables of the system's are none.
    bool HasTable(const QString& name) const;
    RuledTable& TableNamed(const QString& name) { return tables_.Open(name); }
    RuledTables& Tables() { return tables_; }

    /// Runs what changes pages: as a whole or, where it fails, not at all.
    template <class Write>
    auto AsOne(Write write);

    /// A part of a group that can be taken back alone. Parts are not set within parts.
    void BeginPart() { part_ = pages_.SetMark(); }
    void TakeBackPart() { pages_.UndoTo(*part_); }
    void EndPart();

    /// Pages that nobody needs may go from memory, unless something is under way that may be taken back.
    /// Whoever keeps one must do without it from then on.
    void LetGoOfPages();

private:
    QString path_;
    std::unique_ptr<FileUsers> users_;
    PagedFile pages_;
    Catalogue catalogue_{pages_};
    RuledTables tables_{pages_, catalogue_};
    bool isWriting_ = false;
    std::optional<PagedFile::Mark> part_;
};

template <class Write>
auto JetFile::AsOne(Write write) {
    const PagedFile::Mark mark = pages_.SetMark();
    isWriting_ = true;
    try {
        const auto result = write();
        isWriting_ = false;
        LetGoOfPages();
        return result;
    } catch (...) {
        pages_.UndoTo(mark);
        isWriting_ = false;
        LetGoOfPages();
        throw;
    }
}

}  // namespace engine::jet
