#pragma once

#include "engine/jet/Disk.h"
#include "engine/jet/PageStore.h"

#include <QByteArray>

#include <array>
#include <optional>
#include <vector>

namespace engine::jet {

/// A checksum of bytes, for noticing what was torn or overwritten. Nobody is kept from forging it.
std::uint64_t Checksum(std::span<const std::uint8_t> bytes);

/// A page that a group of statements changes: what it was, and how to know, sector by sector, what it
/// becomes.
struct JournalPage {
    static constexpr std::size_t SectorSize = 512;
    static constexpr std::size_t Sectors = PageSize / SectorSize;

    PageNumber number = 0;
    Page before{};
    std::array<std::uint64_t, Sectors> after{};
};

/// What a journal keeps of a group while it reaches the database file: enough to take it back.
struct JournalContents {
    PageNumber pagesBefore = 0;  ///< How many the file had, and has when the group is there.
    PageNumber pagesAfter = 0;
    std::uint64_t commitWords = 0;  ///< CommitWordsOf the file: other programs count them up.
    std::vector<JournalPage> pages;
};

/// The checksum of the commit words of a file's first page.
std::uint64_t CommitWordsOf(const Page& header);

/// Puts a journal together, as its file holds it.
class JournalMaker {
public:
    /// Of so many pages.
    explicit JournalMaker(std::ptrdiff_t pages);

    void Add(PageNumber number, const Page& before, const Page& after);
    /// When all pages are there. The figures are those of JournalContents.
    QByteArray Finish(PageNumber pagesBefore, PageNumber pagesAfter, std::uint64_t commitWords);

private:
    QByteArray journal_;
    std::size_t end_;
};

/// What a journal says; nothing if it's torn or none.
std::optional<JournalContents> DecodeJournal(QByteArray journal);

/// The file beside a database, "<name>.journal", in which a group stands before it reaches the database.
///
/// A group that is in it, whole, has perhaps reached the database only in part. Whoever opens the database
/// takes it back then, alone (see RecoverDatabase). A cleared or torn journal means nothing: a group that
/// isn't wholly in it has not touched the database.
class Journal {
public:
    Journal(Disk& disk, const QString& database);

    static QString NameFor(const QString& database);

    /// Brings a journal to the disk.
    void Write(const QByteArray& journal);
    /// Makes sure that there is room for one, and leaves nothing. For a journal that isn't there.
    void Try();
    /// Makes the journal mean nothing, on the disk too. The file stays, for the next group.
    void Clear();
    /// Removes the file, which must be cleared. Nothing happens if there is none.
    void Remove();
    bool IsThere() const;
    /// What the file holds; nothing if it isn't there, cleared, torn or no journal of a database that has at
    /// most this many pages.
    std::optional<JournalContents> Read(PageNumber most);

private:
    DiskFile& File();

    Disk& disk_;
    QString database_;
    QString path_;
    std::unique_ptr<DiskFile> file_;
};

/// Writes back what a group has changed in a database, and brings that to the disk.
void TakeBack(DiskFile& database, const JournalContents& contents);

/// Takes back the group in the journal of a database, if there is one, and clears it. `file` is the database,
/// open. Whoever calls this must be alone with it.
///
/// Fails with DatabaseDamaged, and changes nothing in the database, if a part of it is neither what the group
/// found nor what it was to leave: another program has written since, and what it wrote would be lost. The
/// journal is then put aside under a name that the failure tells, so that the next opening does without it.
void RecoverDatabase(Disk& disk, const QString& database, DiskFile& file);

}  // namespace engine::jet
