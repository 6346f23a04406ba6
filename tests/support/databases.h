#pragma once

// The databases that tests run against: a SQLite file in the folder for temporary files, and a database of the test's
// own on the PostgreSQL server that ZOR_TEST_POSTGRES names by its connection string. Without a server its tests are
// skipped, unless ZOR_TEST_ALL_DATABASES is set, when they fail.

#include "framework/db/odbc.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <random>

namespace databases {

using namespace framework;

/// A number that no other run of a test has.
inline String RunNumber() {
    static const String number = UIntToStr(std::random_device()());
    return number;
}

inline std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

inline std::filesystem::path SQLiteFile() {
    return std::filesystem::temp_directory_path() / ("zor-test-" + Utf8Encode(RunNumber()) + ".db");
}

/// Without waiting for the disk.
inline String SQLiteConnection(const std::filesystem::path& file = SQLiteFile()) {
    return u"DRIVER=SQLite3;SyncPragma=OFF;Database=" + file.u16string();
}

/// The server's own database.
inline String ServerConnection() {
    return Utf8Decode(Environment("ZOR_TEST_POSTGRES"));
}

inline String TestDatabase() {
    return u"test" + RunNumber();
}

/// Tests for each database. They begin with an empty one.
class OnDatabase : public testing::TestWithParam<const char*> {
protected:
    bool IsSQLite() const { return std::string_view(GetParam()) == "SQLite"; }
    String ConnectionString() const {
        if (IsSQLite())
            return SQLiteConnection();
        return StringReplace(ServerConnection(), u"Database=postgres", u"Database=" + TestDatabase());
    }

    void SetUp() override {
        if (IsSQLite()) {
            std::filesystem::remove(SQLiteFile());
        } else if (ServerConnection().empty()) {
            ASSERT_EQ(Environment("ZOR_TEST_ALL_DATABASES"), "") << "there is no PostgreSQL server";
            GTEST_SKIP() << "ZOR_TEST_POSTGRES names no server; tools/test starts one";
        } else {
            MakeServerDatabase();
        }
        Connection = std::make_shared<TOdbcConnection>(ConnectionString());
        if (!IsSQLite()) {
            Connection->Execute(u"DROP SCHEMA public CASCADE");
            Connection->Execute(u"CREATE SCHEMA public");
        }
    }
    void TearDown() override {
        Connection.reset();
        if (IsSQLite())
            std::filesystem::remove(SQLiteFile());
    }
    static void TearDownTestSuite() {
        if (!madeServerDatabase)
            return;
        TOdbcConnection(ServerConnection()).Execute(u"DROP DATABASE " + TestDatabase() + u" WITH (FORCE)");
        madeServerDatabase = false;
    }

    std::unique_ptr<TClientRecordset> Open(StringView sql, std::vector<TSqlParameter> parameters = {}) {
        return OpenRecordset(Connection, sql, std::move(parameters));
    }
    /// The first column of the first row.
    Variant Value(StringView sql) { return Open(sql)->GetVariant(0); }

    std::shared_ptr<TOdbcConnection> Connection;

private:
    static void MakeServerDatabase() {
        if (!madeServerDatabase)
            TOdbcConnection(ServerConnection()).Execute(u"CREATE DATABASE " + TestDatabase());
        madeServerDatabase = true;
    }
    inline static bool madeServerDatabase = false;
};

inline std::string DatabaseName(const testing::TestParamInfo<const char*>& info) {
    return info.param;
}

} // namespace databases

#ifdef __has_feature
#if __has_feature(address_sanitizer)
/// The driver of PostgreSQL leaves 336 bytes behind when a server ends a connection. What we forgot to free would show
/// all the same, as handles are the driver manager's memory.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:psqlodbcw.so";
}
#endif
#endif

/// Runs the tests of a suite on these databases.
#define ON_DATABASES(suite, ...)                                                                                       \
    INSTANTIATE_TEST_SUITE_P(On, suite, testing::Values(__VA_ARGS__), databases::DatabaseName)
