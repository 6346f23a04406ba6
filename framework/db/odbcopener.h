#pragma once

#include "framework/db/adodataset.h"

namespace framework {

/// Opens the recordset of a query through ODBC, on the query's connection or on a new one, which is left in the query.
std::shared_ptr<_Recordset> OpenThroughOdbc(TRecordsetQuery& query);

} // namespace framework
