#pragma once

// The sample orders in a database of one's own.

#include "framework/db/odbc.h"
#include "sampledata/sampleorders.h"

namespace sampleorders {

/// True when the tables are there.
inline bool AreLoaded(framework::TOdbcConnection& connection) {
    try {
        connection.Execute(u"SELECT count(*) FROM items");
        return true;
    } catch (const framework::EDatabaseServerError& error) {
        if (error.IsConnectionLost())
            throw;
        return false;
    }
}

/// Makes the tables and their rows, all or none of them.
inline void Load(framework::TOdbcConnection& connection) {
    using namespace framework;
    TOdbcTransaction transaction(connection);
    for (const TTable& table : MakeTables(connection.GetKind())) {
        String columns;
        String marks;
        for (const auto& [name, declaration] : table.Columns) {
            columns += (columns.empty() ? u"" : u", ") + name + u" " + declaration;
            marks += marks.empty() ? u"(?" : u", ?";
        }
        connection.Execute(u"CREATE TABLE " + table.Name + u" (" + columns + u")");
        // Many rows with each statement, as a server far away answers each of them.
        constexpr std::size_t rowsAtOnce = 40;
        const String insert = u"INSERT INTO " + table.Name + u" VALUES " + marks + u")";
        String insertMany = insert;
        for (std::size_t i = 1; i < rowsAtOnce; ++i)
            insertMany += u", " + marks + u")";
        std::vector<std::vector<TSqlParameter>> blocks;
        std::size_t row = 0;
        for (; row + rowsAtOnce <= table.Rows.size(); row += rowsAtOnce) {
            std::vector<TSqlParameter>& block = blocks.emplace_back();
            for (std::size_t i = row; i < row + rowsAtOnce; ++i)
                block.insert(block.end(), table.Rows[i].begin(), table.Rows[i].end());
        }
        connection.ExecuteForAll(insertMany, blocks);
        connection.ExecuteForAll(insert, std::span(table.Rows).subspan(row));
    }
    connection.Execute(u"CREATE INDEX orders_customer ON orders (customer_id)");
    connection.Execute(u"CREATE INDEX items_order ON items (order_id)");
    transaction.Commit();
}

/// Loads them on the first run.
inline void LoadOnce(framework::TOdbcConnection& connection) {
    if (!AreLoaded(connection))
        Load(connection);
}

} // namespace sampleorders
