#include "PrefixFinder.h"

#include "ImportJourney.h"

#include <sqlite3.h>

namespace {

class Replica {
public:
    explicit Replica(const QString& path) : path_(path) {
        if (sqlite3_open(path.toUtf8().constData(), &handle_) != SQLITE_OK) {
            qFatal("The replica can't be opened");
        }
        Run("pragma journal_mode = off");
        Run("pragma synchronous = off");
        const QStringList counts = LeftIn(path).rowCounts;
        for (qsizetype table = 0; table < counts.size(); ++table) {
            counts_.push_back(counts[table].toLongLong());
        }
    }
    ~Replica() { sqlite3_close(handle_); }
    Replica(const Replica&) = delete;
    Replica& operator=(const Replica&) = delete;

    void Apply(const TracedWrite& write) {
        Run(write.sql.toUtf8().constData());
        const QString table = write.sql.section(QLatin1Char('"'), 1, 1).toLower();
        const qsizetype place = ImportJourney::Tables().indexOf(table);
        const qint64 direction = write.sql.startsWith(QStringLiteral("insert"))   ? 1
                                 : write.sql.startsWith(QStringLiteral("delete")) ? -1
                                                                                  : 0;
        if (place >= 0) {
            counts_[static_cast<size_t>(place)] += direction * write.changedRows;
        }
    }

    QStringList RowCounts() const {
        QStringList counts;
        for (const qint64 count : counts_) {
            counts += QString::number(count);
        }
        return counts;
    }

    QString Contents() const { return LeftIn(path_).contents; }

private:
    void Run(const char* sql) {
        if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
            qFatal("%s: %s", sql, sqlite3_errmsg(handle_));
        }
    }

    QString path_;
    sqlite3* handle_ = nullptr;
    std::vector<qint64> counts_;
};

}  // namespace

LeftBehind LeftIn(const QString& database) {
    const auto rows = ReadTables(database, ImportJourney::Tables());
    LeftBehind left;
    for (const QString& table : ImportJourney::Tables()) {
        left.rowCounts += QString::number(rows[table].size());
    }
    left.contents = ImportJourney::AsText(rows);
    return left;
}

void FindPrefixes(const QString& freshDatabase, const std::vector<TracedWrite>& writes,
                  const std::vector<LeftBehind*>& imports) {
    Replica replica(freshDatabase);
    for (size_t prefix = 0;; ++prefix) {
        const QStringList counts = replica.RowCounts();
        QString contents;
        for (LeftBehind* import : imports) {
            if (import->rowCounts != counts) {
                continue;
            }
            contents = contents.isEmpty() ? replica.Contents() : contents;
            if (import->contents == contents) {
                import->prefix = static_cast<int>(prefix);
            }
        }
        if (prefix == writes.size()) {
            return;
        }
        replica.Apply(writes[prefix]);
    }
}
