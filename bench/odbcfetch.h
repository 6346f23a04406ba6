#pragma once

// Opening a million rows beside bare ODBC loops over the same rows, which take the values and drop them. One loop asks
// for the types of the columns, as a program would; the other for bytes, the least that a driver can be asked for.

#include "bench/measure.h"
#include "framework/db/connectionstring.h"
#include "framework/db/odbc.h"
#include "framework/system/strings.h"

#ifdef _WIN32
#include <windows.h>
// Behind the one above.
#include <psapi.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace bench {

using namespace framework;

constexpr int fetchedRows = 1'000'000;
constexpr char16_t fetchQuery[] = u"SELECT * FROM fetched";

/// Bytes of memory in use.
inline std::size_t WorkingSet() {
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.WorkingSetSize;
#else
    constexpr std::size_t page = 4096;
    std::ifstream statm("/proc/self/statm");
    std::size_t all = 0;
    std::size_t resident = 0;
    statm >> all >> resident;
    return resident * page;
#endif
}

/// Eight columns with about a hundred bytes of payload.
inline void MakeRows(TOdbcConnection& connection) {
    const bool isSQLite = connection.GetDatabaseName() == u"SQLite";
    connection.Execute(u"DROP TABLE IF EXISTS fetched");
    connection.Execute(u"CREATE TABLE fetched (id integer PRIMARY KEY, customer integer, day date, stamp timestamp,"
                       u" price numeric(12,2), name varchar(40), city varchar(30), note text)");
    const String day = isSQLite ? u"date('2000-01-01', '+' || (i % 9000) || ' days')" : u"date '2000-01-01' + i % 9000";
    const String stamp = isSQLite ? u"datetime('2000-01-01', '+' || i || ' minutes')"
                                  : u"timestamp '2000-01-01' + i * interval '1 minute'";
    connection.Execute(
        u"INSERT INTO fetched WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000000)"
        u" SELECT i, i % 5000, " +
        day + u", " + stamp +
        u", i % 100000 / 100.0, 'Name of the customer ' || i,"
        u" 'City of ' || (i % 500), CASE WHEN i % 3 = 0 THEN NULL ELSE 'deliver to the back door ' || i END FROM n");
}

/// A loop that binds the columns, fetches blocks of rows and drops them; milliseconds.
class TBareLoop {
public:
    explicit TBareLoop(StringView connectionString) : FConnectionString(CompleteConnectionString(connectionString)) {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &FEnvironment);
        SQLSetEnvAttr(FEnvironment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, FEnvironment, &FConnection);
        if (!SQL_SUCCEEDED(SQLDriverConnectW(FConnection, nullptr, Wide(FConnectionString.c_str()), SQL_NTS, nullptr, 0,
                                             nullptr, SQL_DRIVER_NOPROMPT))) {
            std::printf("the bare loop cannot connect\n");
            std::exit(1);
        }
    }
    TBareLoop(const TBareLoop&) = delete;
    TBareLoop& operator=(const TBareLoop&) = delete;
    ~TBareLoop() {
        SQLDisconnect(FConnection);
        SQLFreeHandle(SQL_HANDLE_DBC, FConnection);
        SQLFreeHandle(SQL_HANDLE_ENV, FEnvironment);
    }

    double Run(bool typed, std::size_t rows) const {
        return Milliseconds([&] {
            SQLHANDLE statement = nullptr;
            SQLAllocHandle(SQL_HANDLE_STMT, FConnection, &statement);
            Fetch(statement, typed, rows);
            SQLFreeHandle(SQL_HANDLE_STMT, statement);
        });
    }

private:
    struct TBuffer {
        std::vector<char> Data;
        std::vector<SQLLEN> Lengths;
    };

    static SQLWCHAR* Wide(const char16_t* text) { return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text)); }

    [[noreturn]] static void Give(const char* what, SQLHANDLE statement) {
        char16_t state[6] = {};
        char16_t message[256] = {};
        SQLGetDiagRecW(SQL_HANDLE_STMT, statement, 1, Wide(state), nullptr, Wide(message), 256, nullptr);
        std::printf("the bare loop %s: %s %s\n", what, Utf8Encode(state).c_str(), Utf8Encode(message).c_str());
        std::exit(1);
    }

    static void Bind(SQLHANDLE statement, int column, bool typed, std::size_t rows, TBuffer& buffer) {
        constexpr SQLSMALLINT types[] = {SQL_C_SLONG,  SQL_C_SLONG, SQL_C_TYPE_DATE, SQL_C_TYPE_TIMESTAMP,
                                         SQL_C_DOUBLE, SQL_C_WCHAR, SQL_C_WCHAR,     SQL_C_WCHAR};
        const SQLSMALLINT type = typed ? types[column] : SQL_C_CHAR;
        const std::size_t width = type == SQL_C_WCHAR ? 256 : type == SQL_C_CHAR ? 128 : 16;
        buffer.Data.resize(width * rows);
        buffer.Lengths.resize(rows);
        SQLBindCol(statement, static_cast<SQLUSMALLINT>(column + 1), type, buffer.Data.data(),
                   static_cast<SQLLEN>(width), buffer.Lengths.data());
    }

    static void Fetch(SQLHANDLE statement, bool typed, std::size_t rows) {
        SQLULEN fetched = 0;
        SQLSetStmtAttrW(statement, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows), 0);
        SQLSetStmtAttrW(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
        if (!SQL_SUCCEEDED(
                SQLPrepareW(statement, Wide(fetchQuery), static_cast<SQLINTEGER>(std::size(fetchQuery) - 1))))
            Give("cannot prepare", statement);
        if (!SQL_SUCCEEDED(SQLExecute(statement)))
            Give("cannot execute", statement);
        TBuffer buffers[8];
        for (int column = 0; column < 8; ++column)
            Bind(statement, column, typed, rows, buffers[column]);
        std::size_t count = 0;
        while (SQL_SUCCEEDED(SQLFetch(statement)))
            count += fetched;
        if (count != fetchedRows)
            Give("got another number of rows", statement);
    }

    String FConnectionString;
    SQLHANDLE FEnvironment = nullptr;
    SQLHANDLE FConnection = nullptr;
};

inline void MeasureFetch(const char* name, StringView connectionString) {
    const auto connection = std::make_shared<TOdbcConnection>(connectionString);
    MakeRows(*connection);
    const TBareLoop bare(connectionString);
    constexpr std::size_t blockRows = 128;
    bare.Run(true, blockRows); // the file is in the system's memory from here on
    const auto open = [&] { return OpenRecordset(connection, fetchQuery); };
    constexpr double megabyte = 1024.0 * 1024.0;
    {
        const std::size_t before = WorkingSet();
        const auto rows = open();
        const double held = static_cast<double>(WorkingSet() - before) / megabyte;
        const double columns = static_cast<double>(rows->GetRows().GetMemory()) / megabyte;
        std::printf("%-10s %d rows, %d columns: %.0f MB more in use after opening, %.0f MB of them columns (aim 250)\n",
                    name, rows->GetRecordCount(), rows->GetColumnCount(), held, columns);
    }
    // The three take turns, and of each the best round counts: whatever else the machine does only adds.
    constexpr int rounds = 5;
    double ours = 1e9;
    double types = 1e9;
    double bytes = 1e9;
    for (int round = 0; round < rounds; ++round) {
        types = std::min(types, bare.Run(true, blockRows));
        ours = std::min(ours, Milliseconds([&] { open(); }));
        bytes = std::min(bytes, bare.Run(false, blockRows));
    }
    const std::string label(name);
    PrintRatio((label + ", bare types").c_str(), {ours, types}, "ms", 1.15);
    PrintRatio((label + ", bare bytes").c_str(), {ours, bytes}, "ms", 1.15);
}

/// On a SQLite file in the current folder, which Wine's programs and the host's drivers call the same, and on the
/// server that ZOR_TEST_POSTGRES names if there is one.
inline int MeasureFetches() {
    const std::filesystem::path file = "zor-bench.db";
    try {
        std::filesystem::remove(file);
        MeasureFetch("SQLite", u"DRIVER=SQLite3;SyncPragma=OFF;Database=" + file.u16string());
        std::filesystem::remove(file);
        if (const char* server = std::getenv("ZOR_TEST_POSTGRES"))
            MeasureFetch("PostgreSQL", Utf8Decode(server));
        else
            std::printf("PostgreSQL not measured: ZOR_TEST_POSTGRES names no server\n");
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}

} // namespace bench
