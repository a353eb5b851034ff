#pragma once

#include "engine/jet/FreePages.h"
#include "engine/jet/Journal.h"
#include "engine/jet/PageCopies.h"
#include "engine/jet/WriteOrder.h"

#include <QString>

#include <memory>
#include <set>
#include <vector>

namespace engine::jet {

/// The most pages that a file of the format can have: 2 GiB.
inline constexpr PageNumber MostPages = 524288;

/// The pages of a database in a file.
///
/// Statements work in memory. A group of them begins with the first change; nothing of it is in the file
/// before EndGroup, and then all of it is. If the process is ended in between, or the power goes, the journal
/// beside the file brings back what was there before, at the next opening.
///
/// Nobody else may write to the file meanwhile: whoever opens it sees to that.
class PagedFile : public PageStore {
public:
    /// Takes back a group that was left half written (RecoverDatabase), then checks the header. Fails as
    /// these do, with DatabaseDamaged for a file that is cut within a page or too short, and with
    /// UnrecognizedFormat for one that is longer than the format allows. `mostPages` is for tests.
    PagedFile(Disk& disk, const QString& path, PageNumber mostPages = mostPagesOfAll_);

    /// For tests that don't open the file by themselves: all files that are opened from here on have no more
    /// pages.
    static void LimitTo(PageNumber mostPages) { mostPagesOfAll_ = mostPages; }

    PageNumber Count() const override { return count_; }
    const Page& Read(PageNumber number) override;
    Page& Change(PageNumber number) override;
    PageNumber Take() override { return TakeBehind(0); }
    PageNumber TakeBehind(PageNumber page) override;
    /// The page is free when the group has reached the file, and not before: until then the file may still
    /// lead there.
    void GiveBack(PageNumber number) override;

    /// A state to come back to. Marks may be set within marks; undoing to one leaves it set.
    struct Mark {
        std::size_t undo = 0;
        std::size_t given = 0;
        PageNumber count = 0;
    };
    Mark SetMark();
    void UndoTo(const Mark& mark);
    /// The statement is over: no mark holds any more, and pages handed out may go from memory.
    void EndStatement();

    /// Whether a group has begun.
    bool HasChanges() const { return !changed_.empty() || !given_.empty(); }
    /// Brings the group to the file, and to the disk. Fails with DiskFull or DiskError; the file is then what
    /// it was before the group, and the group stays in memory, to be tried again or given up. If not even
    /// that could be reached, every further use tries to mend the file first and fails if it can't, and so
    /// does the next opening: the group is then not in it, or is there as a whole if nothing but the end of
    /// the journal was missing.
    void EndGroup(GroupKind kind);
    /// Forgets all changes since the group began.
    void GiveUpGroup();

    /// What the group takes in memory, in bytes.
    std::size_t ChangedBytes() const { return changed_.size() * PageSize; }
    /// Lets go of all pages that are as in the file, so that they are read from there. Only between
    /// statements.
    void Forget();

    /// Whether a group has met bytes in the file that nobody here has put there: another program has written
    /// to it meanwhile, such as one that copies files and was told the wrong name.
    bool IsOverwritten() const { return isOverwritten_; }

    /// Finds out whether a group would have room for its journal. Leaves nothing.
    void TryJournal();

    /// Forgets all pages, and looks anew how many the file has: others may have written to it until now. Only
    /// between groups. Fails as opening does.
    void Reopen();

    /// Removes the journal, where no further group is in sight. Only between groups. Fails if the file has
    /// yet to be mended.
    void RemoveJournal();

private:
    struct Cached {
        Page page{};
        std::unique_ptr<Page> before;  ///< As the file has it, if the group has changed it.
        std::size_t keptFor = 0;       ///< The last mark that its bytes have been kept for.
        bool isTaken = false;          ///< By the group, of the file's free pages or from its end.
        bool isChanged = false;        ///< By the group: so it is in the list of those.
    };
    /// What the file has to be brought back to before it's used again.
    struct Owed {
        QByteArray journal;
        bool isJournalThere = false;  ///< If not, the group is in the file as a whole.
    };
    struct Undo {
        PageNumber number = 0;
        std::unique_ptr<Page> page;  ///< None if it was as the file has it.
        bool wasTaken = false;
    };

    static inline PageNumber mostPagesOfAll_ = MostPages;

    void CountPages();
    void RequireUsable();
    Cached& Load(PageNumber number);
    /// The page if it is in memory, else null.
    Cached* Held(PageNumber number) const { return number < cache_.size() ? cache_[number].get() : nullptr; }
    Cached& Hold(PageNumber number);
    void LetGo(PageNumber number);
    Cached& ChangeCached(PageNumber number);
    PageNumber Append();
    void Tidy();
    void ForgetUndo(std::size_t from);

    std::vector<PageWrite> GroupWrites(const std::vector<PageWrite>& written) const;
    QByteArray JournalOf(const std::vector<PageWrite>& writes);
    void LookForOthersBytes(const std::vector<PageWrite>& writes);
    void WriteToFile(const std::vector<PageWrite>& writes);
    void ClearJournalIfPossible();
    bool TryBringBack();
    void Settle();

    QString path_;
    PageNumber mostPages_;
    std::unique_ptr<DiskFile> file_;
    Journal journal_;
    FreePages free_;
    PageNumber count_ = 0;
    PageNumber countBefore_ = 0;  ///< When the group began; so many pages the file has.
    /// By their numbers, null for those that aren't in memory: each step of a statement asks for some.
    std::vector<std::unique_ptr<Cached>> cache_;
    std::size_t held_ = 0;                        ///< How many are in memory.
    std::vector<std::unique_ptr<Cached>> spare_;  ///< Memory for the next ones.
    PageCopies copies_;
    std::set<PageNumber> changed_;   ///< By the group.
    std::vector<PageNumber> given_;  ///< Back, by the group.
    std::vector<Undo> undo_;
    std::size_t lastMark_ = 0;
    bool isMarked_ = false;
    std::optional<Owed> owed_;
    bool isOverwritten_ = false;
};

}  // namespace engine::jet
