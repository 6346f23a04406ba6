#pragma once

// What the text of a query tells of the names in it.

#include "framework/system/types.h"

#include <map>
#include <set>

namespace framework {

/// The names that a query gives to something itself, to a column or a table, in upper case: those behind AS, and those
/// behind what ends an expression. Rather too many than too few in statements that are hard to read.
std::set<String> AliasesIn(StringView sql);

/// The tables whose columns a query can show. Subqueries of conditions show nothing, so theirs are not among them.
struct TQueryTables {
    /// In upper case and without their schemas, with how often each is named.
    std::map<String, int> Counts;
    /// Rows of several queries stand below each other: UNION, EXCEPT, INTERSECT.
    bool Combined = false;
    /// Queries have names of their own, before the main one.
    bool With = false;
};
TQueryTables TablesIn(StringView sql);

} // namespace framework
