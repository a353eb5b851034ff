#include "engine/Error.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/FileCheck.h"
#include "engine/jet/IndexCursor.h"
#include "engine/jet/ModelDisk.h"
#include "engine/jet/PagedFile.h"
#include "engine/jet/SomeDatabase.h"
#include "engine/jet/TableWithIndexes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

namespace engine::jet {
namespace {

using Input = std::span<const std::uint8_t>;

const QString Path = QStringLiteral("/books/some.mdb");

// What the first byte of an input says. With any other one, one thing is done with one of the sound files,
// which isn't looked at: that would take longer than the thing itself, and there are to be many runs.
namespace Kind {
/// The rest is a file, with which everything is done.
constexpr std::uint8_t WholeFile = 'F';
/// The rest changes a sound file, with which everything is done, and which is looked at before and
/// afterwards.
constexpr std::uint8_t EverythingInSmall = 'S';
constexpr std::uint8_t EverythingInLarge = 'L';
/// One thing is done with a sound file, which is looked at likewise.
constexpr std::uint8_t OneInSmall = 's';
constexpr std::uint8_t OneInLarge = 'l';
}  // namespace Kind

// What is done in one table: the second byte of an input says what, and in which table. Changes of the file
// follow.
enum class Deed : std::uint8_t { ReadCatalogue, ReadRows, WalkIndexes, Insert, Update, Delete, Wipe };
constexpr std::uint8_t Deeds = 7;

// A change: the page, where in it in 2 bytes, how many bytes, and these; or, with this bit, the number of a
// page, since what leads from page to page is what circles are made of.
constexpr std::size_t ChangeHead = 4;
constexpr std::uint8_t NamesPage = 0x80;

// Half of all places are at the front of a page, which tells how the rest of it is to be read.
std::size_t PlaceInPage(std::uint8_t high, std::uint8_t low) {
    constexpr std::size_t FrontOfPage = 64;
    return high >= 0x80 ? low % FrontOfPage : (std::size_t{high} << 8 | low) % PageSize;
}

void PutBytes(QByteArray& file, std::size_t at, Input bytes) {
    for (std::size_t byte = 0; byte < bytes.size() && at + byte < static_cast<std::size_t>(file.size());
         ++byte) {
        file[static_cast<qsizetype>(at + byte)] = static_cast<char>(bytes[byte]);
    }
}

void MakeChanges(QByteArray& file, Input changes) {
    const std::size_t pages = static_cast<std::size_t>(file.size()) / PageSize;
    while (changes.size() >= ChangeHead) {
        const std::size_t at = changes[0] % pages * PageSize + PlaceInPage(changes[1], changes[2]);
        const std::uint8_t what = changes[3];
        changes = changes.subspan(ChangeHead);
        if ((what & NamesPage) != 0) {
            const std::uint8_t page[] = {static_cast<std::uint8_t>((what - NamesPage) % pages), 0, 0, 0};
            PutBytes(file, at, page);
            continue;
        }
        const std::size_t count = std::min<std::size_t>(what, changes.size());
        PutBytes(file, at, changes.first(count));
        changes = changes.subspan(count);
    }
}

std::shared_ptr<ModelDisk::File> NewFile(const QByteArray& bytes) {
    auto file = std::make_shared<ModelDisk::File>();
    file->bytes = bytes;
    return file;
}

Value SomeValue(const Column& column, int number) {
    switch (column.type) {
        case ColumnType::Boolean:
            return true;
        case ColumnType::Byte:
        case ColumnType::Short:
        case ColumnType::Long:
            return column.countsUp ? Null() : Value(qint64{number});
        case ColumnType::Currency:
            return Currency::FromScaled(number);
        case ColumnType::Single:
        case ColumnType::Double:
            return number * 0.5;
        case ColumnType::DateTime:
            return QDateTime(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);
        case ColumnType::Binary:
            return QByteArray(std::min<int>(column.size, 1 + number), 'b');
        case ColumnType::Text:
            return QString(std::min<int>(column.size / 2, 3 * number), QChar(0x416));
        case ColumnType::Memo:
            return QString(200 * number, QLatin1Char('m'));
        case ColumnType::LongBinary:
            return QByteArray(1500 * number, 'l');
        case ColumnType::Guid:
            return QByteArray(16, 'g');
        case ColumnType::Decimal:
            return QByteArray(17, '\0');
        default:
            return Null();
    }
}

std::vector<Value> RowOf(const Table& table, int number) {
    std::vector<Value> values;
    for (const Column& column : table.Layout().columns) {
        values.push_back(SomeValue(column, number));
    }
    return values;
}

std::vector<CellChange> ChangesOf(const Table& table, int number) {
    std::vector<CellChange> changes;
    for (std::size_t column = 0; column < table.Layout().columns.size(); ++column) {
        const Column& known = table.Layout().columns[column];
        if (!known.countsUp) {
            changes.push_back({static_cast<int>(column), SomeValue(known, number)});
        }
    }
    return changes;
}

/// A file that is opened, and everything that can be done with it.
class Trial {
public:
    explicit Trial(Disk& disk) : pages_(disk, Path) {}

    void DoEverything() {
        const Catalogue catalogue(pages_);
        ReadProperties(catalogue);
        for (const CatalogueTable& entry : catalogue.Tables()) {
            Do(Deed::ReadRows, entry.page);
            Do(Deed::WalkIndexes, entry.page);
        }
        for (const CatalogueTable& entry : catalogue.Tables()) {
            for (const Deed deed : {Deed::Insert, Deed::Update, Deed::Delete, Deed::Wipe}) {
                if (!entry.isSystem) {
                    Do(deed, entry.page);
                }
            }
        }
    }

    /// Does one thing in the table whose definition begins on a page.
    void Do(Deed deed, PageNumber page) {
        switch (deed) {
            case Deed::ReadCatalogue:
                return ReadProperties(Catalogue(pages_));
            case Deed::ReadRows:
                return Try([&] { ReadRows(page); });
            case Deed::WalkIndexes:
                return Try([&] { WalkIndexes(page); });
            default:
                return Write(deed, page);
        }
    }

    bool hasMetDamage = false;

private:
    // Each thing for itself: one that fails is undone.
    template <class Action>
    void Try(Action action) {
        const PagedFile::Mark mark = pages_.SetMark();
        try {
            action();
        } catch (const Error& error) {
            Note(error);
            pages_.UndoTo(mark);
        }
        pages_.EndStatement();
    }

    void Note(const Error& error) {
        if (error.Description().isEmpty()) {
            std::abort();
        }
        hasMetDamage = hasMetDamage || error.Number() == ErrorNumber::DatabaseDamaged;
    }

    void ReadProperties(const Catalogue& catalogue) {
        for (const CatalogueTable& entry : catalogue.Tables()) {
            Try([&] { catalogue.Properties(entry); });
        }
    }

    void ReadRows(PageNumber page) {
        const Table table(pages_, ReadTableLayout(pages_, page));
        for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
            const StoredRow row = table.Read(*key);
            for (std::size_t column = 0; column < table.Layout().columns.size(); ++column) {
                table.ValueOf(row, static_cast<int>(column));
            }
        }
    }

    void WalkIndexes(PageNumber page) {
        const TableLayout layout = ReadTableLayout(pages_, page);
        for (const RealIndex& index : layout.indexes) {
            KeptIndex kept(pages_, layout, index);
            for (IndexCursor cursor = kept.Tree().First(); cursor.HasEntry(); cursor.Next()) {
            }
            for (IndexCursor cursor = kept.Tree().Last(); cursor.HasEntry(); cursor.Previous()) {
            }
        }
    }

    void Write(Deed deed, PageNumber page) {
        std::unique_ptr<TableWithIndexes> whole;
        Try([&] { whole = std::make_unique<TableWithIndexes>(pages_, ReadTableLayout(pages_, page)); });
        if (!whole) {
            return;
        }
        Table& table = whole->table;
        switch (deed) {
            case Deed::Insert:
                return Insert(table, {1, 4});
            case Deed::Update:
                return Update(table);
            case Deed::Delete:
                return Delete(table);
            default:
                Try([&] { table.Wipe(); });
                EndGroup(GroupKind::Removes);
                return Insert(table, {2});
        }
    }

    void Insert(Table& table, std::initializer_list<int> numbers) {
        for (const int number : numbers) {
            Try([&] { table.Insert(RowOf(table, number)); });
        }
        EndGroup(GroupKind::Adds);
    }

    void Update(Table& table) {
        int number = 0;
        for (const RowPlace key : SomeKeys(table)) {
            Try([&] { table.Update(key, ChangesOf(table, number++)); });
        }
        EndGroup(GroupKind::Adds);
    }

    void Delete(Table& table) {
        for (const RowPlace key : SomeKeys(table)) {
            Try([&] { table.Delete(key); });
        }
        EndGroup(GroupKind::Removes);
    }

    void EndGroup(GroupKind kind) {
        Try([&] { pages_.EndGroup(kind); });
    }

    std::vector<RowPlace> SomeKeys(const Table& table) {
        std::vector<RowPlace> keys;
        Try([&] {
            for (auto key = table.FirstRow(); key && keys.size() < 4; key = table.RowBehind(*key)) {
                keys.push_back(*key);
            }
        });
        return keys;
    }

    PagedFile pages_;
};

// Of a file in which nothing is wrong, nothing may be told to be; and it must be sound afterwards.
void RequireSound(const QByteArray& file, bool hasMetDamage) {
    if (hasMetDamage || !FaultsOf(file, FileOf::Others).empty()) {
        std::abort();
    }
}

template <class Action>
void TryFile(const std::shared_ptr<ModelDisk::File>& file, bool looksAtFile, Action action) {
    ModelDisk disk;
    disk.files[Path] = file;
    const bool isSound = looksAtFile && FaultsOf(file->bytes).empty();
    bool hasMetDamage = false;
    try {
        Trial trial(disk);
        action(trial);
        hasMetDamage = trial.hasMetDamage;
    } catch (const Error& error) {
        hasMetDamage = true;
        if (error.Description().isEmpty()) {
            std::abort();
        }
    }
    if (isSound) {
        RequireSound(file->bytes, hasMetDamage);
    }
}

/// A sound file, and where the definitions of its tables begin.
class SoundFile {
public:
    explicit SoundFile(int rows) {
        ModelDisk disk;
        disk.files[Path] = NewFile(SomeDatabase(rows));
        PagedFile pages(disk, Path);
        const Catalogue catalogue(pages);
        for (const CatalogueTable& table : catalogue.Tables()) {
            all_.push_back(table.page);
            if (!table.isSystem) {
                ofUsers_.push_back(table.page);
            }
        }
        // With a value that is longer than a page, which so few rows don't have.
        const PageNumber things = catalogue.Find(QStringLiteral("things")).page;
        TableWithIndexes whole(pages, ReadTableLayout(pages, things));
        whole.table.Insert(RowOf(whole.table, 4));
        pages.EndGroup(GroupKind::Adds);
        bytes = disk.files[Path]->bytes;
    }

    /// Only tables of users are written to.
    PageNumber TableFor(Deed deed, std::size_t number) const {
        const std::vector<PageNumber>& tables = deed < Deed::Insert ? all_ : ofUsers_;
        return tables[number % tables.size()];
    }

    QByteArray bytes;

private:
    std::vector<PageNumber> all_;
    std::vector<PageNumber> ofUsers_;
};

// The memory of one file serves all runs: to ask for as much in each would take longer than to read from it.
std::shared_ptr<ModelDisk::File> Changed(const SoundFile& sound, Input changes) {
    static const auto file = std::make_shared<ModelDisk::File>();
    file->synced.clear();
    file->written.clear();
    file->bytes.resize(sound.bytes.size());
    std::copy(sound.bytes.begin(), sound.bytes.end(), file->bytes.begin());
    MakeChanges(file->bytes, changes);
    return file;
}

void DoEverything(const std::shared_ptr<ModelDisk::File>& file) {
    TryFile(file, true, [](Trial& trial) { trial.DoEverything(); });
}

void DoOne(const SoundFile& sound, Input task, bool looksAtFile) {
    if (task.empty()) {
        return;
    }
    const auto deed = static_cast<Deed>(task[0] % Deeds);
    const PageNumber table = sound.TableFor(deed, task[0] / Deeds);
    TryFile(Changed(sound, task.subspan(1)), looksAtFile, [&](Trial& trial) { trial.Do(deed, table); });
}

void TryInput(Input input) {
    static const SoundFile small(6);
    static const SoundFile large(40);
    if (input.empty()) {
        return;
    }
    const Input rest = input.subspan(1);
    switch (input[0]) {
        case Kind::WholeFile:
            return DoEverything(
                NewFile({reinterpret_cast<const char*>(rest.data()), static_cast<qsizetype>(rest.size())}));
        case Kind::EverythingInSmall:
            return DoEverything(Changed(small, rest));
        case Kind::EverythingInLarge:
            return DoEverything(Changed(large, rest));
        case Kind::OneInSmall:
            return DoOne(small, rest, true);
        case Kind::OneInLarge:
            return DoOne(large, rest, true);
        default:
            return DoOne(input[0] % 2 == 0 ? small : large, rest, false);
    }
}

}  // namespace
}  // namespace engine::jet

// Any bytes are a database of which everything can be read and written, or lead to an engine error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    engine::jet::TryInput({data, size});
    return 0;
}
