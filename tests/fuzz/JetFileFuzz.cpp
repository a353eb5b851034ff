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

namespace engine::jet {
namespace {

using Input = std::span<const std::uint8_t>;

const QString Path = QStringLiteral("/books/some.mdb");

// What the first byte of an input says: that the rest is a file, or changes of one of two sound ones.
constexpr std::uint8_t WholeFile = 'F';
constexpr std::uint8_t ChangedSmallFile = 'S';

// A change: the page, where in it in 2 bytes, how many bytes, and these.
constexpr std::size_t ChangeHead = 4;

void Change(QByteArray& file, Input changes) {
    while (changes.size() >= ChangeHead) {
        const std::size_t place = std::size_t{changes[1]} << 8 | changes[2];
        const std::size_t at = changes[0] * PageSize + place % PageSize;
        const std::size_t size = std::min<std::size_t>(changes[3], changes.size() - ChangeHead);
        for (std::size_t byte = 0; byte < size && at + byte < static_cast<std::size_t>(file.size()); ++byte) {
            file[static_cast<qsizetype>(at + byte)] = static_cast<char>(changes[ChangeHead + byte]);
        }
        changes = changes.subspan(ChangeHead + size);
    }
}

QByteArray FileOfInput(Input input) {
    static const QByteArray small = SomeDatabase(6);
    static const QByteArray large = SomeDatabase(40);
    if (input.empty()) {
        return {};
    }
    const Input rest = input.subspan(1);
    if (input[0] == WholeFile) {
        return {reinterpret_cast<const char*>(rest.data()), static_cast<qsizetype>(rest.size())};
    }
    QByteArray file = input[0] == ChangedSmallFile ? small : large;
    Change(file, rest);
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

/// A file that is opened, and everything that can be done with it.
class Trial {
public:
    explicit Trial(Disk& disk) : pages_(disk, Path) {}

    void DoEverything() {
        const Catalogue catalogue(pages_);
        for (const CatalogueTable& entry : catalogue.Tables()) {
            Try([&] { catalogue.Properties(entry); });
            Try([&] { ReadEverything(entry); });
            Try([&] { WalkIndexes(entry); });
        }
        for (const CatalogueTable& entry : catalogue.Tables()) {
            if (!entry.isSystem) {
                WriteEverything(entry);
            }
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

    void ReadEverything(const CatalogueTable& entry) {
        const Table table(pages_, ReadTableLayout(pages_, entry.page));
        for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
            const StoredRow row = table.Read(*key);
            for (std::size_t column = 0; column < table.Layout().columns.size(); ++column) {
                table.ValueOf(row, static_cast<int>(column));
            }
        }
    }

    void WalkIndexes(const CatalogueTable& entry) {
        const TableLayout layout = ReadTableLayout(pages_, entry.page);
        for (const RealIndex& index : layout.indexes) {
            KeptIndex kept(pages_, layout, index);
            for (IndexCursor cursor = kept.Tree().First(); cursor.HasEntry(); cursor.Next()) {
            }
            for (IndexCursor cursor = kept.Tree().Last(); cursor.HasEntry(); cursor.Previous()) {
            }
        }
    }

    void WriteEverything(const CatalogueTable& entry) {
        std::unique_ptr<TableWithIndexes> whole;
        Try([&] { whole = std::make_unique<TableWithIndexes>(pages_, ReadTableLayout(pages_, entry.page)); });
        if (!whole) {
            return;
        }
        Table& table = whole->table;
        for (int number = 1; number < 3; ++number) {
            Try([&] { table.Insert(RowOf(table, number * number)); });
        }
        std::vector<RowPlace> keys;
        Try([&] {
            for (auto key = table.FirstRow(); key && keys.size() < 8; key = table.RowBehind(*key)) {
                keys.push_back(*key);
            }
        });
        for (std::size_t place = 0; place < keys.size(); ++place) {
            Try([&] { table.Update(keys[place], ChangesOf(table, static_cast<int>(place))); });
        }
        Try([&] { pages_.EndGroup(GroupKind::Adds); });
        for (std::size_t place = 0; place < keys.size(); place += 2) {
            Try([&] { table.Delete(keys[place]); });
        }
        Try([&] { pages_.EndGroup(GroupKind::Removes); });
        Try([&] { table.Wipe(); });
        Try([&] { pages_.EndGroup(GroupKind::Removes); });
        Try([&] { table.Insert(RowOf(table, 2)); });
        Try([&] { pages_.EndGroup(GroupKind::Adds); });
    }

    static std::vector<Value> RowOf(const Table& table, int number) {
        std::vector<Value> values;
        for (const Column& column : table.Layout().columns) {
            values.push_back(SomeValue(column, number));
        }
        return values;
    }

    static std::vector<CellChange> ChangesOf(const Table& table, int number) {
        std::vector<CellChange> changes;
        for (std::size_t column = 0; column < table.Layout().columns.size(); ++column) {
            const Column& known = table.Layout().columns[column];
            if (!known.countsUp) {
                changes.push_back({static_cast<int>(column), SomeValue(known, number)});
            }
        }
        return changes;
    }

    PagedFile pages_;
};

// Of a file in which nothing is wrong, nothing may be told to be; and it must be sound afterwards.
void RequireSound(const QByteArray& file, bool hasMetDamage) {
    if (hasMetDamage || !FaultsOf(file, FileOf::Others).empty()) {
        std::abort();
    }
}

void TryFile(const QByteArray& content) {
    ModelDisk disk;
    auto file = std::make_shared<ModelDisk::File>();
    file->bytes = content;
    disk.files[Path] = file;
    const bool isSound = FaultsOf(content).empty();
    bool hasMetDamage = false;
    try {
        Trial trial(disk);
        trial.DoEverything();
        hasMetDamage = trial.hasMetDamage;
    } catch (const Error& error) {
        hasMetDamage = true;
        if (error.Description().isEmpty()) {
            std::abort();
        }
    }
    if (isSound) {
        RequireSound(disk.files[Path]->bytes, hasMetDamage);
    }
}

}  // namespace
}  // namespace engine::jet

// Any bytes are a database of which everything can be read and written, or lead to an engine error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    engine::jet::TryFile(engine::jet::FileOfInput({data, size}));
    return 0;
}
