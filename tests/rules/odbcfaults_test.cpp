// What goes wrong between a program and its database, and what is still sound afterwards.

#include "framework/db/connectionstring.h"
#include "tests/support/databases.h"

#include <fstream>

using namespace databases;

namespace {

class OdbcFaults : public OnDatabase {
protected:
    void SetUp() override {
        OnDatabase::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        Connection->Execute(u"CREATE TABLE t (id int PRIMARY KEY, v varchar(2000))");
        Connection->Execute(u"INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i <"
                            u" 20000) SELECT i, 'value ' || i FROM n");
    }
    /// Ends the server's end of the connection, as an administrator or a restart does.
    void StopServer(int process) {
        TOdbcConnection(ConnectionString()).Execute(u"SELECT pg_terminate_backend(" + IntToStr(process) + u")");
    }
    int ServerProcess() { return static_cast<int>(Value(u"SELECT pg_backend_pid()").AsInteger()); }
};
ON_DATABASES(OdbcFaults, "SQLite", "PostgreSQL");
class OdbcFaultsOfFiles : public OdbcFaults {};
ON_DATABASES(OdbcFaultsOfFiles, "SQLite");
class OdbcFaultsOfServers : public OdbcFaults {};
ON_DATABASES(OdbcFaultsOfServers, "PostgreSQL");

void Change(TClientRecordset& rows, StringView value) {
    const TColumnValue values[] = {{1, String(value)}};
    rows.Update(values);
}

/// The error that some work raises.
template <class TWork>
EDatabaseServerError ErrorOf(const TWork& work) {
    try {
        work();
    } catch (const EDatabaseServerError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {u"", "", 0, u""};
}

void ExpectInText(const Exception& error, const char* part) {
    EXPECT_NE(std::string(error.what()).find(part), std::string::npos) << error.what();
}

TEST_P(OdbcFaults, FetchesTellHowFarTheyAreAndCanBeCancelled) {
    std::vector<std::int64_t> told;
    const auto all = OpenRecordset(Connection, u"SELECT * FROM t", {}, [&](std::int64_t rows, std::int64_t count) {
        told.push_back(rows);
        EXPECT_TRUE(count == -1 || count == 20000) << count;
        return true;
    });
    EXPECT_EQ(all->GetRecordCount(), 20000);
    EXPECT_GE(told.size(), 10U);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 20000);

    all->MoveLast();
    EXPECT_THROW(all->Requery([](std::int64_t rows, std::int64_t) { return rows < 5000; }), EFetchCancelled);
    EXPECT_EQ(all->GetInt64(0), 20000) << "the rows from before";
    EXPECT_THROW(OpenRecordset(Connection, u"SELECT * FROM t", {},
                               [](std::int64_t, std::int64_t) -> bool { throw EConvertError(u"handler"); }),
                 EConvertError);
    Change(*all, u"posted on the same connection");
    EXPECT_EQ(Value(u"SELECT v FROM t WHERE id = 20000"), Variant(u"posted on the same connection"));
    // What a fetch in vain has seen of the table, here that its key is gone, is nothing to the rows from before.
    Connection->Execute(u"ALTER TABLE t RENAME TO other");
    Connection->Execute(u"CREATE TABLE t AS SELECT * FROM other");
    EXPECT_THROW(all->Requery([](std::int64_t, std::int64_t) { return false; }), EFetchCancelled);
    Change(*all, u"by the key that they know");
    EXPECT_EQ(Value(u"SELECT v FROM t WHERE id = 20000"), Variant(u"by the key that they know"));
}

TEST_P(OdbcFaultsOfServers, StoppingLosesNothingButTheConnection) {
    // In the middle of a fetch.
    const auto before = Open(u"SELECT * FROM t ORDER BY id");
    int process = ServerProcess();
    const EDatabaseServerError lost = ErrorOf([&] {
        OpenRecordset(Connection, u"SELECT * FROM t", {}, [&](std::int64_t rows, std::int64_t) {
            if (rows < 3000)
                StopServer(process);
            return true;
        });
    });
    ExpectInText(lost, "Cannot read the records");
    EXPECT_TRUE(lost.IsConnectionLost()) << lost.what();
    EXPECT_TRUE(ErrorOf([&] { before->Requery(); }).IsConnectionLost());
    EXPECT_EQ(before->GetRecordCount(), 20000);
    EXPECT_EQ(before->GetText(1), u"value 1");

    // Between an edit and its post.
    Connection = std::make_shared<TOdbcConnection>(ConnectionString());
    const auto rows = Open(u"SELECT * FROM t ORDER BY id");
    process = ServerProcess();
    rows->AddNew();
    StopServer(process);
    const TColumnValue values[] = {{0, std::int64_t(0)}, {1, String(u"new")}};
    const EDatabaseServerError error = ErrorOf([&] { rows->Update(values); });
    EXPECT_TRUE(error.IsConnectionLost()) << error.what();
    EXPECT_EQ(rows->GetStatus(), adRecNew);
    rows->CancelUpdate();
    EXPECT_TRUE(ErrorOf([&] { Change(*rows, u"changed"); }).IsConnectionLost());
    EXPECT_EQ(rows->GetText(1), u"value 1");
    Connection = std::make_shared<TOdbcConnection>(ConnectionString());
    EXPECT_EQ(Value(u"SELECT count(*) FROM t WHERE v LIKE 'value %'"), Variant(20000));
}

TEST_P(OdbcFaults, ConnectionsThatFailSayWhyAndKeepThePassword) {
    const char secret[] = "s3cr;et}";
    const auto connect = [&](const char16_t* format) {
        const String text = StringReplace(format, u"%", u"{s3cr;et}}}");
        const EDatabaseServerError error = ErrorOf([&] { TOdbcConnection connection(text); });
        ExpectInText(error, "Cannot open the connection");
        ExpectInText(error, error.GetSqlState().c_str());
        EXPECT_EQ(std::string(error.what()).find(secret), std::string::npos) << error.what();
        return error;
    };
    connect(u"DRIVER=No such driver;PWD=%");
    connect(u"DSN=no such source;Password=%");
    connect(u"DRIVER=SQLite3;NoCreat=1;Database=/no/such/folder/file.db;PWD=%");
    if (IsSQLite())
        return;
    const String wrong =
        StringReplace(ConnectionString(), *ConnectionValue(ConnectionString(), u"PWD"), u"{s3cr;et}}}");
    const EDatabaseServerError error = connect(wrong.c_str());
    EXPECT_EQ(error.GetSqlState(), "08001");
    ExpectInText(error, "password");
    // A driver that repeats the whole string does not give it away either.
    EXPECT_EQ(WithoutPasswords(u"cannot use 'UID=a;PWD=s3cr;et}'", wrong), u"cannot use 'UID=a;PWD=***'");
}

TEST_P(OdbcFaults, StatementsThatFailSayWhy) {
    const EDatabaseServerError error = ErrorOf([&] { Open(u"SELECT * FROM nowhere"); });
    ExpectInText(error, "Cannot read the records");
    ExpectInText(error, "nowhere");
    EXPECT_THROW(Open(u"UPDATE t SET v = '' WHERE id < 0"), EDatabaseError);
    EXPECT_THROW(Open(u"SELECT * FROM t WHERE id = ?"), EDatabaseError) << "the parameter is missing";
    EXPECT_EQ(Open(u"SELECT * FROM t WHERE id = ?", {{std::int64_t(7)}})->GetText(1), u"value 7");
}

TEST_P(OdbcFaults, RowsThatCannotBeReadAreNotLeftOut) {
    // The driver takes the text for bytes and stumbles over it; the server does at the row itself.
    const char16_t* broken = IsSQLite() ? u"SELECT id, v FROM t" : u"SELECT id, 1 / (id - 200) FROM t";
    if (IsSQLite()) {
        Connection->Execute(u"DROP TABLE t");
        Connection->Execute(u"CREATE TABLE t (id int PRIMARY KEY, v blob)");
        Connection->Execute(u"INSERT INTO t WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i <"
                            u" 300) SELECT i, CASE WHEN i = 200 THEN 'X''0g''' ELSE x'00' END FROM n");
    }
    ExpectInText(ErrorOf([&] { Open(broken); }), "Cannot read the records");
    EXPECT_EQ(Open(u"SELECT * FROM t WHERE id < 200")->GetRecordCount(), 199);
}

TEST_P(OdbcFaults, LocksOfOthersEndInAnErrorInTime) {
    const auto rows = Open(u"SELECT * FROM t WHERE id < 10 ORDER BY id");
    const String patient = ConnectionString() + (IsSQLite() ? u";Timeout=100" : u"");
    const auto other = std::make_shared<TOdbcConnection>(patient);
    if (!IsSQLite())
        other->Execute(u"SET lock_timeout = 100");
    const auto theirs = OpenRecordset(other, u"SELECT * FROM t WHERE id < 10 ORDER BY id");
    {
        TOdbcTransaction holding(*Connection);
        Change(*rows, u"mine");
        ExpectInText(ErrorOf([&] { Change(*theirs, u"theirs"); }), "lock");
        EXPECT_EQ(theirs->GetText(1), u"value 1");
        holding.Commit();
    }
    EXPECT_THROW(Change(*theirs, u"theirs"), ERecordChangedError);
    theirs->Requery();
    Change(*theirs, u"theirs");
    EXPECT_EQ(Value(u"SELECT v FROM t WHERE id = 1"), Variant(u"theirs"));
}

TEST_P(OdbcFaultsOfFiles, FullDisksRefuseAnEditAndKeepTheRest) {
    const auto rows = Open(u"SELECT * FROM t WHERE id < 10 ORDER BY id");
    Connection->Execute(u"PRAGMA max_page_count = 1"); // which SQLite raises to what is in use
    ExpectInText(ErrorOf([&] {
                     for (int i = 0; i < 20; ++i) {
                         rows->AddNew();
                         const TColumnValue values[] = {{0, std::int64_t(-i - 1)}, {1, String(1900, u'x')}};
                         rows->Update(values);
                     }
                 }),
                 "full");
    EXPECT_EQ(rows->GetStatus(), adRecNew);
    rows->CancelUpdate();
    const int count = rows->GetRecordCount();
    rows->Requery();
    EXPECT_EQ(rows->GetRecordCount(), count) << "what was posted before stays, the rest never came";
    Connection->Execute(u"PRAGMA max_page_count = 100000");
    Change(*rows, String(1900, u'y'));
}

#ifndef _WIN32
std::size_t OpenFiles() {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

TEST_P(OdbcFaults, ManyRoundsLeaveNoHandleAndNoMemory) {
    // What stays in memory, the leak checker tells at the end.
    const auto read = [&](const std::shared_ptr<TOdbcConnection>& connection) {
        EXPECT_EQ(OpenRecordset(connection, u"SELECT * FROM t WHERE id < 3")->GetRecordCount(), 2);
    };
    const auto round = [&](const std::shared_ptr<TOdbcConnection>& connection) {
        read(connection);
        EXPECT_THROW(
            OpenRecordset(connection, u"SELECT * FROM t", {}, [](std::int64_t, std::int64_t) { return false; }),
            EFetchCancelled);
    };
    round(Connection);
    const std::size_t before = OpenFiles();
    // A cancelled fetch and a new connection cost more than the rest.
    for (int i = 0; i < 30; ++i)
        round(std::make_shared<TOdbcConnection>(ConnectionString()));
    for (int i = 0; i < (IsSQLite() ? 2000 : 500); ++i)
        i % 40 == 0 ? round(Connection) : read(Connection);
    EXPECT_EQ(OpenFiles(), before);
}
#endif

} // namespace
