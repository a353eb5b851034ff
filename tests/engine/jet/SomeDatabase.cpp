#include "SomeDatabase.h"

#include "ModelDisk.h"
#include "TableWithIndexes.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"

namespace engine::jet {

namespace {

const QString Path = QStringLiteral("/books/some.mdb");
const QDateTime Created(QDate(2026, 3, 1), QTime(9, 30), Qt::UTC);

NewColumn ColumnOf(const char* name, std::uint8_t type, int size = 0) {
    NewColumn column;
    column.name = QLatin1String(name);
    column.type = type;
    column.size = size;
    return column;
}

NewIndex IndexOn(const char* name, std::vector<NewIndexColumn> columns) {
    NewIndex index;
    index.name = QLatin1String(name);
    index.columns = std::move(columns);
    return index;
}

NewTable Few() {
    NewTable table;
    table.name = QStringLiteral("few");
    table.columns = {ColumnOf("text", ColumnType::Text, 50)};
    return table;
}

// Letters of several scripts, apostrophes and hyphens, some of them longer than what counts in a key.
QString SomeName(int number) {
    static const QStringList Names{QStringLiteral("O'Brien"),    QStringLiteral("co-op"),
                                   QStringLiteral("\u00C4rger"), QStringLiteral("\u0416\u0443\u043A"),
                                   QStringLiteral("b"),          QString(90, QLatin1Char('q'))};
    return Names.at(number % Names.size()) + QString::number(number * 7919 % 1000);
}

}  // namespace

NewTable Things() {
    NewTable table;
    table.name = QStringLiteral("things");
    table.columns = {ColumnOf("id", ColumnType::Long),
                     ColumnOf("yes", ColumnType::Boolean),
                     ColumnOf("byte", ColumnType::Byte),
                     ColumnOf("short", ColumnType::Short),
                     ColumnOf("money", ColumnType::Currency),
                     ColumnOf("single", ColumnType::Single),
                     ColumnOf("double", ColumnType::Double),
                     ColumnOf("date", ColumnType::DateTime),
                     ColumnOf("binary", ColumnType::Binary, 20),
                     ColumnOf("name", ColumnType::Text, 100),
                     ColumnOf("picture", ColumnType::LongBinary),
                     ColumnOf("memo", ColumnType::Memo),
                     ColumnOf("guid", ColumnType::Guid),
                     ColumnOf("decimal", ColumnType::Decimal)};
    table.columns[0].countsUp = true;
    table.columns[13].scale = 2;
    table.indexes = {
        IndexOn("PrimaryKey", {{QStringLiteral("id"), true}}),
        IndexOn("by name", {{QStringLiteral("name"), false}, {QStringLiteral("date"), true}}),
        IndexOn("by name and number", {{QStringLiteral("name"), true}, {QStringLiteral("id"), false}}),
        IndexOn("by binary", {{QStringLiteral("binary"), true}}),
        IndexOn("by numbers", {{QStringLiteral("yes"), true},
                               {QStringLiteral("byte"), false},
                               {QStringLiteral("short"), true},
                               {QStringLiteral("money"), false},
                               {QStringLiteral("single"), true},
                               {QStringLiteral("double"), false}}),
        IndexOn("by others", {{QStringLiteral("guid"), true}, {QStringLiteral("decimal"), false}}),
        IndexOn("by memo", {{QStringLiteral("memo"), true}})};
    table.indexes[0].isPrimaryKey = true;
    table.indexes[2].isUnique = true;
    table.indexes[3].ignoresNulls = true;
    return table;
}

std::vector<Value> SomeThing(int number) {
    // How often each column is null; those with 0 never are.
    static constexpr int NullEvery[] = {0, 0, 3, 4, 5, 6, 7, 8, 3, 9, 4, 5, 6, 7};
    QByteArray guid(16, static_cast<char>(number));
    guid[0] = static_cast<char>(number / 3);
    QByteArray decimal(17, '\0');
    decimal[0] = static_cast<char>(number % 2 == 0 ? 0 : 0x80);
    decimal[13] = static_cast<char>(number);
    std::vector<Value> values = {Null(),
                                 number % 2 == 0,
                                 qint64{number % 256},
                                 qint64{number % 20 - 10},
                                 Currency::FromScaled(qint64{number} * 12345 - 99999),
                                 number * -0.5,
                                 number * 0.125 - 1,
                                 Created.addSecs(qint64{number} * 5000),
                                 QByteArray(1 + number % 19, static_cast<char>(number)),
                                 SomeName(number),
                                 QByteArray(number * 37 % 9000, 'p'),
                                 QString(number * 11 % 300, QLatin1Char('m')) + QString::number(number),
                                 guid,
                                 decimal};
    for (std::size_t column = 0; column < values.size(); ++column) {
        if (NullEvery[column] != 0 && number % NullEvery[column] == 1) {
            values[column] = Null();
        }
    }
    return values;
}

QByteArray SomeDatabase(int rows) {
    ModelDisk disk;
    MakeDatabase(disk, Path, {Things(), Few()}, Created, KeepAllIndexes);
    PagedFile pages(disk, Path);
    const Catalogue catalogue(pages);
    TableWithIndexes things(pages, ReadTableLayout(pages, catalogue.Find(QStringLiteral("things")).page));
    std::vector<RowPlace> keys;
    for (int row = 0; row < rows; ++row) {
        keys.push_back(things.table.Insert(SomeThing(row)));
    }
    constexpr int Name = 9;
    constexpr int Memo = 11;
    for (std::size_t row = 0; row < keys.size(); row += 7) {
        const QString memo(51 - static_cast<int>(row % 3), QChar(0x416));
        things.table.Update(keys[row], {{Name, QString(100, QLatin1Char('n'))}, {Memo, memo.left(26)}});
    }
    for (std::size_t row = 3; row < keys.size(); row += 11) {
        things.table.Delete(keys[row]);
    }
    pages.EndGroup(GroupKind::Adds);
    return disk.files[Path]->bytes;
}

}  // namespace engine::jet
