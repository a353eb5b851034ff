#include "engine/execution/TableSchema.h"

#include "engine/Error.h"
#include "engine/dialect/Names.h"

#include <algorithm>
#include <array>

namespace engine::execution {

namespace {

struct TypeName {
    DataType type;
    const char* name;
};

constexpr std::array<TypeName, 11> TypeNames = {{
    {dbBoolean, "BOOLEAN"},
    {dbByte, "BYTE"},
    {dbInteger, "SHORT"},
    {dbLong, "LONG"},
    {dbCurrency, "CURRENCY"},
    {dbSingle, "SINGLE"},
    {dbDouble, "DOUBLE"},
    {dbDate, "DATETIME"},
    {dbText, "TEXT"},
    {dbLongBinary, "LONGBINARY"},
    {dbMemo, "MEMO"},
}};

// SQLite's own rule for types that aren't ours.
DataType ByAffinity(const QString& declaredType) {
    const auto holds = [&declaredType](const char* word) {
        return declaredType.contains(QLatin1String(word));
    };
    if (holds("INT")) {
        return dbLong;
    }
    if (holds("CHAR") || holds("CLOB") || holds("TEXT")) {
        return dbText;
    }
    if (holds("BLOB") || declaredType.isEmpty()) {
        return dbLongBinary;
    }
    return holds("DATE") || holds("TIME") ? dbDate : dbDouble;
}

int SizeInParentheses(const QString& declaredType) {
    const qsizetype begin = declaredType.indexOf(QLatin1Char('('));
    const qsizetype end = declaredType.indexOf(QLatin1Char(')'), begin + 1);
    return begin < 0 || end < 0 ? 0
                                : std::max(0, declaredType.mid(begin + 1, end - begin - 1).trimmed().toInt());
}

// A declared type is one of ours as a whole or not at all: of a "TEXT POINT(20)" SQLite would take the "INT"
// and keep the texts as numbers.
QString TypeWord(const QString& declaredType) {
    return declaredType.left(declaredType.indexOf(QLatin1Char('('))).trimmed();
}

// The bytes as the file has them: a name that isn't UTF-8 is a name all the same.
std::string ColumnText(sqlite3_stmt* statement, int place) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, place));
    return text == nullptr ? std::string() : std::string(text);
}

std::string RowKeyFor(const std::vector<Column>& columns) {
    for (const char* key : {"rowid", "_rowid_", "oid"}) {
        const bool hidden = std::any_of(columns.begin(), columns.end(), [key](const Column& column) {
            return dialect::IsSameName(column.name, QString::fromLatin1(key));
        });
        if (!hidden) {
            return key;
        }
    }
    throw Error(ErrorNumber::Other, QStringLiteral("The rows of the table have no key of their own."));
}

}  // namespace

size_t TableSchema::PlaceOf(const std::string& columnName) const {
    const QString wanted = QString::fromStdString(columnName);
    for (size_t place = 0; place < columns.size(); ++place) {
        if (dialect::IsSameName(columns[place].name, wanted)) {
            return place;
        }
    }
    throw Error(
        ErrorNumber::NoSuchColumn,
        QStringLiteral("The table '%1' has no column '%2'.").arg(QString::fromStdString(name), wanted));
}

Column ToColumn(const std::string& name, const QString& declaredType) {
    Column column;
    column.name = QString::fromStdString(name);
    column.sqlName = dialect::QuotedName(name);
    const QString upper = declaredType.trimmed().toUpper();
    const QString word = TypeWord(upper);
    const auto* known = std::find_if(TypeNames.begin(), TypeNames.end(), [&word](const TypeName& type) {
        return word == QLatin1String(type.name);
    });
    column.type = known != TypeNames.end() ? known->type : ByAffinity(upper);
    column.size = column.type == dbText ? SizeInParentheses(upper) : 0;
    return column;
}

QString DeclaredType(DataType type, int size) {
    const auto* known = std::find_if(TypeNames.begin(), TypeNames.end(),
                                     [type](const TypeName& name) { return name.type == type; });
    if (known == TypeNames.end()) {
        throw Error(ErrorNumber::WrongType, QStringLiteral("There is no column type %1.").arg(type));
    }
    const QString name = QLatin1String(known->name);
    return type == dbText ? QStringLiteral("%1(%2)").arg(name).arg(size) : name;
}

std::shared_ptr<const TableSchema> SchemaCache::Table(const std::string& name) {
    const std::string key = dialect::LowerCase(name);
    const auto known = tables_.find(key);
    if (known != tables_.end()) {
        return known->second;
    }
    return tables_.emplace(key, Read(name)).first->second;
}

std::shared_ptr<const TableSchema> SchemaCache::Read(const std::string& name) {
    if (!connection_.HasTable(name)) {
        throw Error(ErrorNumber::NoSuchTable,
                    QStringLiteral("Could not find the table '%1'.").arg(QString::fromStdString(name)));
    }
    auto table = std::make_shared<TableSchema>();
    table->name = name;
    table->sqlName = dialect::QuotedName(name);
    const StatementHandle columns = connection_.Prepare("select name, type from pragma_table_info(?)");
    sqlite3_bind_text(columns.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(columns.get())) == SQLITE_ROW) {
        table->columns.push_back(
            ToColumn(ColumnText(columns.get(), 0), QString::fromStdString(ColumnText(columns.get(), 1))));
    }
    if (step != SQLITE_DONE) {
        connection_.Raise(step);
    }
    table->rowKey = RowKeyFor(table->columns);
    table->takesAnyRow = connection_.TakesAnyRow(name);
    return table;
}

}  // namespace engine::execution
