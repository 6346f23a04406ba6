// Edits on their way to the database: keys and defaults that it gives, two people at one record, and what it refuses.

#include "tests/support/databases.h"

using namespace databases;

namespace {

class OdbcPosting : public OnDatabase {
protected:
    void SetUp() override {
        OnDatabase::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        Connection->Execute(u"CREATE TABLE goods (id " + String(IsSQLite() ? u"integer" : u"serial") +
                            u" PRIMARY KEY, name varchar(40) NOT NULL, price numeric(10,2) DEFAULT 9.99,"
                            u" stock int CHECK (stock >= 0), sold timestamp, weight real)");
        Connection->Execute(
            u"INSERT INTO goods (name, price, stock, sold, weight) VALUES"
            u" ('Herbata', 4.5, 3, '2020-02-29 10:00:00', 0.1), ('Chl\u00E9b', NULL, NULL, NULL, NULL)");
    }
    std::unique_ptr<TClientRecordset> Goods() { return Open(u"SELECT * FROM goods ORDER BY id"); }
};
ON_DATABASES(OdbcPosting, "SQLite", "PostgreSQL");

void Change(TClientRecordset& rows, const char16_t* column, TDataValue value) {
    const TColumnValue values[] = {{rows.FindColumn(column), std::move(value)}};
    rows.Update(values);
}

TDataValue Text(StringView text) {
    return String(text);
}

TEST_P(OdbcPosting, ReadsBackWhatTheDatabaseGives) {
    const auto rows = Goods();
    EXPECT_TRUE(rows->GetColumn(0).Key && rows->GetColumn(0).AutoIncrement);
    EXPECT_FALSE(rows->GetColumn(1).Key || rows->GetColumn(1).AutoIncrement || rows->GetColumn(1).Nullable);
    rows->AddNew();
    Change(*rows, u"name", Text(u"K\u00E4se"));
    EXPECT_EQ(rows->GetInt64(0), 3);
    EXPECT_EQ(rows->GetDouble(2), 9.99) << "the default";
    EXPECT_TRUE(rows->IsNull(3));
    Change(*rows, u"id", std::int64_t(70));
    Change(*rows, u"stock", std::int64_t(5));
    EXPECT_EQ(Value(u"SELECT stock FROM goods WHERE id = 70"), Variant(5)) << "found again by its new key";
    rows->Delete();
    EXPECT_EQ(Value(u"SELECT count(*) FROM goods"), Variant(2));
}

TEST_P(OdbcPosting, ChangesOfOthersAreNeverOverwritten) {
    const struct {
        const char* Name;
        const char16_t* Column;
        TDataValue Theirs;
        TDataValue Ours;
    } cases[] = {
        {"text", u"name", Text(u"Tee"), Text(u"Tea")},
        {"letter case", u"name", Text(u"HERBATA"), Text(u"Tea")},
        {"money", u"price", TNumeric{451, 2}, TNumeric{460, 2}},
        {"NULL", u"stock", TDataValue(), std::int64_t(4)},
        {"moment", u"sold", TMoment::FromDateTime(1), TMoment::FromDateTime(2)},
        {"float", u"weight", 0.100001, 0.5},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testCase.Name);
        const auto ours = Goods();
        const auto theirs = Goods();
        const TDataValue before = ours->GetValue(ours->FindColumn(testCase.Column));
        Change(*theirs, testCase.Column, testCase.Theirs);
        const TDataValue after = theirs->GetValue(ours->FindColumn(testCase.Column));
        EXPECT_THROW(Change(*ours, testCase.Column, testCase.Ours), ERecordChangedError);
        EXPECT_THROW(ours->Delete(), ERecordChangedError);
        EXPECT_TRUE(ours->GetValue(ours->FindColumn(testCase.Column)) == before);
        theirs->Requery();
        EXPECT_TRUE(theirs->GetValue(ours->FindColumn(testCase.Column)) == after);
        ours->Requery();
        Change(*ours, testCase.Column, testCase.Ours);
        Change(*ours, testCase.Column, before);
    }
    // Changes of different columns do not meet.
    const auto ours = Goods();
    const auto theirs = Goods();
    Change(*theirs, u"stock", std::int64_t(8));
    Change(*ours, u"name", Text(u"Tea"));
    EXPECT_EQ(ours->GetInt64(3), 8) << "what others did is seen by now";
    ours->Delete();
    try {
        Change(*theirs, u"name", Text(u"Thee"));
        ADD_FAILURE() << "a deleted record took an edit";
    } catch (const ERecordChangedError& error) {
        EXPECT_NE(std::string(error.what()).find("deleted"), std::string::npos) << error.what();
    }
}

TEST_P(OdbcPosting, DecimalsAreComparedToTheLastDigit) {
    Connection->Execute(u"CREATE TABLE exact (id numeric(18,0) PRIMARY KEY, v numeric(15,2))");
    Connection->Execute(u"INSERT INTO exact VALUES (900000000000001, 9000000000000.01), (900000000000002, 0.5)");
    const auto ours = Open(u"SELECT * FROM exact ORDER BY id");
    const auto theirs = Open(u"SELECT * FROM exact ORDER BY id");
    Change(*theirs, u"v", TNumeric{900'000'000'000'005, 2});
    EXPECT_THROW(Change(*ours, u"v", TNumeric{1, 2}), ERecordChangedError);
    EXPECT_THROW(ours->Delete(), ERecordChangedError);
    ours->Requery();
    Change(*ours, u"v", TNumeric{300, 2});
    Change(*ours, u"v", TNumeric{900'000'000'000'019, 2});
    ours->Delete();
    ours->MoveNext();
    Change(*ours, u"id", TNumeric{900'000'000'000'003, 0});
    EXPECT_EQ(Value(u"SELECT count(*) FROM exact"), Variant(1));
}

TEST_P(OdbcPosting, RefusedEditsLeaveAllAsItWas) {
    const auto rows = Goods();
    const Variant bookmark = rows->GetBookmark();
    const auto refused = [&](const char16_t* column, TDataValue value, const char* part) {
        try {
            Change(*rows, column, std::move(value));
            ADD_FAILURE() << "not refused: " << part;
        } catch (const EDatabaseServerError& error) {
            EXPECT_NE(std::string(error.what()).find(part), std::string::npos) << error.what();
            EXPECT_EQ(error.GetSqlState().size(), 5U);
            EXPECT_NE(std::string(error.what()).find(error.GetSqlState()), std::string::npos);
        }
    };
    refused(u"stock", std::int64_t(-1), "update the record of 'goods'");
    refused(u"name", TDataValue(), "update the record of 'goods'");
    refused(u"id", std::int64_t(2), "update the record of 'goods'");
    EXPECT_EQ(rows->GetInt64(3), 3);
    rows->AddNew();
    refused(u"stock", std::int64_t(1), "insert the record of 'goods'"); // without a name
    EXPECT_EQ(rows->GetStatus(), adRecNew);
    rows->CancelUpdate();
    EXPECT_EQ(rows->GetBookmark(), bookmark);
    EXPECT_EQ(rows->GetRecordCount(), 2);
    Change(*rows, u"stock", std::int64_t(1)); // the connection is as good as before
    EXPECT_EQ(Value(u"SELECT sum(stock) FROM goods"), Variant(1));

    try {
        TOdbcTransaction whole(*Connection);
        Change(*rows, u"stock", std::int64_t(2));
        throw EAbort();
    } catch (const EAbort&) {
        EXPECT_EQ(Value(u"SELECT sum(stock) FROM goods"), Variant(1)) << "undone with what it belonged to";
    }

    // A whole of which a part has failed is not committed without that part.
    rows->Requery();
    {
        TOdbcTransaction whole(*Connection);
        EXPECT_THROW(Change(*rows, u"stock", std::int64_t(-1)), EDatabaseServerError);
        EXPECT_THROW(whole.Commit(), EDatabaseError);
    }
    TOdbcTransaction next(*Connection);
    Change(*rows, u"stock", std::int64_t(3));
    next.Commit();
    EXPECT_EQ(Value(u"SELECT sum(stock) FROM goods"), Variant(3)) << "the next transaction knows nothing of it";
}

TEST_P(OdbcPosting, TextsAreNeverPartOfStatements) {
    const auto rows = Goods();
    for (const char16_t* text : {u"'); DROP TABLE goods; --", u"\" OR 1=1 --", u"a\\'; DELETE FROM goods; /*", u"?",
                                 u"{d '2020-01-01'}", u"%", u"$1", u"''"}) {
        Change(*rows, u"name", Text(text));
        EXPECT_EQ(rows->GetText(1), text);
        const auto found = Open(u"SELECT id FROM goods WHERE name = ?", {{Text(text)}});
        EXPECT_EQ(found->GetRecordCount(), 1);
    }
    EXPECT_EQ(Value(u"SELECT count(*) FROM goods"), Variant(2));
}

TEST_P(OdbcPosting, StrangeNamesAndKeysOfSeveralColumns) {
    Connection->Execute(
        u"CREATE TABLE \"my \"\"best\"\" orders_\" (\"a\"\"b\" int, \"Select\" varchar(9), \"w_rd\" text,"
        u" PRIMARY KEY (\"a\"\"b\", \"Select\"))");
    // A name that the underscore would also fit as a pattern.
    Connection->Execute(u"CREATE TABLE \"my \"\"best\"\" ordersX\" (\"a\"\"b\" text PRIMARY KEY)");
    const auto rows = Open(u"SELECT * FROM \"my \"\"best\"\" orders_\"");
    for (std::int64_t i = 0; i < 3; ++i) {
        rows->AddNew();
        const TColumnValue values[] = {{0, i / 2}, {1, Text(i % 2 ? u"x" : u"y")}, {2, Text(u"\u0142")}};
        rows->Update(values);
    }
    Change(*rows, u"w_rd", Text(u"new"));
    EXPECT_EQ(Value(u"SELECT count(*) FROM \"my \"\"best\"\" orders_\" WHERE w_rd = 'new'"), Variant(1));
    rows->AddNew();
    EXPECT_THROW(Change(*rows, u"Select", Text(u"x")), EDatabaseError) << "half a key";
    rows->CancelUpdate();
    EXPECT_EQ(rows->GetRecordCount(), 3);

    // The fourth row has the key 7, and the key 4 is that of another.
    Connection->Execute(u"CREATE TABLE given (id int PRIMARY KEY, v int)");
    Connection->Execute(u"INSERT INTO given VALUES (4, 40), (5, 50), (6, 60)");
    const auto given = Open(u"SELECT * FROM given");
    given->AddNew();
    EXPECT_THROW(Change(*given, u"v", std::int64_t(70)), EDatabaseError);
    given->CancelUpdate();
    EXPECT_EQ(Value(u"SELECT count(*) FROM given"), Variant(3));
}

TEST_P(OdbcPosting, WhatCannotBeEditedSaysWhy) {
    Connection->Execute(u"CREATE TABLE plain (v int)");
    Connection->Execute(u"INSERT INTO plain VALUES (1)");
    Connection->Execute(u"CREATE TABLE goods2 (id int PRIMARY KEY, name varchar(40), w int)");
    Connection->Execute(u"INSERT INTO goods2 VALUES (3, NULL, 1)");
    Connection->Execute(u"CREATE VIEW seen AS SELECT id, name FROM goods UNION ALL SELECT id, name FROM goods2");
    const struct {
        const char16_t* Query;
        const char* Reason;
        const char* OnServer = nullptr; ///< where PostgreSQL knows better
    } cases[] = {
        {u"SELECT * FROM plain", "has no primary key"},
        {u"SELECT name FROM goods", "'id'"},
        {u"SELECT goods.id, name, v FROM goods, plain", "several tables"},
        {u"SELECT 1 AS one", "do not come from a table"},
        {u"SELECT id, name FROM goods UNION ALL SELECT id, name FROM goods2", "several queries",
         "do not come from a table"},
        {u"SELECT a.id, b.name FROM goods a JOIN goods b ON b.id <> a.id", "more than once"},
        {u"SELECT a.id, b.name FROM plain JOIN goods a ON (v = a.id), goods2 \"order\", goods b", "more than once"},
        {u"WITH w AS (SELECT * FROM goods) SELECT a.id, b.name FROM w a, w b", "more than once"},
        {u"SELECT * FROM seen", "a view of 'goods", "no primary key"},
    };
    for (const auto& testCase : cases) {
        const char* reason = testCase.OnServer && !IsSQLite() ? testCase.OnServer : testCase.Reason;
        const auto rows = Open(testCase.Query);
        EXPECT_FALSE(rows->Supports(adUpdate) || rows->Supports(adAddNew) || rows->Supports(adDelete));
        const TColumnValue values[] = {{0, std::int64_t(5)}};
        const std::function<void()> edits[] = {[&] { rows->AddNew(); }, [&] { rows->Delete(); },
                                               [&] { rows->Update(values); }};
        for (const auto& edit : edits) {
            try {
                edit();
                ADD_FAILURE() << reason;
            } catch (const EReadOnlyDataError& error) {
                EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
            }
        }
    }
    const auto rows = Open(u"SELECT id, name, stock + 1 AS more, name AS again FROM goods");
    EXPECT_TRUE(rows->Supports(adUpdate | adAddNew | adDelete));
    EXPECT_THROW(Change(*rows, u"more", std::int64_t(1)), EReadOnlyDataError);
    EXPECT_THROW(Change(*rows, u"again", Text(u"Tea")), EReadOnlyDataError);
    Change(*rows, u"name", Text(u"Tea"));
    for (const char16_t* query : {u"SELECT * FROM \"goods\" AS goods WHERE id IN (SELECT id FROM goods UNION SELECT 7)",
                                  u"SELECT goods.id, price FROM plain JOIN plain p ON (p.v = plain.v), goods"})
        EXPECT_TRUE(Open(query)->Supports(adUpdate)) << Utf8Encode(query);
}

TEST_P(OdbcPosting, ColumnsUnderOtherNamesNeverTakeEachOthersEdits) {
    Connection->Execute(u"CREATE TABLE pairs (id int PRIMARY KEY, a int, b int)");
    Connection->Execute(u"INSERT INTO pairs VALUES (1, 5, 5)");
    for (const char16_t* query : {u"SELECT id, a AS b, b AS a FROM pairs", u"SELECT id, a b, b \"a\" FROM pairs",
                                  u"SELECT id, a /* AS */ b, b AS -- x\n a FROM pairs"}) {
        const auto rows = Open(query);
        try {
            Change(*rows, u"b", std::int64_t(7)); // which is a
            Change(*rows, u"b", std::int64_t(5));
            EXPECT_FALSE(IsSQLite()) << "its driver does not tell the names in the table";
        } catch (const EReadOnlyDataError&) {
            EXPECT_TRUE(IsSQLite());
        }
        EXPECT_EQ(Value(u"SELECT b FROM pairs"), Variant(5));
    }
    const auto rows = Open(u"SELECT id, a, a * b AS product, (b) FROM pairs x WHERE a >= 0 ORDER BY a");
    Change(*rows, u"a", std::int64_t(6));
    EXPECT_EQ(Value(u"SELECT a FROM pairs"), Variant(6));
}

} // namespace
