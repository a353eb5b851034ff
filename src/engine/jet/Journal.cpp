#include "engine/jet/Journal.h"

#include "engine/Error.h"
#include "engine/jet/Bytes.h"
#include "engine/jet/FileHeader.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace engine::jet {

namespace {

// The head: what the file is, the counts, the commit words, a checksum of all that with the pages behind it.
constexpr std::uint64_t Signature = 0x314A5746'4E455257;  // "WRENFWJ1"
constexpr std::size_t PageCountAt = 8;
constexpr std::size_t PagesBeforeAt = 12;
constexpr std::size_t PagesAfterAt = 16;
constexpr std::size_t CommitWordsAtInHead = 24;
constexpr std::size_t ChecksumAt = 32;
constexpr std::size_t HeadSize = 40;

// A page: its number, its bytes, the checksums of its sectors.
constexpr std::size_t PageAt = 4;
constexpr std::size_t SumsAt = PageAt + PageSize;
constexpr std::size_t EntrySize = SumsAt + 8 * JournalPage::Sectors;

// Those of the map of free pages are written before and after the pages that a group gives up.
constexpr std::uint64_t MostWritesOfPage = 2;

constexpr std::uint64_t ChecksumMultiplier = 0x9E3779B97F4A7C15;

std::span<const std::uint8_t> SpanOf(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

std::span<const std::uint8_t> SectorOf(const Page& page, std::size_t sector) {
    return std::span(page).subspan(sector * JournalPage::SectorSize, JournalPage::SectorSize);
}

void Put64(ChangeableBytes bytes, std::size_t at, std::uint64_t number) {
    bytes.Put32(at, static_cast<std::uint32_t>(number));
    bytes.Put32(at + 4, static_cast<std::uint32_t>(number >> 32));
}

JournalPage DecodePage(const Bytes& entry) {
    JournalPage page;
    page.number = entry.U32(0);
    std::copy_n(entry.Data() + PageAt, PageSize, page.before.begin());
    for (std::size_t sector = 0; sector < JournalPage::Sectors; ++sector) {
        page.after[sector] = entry.U64(SumsAt + 8 * sector);
    }
    return page;
}

Page ReadPage(DiskFile& file, PageNumber number) {
    Page page{};
    file.Read(std::uint64_t{number} * PageSize, page);
    return page;
}

// A program that is ended leaves whole sectors, of before or of after one of the writes of the page.
bool IsBetween(std::span<const JournalPage* const> noted, const Page& now) {
    for (std::size_t sector = 0; sector < JournalPage::Sectors; ++sector) {
        const auto bytes = SectorOf(now, sector);
        const std::uint64_t sum = Checksum(bytes);
        const bool isOurs = std::any_of(noted.begin(), noted.end(), [&](const JournalPage* page) {
            return page->after[sector] == sum || std::ranges::equal(bytes, SectorOf(page->before, sector));
        });
        if (!isOurs) {
            return false;
        }
    }
    return true;
}

bool IsStillOurs(DiskFile& file, const JournalContents& contents) {
    const std::uint64_t size = file.Size();
    const auto [least, most] = std::minmax(contents.pagesBefore, contents.pagesAfter);
    if (size < std::uint64_t{least} * PageSize || size > std::uint64_t{most} * PageSize ||
        CommitWordsOf(ReadPage(file, 0)) != contents.commitWords) {
        return false;
    }
    std::map<PageNumber, std::vector<const JournalPage*>> writes;
    for (const JournalPage& page : contents.pages) {
        writes[page.number].push_back(&page);
    }
    return std::all_of(writes.begin(), writes.end(), [&](const auto& page) {
        return page.first < contents.pagesBefore && IsBetween(page.second, ReadPage(file, page.first));
    });
}

QString PutAside(Disk& disk, const QString& database) {
    const QString from = Journal::NameFor(database);
    QString to = from + QStringLiteral(".refused");
    for (int number = 2; disk.IsThere(to); ++number) {
        to = from + QStringLiteral(".refused-%1").arg(number);
    }
    disk.Rename(from, to);
    return to;
}

}  // namespace

// Eight bytes at a time: each group of statements waits for it.
std::uint64_t Checksum(std::span<const std::uint8_t> bytes) {
    std::uint64_t sum = bytes.size();
    const auto add = [&sum](std::uint64_t word) {
        sum = (sum ^ word) * ChecksumMultiplier;
        sum ^= sum >> 32;
    };
    std::uint64_t word = 0;
    for (; bytes.size() >= sizeof word; bytes = bytes.subspan(sizeof word)) {
        std::memcpy(&word, bytes.data(), sizeof word);
        add(word);
    }
    if (!bytes.empty()) {
        word = 0;
        std::memcpy(&word, bytes.data(), bytes.size());
        add(word);
    }
    return sum;
}

std::uint64_t CommitWordsOf(const Page& header) {
    return Checksum(std::span(header).subspan(CommitWordsAt, CommitWordsSize));
}

JournalMaker::JournalMaker(std::ptrdiff_t pages)
    : journal_(static_cast<qsizetype>(HeadSize + EntrySize * static_cast<std::size_t>(pages)),
               Qt::Uninitialized),
      end_(HeadSize) {
    // The pages put the rest.
    ChangeableBytesOf(journal_, 0).Fill(0, HeadSize, 0);
    Put64(ChangeableBytesOf(journal_, 0), 0, Signature);
    ChangeableBytesOf(journal_, 0).Put32(PageCountAt, static_cast<std::uint32_t>(pages));
}

void JournalMaker::Add(PageNumber number, const Page& before, const Page& after) {
    ChangeableBytes bytes = ChangeableBytesOf(journal_, 0);
    bytes.Put32(end_, number);
    bytes.PutBytes(end_ + PageAt, Bytes(before, number));
    for (std::size_t sector = 0; sector < JournalPage::Sectors; ++sector) {
        Put64(bytes, end_ + SumsAt + 8 * sector, Checksum(SectorOf(after, sector)));
    }
    end_ += EntrySize;
}

QByteArray JournalMaker::Finish(PageNumber pagesBefore, PageNumber pagesAfter, std::uint64_t commitWords) {
    ChangeableBytes bytes = ChangeableBytesOf(journal_, 0);
    bytes.Put32(PagesBeforeAt, pagesBefore);
    bytes.Put32(PagesAfterAt, pagesAfter);
    Put64(bytes, CommitWordsAtInHead, commitWords);
    // Of the journal as it is without the sum.
    Put64(bytes, ChecksumAt, Checksum(SpanOf(journal_)));
    return std::move(journal_);
}

std::optional<JournalContents> DecodeJournal(QByteArray journal) {
    if (static_cast<std::size_t>(journal.size()) < HeadSize) {
        return std::nullopt;
    }
    const std::uint64_t sum = BytesOf(journal, 0).U64(ChecksumAt);
    Put64(ChangeableBytesOf(journal, 0), ChecksumAt, 0);
    if (Checksum(SpanOf(journal)) != sum) {
        return std::nullopt;
    }
    const Bytes bytes = BytesOf(journal, 0);
    JournalContents contents{
        bytes.U32(PagesBeforeAt), bytes.U32(PagesAfterAt), bytes.U64(CommitWordsAtInHead), {}};
    for (std::uint32_t page = 0; page < bytes.U32(PageCountAt); ++page) {
        contents.pages.push_back(DecodePage(bytes.Part(HeadSize + EntrySize * page, EntrySize)));
    }
    return contents;
}

Journal::Journal(Disk& disk, const QString& database)
    : disk_(disk), database_(database), path_(NameFor(database)) {
}

QString Journal::NameFor(const QString& database) {
    return database + QStringLiteral(".journal");
}

DiskFile& Journal::File() {
    if (!file_) {
        file_ = disk_.OpenOrMake(path_, database_);
    }
    return *file_;
}

void Journal::Write(const QByteArray& journal) {
    DiskFile& file = File();
    file.Resize(0);
    file.Write(0, SpanOf(journal));
    file.Sync();
}

// The head of a journal that means nothing.
void Journal::Try() {
    try {
        File().Write(0, std::array<std::uint8_t, HeadSize>{});
    } catch (const Error& failure) {
        Remove();
        throw Error(failure.Number(),
                    QStringLiteral("No journal can be made: %1").arg(failure.Description()));
    }
    Remove();
}

void Journal::Clear() {
    DiskFile& file = File();
    file.Write(0, std::array<std::uint8_t, HeadSize>{});
    file.Sync();
}

bool Journal::IsThere() const {
    return disk_.IsThere(path_);
}

void Journal::Remove() {
    file_.reset();
    if (IsThere()) {
        disk_.Remove(path_);
    }
}

std::optional<JournalContents> Journal::Read(PageNumber most) {
    if (!IsThere()) {
        return std::nullopt;
    }
    DiskFile& file = File();
    const std::uint64_t size = file.Size();
    const std::uint64_t mostEntries = std::uint64_t{most} * MostWritesOfPage;
    if (size < HeadSize || (size - HeadSize) % EntrySize != 0 ||
        (size - HeadSize) / EntrySize > mostEntries) {
        return std::nullopt;
    }
    QByteArray head(HeadSize, '\0');
    file.Read(0, {reinterpret_cast<std::uint8_t*>(head.data()), HeadSize});
    const Bytes known = BytesOf(head, 0);
    if (known.U64(0) != Signature || known.U32(PageCountAt) != (size - HeadSize) / EntrySize) {
        return std::nullopt;
    }
    QByteArray journal(static_cast<qsizetype>(size), Qt::Uninitialized);
    file.Read(0, {reinterpret_cast<std::uint8_t*>(journal.data()), static_cast<std::size_t>(size)});
    return DecodeJournal(std::move(journal));
}

void TakeBack(DiskFile& file, const JournalContents& contents) {
    for (const JournalPage& page : contents.pages) {
        file.Write(std::uint64_t{page.number} * PageSize, page.before);
    }
    file.Resize(std::uint64_t{contents.pagesBefore} * PageSize);
    file.Sync();
}

void RecoverDatabase(Disk& disk, const QString& database, DiskFile& file) {
    Journal journal(disk, database);
    const auto contents = journal.Read(static_cast<PageNumber>(file.Size() / PageSize));
    if (!contents) {
        return;
    }
    if (!IsStillOurs(file, *contents)) {
        const QString aside = PutAside(disk, database);
        throw Error(ErrorNumber::DatabaseDamaged,
                    QStringLiteral("The database is damaged: '%1' was left half written, and another program "
                                   "has written to it since. What was there before is kept in '%2'.")
                        .arg(database, aside));
    }
    TakeBack(file, *contents);
    journal.Clear();
}

}  // namespace engine::jet
