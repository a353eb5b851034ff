#include "engine/execution/CheckWritten.h"

#include "engine/dialect/Names.h"

#include <algorithm>

namespace engine::execution {

namespace {

std::optional<Error> FileDifference(const Transaction& transaction, const QString& path,
                                    const platform::FileIdentity& written) {
    const std::optional<platform::FileIdentity> file = platform::IdentityOf(path);
    if (!file) {
        return Error(ErrorNumber::CannotOpenDatabase,
                     QStringLiteral("Could not find file '%1' any more: it was moved or removed while it was "
                                    "being written.")
                         .arg(path));
    }
    if (*file != written) {
        return Error(ErrorNumber::CannotOpenDatabase,
                     QStringLiteral("File '%1' is not the one that was written: another one has taken its "
                                    "place meanwhile.")
                         .arg(path));
    }
    if (transaction.IsOverwritten()) {
        return Error(ErrorNumber::DatabaseDamaged,
                     QStringLiteral("Another program has overwritten file '%1' while it was being written.")
                         .arg(path));
    }
    return std::nullopt;
}

qint64 CountRows(Connection& connection, const std::string& table) {
    const StatementHandle count = connection.Prepare("select count(*) from " + dialect::QuotedName(table));
    const int step = sqlite3_step(count.get());
    if (step != SQLITE_ROW) {
        connection.Raise(step);
    }
    return sqlite3_column_int64(count.get(), 0);
}

Error RowsMissing(const std::string& table, qint64 written, qint64 found) {
    return {ErrorNumber::RecordDeleted,
            QStringLiteral("Rows of the table '%1' are missing: %2 were written, %3 are there.")
                .arg(QString::fromStdString(table), QString::number(written), QString::number(found))};
}

}  // namespace

std::vector<Error> CheckWritten(Connection& connection, const Transaction& transaction, const QString& path,
                                const platform::FileIdentity& written) {
    const RowTally::RowsByTable& tables = transaction.Rows();
    const bool hasWritten =
        std::any_of(tables.begin(), tables.end(), [](const auto& table) { return table.second > 0; });
    if (!hasWritten) {
        return {};
    }
    if (const std::optional<Error> difference = FileDifference(transaction, path, written)) {
        return {*difference};
    }
    // The connection still knows pages by heart.
    connection.Forget();
    std::vector<Error> differences;
    for (const auto& [table, rows] : tables) {
        const qint64 found = rows > 0 ? CountRows(connection, table) : 0;
        if (found < rows) {
            differences.push_back(RowsMissing(table, rows, found));
        }
    }
    return differences;
}

}  // namespace engine::execution
