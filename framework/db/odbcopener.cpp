#include "framework/db/odbcopener.h"

#include "framework/db/odbc.h"

namespace framework {

std::shared_ptr<_Recordset> OpenThroughOdbc(TRecordsetQuery& query) {
    if (!query.Connection)
        query.Connection = std::make_shared<TOdbcConnection>(query.ConnectionString);
    return OpenRecordset(query.Connection, query.Statement, std::move(query.Parameters), query.Progress);
}

} // namespace framework
