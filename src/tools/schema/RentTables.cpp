#include "tools/schema/Columns.h"

namespace tools {

namespace {

engine::TableDefinition RentPeriodsTable() {
    return TableByTenant("rent_periods", {Text("tenant_code", PropertyCodeLength), Date("period_from"),
                                          Date("period_to"), Money("rent_due"), Money("extra_charges"),
                                          Double("paid"), Double("extra_charges_paid")});
}

engine::TableDefinition RevenuesTable() {
    return TableByTenant(
        "revenues",
        {Date("date"), Text("property code", PropertyCodeLength), Double("amount"), Text("revenue group", 30),
         Text("description", NameLength), Text("your reference", 30), Double("rent_weeks"), Date("paid_to"),
         Text("counter_gl", AccountNameLength), Text("tenant_code", PropertyCodeLength), Long("recon_id"),
         Money("tax"), Long("disburse_id")});
}

engine::TableDefinition TenantBondTable() {
    return Table("tenant_bond", {Text("tenant_code", PropertyCodeLength), Date("date"), Double("amount"),
                                 Text("reason", NameLength), Text("lodged_with", NameLength)});
}

engine::TableDefinition ExpensesTable() {
    return Table("expenses",
                 {Date("date"), Text("property code", PropertyCodeLength), Text("gl_code", LedgerCodeLength),
                  Money("amount"), Money("tax"), Text("description", NameLength), Text("payee", NameLength),
                  Text("counter_gl", AccountNameLength), Long("recon_id"), Long("disburse_id")});
}

engine::TableDefinition OptionsTable() {
    return Table("options", {Boolean("taxincome"), Double("taxincrate"), Text("Rent_Group", 30),
                             Text("company_name", NameLength), Text("tax_name", 10), Date("year_end")});
}

}  // namespace

std::vector<engine::TableDefinition> RentTables() {
    return {
        RentPeriodsTable(),
        RevenuesTable(),
        TenantBondTable(),
        ExpensesTable(),
        OptionsTable(),
        Table("rent_periods_charges", {Text("tenant_code", PropertyCodeLength), Date("period_from"),
                                       Text("charge", 30), Money("amount"), Money("paid")}),
        Table("rentchanges",
              {Text("tenant_code", PropertyCodeLength), Date("date"), Money("old_rent"), Money("new_rent")}),
        Table("split_charges",
              {Text("tenant_code", PropertyCodeLength), Text("charge", 30), Single("share")}),
        Table("extra_fees", {Text("owner_code", LedgerCodeLength), Text("description", NameLength),
                             Money("amount"), Boolean("every_month")}),
        Table("auto_fee", {Text("owner_code", LedgerCodeLength), Text("gl_code", LedgerCodeLength),
                           Money("amount"), Date("next_date")}),
        Table("autopayment",
              {Text("property code", PropertyCodeLength), Text("payee", NameLength), Money("amount"),
               Integer("every_amt"), Text("every_freq", 10), Date("next_date")}),
        Table("autorevenue",
              {Text("tenant_code", PropertyCodeLength), Text("revenue group", 30), Money("amount"),
               Integer("every_amt"), Text("every_freq", 10), Date("next_date")}),
        Table("disbursement", {Long("disburse_id"), Date("date"), Text("owner_code", LedgerCodeLength),
                               Money("amount"), Text("your reference", 30)}),
        Table("recon", {Long("recon_id"), Date("date"), Text("gl_code", LedgerCodeLength), Money("balance")}),
        Table("mortgage", {Text("property code", PropertyCodeLength), Text("lender", NameLength),
                           Money("amount"), Single("interest_rate"), Date("started")}),
    };
}

}  // namespace tools
