// What comes out of a database must be what stands in it: every type of column, expressions, and declarations that the
// values do not keep.

#include "framework/db/adodataset.h"
#include "tests/support/databases.h"

using namespace databases;

namespace {

class OdbcTypes : public OnDatabase {};
ON_DATABASES(OdbcTypes, "SQLite", "PostgreSQL");
class OdbcTypesOfSQLite : public OnDatabase {};
ON_DATABASES(OdbcTypesOfSQLite, "SQLite");
class OdbcTypesOfPostgreSQL : public OnDatabase {};
ON_DATABASES(OdbcTypesOfPostgreSQL, "PostgreSQL");

TMoment Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ticks = 0) {
    TMoment moment = TMoment::FromDateTime(EncodeDateTime(year, month, day, hour, minute, second, 0));
    moment.Ticks += ticks;
    return moment;
}

constexpr TMoment halfPastNoon = {(12 * 60 + 30) * 60 * TMoment::ticksPerSecond};
const TGUID guid = {0x6F9619FF, 0x8B86, 0xD011, {0xB4, 0x2D, 0x00, 0xC0, 0x4F, 0xC9, 0x64, 0xFF}};

struct TCase {
    const char16_t* SQLite;     ///< the declaration there
    const char16_t* PostgreSQL; ///< and here; null where there is no such type
    DataTypeEnum Type;
    TDataValue Value;
    TDataValue Other; ///< what it is changed into
};

String LongText() {
    String text;
    while (text.size() < (1 << 20))
        text += u"Za\u017C\u00F3\u0142\u0107 \U0001F600 ";
    return text;
}

TBytes LongBytes() {
    TBytes bytes(300'000);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7);
    return bytes;
}

std::vector<TCase> Cases() {
    const std::int64_t large = INT64_MAX;
    const String text = u"za\u017C\u00F3\u0142\u0107 \U0001F600'\"; --";
    return {
        {u"smallint", u"smallint", adSmallInt, std::int64_t(-32768), std::int64_t(1)},
        {u"int", u"int", adInteger, std::int64_t(-2147483647), std::int64_t(0)},
        {u"bigint", u"bigint", adBigInt, large, -large - 1},
        {u"boolean", u"boolean", adBoolean, true, false},
        {u"real", u"real", adDouble, 0.5, -1e30},
        {u"double", u"double precision", adDouble, 0.1, 1.0 / 3},
        {u"numeric(12,2)", u"numeric(12,2)", adNumeric, TNumeric{-1250, 2}, TNumeric{1, 2}},
        {nullptr, u"numeric(40,10)", adNumeric, String(u"-123456789012345678901234567890.0123456789"),
         TNumeric{10'000'000'000, 10}},
        {u"decimal(30,10)", nullptr, adDouble, 1.23456789012346e+19, 0.5}, // SQLite keeps it as a float
        {u"money", u"money", adCurrency, TNumeric{1'234'567'8900, 4}, TNumeric{-10000, 4}},
        {u"date", u"date", adDBDate, Moment(2020, 2, 29), Moment(1, 1, 1)},
        {u"time", u"time", adDBTime, halfPastNoon, TMoment{halfPastNoon.Ticks + 1'234'560}},
        {u"timestamp", u"timestamp", adDBTimeStamp, Moment(2020, 2, 29, 23, 59, 59, 1'230'000), Moment(1600, 1, 1)},
        {nullptr, u"timestamp", adDBTimeStamp, Moment(2020, 2, 29, 23, 59, 59, 9'999'990), Moment(9999, 12, 31)},
        {u"varchar(20)", u"varchar(20)", adVarWChar, text, String()},
        {u"char(5)", u"char(5)", adVarWChar, String(u"ab   "), String(u"\u0142    ")},
        {u"text", u"text", adLongVarWChar, LongText(), String(u"short")},
        {u"blob", u"bytea", adLongVarBinary, LongBytes(), TBytes{}},
        {u"guid", u"uuid", adGUID, guid, TGUID{}},
        {nullptr, u"jsonb", adLongVarWChar, String(u"{\"a\": 1}"), String(u"[]")},
        {nullptr, u"json", adLongVarWChar, String(u"{\"a\":  1}"), String(u"[]")},
        {nullptr, u"int[]", adLongVarWChar, String(u"{1,2}"), String(u"{}")},
    };
}

TEST_P(OdbcTypes, GoInAndComeOutAndCanBeChanged) {
    int number = 0;
    for (const TCase& testCase : Cases()) {
        const char16_t* declaration = IsSQLite() ? testCase.SQLite : testCase.PostgreSQL;
        if (!declaration)
            continue;
        SCOPED_TRACE(Utf8Encode(declaration));
        const String table = u"t" + IntToStr(number++);
        Connection->Execute(u"CREATE TABLE " + table + u" (id integer PRIMARY KEY, v " + declaration + u")");
        try {
            std::unique_ptr<TClientRecordset> rows = Open(u"SELECT id, v FROM " + table);
            for (const TDataValue& value : {testCase.Value, TDataValue(), testCase.Other}) {
                rows->AddNew();
                const TColumnValue values[] = {{0, std::int64_t(rows->GetRecordCount() + 1)}, {1, value}};
                rows->Update(values);
            }
            rows->Requery();
            ASSERT_EQ(rows->GetRecordCount(), 3);
            EXPECT_EQ(rows->GetColumn(1).Type == adSingle  ? adDouble
                      : rows->GetColumn(1).Type == adWChar ? adVarWChar
                                                           : rows->GetColumn(1).Type,
                      testCase.Type);
            for (const TDataValue& value : {testCase.Value, TDataValue(), testCase.Other}) {
                const TDataValue found = rows->GetValue(1);
                const auto* number = std::get_if<double>(&found);
                if (number)
                    EXPECT_NEAR(*number, std::get<double>(value), std::abs(*number) * 1e-7);
                else
                    EXPECT_TRUE(found == value) << testing::PrintToString(found);
                rows->MoveNext();
            }
            // The old value must be recognised in the database, or every edit would be refused.
            const TDataValue changes[] = {testCase.Other, testCase.Value, TDataValue()};
            rows->MoveFirst();
            for (const TDataValue& value : changes) {
                const TColumnValue change[] = {{1, value}};
                rows->Update(change);
                rows->MoveNext();
            }
            rows->MoveFirst();
            for (rows->Delete(); !rows->GetEOF(); rows->Delete())
                rows->MoveNext();
        } catch (const Exception& error) {
            ADD_FAILURE() << error.what();
        }
        EXPECT_EQ(Value(u"SELECT count(*) FROM " + table), Variant(0));
    }
}

TEST_P(OdbcTypes, OfExpressionsAreUsable) {
    Connection->Execute(u"CREATE TABLE t (id int PRIMARY KEY, price numeric(10,2), day date, code varchar(9), r real)");
    Connection->Execute(u"INSERT INTO t VALUES (1, 10.5, '2020-02-29', '007', 0.25), (2, NULL, NULL, NULL, NULL)");
    const auto rows = Open(u"SELECT count(*), sum(price), max(day), max(code), avg(r) + 0.5, 'n' || id, NULL"
                           u" FROM t WHERE id = 1 GROUP BY id");
    ASSERT_EQ(rows->GetRecordCount(), 1);
    EXPECT_EQ(rows->GetInt64(0), 1);
    EXPECT_EQ(rows->GetDouble(1), 10.5);
    EXPECT_EQ(rows->GetMoment(2), Moment(2020, 2, 29));
    EXPECT_EQ(rows->GetText(3), u"007") << "a text of digits is no number";
    EXPECT_EQ(rows->GetDouble(4), 0.75);
    EXPECT_EQ(rows->GetText(5), u"n1");
    EXPECT_TRUE(rows->IsNull(6));
    EXPECT_THROW(rows->GetText(0), EDatabaseError);
}

TEST_P(OdbcTypes, AnyNumberOfRowsAndColumnsComes) {
    Connection->Execute(u"CREATE TABLE one (id int PRIMARY KEY)");
    for (int count = 0; count < 3; ++count) {
        const auto rows = Open(u"SELECT * FROM one");
        EXPECT_EQ(rows->GetRecordCount(), count);
        EXPECT_EQ(rows->GetEOF(), count == 0);
        EXPECT_EQ(rows->GetColumnCount(), 1);
        const TSqlParameter id[] = {{std::int64_t(count)}};
        Connection->Execute(u"INSERT INTO one VALUES (?)", id);
    }
    String columns;
    String values;
    for (int column = 0; column < 300; ++column) {
        columns += (column > 0 ? u", c" : u"c") + IntToStr(column) + u" varchar(200)";
        values += column > 0 ? u", 'value " + IntToStr(column) + u"'" : u"'0'";
    }
    Connection->Execute(u"CREATE TABLE wide (" + columns + u")");
    for (int row = 0; row < 20; ++row)
        Connection->Execute(u"INSERT INTO wide VALUES (" + values + u")");
    const auto rows = Open(u"SELECT * FROM wide");
    rows->MoveLast();
    EXPECT_EQ(rows->GetAbsolutePosition(), 20);
    EXPECT_EQ(rows->GetText(rows->FindColumn(u"C299")), u"value 299");
}

TEST_P(OdbcTypes, LongTextsAmongManyRowsKeepTheirPlaces) {
    Connection->Execute(u"CREATE TABLE notes (id int PRIMARY KEY, note text)");
    const String longText = LongText();
    std::vector<std::vector<TSqlParameter>> parameters;
    for (std::int64_t id = 0; id < 700; ++id) {
        const auto length = static_cast<std::size_t>(id % 300 == 299 ? id * 50 : id % 8);
        parameters.push_back({{id}, {id % 10 == 5 ? TDataValue() : TDataValue(longText.substr(0, length))}});
    }
    {
        TOdbcTransaction transaction(*Connection);
        Connection->ExecuteForAll(u"INSERT INTO notes VALUES (?, ?)", parameters);
        transaction.Commit();
    }
    const auto rows = Open(u"SELECT note, id FROM notes ORDER BY id");
    ASSERT_EQ(rows->GetRecordCount(), 700);
    for (const auto& row : parameters) {
        ASSERT_TRUE(rows->GetValue(0) == row[1].Value) << std::get<std::int64_t>(row[0].Value);
        rows->MoveNext();
    }
}

TEST_P(OdbcTypesOfSQLite, CanBeChangedInWhateverFormTheyStand) {
    const struct {
        const char16_t* Declaration;
        const char16_t* Values;
        TDataValue New;
    } cases[] = {
        {u"timestamp", u"'2020-02-29 23:59:58.9996'", Moment(2021, 1, 1)},
        {u"timestamp", u"'2020-02-29 10:00:00.123456'", Moment(2021, 1, 1)},
        {u"boolean", u"'true'", false},
        {u"boolean", u"'f'", true},
        {u"", u"'12'", std::int64_t(13)},
        {u"", u"'a'), (2, 12", String(u"b")},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(Utf8Encode(testCase.Values));
        Connection->Execute(u"DROP TABLE IF EXISTS t");
        Connection->Execute(u"CREATE TABLE t (id integer PRIMARY KEY, v " + String(testCase.Declaration) + u")");
        Connection->Execute(u"INSERT INTO t VALUES (1, " + String(testCase.Values) + u")");
        const auto rows = Open(u"SELECT * FROM t");
        rows->MoveLast();
        const TColumnValue change[] = {{1, testCase.New}};
        EXPECT_NO_THROW(rows->Update(change));
        EXPECT_NO_THROW(rows->Delete());
    }
}

TEST_P(OdbcTypes, WithoutALimitTakeAllThatIsEntered) {
    Connection->Execute(u"CREATE TABLE t (id int PRIMARY KEY, n numeric, v varchar, l varchar(255), s numeric(28,6))");
    Connection->Execute(u"INSERT INTO t VALUES (1, 0.5, 'a', 'b', 1)");
    TADODataSet data(nullptr);
    data.SetConnectionString(ConnectionString());
    data.SetCommandText(u"SELECT * FROM t");
    data.Open();
    EXPECT_EQ(data.FieldByName(u"s")->GetSize(), 6);
    EXPECT_EQ(data.FieldByName(u"l")->GetSize(), 255);
    data.Edit();
    data.FieldByName(u"n")->SetAsFloat(4.32155012345);
    data.FieldByName(u"v")->SetAsString(String(300, u'x'));
    EXPECT_THROW(data.FieldByName(u"l")->SetAsString(String(300, u'x')), EDatabaseError);
    data.Post();
    data.Refresh();
    EXPECT_EQ(data.FieldByName(u"n")->GetAsFloat(), 4.32155012345);
    EXPECT_EQ(data.FieldByName(u"v")->GetAsString().size(), 300U);
    data.Edit();
    data.FieldByName(u"n")->SetAsInteger(3);
    EXPECT_NO_THROW(data.Post()) << "the row is found again by its old value";
}

/// The driver gives today's date for a moment that it cannot read.
TEST_P(OdbcTypesOfPostgreSQL, MomentsBeyondTheDriverAreNotToday) {
    const struct {
        const char16_t* Sql;
        DataTypeEnum Type;
        const char16_t* Text; ///< of the row in the middle
    } cases[] = {
        {u"date 'infinity'", adLongVarWChar, u"0000-00-00"},
        {u"date '12345-01-02'", adLongVarWChar, u"1234-00-00"},
        {u"timestamp '12345-01-02 03:04'", adLongVarWChar, u"0000-00-00 00:00:00"},
        {u"timestamp '-infinity'", adLongVarWChar, u"9999-01-01 00:00:00 BC"},
        {u"current_date", adDBDate, u"today"},
        {u"current_date - 1", adDBDate, u"yesterday"},
        {u"current_date + time '23:59:59.123456'", adDBTimeStamp, u"now"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(Utf8Encode(each.Sql));
        const String value = each.Sql;
        const auto rows = Open(u"SELECT CASE WHEN i = 200 THEN " + value + u" ELSE date '2000-01-01' END, to_char(" +
                               value + u", 'YYYY-MM-DD') FROM generate_series(1, 300) i");
        EXPECT_EQ(rows->GetColumn(0).Type, each.Type);
        rows->SetAbsolutePosition(200);
        if (IsMomentType(each.Type)) {
            EXPECT_EQ(FormatDateTime(u"yyyy-mm-dd", rows->GetMoment(0).AsDateTime()), rows->GetText(1));
            if (each.Type == adDBTimeStamp) {
                EXPECT_EQ(rows->GetMoment(0).Ticks % TMoment::ticksPerSecond, 1'234'560);
            }
        } else {
            EXPECT_EQ(Utf8Encode(rows->GetText(0)), Utf8Encode(each.Text));
        }
    }
}

TEST_P(OdbcTypes, ParametersOfMoneyAreNumbers) {
    Connection->Execute(u"CREATE TABLE t (id int PRIMARY KEY, price numeric(10,2))");
    Connection->Execute(u"INSERT INTO t VALUES (1, 10), (2, 12.5), (3, 20)");
    for (const TNumeric limit : {TNumeric{1225, 2}, TNumeric{1100, 2}})
        EXPECT_EQ(Open(u"SELECT id FROM t GROUP BY id HAVING sum(price) > ?", {{limit}})->GetRecordCount(), 2);
}

TEST_P(OdbcTypesOfSQLite, StayWhatTheyAreWhenTheyBreakTheirDeclaration) {
    const struct {
        const char16_t* Declaration;
        const char16_t* Values; ///< two of them; the first one fits
        DataTypeEnum Type;
        const char16_t* Second;
    } cases[] = {
        {u"integer", u"(1), (3000000000)", adBigInt, u"3000000000"},
        {u"integer", u"(1), (1.5)", adDouble, u"1.5"},
        {u"integer", u"(1), ('abc')", adLongVarWChar, u"abc"},
        {u"boolean", u"(1), (2)", adInteger, u"2"},
        {u"numeric(8,2)", u"(1.25), (0.125)", adNumeric, u"0.125"},
        {u"numeric(8,2)", u"(1.25), (1e30)", adDouble, u"1E30"},
        {u"NUMBER(10,2)", u"(1), (1.25)", adNumeric, u"1.25"},
        {u"dec(8,3)", u"(1), (1.125)", adNumeric, u"1.125"},
        {u"floating point", u"(1), (1.5)", adDouble, u"1.5"},
        {u"date", u"('2020-02-29'), ('2020-02-29T10:00')", adDBTimeStamp, u"2020-02-29 10:00:00"},
        {u"date", u"('2020-02-29'), ('2020-02-30')", adLongVarWChar, u"2020-02-30"},
        {u"timestamp", u"('2020-02-29'), (2458909.5)", adLongVarWChar, u"2458909.5"},
        {u"uniqueidentifier", u"('6f9619ff-8b86-d011-b42d-00c04fc964ff'), ('none')", adLongVarWChar, u"none"},
        {u"", u"('a'), (12)", adVarWChar, u"12"},
        {u"", u"(-5), (12)", adBigInt, u"12"},
        {u"", u"(0.5), ('1.10')", adVarWChar, u"1.10"},
        {u"", u"('1'), ('1E5')", adVarWChar, u"1E5"},
        {u"", u"(0.5), ('3.14159265358979323')", adVarWChar, u"3.14159265358979323"},
        {u"", u"(-1e30), (0.00001234567890125)", adDouble, u"0.00001234567890125"},
        {u"varchar(3)", u"('abc'), ('longer than it says')", adVarWChar, u"longer than it says"},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(Utf8Encode(String(testCase.Declaration) + u" " + testCase.Values));
        Connection->Execute(u"DROP TABLE IF EXISTS t");
        Connection->Execute(u"CREATE TABLE t (v " + String(testCase.Declaration) + u")");
        Connection->Execute(u"INSERT INTO t VALUES " + String(testCase.Values));
        const auto rows = Open(u"SELECT v FROM t");
        ASSERT_EQ(rows->GetRecordCount(), 2);
        EXPECT_TRUE(rows->GetColumn(0).Type == testCase.Type ||
                    (rows->GetColumn(0).Type == adLongVarWChar && testCase.Type == adVarWChar));
        rows->MoveNext();
        String text = VarToStr(rows->GetVariant(0), TFormatSettings::Invariant());
        if (testCase.Type == adDBTimeStamp)
            text = FormatDateTime(u"yyyy-mm-dd hh:nn:ss", rows->GetMoment(0).AsDateTime());
        EXPECT_EQ(Utf8Encode(text), Utf8Encode(testCase.Second));
    }
}

} // namespace
