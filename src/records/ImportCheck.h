#pragma once

namespace records {

struct Collections;

/// Looks for what an import without a reported failure must have left: each account, owner, property and
/// tenancy as often as it was entered, and so neither lost nor there twice, in the file that the database's
/// name leads to. What differs is told to the user ("Import Data"), one failure for each table. Rows of other
/// programs, with keys of their own, are none of its business.
void CheckRecords(const Collections& all);

}  // namespace records
