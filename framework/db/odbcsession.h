#pragma once

// The one typed door to the driver manager: handles that free themselves, a connection, a statement. Every call is
// checked here, and nowhere else do the driver's handles occur as what they are.

#include "framework/db/sqlstatement.h"

#include <memory>
#include <optional>
#include <utility>

namespace framework {

/// An ODBC handle of one of the kinds that SQLAllocHandle knows.
class TOdbcHandle {
public:
    TOdbcHandle(short kind, void* parent);
    TOdbcHandle(const TOdbcHandle&) = delete;
    TOdbcHandle& operator=(const TOdbcHandle&) = delete;
    ~TOdbcHandle();
    void* Get() const { return FHandle; }
    short Kind() const { return FKind; }

private:
    void* FHandle = nullptr;
    short FKind;
};

/// A column of a result as the driver describes it.
struct TOdbcColumn {
    String Name;
    short SqlType = 0;
    std::int64_t Size = 0;
    int Digits = 0;
    bool Nullable = true;
    bool Unsigned = false;
    bool AutoUnique = false;
    // Empty for expressions.
    String Catalog;
    String Schema;
    String BaseTable;
    String BaseColumn;
    /// In lower case.
    String TypeName;
};

/// A table as the catalogue names it; what is empty is left to the driver.
struct TTableName {
    String Catalog;
    String Schema;
    String Table;
    friend auto operator<=>(const TTableName&, const TTableName&) = default;
};

class TOdbcSession {
public:
    explicit TOdbcSession(StringView connectionString);
    ~TOdbcSession();

    void* Handle() const { return FConnection.Get(); }
    const String& DatabaseName() const { return FDatabaseName; }
    TDatabaseKind Kind() const { return FKind; }
    const String& Quote() const { return FQuote; }
    /// Whether texts that are asked for as bytes come in UTF-8, which is faster than to have the driver convert them.
    /// It depends on the driver, the system and the locale, so it is tried once.
    bool CharsAreUtf8();
    /// What stands before the decimals of PostgreSQL's money, which is written as its server's locale has it; NUL when
    /// there are no decimals.
    char MoneyPoint();
    /// Whether a long value of one row of a block can be read on its own.
    bool ReadsLongValuesInBlocks() const { return FReadsLongValuesInBlocks; }

    /// A transaction inside another one is part of it: the outermost decides, but it can only be undone once one of
    /// its parts was not committed, and raises EDatabaseError when it should commit all the same. EndTransaction
    /// raises nothing when it does not commit.
    void BeginTransaction();
    void EndTransaction(bool commit);

    /// Calls `body`, which may be anybody's code, in the middle of a fetch. SQLite's driver ends a fetch without a word
    /// when another statement begins, so these raise EDatabaseError meanwhile.
    template <class TBody>
    auto WhileFetching(TBody&& body) {
        struct TRestore {
            bool& Flag;
            bool Before;
            ~TRestore() { Flag = Before; }
        } restore{FFetching, std::exchange(FFetching, true)};
        return body();
    }
    void CheckFree() const;

    /// Raises EDatabaseServerError with what the driver says about the handle's last call.
    [[noreturn]] void Raise(const TOdbcHandle& handle, StringView purpose) const;
    /// Raises unless the result of a call means success.
    void Check(short result, const TOdbcHandle& handle, StringView purpose) const;

private:
    String InfoText(unsigned short type) const;
    void SetAutoCommit(bool on, StringView purpose);
    /// Undoes the transaction and ends it.
    void Undo() noexcept;

    String FConnectionString;
    TOdbcHandle FEnvironment;
    TOdbcHandle FConnection;
    String FDatabaseName;
    TDatabaseKind FKind = TDatabaseKind::Other;
    String FQuote;
    bool FReadsLongValuesInBlocks = false;
    std::optional<bool> FCharsAreUtf8;
    std::optional<char> FMoneyPoint;
    int FTransactions = 0;
    bool FFetching = false;
    /// A part of the transaction was not committed.
    bool FPartFailed = false;
};

/// A statement with its parameters. `purpose` says in errors what was being done.
class TOdbcStatement {
public:
    TOdbcStatement(TOdbcSession& session, String purpose);
    ~TOdbcStatement();

    TOdbcSession& Session() const { return FSession; }
    const TOdbcHandle& Handle() const { return FHandle; }

    void Prepare(StringView sql);
    /// Holds the values until they are bound anew.
    void Bind(std::span<const TSqlParameter> parameters);
    void Execute();
    /// Prepares, binds and executes.
    void Run(const TSqlStatement& statement);

    // What the catalogue knows; the rows are fetched as those of a query.
    void ListColumns(const TTableName& table);
    void ListPrimaryKey(const TTableName& table);

    /// -1 where the driver does not tell.
    std::int64_t RowsAffected() const;
    int ColumnCount() const;
    /// 0-based, here and below.
    TOdbcColumn Describe(int column) const;

    bool Fetch();
    /// Values of the fetched row, columns in ascending order only. Nothing for NULL.
    std::optional<String> GetText(int column) const;
    /// The bytes of a binary value, or of a text in the driver's encoding; false for NULL.
    bool ReadLong(int column, short cType, std::string& bytes) const;

    void CloseCursor() noexcept;
    void Check(short result) const { FSession.Check(result, FHandle, FPurpose); }

private:
    struct TBound;

    TOdbcSession& FSession;
    String FPurpose;
    TOdbcHandle FHandle;
    String FText;
    bool FGaveRows = false;
    std::vector<std::unique_ptr<TBound>> FBound;
};

} // namespace framework
