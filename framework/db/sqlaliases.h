#pragma once

// What the text of a query tells of the names in it.

#include "framework/system/types.h"

#include <set>

namespace framework {

/// The names that a query gives to something itself, to a column or a table, in upper case: those behind AS, and those
/// behind what ends an expression. Rather too many than too few in statements that are hard to read.
std::set<String> AliasesIn(StringView sql);

} // namespace framework
