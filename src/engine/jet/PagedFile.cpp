#include "engine/jet/PagedFile.h"

#include "engine/Error.h"
#include "engine/jet/Damage.h"
#include "engine/jet/DataPage.h"
#include "engine/jet/FileHeader.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace engine::jet {

namespace {

// 8 MiB of pages that can be read again: what an import writes next to, and the indexes above it.
constexpr std::size_t MostCleanPages = 2048;

std::uint64_t PlaceOf(PageNumber number) {
    return std::uint64_t{number} * PageSize;
}

bool MayHoldUsageMaps(const Page& page, PageNumber number) {
    return page[0] == PageKind::UsageBits ||
           (page[0] == PageKind::Data && DataPage::OwnerOf(page, number) == PageOwner::Nobody);
}

}  // namespace

PagedFile::PagedFile(Disk& disk, const QString& path, PageNumber mostPages)
    : path_(path), mostPages_(mostPages), file_(disk.Open(path)), journal_(disk, path), free_(*this, [this] {
          return Append();
      }) {
    if (file_->Size() < PageSize) {
        RaiseUnrecognized(path, QStringLiteral("it is too short"));
    }
    Page header{};
    file_->Read(0, header);
    CheckFileHeader(header, path);
    RecoverDatabase(disk, path, *file_);
    CountPages();
}

void PagedFile::CountPages() {
    const std::uint64_t size = file_->Size();
    if (size > PlaceOf(mostPages_)) {
        RaiseUnrecognized(path_, QStringLiteral("it is larger than the format allows"));
    }
    count_ = countBefore_ = static_cast<PageNumber>(size / PageSize);
    if (size % PageSize != 0) {
        RaiseDamaged(count_, QStringLiteral("is cut, at the end of the file"));
    }
}

void PagedFile::Reopen() {
    NoteChangeOfMaps();
    ForgetShapes();
    cache_.clear();
    held_ = 0;
    CountPages();
}

void PagedFile::RequireUsable() {
    if (owed_ && !TryBringBack()) {
        throw Error(
            ErrorNumber::DiskError,
            QStringLiteral("Disk error: '%1' could not be written, nor brought back to what it was. The "
                           "next opening does that.")
                .arg(path_));
    }
}

PagedFile::Cached& PagedFile::Load(PageNumber number) {
    RequireUsable();
    if (number >= count_) {
        RaiseDamaged(number, QStringLiteral("is named, and the file has %1 pages").arg(count_));
    }
    if (Cached* const held = Held(number)) {
        return *held;
    }
    Cached& cached = Hold(number);
    try {
        file_->Read(PlaceOf(number), cached.page);
    } catch (...) {
        LetGo(number);
        throw;
    }
    return cached;
}

// With whatever bytes the memory has.
PagedFile::Cached& PagedFile::Hold(PageNumber number) {
    if (number >= cache_.size()) {
        cache_.resize(number + 1);
    }
    if (spare_.empty()) {
        spare_.push_back(std::make_unique<Cached>());
    }
    cache_[number] = std::move(spare_.back());
    spare_.pop_back();
    ++held_;
    return *cache_[number];
}

void PagedFile::LetGo(PageNumber number) {
    Cached* const cached = Held(number);
    if (cached == nullptr) {
        return;
    }
    --held_;
    ForgetShape(number);
    if (spare_.size() < MostCleanPages) {
        copies_.TakeBack(std::move(cached->before));
        cached->keptFor = 0;
        cached->isTaken = cached->isChanged = false;
        spare_.push_back(std::move(cache_[number]));
    }
    cache_[number].reset();
}

const Page& PagedFile::Read(PageNumber number) {
    return Load(number).page;
}

PagedFile::Cached& PagedFile::ChangeCached(PageNumber number) {
    Cached& cached = Load(number);
    if (MayHoldUsageMaps(cached.page, number)) {
        NoteChangeOfMaps();
    }
    // Before anything counts on it: memory may run out.
    const bool isAsInFile = !cached.isChanged && number < countBefore_;
    if (isAsInFile) {
        cached.before = copies_.Make(cached.page);
    }
    if (isMarked_ && cached.keptFor != lastMark_) {
        undo_.push_back({number, isAsInFile ? nullptr : copies_.Make(cached.page), cached.isTaken});
        cached.keptFor = lastMark_;
    }
    if (!cached.isChanged) {
        cached.isChanged = true;
        changed_.insert(number);
    }
    return cached;
}

Page& PagedFile::Change(PageNumber number) {
    return ChangeCached(number).page;
}

PageNumber PagedFile::TakeBehind(PageNumber page) {
    const auto free = free_.LowestBehind(page);
    const PageNumber taken = free ? *free : Append();
    free_.NoteUsed(taken);
    Cached& cached = ChangeCached(taken);
    cached.isTaken = true;
    cached.page.fill(0);
    ForgetShape(taken);
    return taken;
}

PageNumber PagedFile::Append() {
    RequireUsable();
    if (count_ >= mostPages_) {
        throw Error(
            ErrorNumber::DiskFull,
            QStringLiteral("Disk full: '%1' has the largest size that its format allows.").arg(path_));
    }
    // A map may name pages that weren't there until now.
    NoteChangeOfMaps();
    const PageNumber number = count_++;
    Cached& cached = Hold(number);
    cached.page.fill(0);
    cached.isTaken = true;
    cached.isChanged = true;
    changed_.insert(number);
    return number;
}

void PagedFile::GiveBack(PageNumber number) {
    RequireUsable();
    if (number <= FreePages::MapPage || number >= count_ || free_.IsFree(number)) {
        RaiseDamaged(number, QStringLiteral("is given up, and isn't in use"));
    }
    given_.push_back(number);
}

PagedFile::Mark PagedFile::SetMark() {
    isMarked_ = true;
    ++lastMark_;
    return {undo_.size(), given_.size(), count_};
}

void PagedFile::UndoTo(const Mark& mark) {
    NoteChangeOfMaps();
    while (undo_.size() > mark.undo) {
        const Undo& kept = undo_.back();
        if (kept.number < mark.count) {
            // What has changed is in memory: so this can't fail.
            Cached& cached = *Held(kept.number);
            cached.page = kept.page ? *kept.page : *cached.before;
            cached.isTaken = kept.wasTaken;
            ForgetShape(kept.number);
        }
        ForgetUndo(undo_.size() - 1);
    }
    for (; count_ > mark.count; --count_) {
        LetGo(count_ - 1);
        changed_.erase(count_ - 1);
    }
    given_.resize(mark.given);
    // What is changed from now on is to be kept anew.
    ++lastMark_;
}

void PagedFile::ForgetUndo(std::size_t from) {
    for (; undo_.size() > from; undo_.pop_back()) {
        copies_.TakeBack(std::move(undo_.back().page));
    }
}

void PagedFile::EndStatement() {
    ForgetUndo(0);
    isMarked_ = false;
    Tidy();
}

void PagedFile::Tidy() {
    if (held_ > MostCleanPages + changed_.size()) {
        Forget();
    }
}

void PagedFile::Forget() {
    for (PageNumber number = 0; number < cache_.size(); ++number) {
        if (cache_[number] && !cache_[number]->isChanged) {
            LetGo(number);
        }
    }
}

// Those whose bytes differ from what the file will have once `written` is there.
std::vector<PageWrite> PagedFile::GroupWrites(const std::vector<PageWrite>& written) const {
    std::map<PageNumber, const Page*> inFile;
    for (const PageWrite& write : written) {
        inFile[write.number] = write.page;
    }
    const std::vector<PageNumber> freeMaps = free_.OwnPages();
    std::vector<PageWrite> writes;
    for (const PageNumber number : changed_) {
        const Cached& cached = *Held(number);
        const Page* before = cached.isTaken ? nullptr : cached.before.get();
        const Page* known = inFile.contains(number) ? inFile[number] : before;
        if (known != &cached.page && (known == nullptr || *known != cached.page)) {
            PageWrite& write = writes.emplace_back(PageWrite{number, &cached.page, before, false, nullptr});
            write.isFreeMap = std::find(freeMaps.begin(), freeMaps.end(), number) != freeMaps.end();
            if (write.isFreeMap) {
                write.copy = std::make_unique<const Page>(cached.page);
                write.page = write.copy.get();
            }
        }
    }
    return writes;
}

QByteArray PagedFile::JournalOf(const std::vector<PageWrite>& writes) {
    const auto isKept = [](const PageWrite& write) { return write.before != nullptr; };
    JournalMaker journal(std::count_if(writes.begin(), writes.end(), isKept));
    for (const PageWrite& write : writes) {
        if (isKept(write)) {
            journal.Add(write.number, *write.before, *write.page);
        }
    }
    return journal.Finish(countBefore_, count_, CommitWordsOf(Read(0)));
}

// Pages that were given up count as free only when everything is there that no longer leads to them.
void PagedFile::EndGroup(GroupKind kind) {
    RequireUsable();
    EndStatement();
    if (!HasChanges()) {
        return;
    }
    const Mark beforeGiving = SetMark();
    try {
        std::vector<PageWrite> writes = GroupWrites({});
        OrderWrites(writes, kind, *this);
        std::for_each(given_.begin(), given_.end(), [this](PageNumber page) { free_.NoteFree(page); });
        std::vector<PageWrite> last = GroupWrites(writes);
        OrderWrites(last, kind, *this);
        std::move(last.begin(), last.end(), std::back_inserter(writes));
        WriteToFile(writes);
    } catch (...) {
        UndoTo(beforeGiving);
        EndStatement();
        throw;
    }
    Settle();
}

void PagedFile::LookForOthersBytes(const std::vector<PageWrite>& writes) {
    Page found{};
    isOverwritten_ = isOverwritten_ || file_->Size() != PlaceOf(countBefore_) ||
                     std::any_of(writes.begin(), writes.end(), [this, &found](const PageWrite& write) {
                         if (write.before == nullptr) {
                             return false;
                         }
                         file_->Read(PlaceOf(write.number), found);
                         return found != *write.before;
                     });
}

// The order of the writes is for programs that don't know the journal, and they meet it only where this one
// was ended: then the system still has each of the writes. Where the power goes, pages may be torn, and the
// journal alone helps. So nothing is waited for between the writes.
void PagedFile::WriteToFile(const std::vector<PageWrite>& writes) {
    if (writes.empty()) {
        return;
    }
    LookForOthersBytes(writes);
    const QByteArray journal = JournalOf(writes);
    try {
        journal_.Write(journal);
    } catch (...) {
        // Whole or not, it says what the file is like at this moment.
        ClearJournalIfPossible();
        throw;
    }
    try {
        for (const PageWrite& write : writes) {
            file_->Write(PlaceOf(write.number), *write.page);
        }
        file_->Sync();
    } catch (...) {
        owed_ = {journal, true};
        TryBringBack();
        throw;
    }
    try {
        journal_.Clear();
    } catch (...) {
        // The group is in the file as a whole. Before any of it is taken back, the journal must be there
        // again.
        owed_ = {journal, false};
        TryBringBack();
        throw;
    }
}

void PagedFile::ClearJournalIfPossible() {
    try {
        journal_.Clear();
    } catch (const Error&) {
        // The next group writes it anew, and until then it takes nothing back that is there.
        return;
    }
}

// What the disk refuses now it may take later: until then the journal has to stay, and nothing is read.
bool PagedFile::TryBringBack() {
    try {
        if (!owed_->isJournalThere) {
            journal_.Write(owed_->journal);
            owed_->isJournalThere = true;
        }
        TakeBack(*file_, DecodeJournal(owed_->journal).value());
        journal_.Clear();
    } catch (const Error&) {
        return false;
    }
    owed_.reset();
    return true;
}

void PagedFile::Settle() {
    for (const PageNumber number : changed_) {
        if (Cached* const cached = Held(number)) {
            copies_.TakeBack(std::move(cached->before));
            cached->isTaken = false;
            cached->isChanged = false;
        }
    }
    changed_.clear();
    given_.clear();
    countBefore_ = count_;
    EndStatement();
}

void PagedFile::GiveUpGroup() {
    NoteChangeOfMaps();
    for (const PageNumber number : changed_) {
        if (number >= countBefore_) {
            LetGo(number);
        } else {
            Cached& cached = *Held(number);
            cached.page = *cached.before;
            ForgetShape(number);
        }
    }
    count_ = countBefore_;
    Settle();
}

void PagedFile::TryJournal() {
    journal_.Try();
}

void PagedFile::RemoveJournal() {
    RequireUsable();
    journal_.Remove();
}

}  // namespace engine::jet
