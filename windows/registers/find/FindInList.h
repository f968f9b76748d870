#pragma once

#include "core/rules/FindRequest.h"

class CDataStore;
class RecordList;

/// Carries a request out on a list whose recordset is open: the match found is selected alone, replacements go straight
/// into the records, and a signal sounds when there is no (further) match. The order of the rows stays. `all` is what
/// replacing all came to. Raises ComError; what was replaced before is kept and shown.
void CarryOut(const FindRequest& request, CDataStore& store, RecordList& list, ReplacedAll& all);
