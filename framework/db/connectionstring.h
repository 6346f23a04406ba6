#pragma once

// Connection strings: "DRIVER=SQLite3;Database=orders.db;PWD={a;b}". Keywords count in either case, a value in braces
// may hold anything, and "}}" in it is one brace.

#include "framework/system/types.h"

#include <optional>
#include <vector>

namespace framework {

/// The value of a keyword, without its braces; nothing when it does not occur. Of several the first counts.
std::optional<String> ConnectionValue(StringView connectionString, StringView keyword);

/// The string with what our way of reading needs and the string leaves open. It is added where the DRIVER names the
/// database; behind a DSN such settings belong into the data source itself.
///
/// SQLite      StepAPI=1, so that rows come one by one and not the whole result at once;
///             Timeout=5000, the milliseconds to wait for somebody else's lock where the driver would wait 100 s
/// PostgreSQL  UseDeclareFetch=1;Fetch=1000, which has the server hold the result and not the driver
String CompleteConnectionString(StringView connectionString);

/// `text` with the passwords of the connection string replaced by asterisks.
String WithoutPasswords(StringView text, StringView connectionString);

} // namespace framework
