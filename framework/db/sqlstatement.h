#pragma once

// The statements by which edits reach a table. Values are always parameters; names stand between the database's quotes.

#include "framework/db/datavalues.h"

#include <functional>

namespace framework {

/// A value for a `?` of a statement. Moments need the type where it is not to be seen from the value: a moment at
/// midnight counts as a date otherwise, one on 1899-12-30 as a time.
struct TSqlParameter {
    TDataValue Value;
    DataTypeEnum Type = adEmpty;
};

struct TSqlStatement {
    String Text;
    std::vector<TSqlParameter> Parameters;
};

/// Databases that need a word of their own in some place.
enum class TDatabaseKind : std::uint8_t { Other, SQLite, PostgreSQL };

/// A table as edits see it.
struct TEditTable {
    struct TColumn {
        String Name; ///< in the table; empty for columns that are not of it
        DataTypeEnum Type = adVarWChar;
        /// As the driver names the type, in lower case.
        String ServerType;
    };

    /// With its schema, quoted.
    String Name;
    String Quote = u"\"";
    TDatabaseKind Kind = TDatabaseKind::Other;
    /// In the order of the recordset's columns.
    std::vector<TColumn> Columns;
    /// Columns of the primary key.
    std::vector<int> Key;
};

/// What a column of the row held when it was read.
using TOldValue = std::function<TDataValue(int column)>;

/// `name` between quotes, those inside doubled; as it is where the database has none.
String QuotedName(StringView name, StringView quote);

TSqlStatement InsertStatement(const TEditTable& table, std::span<const TColumnValue> values);
/// Finds the row only if its key and the columns to be changed are still as they were.
TSqlStatement UpdateStatement(const TEditTable& table, std::span<const TColumnValue> values, const TOldValue& old);
/// Finds the row only if all its columns are still as they were.
TSqlStatement DeleteStatement(const TEditTable& table, const TOldValue& old);
/// All columns of the table, in the recordset's order, of the row with this key.
TSqlStatement SelectByKeyStatement(const TEditTable& table, const TOldValue& key);

} // namespace framework
