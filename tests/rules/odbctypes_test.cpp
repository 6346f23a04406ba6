// What comes out of a database must be what stands in it: every type of column, expressions, and declarations that the
// values do not keep.

#include "tests/support/databases.h"

using namespace databases;

namespace {

class OdbcTypes : public OnDatabase {};
FOR_EACH_DATABASE(OdbcTypes);

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
        bytes[i] = static_cast<std::byte>(i * 7);
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

} // namespace
