#include "ImportJourney.h"

#include "platform/Process.h"
#include "support/FormatUnderTest.h"
#include "tools/import/ImportTool.h"
#include "tools/schema/CreateTool.h"

#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

const QStringList& ImportJourney::Tables() {
    static const QStringList tables = {
        QStringLiteral("glcodes"),      QStringLiteral("owner"),    QStringLiteral("property"),
        QStringLiteral("tenancy"),      QStringLiteral("notes"),    QStringLiteral("tenant_bond"),
        QStringLiteral("rent_periods"), QStringLiteral("revenues"), QStringLiteral("expenses"),
        QStringLiteral("contractor"),   QStringLiteral("options")};
    return tables;
}

ImportJourney::ImportJourney() {
    tools::CreateHearthbookDatabase(freshDatabase_, FormatUnderTest());
    EXPECT_TRUE(RunElsewhere(freshDatabase_,
                             "insert into owner(code) values('old');"
                             "insert into expenses(date, disburse_id) values('2020-01-01', 0);"
                             "update options set taxincome = -1"));
}

void ImportJourney::UsePortfolio(const PortfolioSize& size) {
    QFile file(portfolio);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(MakePortfolio(size));
}

QString ImportJourney::FreshDatabase(const char* name) {
    const QString path = workplace.Path(QString::fromUtf8(name));
    QFile::remove(path);
    QFile::remove(path + QStringLiteral("-journal"));
    EXPECT_TRUE(QFile::copy(freshDatabase_, path));
    return path;
}

int ImportJourney::Import(const QString& database) const {
    return tools::RunImportTool({portfolio, QStringLiteral("--database"), database, QStringLiteral("--yes"),
                                 QStringLiteral("--today"), QStringLiteral("2026-11-21")});
}

int ImportJourney::StartImport(const QString& database, const QString& errors) const {
    const int child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(open(errors.toUtf8().constData(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
        platform::RunProcess([&] { return Import(database); });
    }
    return child;
}

QString ImportJourney::Contents(const QString& database) {
    const auto rows = ReadTables(database, Tables());
    QString contents;
    for (const QString& table : Tables()) {
        contents += table + QLatin1Char('\n') + rows[table].join(QLatin1Char('\n'));
    }
    return contents;
}

QStringList ImportJourney::RowCounts(const QString& database) {
    QStringList counts;
    for (const QString& table : Tables()) {
        const QByteArray sql = "select count(*) from [" + table.toUtf8() + "]";
        counts += ReadRows(database, sql.constData());
    }
    return counts;
}
