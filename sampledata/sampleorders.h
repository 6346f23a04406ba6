#pragma once

// The orders of a trading house that never was: customers in Poland, Czechia and Germany, what it sells, and who
// ordered what. Pages, examples and tests show it. Every run makes the same rows.

#include "framework/db/sqlstatement.h"

namespace sampleorders {

using framework::String;

constexpr int customerCount = 1'200;
constexpr int productCount = 160;
constexpr int orderCount = 6'000;

/// One table with all its rows, in the order of its columns.
struct TTable {
    String Name;
    /// A name and a declaration that SQLite and PostgreSQL both take.
    std::vector<std::pair<String, String>> Columns;
    std::vector<std::vector<framework::TSqlParameter>> Rows;
};

/// customers, products, orders and items; each refers only to tables before it.
std::vector<TTable> MakeTables(framework::TDatabaseKind kind);

} // namespace sampleorders
