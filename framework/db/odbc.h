#pragma once

// Databases through ODBC: a connection by its connection string, statements with parameters, and recordsets whose edits
// go back. On Windows it uses the system's driver manager, elsewhere unixODBC.
//
// Everything raises EDatabaseServerError for what the database refuses, with the purpose of the statement, the SQLSTATE
// and the driver's text. A connection belongs to one thread at a time.

#include "framework/db/clientrecordset.h"
#include "framework/db/sqlstatement.h"

namespace framework {

class TOdbcSession;

/// One connection, shared by the recordsets that came through it and open as long as one of them or its owner lives.
class TOdbcConnection {
public:
    /// Opens it. Settings that matter for the way rows are read are added where the string leaves them open: see
    /// CompleteConnectionString.
    explicit TOdbcConnection(StringView connectionString);
    TOdbcConnection(const TOdbcConnection&) = delete;
    TOdbcConnection& operator=(const TOdbcConnection&) = delete;
    ~TOdbcConnection();

    /// Carries a statement out and returns how many rows it concerned, -1 where the driver does not tell. Each `?`
    /// stands for the next of the parameters.
    std::int64_t Execute(StringView sql, std::span<const TSqlParameter> parameters = {});
    /// The same with many rows of parameters, for which the statement is prepared once.
    void ExecuteForAll(StringView sql, std::span<const std::vector<TSqlParameter>> rows);

    /// As the driver names the database: "SQLite", "PostgreSQL".
    const String& GetDatabaseName() const;
    TDatabaseKind GetKind() const;
    /// A name between the quotes of this database.
    String QuotedName(StringView name) const;

    TOdbcSession& Session() { return *FSession; }

private:
    std::unique_ptr<TOdbcSession> FSession;
};

/// Makes what follows on the connection one whole: unless Commit is reached, all of it is undone. Inside another
/// transaction it belongs to that one, as does the post of an edit: when one of them fails, the whole can only be
/// undone.
class TOdbcTransaction {
public:
    explicit TOdbcTransaction(TOdbcConnection& connection) : TOdbcTransaction(connection.Session()) {}
    explicit TOdbcTransaction(TOdbcSession& session);
    TOdbcTransaction(const TOdbcTransaction&) = delete;
    TOdbcTransaction& operator=(const TOdbcTransaction&) = delete;
    ~TOdbcTransaction();

    /// When it fails, everything is undone; so it is, with EDatabaseError, when a part of the whole has failed before.
    void Commit();

private:
    TOdbcSession& FSession;
    bool FOpen = true;
};

/// The rows that a query gives, all of them in memory. Edits post by the primary key of the one table that the columns
/// come from, each in a transaction; EReadOnlyDataError tells why where that cannot be. EFetchCancelled when the
/// handler of the progress, called about every thousand rows and once at the end, answers false.
std::unique_ptr<TClientRecordset> OpenRecordset(std::shared_ptr<TOdbcConnection> connection, StringView sql,
                                                std::vector<TSqlParameter> parameters = {},
                                                const TFetchProgress& progress = {});

} // namespace framework
