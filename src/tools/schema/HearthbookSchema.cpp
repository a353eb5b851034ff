#include "tools/schema/HearthbookSchema.h"

#include "tools/schema/Columns.h"

#include <array>
#include <iterator>

namespace tools {

namespace {

// Types of ledger accounts. Bank accounts are type 3; a fresh database has none.
struct LedgerAccount {
    const char* code;
    const char* description;
    int type;  // 1 income, 2 expense, 4 payee, 5 asset, 6 liability
    bool isTaxable;
};

constexpr std::array ChartOfAccounts{
    LedgerAccount{"Rent", "Rent Received", 1, false},
    LedgerAccount{"WaterInc", "Water Recovered", 1, false},
    LedgerAccount{"Interest", "Interest Received", 1, false},
    LedgerAccount{"LateFees", "Late Payment Fees", 1, true},
    LedgerAccount{"MgmtFee", "Management Fees", 2, true},
    LedgerAccount{"Repairs", "Repairs and Maintenance", 2, true},
    LedgerAccount{"Insurance", "Insurance", 2, true},
    LedgerAccount{"Rates", "Council Rates", 2, true},
    LedgerAccount{"Garden", "Gardening", 2, true},
    LedgerAccount{"Advert", "Advertising for Tenants", 2, true},
    LedgerAccount{"Mortgage", "Mortgage Interest", 2, false},
    LedgerAccount{"Buildings", "Land and Buildings", 5, false},
    LedgerAccount{"Bonds", "Bonds Held for Tenants", 6, false},
    // The sample payee that Hearthbook's tutorial pays.
    LedgerAccount{"Payee1", "Fence Repairs Ltd", 4, true},
};

void AddLedgerAccount(engine::Database& database, const LedgerAccount& account) {
    database.Execute(
        QStringLiteral("insert into glcodes (gl_code, description, type, taxable_yn, bankbalance) "
                       "values ('%1', '%2', %3, %4, 0)")
            .arg(QLatin1String(account.code), QLatin1String(account.description))
            .arg(account.type)
            .arg(account.isTaxable ? QStringLiteral("true") : QStringLiteral("false")));
}

}  // namespace

std::vector<engine::TableDefinition> HearthbookTables() {
    std::vector<engine::TableDefinition> tables = RecordTables();
    for (auto more : {RentTables(), ManagementTables()}) {
        tables.insert(tables.end(), std::make_move_iterator(more.begin()),
                      std::make_move_iterator(more.end()));
    }
    return tables;
}

void FillFreshDatabase(engine::Database& database) {
    database.Execute(QStringLiteral(
        "insert into options (taxincome, taxincrate, Rent_Group, company_name, tax_name, year_end) "
        "values (false, 15, 'Rent', '', 'Tax', #3/31/2027#)"));
    for (const LedgerAccount& account : ChartOfAccounts) {
        AddLedgerAccount(database, account);
    }
    database.Execute(
        QStringLiteral("insert into contractor (contractornumber, name, trade, phone, preferred) "
                       "values (1000, 'Freds Gardening', 'Gardening', '', false)"));
    database.Execute(
        QStringLiteral("insert into contractor (contractornumber, name, trade, phone, preferred) "
                       "values (1001, 'Toms Tree Services', 'Tree work', '', false)"));
}

}  // namespace tools
