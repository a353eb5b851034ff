#include "ImportJourney.h"

#include "database/CurrentDatabase.h"
#include "engine/jet/FileCheck.h"
#include "support/JetReader.h"
#include "tools/import/ImportTool.h"
#include "tools/schema/CreateTool.h"

#include <QTemporaryDir>

namespace {

/// A fresh database of each format, made once for all tests.
class FreshDatabases {
public:
    FreshDatabases() {
        for (const auto format : {engine::FileFormat::Jet, engine::FileFormat::Sqlite}) {
            tools::CreateHearthbookDatabase(Path(format), format);
            // Without a yes or no that nobody has said: a Jet file has none.
            EXPECT_TRUE(RunElsewhere(Path(format),
                                     "insert into owner(code, statement_by_email) values('old', 0);"
                                     "insert into expenses(date, disburse_id) values('2020-01-01', 0);"
                                     "update glcodes set inactive = 0;"
                                     "update options set taxincome = -1"));
        }
    }

    QString Path(engine::FileFormat format) const {
        return folder_.filePath(QString::number(static_cast<int>(format)));
    }

private:
    QTemporaryDir folder_;
};

const FreshDatabases& Originals() {
    static const FreshDatabases databases;
    return databases;
}

}  // namespace

const QStringList& ImportJourney::Tables() {
    static const QStringList tables = {
        QStringLiteral("glcodes"),      QStringLiteral("owner"),    QStringLiteral("property"),
        QStringLiteral("tenancy"),      QStringLiteral("notes"),    QStringLiteral("tenant_bond"),
        QStringLiteral("rent_periods"), QStringLiteral("revenues"), QStringLiteral("expenses"),
        QStringLiteral("contractor"),   QStringLiteral("options")};
    return tables;
}

// Before any disk fails, and before anybody traces what is written.
ImportJourney::ImportJourney() {
    Originals();
}

void ImportJourney::UsePortfolio(const PortfolioSize& size) {
    QFile file(portfolio);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(MakePortfolio(size));
}

QString ImportJourney::FreshDatabase(const char* name, engine::FileFormat format) {
    // That of the import before. Not every system removes a file that is open.
    database::SetCurrentDatabase(nullptr);
    const QString path = workplace.Path(QString::fromUtf8(name));
    QFile::remove(path);
    for (const QString& end : EndsOfFilesBeside()) {
        QFile::remove(path + end);
    }
    EXPECT_TRUE(QFile::copy(Originals().Path(format), path));
    return path;
}

bool ImportJourney::IsSound(const QString& database) {
    if (!IsJetFile(database)) {
        return ReadRows(database, "pragma integrity_check") == QStringList{QStringLiteral("ok")};
    }
    engine::DBEngine::Instance().OpenDatabase(database).reset();
    const std::vector<std::string> faults = engine::jet::FaultsOfFile(database);
    for (const std::string& fault : faults) {
        ADD_FAILURE() << fault;
    }
    return faults.empty();
}

int ImportJourney::Import(const QString& database, const QStringList& more) const {
    return tools::RunImportTool(QStringList{portfolio, QStringLiteral("--database"), database,
                                            QStringLiteral("--yes"), QStringLiteral("--today"),
                                            QStringLiteral("2026-11-21")} +
                                more);
}

ImportOrder ImportJourney::OrderFor(const QString& database) const {
    ImportOrder order;
    order.portfolio = portfolio;
    order.database = database;
    order.log = workplace.Path({});
    return order;
}

QString ImportJourney::Contents(const QString& database) {
    return AsText(ReadTables(database, Tables()));
}

QString ImportJourney::AsText(const QHash<QString, QStringList>& rows) {
    QString text;
    for (const QString& table : Tables()) {
        text += table + QLatin1Char('\n') + rows[table].join(QLatin1Char('\n'));
    }
    return text;
}
