#include "records/ImportRun.h"

#include "database/CurrentDatabase.h"
#include "database/ErrorReport.h"
#include "database/RecordAccess.h"
#include "database/StatementText.h"
#include "records/Collections.h"
#include "records/ImportCheck.h"
#include "records/ImportSettings.h"

#include <QLatin1String>

#include <array>

namespace records {
namespace {

/// The payee and the two contractors are samples that a new Hearthbook database holds. budgetproperty and
/// workorder stand here twice on purpose; the second time finds nothing.
constexpr std::array WipeStatements{
    QLatin1String("delete from notes"),
    QLatin1String("delete from mortgage"),
    QLatin1String("delete from disbursement"),
    QLatin1String("delete from workorder"),
    QLatin1String("delete from GLCODES where gl_code = 'Payee1' and description = 'Fence Repairs Ltd'"),
    QLatin1String("delete from contractor where contractornumber = 1000 and name = 'Freds Gardening'"),
    QLatin1String("delete from contractor where contractornumber = 1001 and name = 'Toms Tree Services'"),
    QLatin1String("delete from recon"),
    QLatin1String("delete from property"),
    QLatin1String("delete from tenancy"),
    QLatin1String("delete from owner"),
    QLatin1String("delete from auto_fee"),
    QLatin1String("delete from autopayment"),
    QLatin1String("delete from autorevenue"),
    QLatin1String("delete from budget"),
    QLatin1String("delete from budgetproperty"),
    QLatin1String("delete from budgetvalue"),
    QLatin1String("delete from chattel"),
    QLatin1String("delete from custom_fields"),
    QLatin1String("delete from expenses"),
    QLatin1String("delete from extra_fees"),
    QLatin1String("delete from budgetproperty"),
    QLatin1String("delete from glcodes where type = 3"),
    QLatin1String("delete from insp_room_attr"),
    QLatin1String("delete from insp_rooms"),
    QLatin1String("delete from insp_schedule"),
    QLatin1String("delete from mileage"),
    QLatin1String("delete from pictures"),
    QLatin1String("delete from property_rooms"),
    QLatin1String("delete from rent_periods"),
    QLatin1String("delete from rent_periods_charges"),
    QLatin1String("delete from rentchanges"),
    QLatin1String("delete from revenues"),
    QLatin1String("delete from split_charges"),
    QLatin1String("delete from tenant_bond"),
    QLatin1String("delete from woquote"),
    QLatin1String("delete from workorder"),
};

}  // namespace

void ImportData(Collections& all, const ImportProgress& progress) {
    const int reportedBefore = database::ReportedErrors();
    PrepareCodes(all);
    WipeDatabase();
    InsertAllRecords(all, progress);
    database::CheckWritten();
    if (database::ReportedErrors() == reportedBefore) {
        CheckRecords(all);
    }
}

// It writes to no table that it hasn't wiped.
QStringList ImportTables() {
    QStringList tables;
    for (const QString statement : WipeStatements) {
        constexpr int Table = 2;  // Behind "delete" and "from".
        tables += statement.section(QLatin1Char(' '), Table, Table);
    }
    tables.removeDuplicates();
    return tables;
}

void PrepareCodes(Collections& all) {
    all.bankAccounts.GenerateCodes();
    all.Owners.GenerateCodes();
    all.Properties.GenerateCodes();
    all.Tenants.GenerateCodes();
}

void WipeDatabase() {
    if (!database::StartDatabase(database::Opening::ForImport, ImportTables())) {
        return;
    }
    for (const QLatin1String statement : WipeStatements) {
        database::ExecuteSql(QString(statement));
    }
}

void InsertAllRecords(const Collections& all, const ImportProgress& progress) {
    const int total =
        all.bankAccounts.Count() + all.Owners.Count() + all.Properties.Count() + all.Tenants.Count();
    int done = 0;
    const auto recordWritten = [&] {
        ++done;
        if (progress) {
            progress(done, total);
        }
    };
    all.bankAccounts.InsertRecords(all, recordWritten);
    all.Owners.InsertRecords(all, recordWritten);
    all.Properties.InsertRecords(all, recordWritten);
    all.Tenants.InsertRecords(all, recordWritten);
    SetDisbursementCutOff();
}

void SetDisbursementCutOff() {
    const QDate LastDisbursement = CurrentSettings().LastDisbursement;
    if (platform::IsNoDate(LastDisbursement)) {
        return;
    }
    for (const QLatin1String table : {QLatin1String("expenses"), QLatin1String("revenues")}) {
        QString statement = QLatin1String("update ") + table +
                            QLatin1String(" set disburse_id = -1 where [date] <= ") +
                            database::SqlDate(LastDisbursement);
        database::ExecuteSql(statement);
    }
}

QString ImportCompleteMessage(bool restartRequested) {
    // A Hearthbook that is started afresh reads the new data anyway.
    return restartRequested ? QStringLiteral("Import complete.")
                            : QStringLiteral(
                                  "Import complete.  If Hearthbook is running, it is recommended you restart "
                                  "it to reload the most recent changes.");
}

}  // namespace records
