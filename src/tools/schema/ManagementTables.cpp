#include "tools/schema/Columns.h"

namespace tools {

std::vector<engine::TableDefinition> ManagementTables() {
    return {
        Table("contractor", {Long("contractornumber"), Text("name", NameLength), Text("trade", 30),
                             Text("phone", 20), Boolean("preferred")}),
        Table("workorder", {Long("order_number"), Text("property code", PropertyCodeLength),
                            Long("contractornumber"), Date("date"), Memo("work"), Boolean("finished")}),
        Table("woquote", {Long("order_number"), Long("contractornumber"), Date("date"), Money("amount")}),
        Table("notes", {Text("reference", PropertyCodeLength), Date("date"), Memo("note")}),
        Table("budget", {Long("budget_id"), Text("name", NameLength), Date("year_start")}),
        Table("budgetproperty", {Long("budget_id"), Text("property code", PropertyCodeLength)}),
        Table("budgetvalue",
              {Long("budget_id"), Text("gl_code", LedgerCodeLength), Integer("month"), Money("amount")}),
        Table("chattel", {Text("property code", PropertyCodeLength), Text("description", NameLength),
                          Money("cost"), Date("bought"), Single("depn_rate")}),
        Table("custom_fields", {Text("table_name", 30), Text("reference", PropertyCodeLength),
                                Text("field", 30), Memo("contents")}),
        Table("property_rooms",
              {Long("room_id"), Text("property code", PropertyCodeLength), Text("room", 30)}),
        Table("insp_rooms", {Long("inspection_id"), Long("room_id"), Memo("remarks")}),
        Table("insp_room_attr",
              {Long("inspection_id"), Long("room_id"), Text("attribute", 30), Integer("condition_mark")}),
        Table("insp_schedule", {Long("inspection_id"), Text("property code", PropertyCodeLength),
                                Date("date"), Boolean("done")}),
        Table("mileage", {Date("date"), Text("property code", PropertyCodeLength), Single("distance"),
                          Text("purpose", NameLength)}),
        Table("pictures", {Text("property code", PropertyCodeLength), Text("file_name", 255), Date("taken")}),
    };
}

}  // namespace tools
