#include "support/JetReader.h"

#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <cmath>
#include <vector>

namespace {

// Between values, and at the end of a row: no text of a test has them.
constexpr char ValueEnd = '\x1F';
constexpr char RowEnd = '\x1E';
// What no text of a test is.
constexpr const char* NullWord = "\x1D";

QByteArray OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    }
    return process.readAllStandardOutput();
}

struct TableColumn {
    QString name;
    QString type;
};

// Lines such as "[name]  Text (5)," in the words of mdb-schema.
std::vector<TableColumn> ColumnsOf(const QString& path, const QString& table) {
    static const QRegularExpression line(QStringLiteral("^\\t\\[(.+)\\]\\t+([A-Za-z/]+)"),
                                         QRegularExpression::MultilineOption);
    const QString schema = QString::fromUtf8(OutputOf(
        QStringLiteral("mdb-schema"), {QStringLiteral("-T"), table, path, QStringLiteral("access")}));
    std::vector<TableColumn> columns;
    for (auto match = line.globalMatch(schema); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        columns.push_back({found.captured(1), found.captured(2)});
    }
    return columns;
}

QString Quoted(const QString& name) {
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

// Types as the engine declares them, so that SQLite compares alike.
QString DeclaredType(const QString& type) {
    static const QHash<QString, QString> types{
        {QStringLiteral("Boolean"), QStringLiteral("BOOLEAN")},
        {QStringLiteral("Byte"), QStringLiteral("BYTE")},
        {QStringLiteral("Integer"), QStringLiteral("SHORT")},
        {QStringLiteral("Long"), QStringLiteral("LONG")},
        {QStringLiteral("Currency"), QStringLiteral("CURRENCY")},
        {QStringLiteral("Single"), QStringLiteral("SINGLE")},
        {QStringLiteral("Double"), QStringLiteral("DOUBLE")},
        {QStringLiteral("DateTime"), QStringLiteral("DATETIME")},
        {QStringLiteral("Text"), QStringLiteral("TEXT(255)")},
        {QStringLiteral("OLE"), QStringLiteral("LONGBINARY")},
    };
    return types.value(type, QStringLiteral("MEMO"));
}

void BindText(sqlite3_stmt* row, int place, const QByteArray& text) {
    sqlite3_bind_text(row, place, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void BindDate(sqlite3_stmt* row, int place, const QByteArray& date) {
    const QByteArray noTime = " 00:00:00";
    BindText(row, place, date.endsWith(noTime) ? date.chopped(noTime.size()) : date);
}

void BindMemo(sqlite3_stmt* row, int place, const QByteArray& text) {
    bool isNumber = false;
    static_cast<void>(text.trimmed().toDouble(&isNumber));
    if (isNumber) {
        sqlite3_bind_blob(row, place, text.constData(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    } else {
        BindText(row, place, text);
    }
}

void BindMoney(sqlite3_stmt* row, int place, double amount) {
    if (amount == std::trunc(amount)) {
        sqlite3_bind_int64(row, place, static_cast<sqlite3_int64>(amount));
    } else {
        sqlite3_bind_double(row, place, amount);
    }
}

void Bind(sqlite3_stmt* row, int place, const QString& type, const QByteArray& value) {
    if (value == NullWord) {
        sqlite3_bind_null(row, place);
    } else if (type == QLatin1String("Boolean")) {
        sqlite3_bind_int(row, place, value == "1" ? -1 : 0);
    } else if (type == QLatin1String("Byte") || type == QLatin1String("Integer") ||
               type == QLatin1String("Long")) {
        sqlite3_bind_int64(row, place, value.toLongLong());
    } else if (type == QLatin1String("Currency")) {
        BindMoney(row, place, value.toDouble());
    } else if (type == QLatin1String("Single")) {
        sqlite3_bind_double(row, place, static_cast<double>(value.toFloat()));
    } else if (type == QLatin1String("Double")) {
        sqlite3_bind_double(row, place, value.toDouble());
    } else if (type == QLatin1String("DateTime")) {
        BindDate(row, place, value);
    } else if (type == QLatin1String("OLE")) {
        const QByteArray bytes = QByteArray::fromHex(value);
        sqlite3_bind_blob(row, place, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
    } else if (type == QLatin1String("Memo/Hyperlink")) {
        BindMemo(row, place, value);
    } else {
        BindText(row, place, value);
    }
}

void Run(sqlite3* into, const QString& sql) {
    if (sqlite3_exec(into, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        qFatal("%s: %s", qPrintable(sql), sqlite3_errmsg(into));
    }
}

QByteArrayList RowsOf(const QString& path, const QString& table) {
    QByteArray rows = OutputOf(
        QStringLiteral("mdb-export"),
        {QStringLiteral("-H"), QStringLiteral("-Q"), QStringLiteral("-d"), QString(QLatin1Char(ValueEnd)),
         QStringLiteral("-R"), QString(QLatin1Char(RowEnd)), QStringLiteral("-0"),
         QString::fromLatin1(NullWord), QStringLiteral("-b"), QStringLiteral("hex"), QStringLiteral("-T"),
         QStringLiteral("%Y-%m-%d %H:%M:%S"), path, table});
    rows.chop(rows.endsWith(RowEnd) ? 1 : 0);
    return rows.isEmpty() ? QByteArrayList() : rows.split(RowEnd);
}

void CopyTable(const QString& path, const QString& table, sqlite3* into) {
    const std::vector<TableColumn> columns = ColumnsOf(path, table);
    QStringList declared;
    QStringList places;
    for (const TableColumn& column : columns) {
        declared += Quoted(column.name) + QLatin1Char(' ') + DeclaredType(column.type);
        places += QStringLiteral("?");
    }
    Run(into, QStringLiteral("create table %1(%2)").arg(Quoted(table), declared.join(QLatin1Char(','))));
    const QByteArray insert = QStringLiteral("insert into %1 values(%2)")
                                  .arg(Quoted(table), places.join(QLatin1Char(',')))
                                  .toUtf8();
    sqlite3_stmt* row = nullptr;
    sqlite3_prepare_v2(into, insert.constData(), -1, &row, nullptr);
    for (const QByteArray& line : RowsOf(path, table)) {
        const QByteArrayList values = line.split(ValueEnd);
        for (std::size_t column = 0; column < columns.size(); ++column) {
            Bind(row, static_cast<int>(column) + 1, columns[column].type,
                 values.at(static_cast<qsizetype>(column)));
        }
        if (sqlite3_step(row) != SQLITE_DONE) {
            qFatal("%s: %s", insert.constData(), sqlite3_errmsg(into));
        }
        sqlite3_reset(row);
    }
    sqlite3_finalize(row);
}

}  // namespace

bool IsJetFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(32).mid(4).startsWith("Standard Jet DB");
}

void CopyJetTables(const QString& path, const QString& text, sqlite3* into) {
    Run(into, QStringLiteral("begin"));
    const QString tables =
        QString::fromUtf8(OutputOf(QStringLiteral("mdb-tables"), {QStringLiteral("-1"), path}));
    for (const QString& table : tables.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        if (text.contains(table, Qt::CaseInsensitive)) {
            CopyTable(path, table, into);
        }
    }
    Run(into, QStringLiteral("commit"));
}

void CopyJetTables(const QString& path, const QString& text, const QString& into) {
    sqlite3* copy = nullptr;
    if (sqlite3_open(into.toUtf8().constData(), &copy) != SQLITE_OK) {
        qFatal("%s can't be made", qPrintable(into));
    }
    CopyJetTables(path, text, copy);
    sqlite3_close(copy);
}
