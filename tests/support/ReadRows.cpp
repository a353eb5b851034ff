// Prints all rows of tables of a database file as the engine reads them, each as a line: an array in JSON
// that begins with the table's name. Money is a text with four places, a moment one of the form YYYY-MM-DD
// HH:MM:SS.

#include "engine/DBEngine.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace {

QString MoneyText(engine::Currency money) {
    const qint64 scaled = money.Scaled();
    const QString sign = scaled < 0 ? QStringLiteral("-") : QString();
    return QStringLiteral("%1%2.%3")
        .arg(sign)
        .arg(qAbs(scaled / 10000))
        .arg(qAbs(scaled % 10000), 4, 10, QLatin1Char('0'));
}

QJsonValue ToJson(const engine::Value& value) {
    struct {
        QJsonValue operator()(engine::Null /*null*/) const { return {}; }
        QJsonValue operator()(bool yes) const { return yes; }
        QJsonValue operator()(qint64 number) const { return number; }
        QJsonValue operator()(double number) const { return number; }
        QJsonValue operator()(engine::Currency money) const { return MoneyText(money); }
        QJsonValue operator()(const QDateTime& moment) const {
            return moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        }
        QJsonValue operator()(const QString& text) const { return text; }
        QJsonValue operator()(const QByteArray& bytes) const { return QString::fromLatin1(bytes.toHex()); }
    } toJson;
    return std::visit(toJson, value);
}

void PrintTable(engine::Database& database, const QString& table) {
    const auto rows = database.OpenRecordset(QStringLiteral("select * from [%1]").arg(table),
                                             engine::dbOpenForwardOnly, engine::dbReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        QJsonArray row{table};
        for (int column = 0; column < rows->FieldCount(); ++column) {
            row.append(ToJson(rows->Fields(column).Get()));
        }
        std::puts(QJsonDocument(row).toJson(QJsonDocument::Compact).constData());
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::fputs("Usage: read-rows FILE TABLE...\n", stderr);
        return 2;
    }
    try {
        const auto database = engine::DBEngine::Instance().OpenDatabase(QFile::decodeName(arguments[1]));
        for (int table = 2; table < count; ++table) {
            PrintTable(*database, QString::fromUtf8(arguments[table]));
        }
    } catch (const platform::Failure& failure) {
        std::fprintf(stderr, "%d: %s\n", failure.Number(), qPrintable(failure.Description()));
        return 1;
    }
    return 0;
}
