#include "tools/schema/Columns.h"

namespace tools {

namespace {

engine::TableDefinition LedgerTable() {
    return Table("glcodes",
                 {Text("gl_code", LedgerCodeLength), Text("description", NameLength), Integer("type"),
                  Boolean("taxable_yn"), Double("bankbalance"), Date("balancedate"), Boolean("inactive"),
                  Long("sort_order"), Money("opening_balance"), Text("bank_number", 30), Memo("comments")});
}

engine::TableDefinition OwnerTable() {
    return Table("owner",
                 {Text("code", LedgerCodeLength), Text("name", NameLength), Double("fee_percent"),
                  Text("address1", 30), Text("address2", 30), Text("address3", 30), Text("phone", 20),
                  Text("email", 100), Boolean("statement_by_email"), Money("minimum_balance"),
                  Single("withholding_rate"), Date("date_added"), Memo("notes")});
}

engine::TableDefinition PropertyTable() {
    return Table(
        "property",
        {Text("code", PropertyCodeLength), Text("address1", 30), Text("address2", NameLength),
         Text("address3", NameLength), Text("default_gl", AccountNameLength),
         Text("ownercode", LedgerCodeLength), Integer("type"), Text("parent_property", PropertyCodeLength),
         Integer("depn_rate"), Text("depn_method", 10), Text("property_type", 30), Integer("vacancy_status"),
         Money("valuation"), Date("valuation_date"), Single("floor_area"), Long("bedrooms"),
         Boolean("furnished"), Memo("comments")});
}

engine::TableDefinition TenancyTable() {
    return Table("tenancy", {Text("reference", PropertyCodeLength),
                             Text("name", NameLength),
                             Text("property code", PropertyCodeLength),
                             Double("current rent"),
                             Double("bond"),
                             Date("when started"),
                             Date("when ended"),
                             Integer("insp_number"),
                             Text("insp_every", 10),
                             Integer("every_amt"),
                             Text("every_freq", 10),
                             Date("rentreviewdate"),
                             Integer("water_meter"),
                             Integer("monthly_day"),
                             Text("phone", 20),
                             Text("email", 100),
                             Boolean("receipt_by_email"),
                             Money("letting_fee"),
                             Single("late_fee_rate"),
                             Long("last_letter"),
                             Memo("comments")});
}

}  // namespace

std::vector<engine::TableDefinition> RecordTables() {
    return {LedgerTable(), OwnerTable(), PropertyTable(), TenancyTable()};
}

}  // namespace tools
