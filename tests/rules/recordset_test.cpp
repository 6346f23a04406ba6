// The rows of a client's recordset: every type of column through every door, rows that come and go under bookmarks, and
// edits that fail.

#include "framework/db/clientrecordset.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <random>

using namespace framework;

namespace {

TColumnInfo Column(DataTypeEnum type, int precision = 0, int scale = 0) {
    TColumnInfo info;
    info.Name = u"c" + IntToHex(static_cast<int>(type), 2);
    info.Type = type;
    info.Precision = precision;
    info.Scale = scale;
    return info;
}

TMoment Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ticks = 0) {
    TMoment moment = TMoment::FromDateTime(EncodeDateTime(year, month, day, hour, minute, second, 0));
    moment.Ticks += ticks;
    return moment;
}

TDataValue Text(StringView text) {
    return String(text);
}

TEST(ColumnStore, KeepsWhatEachTypeHolds) {
    struct TCase {
        const char* Name;
        TColumnInfo Column;
        TDataValue Given;
        TDataValue Held; ///< no alternative's own default where the column refuses
        bool Refused = false;
    };
    const TDataValue none;
    const TCase cases[] = {
        {"8 bits", Column(adTinyInt), std::int64_t(-128), std::int64_t(-128)},
        {"8 bits beyond", Column(adTinyInt), std::int64_t(128), none, true},
        {"byte beyond", Column(adUnsignedTinyInt), std::int64_t(-1), none, true},
        {"16 bits", Column(adSmallInt), std::int64_t(-32768), std::int64_t(-32768)},
        {"32 bits unsigned", Column(adUnsignedInt), std::int64_t(4294967295), std::int64_t(4294967295)},
        {"64 bits", Column(adBigInt), INT64_MIN, INT64_MIN},
        {"a float that is whole", Column(adInteger), 7.0, std::int64_t(7)},
        {"a float that is not", Column(adInteger), 7.5, none, true},
        {"a truth value from a number", Column(adBoolean), std::int64_t(5), true},
        {"single", Column(adSingle), 0.5, 0.5},
        {"decimal with fewer places", Column(adNumeric, 10, 2), TNumeric{15, 1}, TNumeric{150, 2}},
        {"decimal with more places stays exact", Column(adNumeric, 10, 2), TNumeric{-12345, 3}, TNumeric{-12345, 3}},
        {"decimal from a float is rounded", Column(adNumeric, 10, 2), 2.675, TNumeric{268, 2}},
        {"decimal of 40 digits", Column(adNumeric, 40, 10), Text(u"123456789012345678901234567890.0123456789"),
         Text(u"123456789012345678901234567890.0123456789")},
        {"money", Column(adCurrency, 19, 4), TNumeric{-5, 0}, TNumeric{-50000, 4}},
        {"money with five places", Column(adCurrency, 19, 4), TNumeric{1, 5}, none, true},
        {"a number in words", Column(adNumeric, 10, 2), Text(u"twelve"), none, true},
        {"nothing but a sign", Column(adNumeric, 10, 2), Text(u"-."), none, true},
        {"text beyond the BMP", Column(adVarWChar), Text(u"za\u017C\U0001F600"), Text(u"za\u017C\U0001F600")},
        {"empty text is not NULL", Column(adVarWChar), Text(u""), Text(u"")},
        {"a date loses its time", Column(adDBDate), Moment(1600, 2, 29, 23, 59), Moment(1600, 2, 29)},
        {"a time loses its date", Column(adDBTime), Moment(1600, 2, 29, 23, 59, 1, 7),
         TMoment{Moment(1899, 12, 30, 23, 59, 1, 7)}},
        {"microseconds stay", Column(adDBTimeStamp), Moment(9999, 12, 31, 23, 59, 59, 9999990),
         Moment(9999, 12, 31, 23, 59, 59, 9999990)},
        {"bytes", Column(adLongVarBinary), TBytes{0, 255}, TBytes{0, 255}},
        {"a GUID from its text", Column(adGUID), Text(u"{6f9619ff-8b86-d011-b42d-00c04fc964ff}"),
         TGUID{0x6F9619FF, 0x8B86, 0xD011, {0xB4, 0x2D, 0x00, 0xC0, 0x4F, 0xC9, 0x64, 0xFF}}},
        {"not quite a GUID", Column(adGUID), Text(u"6f9619ff-8b86-d011-b42d_00c04fc964ff"), none, true},
        {"text for a date", Column(adDBDate), Text(u"2020-02-29"), none, true},
    };
    for (const TCase& expected : cases) {
        SCOPED_TRACE(expected.Name);
        TRowStore rows({expected.Column});
        const TDataValue values[] = {expected.Given};
        if (expected.Refused) {
            EXPECT_THROW(rows.AppendRow(values), EDatabaseError);
            EXPECT_EQ(rows.GetRowCount(), 0);
            continue;
        }
        rows.AppendRow();
        rows.AppendRow(values);
        EXPECT_TRUE(rows.Column(0).IsNull(0));
        EXPECT_FALSE(rows.Column(0).IsNull(1));
        EXPECT_EQ(rows.Column(0).Get(1), expected.Held);

        // The recordset's general door gives the same.
        TClientRecordset recordset(std::move(rows));
        recordset.MoveNext();
        EXPECT_EQ(recordset.GetValue(0), expected.Held);
        EXPECT_FALSE(VarIsNull(recordset.GetVariant(0)));
    }
}

TEST(ColumnStore, KeepsAllRowsWhileAColumnGrowsAndWidens) {
    TRowStore rows({Column(adInteger), Column(adNumeric, 8, 2), Column(adLongVarWChar)});
    constexpr int count = 10'000; // more than two chunks
    const String large(1 << 20, u'\u0141');
    for (int i = 0; i < count; ++i) {
        const int row = rows.AppendRow();
        if (i % 7 == 0)
            continue;
        rows.Column(0).SetInt64(row, i);
        rows.Column(1).SetNumeric(row, {i, 2});
        rows.Column(2).SetText(row, i == 5000 ? StringView(large) : StringView(large).substr(0, i % 50));
    }
    EXPECT_FALSE(rows.Column(0).Fits(INT64_MAX));
    rows.Column(0).WidenToBigInt();
    rows.Column(1).WidenToDigits();
    rows.Column(0).SetInt64(1, INT64_MAX);
    rows.Column(1).SetText(1, u"1234567890123456789012345.678");
    for (int row = 0; row < count; ++row) {
        ASSERT_EQ(rows.Column(0).IsNull(row), row % 7 == 0);
        ASSERT_EQ(rows.Column(1).IsNull(row), row % 7 == 0);
        ASSERT_EQ(rows.Column(2).IsNull(row), row % 7 == 0);
        if (row % 7 == 0 || row == 1)
            continue;
        TNumeric number;
        ASSERT_EQ(rows.Column(0).GetInt64(row), row);
        ASSERT_TRUE(rows.Column(1).TryGetNumeric(row, number));
        ASSERT_EQ(number, (TNumeric{row, 2}));
        ASSERT_EQ(rows.Column(2).GetText(row).size(), row == 5000 ? large.size() : static_cast<std::size_t>(row % 50));
    }
    TNumeric number;
    EXPECT_FALSE(rows.Column(1).TryGetNumeric(1, number));
    EXPECT_DOUBLE_EQ(rows.Column(1).GetDouble(1), 1234567890123456789012345.678);
    EXPECT_EQ(rows.Column(0).GetInt64(1), INT64_MAX);
}

/// What stands in the rows that are there, from the first to the last.
std::vector<std::int64_t> Walk(TClientRecordset& recordset) {
    std::vector<std::int64_t> values;
    recordset.MoveFirst();
    for (; !recordset.GetEOF(); recordset.MoveNext())
        values.push_back(recordset.GetInt64(0));
    return values;
}

TEST(Recordset, BookmarksAndPositionsSurviveDeletesAndInserts) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("random seed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    TRowStore rows({Column(adInteger)});
    std::vector<std::int64_t> model;
    for (int i = 0; i < 3000; ++i) {
        const TDataValue values[] = {std::int64_t(i)};
        rows.AppendRow(values);
        model.push_back(i);
    }
    TClientRecordset recordset(std::move(rows));
    const Variant firstBookmark = recordset.GetBookmark();
    std::int64_t next = 3000;
    // First whole stretches, then rows here and there.
    for (int round = 0; round < 2000; ++round) {
        const std::size_t at = round < 1200 ? 700 : random() % model.size();
        recordset.SetAbsolutePosition(static_cast<int>(at) + 1);
        ASSERT_EQ(recordset.GetInt64(0), model[at]);
        const Variant bookmark = recordset.GetBookmark();
        recordset.Delete();
        EXPECT_EQ(recordset.GetStatus(), adRecDeleted);
        EXPECT_THROW(recordset.GetInt64(0), EDatabaseError);
        EXPECT_THROW(recordset.SetBookmark(bookmark), EDatabaseError);
        model.erase(model.begin() + static_cast<std::ptrdiff_t>(at));
        if (round % 2 == 0) {
            recordset.MoveNext();
            ASSERT_EQ(recordset.GetEOF(), at == model.size());
            if (!recordset.GetEOF()) {
                ASSERT_EQ(recordset.GetInt64(0), model[at]);
            }
        } else {
            recordset.MovePrevious();
            ASSERT_EQ(recordset.GetBOF(), at == 0);
        }
        if (round % 3 == 0) {
            recordset.AddNew();
            const TColumnValue value[] = {{0, next}};
            recordset.Update(value);
            model.push_back(next++);
            ASSERT_EQ(recordset.GetAbsolutePosition(), static_cast<int>(model.size()));
        }
    }
    EXPECT_EQ(Walk(recordset), model);
    for (std::size_t i = 0; i < model.size(); i += 97) {
        recordset.SetBookmark(firstBookmark + Variant(model[i]));
        EXPECT_EQ(recordset.GetAbsolutePosition(), static_cast<int>(i) + 1);
        const int step = static_cast<int>(random() % (2 * model.size())) - static_cast<int>(model.size());
        recordset.Move(step);
        const auto target = static_cast<std::ptrdiff_t>(i) + step;
        if (target < 0)
            EXPECT_EQ(recordset.GetAbsolutePosition(), adPosBOF);
        else if (target >= static_cast<std::ptrdiff_t>(model.size()))
            EXPECT_EQ(recordset.GetAbsolutePosition(), adPosEOF);
        else
            EXPECT_EQ(recordset.GetInt64(0), model[static_cast<std::size_t>(target)]);
    }
}

TEST(Recordset, EndsAreWhereTheyShouldBe) {
    TClientRecordset empty(TRowStore({Column(adInteger)}));
    EXPECT_TRUE(empty.GetBOF() && empty.GetEOF());
    EXPECT_THROW(empty.MoveNext(), EDatabaseError);
    EXPECT_THROW(empty.GetBookmark(), EDatabaseError);
    EXPECT_THROW(empty.SetAbsolutePosition(1), EDatabaseError);
    empty.AddNew();
    EXPECT_FALSE(empty.GetBOF() || empty.GetEOF());
    EXPECT_TRUE(empty.IsNull(0));
    EXPECT_EQ(empty.GetStatus(), adRecNew);
    empty.CancelUpdate();
    EXPECT_TRUE(empty.GetBOF() && empty.GetEOF());

    TRowStore rows({Column(adInteger)});
    rows.AppendRow();
    TClientRecordset one(std::move(rows));
    EXPECT_FALSE(one.GetBOF() || one.GetEOF());
    one.MovePrevious();
    EXPECT_TRUE(one.GetBOF() && !one.GetEOF());
    EXPECT_THROW(one.MovePrevious(), EDatabaseError);
    one.MoveNext();
    one.MoveNext();
    EXPECT_TRUE(one.GetEOF() && !one.GetBOF());
    EXPECT_THROW(one.SetBookmark(Variant()), EDatabaseError);
    EXPECT_THROW(one.SetBookmark(Variant(u"one")), EDatabaseError);
    one.MovePrevious();
    EXPECT_EQ(one.GetAbsolutePosition(), 1);
}

/// Rows that can be told to fail.
class TFailingSource : public TRowSource {
public:
    explicit TFailingSource(bool& fails) : FFails(fails) {}
    TRowStore Fetch(const TFetchProgress&) override {
        Check();
        TRowStore rows({Column(adInteger)});
        for (std::int64_t i = 0; i < 3; ++i) {
            const TDataValue values[] = {i};
            rows.AppendRow(values);
        }
        return rows;
    }
    void CheckEditable() override {}
    std::vector<TColumnValue> Insert(const TRowStore&, std::span<const TColumnValue>) override {
        Check();
        return {{0, std::int64_t(5'000'000'000)}};
    }
    std::vector<TColumnValue> Update(const TRowStore&, int, std::span<const TColumnValue> values) override {
        Check();
        return {values.begin(), values.end()};
    }
    void Delete(const TRowStore&, int) override { Check(); }

private:
    void Check() const {
        if (FFails)
            throw ERecordChangedError(u"changed");
    }
    bool& FFails;
};

TEST(Recordset, FailedEditsChangeNothing) {
    bool fails = false;
    TClientRecordset recordset(std::make_unique<TFailingSource>(fails));
    recordset.MoveNext();
    const Variant bookmark = recordset.GetBookmark();
    fails = true;
    const TColumnValue value[] = {{0, std::int64_t(9)}};
    EXPECT_THROW(recordset.Update(value), ERecordChangedError);
    EXPECT_THROW(recordset.Delete(), ERecordChangedError);
    EXPECT_THROW(recordset.Requery(), ERecordChangedError);
    EXPECT_EQ(recordset.GetBookmark(), bookmark);
    recordset.AddNew();
    EXPECT_THROW(recordset.Update(value), ERecordChangedError);
    EXPECT_EQ(recordset.GetStatus(), adRecNew);
    recordset.CancelUpdate();
    EXPECT_EQ(recordset.GetBookmark(), bookmark);
    EXPECT_EQ(Walk(recordset), (std::vector<std::int64_t>{0, 1, 2}));

    fails = false;
    recordset.AddNew();
    recordset.Update(value);
    EXPECT_EQ(Walk(recordset), (std::vector<std::int64_t>{0, 1, 2, 5'000'000'000})) << "the database's own key";
    recordset.Requery();
    EXPECT_EQ(Walk(recordset), (std::vector<std::int64_t>{0, 1, 2}));
    EXPECT_THROW(recordset.SetBookmark(bookmark), EDatabaseError) << "of the rows before";
}

} // namespace
