#pragma once

// The database of the page "Orders": the sample orders in a SQLite file of the person's own, and what the page asks of
// it beside the rows that its datasets show.

#include "framework/db/odbc.h"
#include "framework/system/currency.h"

#include <map>
#include <set>

namespace gallery {
using namespace framework;

struct TOrderCustomer {
    String Name;
    String City;
};

/// What a number of orders come to.
struct TOrderTotals {
    int Count = 0;
    Currency Goods;
    Currency Shipping;
};

/// Some of the orders; a part that is not set lets all pass.
struct TOrderChoice {
    std::set<String> Cities;              ///< of the customers; all when empty
    std::optional<std::set<int>> Numbers; ///< of the orders
};

class TOrdersDatabase {
public:
    /// Opens the file, and on the first run makes it and loads the sample orders. EDatabaseError when it cannot: where
    /// the folder cannot be written to, or no driver for SQLite is installed.
    TOrdersDatabase();

    const std::shared_ptr<TOdbcConnection>& GetConnection() const { return FConnection; }
    const std::map<int, TOrderCustomer>& GetCustomers() const { return FCustomers; }
    /// The name of a product; empty for none.
    String ProductName(int id) const;
    /// The cities to which orders go.
    std::set<String> Cities();
    /// As the database itself adds them up.
    TOrderTotals Totals(const TOrderChoice& choice);

private:
    std::shared_ptr<TOdbcConnection> FConnection;
    std::map<int, TOrderCustomer> FCustomers;
    std::map<int, String> FProducts;
};

} // namespace gallery
