#include "records/ImportCheck.h"

#include "database/CurrentDatabase.h"
#include "database/ErrorReport.h"
#include "platform/Utf8.h"
#include "records/Collections.h"

namespace records {
namespace {

/// How often each key occurs. As bytes, since a key that was cut within a character is stored with another in
/// the place of the half.
using KeyCounts = QHash<QByteArray, int>;

QByteArray Key(const QString& code) {
    return platform::Utf8FromText(code);
}

template <typename Collection>
KeyCounts KeysOf(const Collection& collection) {
    KeyCounts keys;
    for (const auto& record : collection.Walk()) {
        // An owner without a name is not written.
        if (!record->Code.isEmpty()) {
            ++keys[Key(record->Code)];
        }
    }
    return keys;
}

/// How often these keys occur in a column of a table.
KeyCounts Find(const KeyCounts& keys, engine::Database& database, const QString& select) {
    KeyCounts found;
    const auto rows = database.OpenRecordset(select, engine::dbOpenForwardOnly, engine::dbReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
        const engine::Value value = rows->Fields(0).Get();
        const QByteArray key = engine::IsNull(value) ? QByteArray() : Key(engine::ToText(value));
        if (keys.contains(key)) {
            ++found[key];
        }
    }
    return found;
}

void CheckTable(engine::Database& database, const KeyCounts& written, const QString& table,
                const QString& column, const QString& condition = {}) {
    const KeyCounts found =
        Find(written, database, QStringLiteral("select %1 from %2%3").arg(column, table, condition));
    for (auto key = written.begin(); key != written.end(); ++key) {
        const int count = found.value(key.key());
        if (count != key.value()) {
            const engine::Error difference(
                engine::ErrorNumber::RecordDeleted,
                QStringLiteral(
                    "Table '%1' is not as it was written: of '%2' there are %3 rows instead of %4.")
                    .arg(table, platform::TextFromUtf8(key.key()), QString::number(count),
                         QString::number(key.value())));
            database::ReportFailure(difference, QStringLiteral("Import Data"), database::DatabaseFile());
            return;
        }
    }
}

}  // namespace

void CheckRecords(const Collections& all) {
    try {
        engine::Database& database = database::CurrentDatabase();
        CheckTable(database, KeysOf(all.bankAccounts), QStringLiteral("glcodes"), QStringLiteral("gl_code"),
                   QStringLiteral(" where type = 3"));
        CheckTable(database, KeysOf(all.Owners), QStringLiteral("owner"), QStringLiteral("code"));
        CheckTable(database, KeysOf(all.Properties), QStringLiteral("property"), QStringLiteral("code"));
        CheckTable(database, KeysOf(all.Tenants), QStringLiteral("tenancy"), QStringLiteral("reference"));
    } catch (...) {
        database::ReportError(QStringLiteral("Import Data"), database::DatabaseFile());
    }
}

}  // namespace records
