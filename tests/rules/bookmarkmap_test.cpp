// The map of bookmarks beside an ordinary one, statements taken apart, and the values that record buffers keep.

#include "data/Zoradodataset_rules.h"
#include "framework/db/parameters.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <random>

using namespace framework;
using namespace ZOR;

namespace {

TEST(BookmarkMap, AgreesWithAnOrdinaryMap) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    const auto below = [&](int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); };
    for (int round = 0; round < 300; ++round) {
        TBookmarkMap map;
        std::map<int, int> model;
        const int keys = 1 + below(40);
        const bool ascends = below(2) != 0;
        for (int i = 0; i < 60; ++i) {
            const int key = ascends ? std::min(i, keys) : below(keys);
            const int number = below(8);
            map.Put(OleVariant(Variant(key)), number);
            model[key] = number;
            if (below(4) != 0)
                continue; // asked only now and then, so that several wait to be put in order
            ASSERT_EQ(map.GetCount(), static_cast<int>(model.size()));
            // Bookmarks are compared by value, so a float finds what a whole number registered.
            const int probe = below(keys + 2) - 1;
            const OleVariant bookmark = below(2) ? OleVariant(Variant(probe)) : OleVariant(Variant(probe * 1.0));
            const auto found = model.find(probe);
            ASSERT_EQ(map.NumberOf(bookmark), found == model.end() ? 0 : found->second);
            const int wanted = below(9);
            OleVariant first;
            OleVariant next;
            OleVariant prior;
            for (const auto& [each, itsNumber] : model) {
                if (itsNumber == wanted && first.IsEmpty())
                    first = OleVariant(Variant(each));
                if (itsNumber != 0 && each > probe && next.IsEmpty())
                    next = OleVariant(Variant(each));
                if (itsNumber != 0 && each < probe)
                    prior = OleVariant(Variant(each));
            }
            ASSERT_EQ(map.BookmarkOf(wanted), first);
            ASSERT_EQ(map.NextShown(bookmark), next);
            ASSERT_EQ(map.PriorShown(bookmark), prior);
        }
    }
}

/// Numbers that change while they are asked for; a map that is put in order anew each time takes minutes.
TEST(BookmarkMap, TakesAnotherNumberWhereItStands) {
    constexpr int count = 50000;
    TBookmarkMap map;
    for (int i = 0; i < count; ++i)
        map.Put(OleVariant(Variant(i)), i);
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        map.Put(OleVariant(Variant(i)), i + 1);
        ASSERT_EQ(map.NumberOf(OleVariant(Variant(i))), i + 1);
        ASSERT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20)) << i;
    }
    EXPECT_EQ(map.GetCount(), count);
}

TEST(Parameters, AreFoundWhereTheyAreMeant) {
    const struct {
        const char16_t* Statement;
        const char16_t* Text;
        const char16_t* Names;
    } cases[] = {
        {u"select * from a where id = :Id and x>:x_1", u"select * from a where id = ? and x>?", u"Id x_1 "},
        {u"select ':no', \":no\", `:no`, [:no] from t where a=:a",
         u"select ':no', \":no\", `:no`, [:no] from t where a=?", u"a "},
        {u"select 'it''s :no' || :yes", u"select 'it''s :no' || ?", u"yes "},
        {u"select x::text -- :no ?\n, :a /* ':no' */, ?", u"select x::text -- :no ?\n, ? /* ':no' */, ?", u"a  "},
        {u"select : a, '", u"select : a, '", u""},
        {u":Zażółć", u"?", u"Zażółć "},
    };
    for (const auto& each : cases) {
        const TParsedStatement parsed = ParseStatement(each.Statement);
        String names;
        for (const String& name : parsed.Names)
            names += name + u" ";
        EXPECT_EQ(Utf8Encode(parsed.Text), Utf8Encode(each.Text));
        EXPECT_EQ(Utf8Encode(names), Utf8Encode(each.Names));
    }
    TParameters parameters(nullptr);
    parameters.ParseSQL(u"select :a, :b, :A");
    parameters.SetParamValues(u"B", 5);
    parameters.ParseSQL(u"select :b, :c, ?");
    EXPECT_EQ(parameters.GetCount(), 3);
    EXPECT_EQ(parameters.GetParamValues(u"b"), Variant(5));
    EXPECT_TRUE(parameters.FindParam(u"Param1"));
    EXPECT_FALSE(parameters.FindParam(u"a"));
}

TEST(OleVariant, OwnsWhatItKeepsAtAnyAddress) {
    const TGUID guid{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    String text = u"a text that is longer than any small buffer";
    TBytes bytes = {1, 2, 3};
    const std::vector<TFieldValue> values = {TFieldValue(),
                                             TFieldValue::Null(),
                                             TFieldValue::Boolean(true),
                                             TFieldValue::Integer(-5),
                                             TFieldValue::Float(2.5),
                                             TFieldValue::Decimal({15, 1}),
                                             TFieldValue::Date(36526.5),
                                             TFieldValue::Text(text),
                                             TFieldValue::Guid(guid),
                                             TFieldValue::Bytes(bytes),
                                             TFieldValue::Money(Currency(7))};
    std::vector<OleVariant> kept;
    for (const TFieldValue& value : values)
        kept.emplace_back(value);
    const std::vector<OleVariant> copies = kept;
    kept.erase(kept.begin(), kept.begin() + 3);
    kept.clear();
    text.assign(text.size(), u'x');
    bytes.assign(3, 9);
    const char* const expected[] = {"",
                                    "",
                                    "True",
                                    "-5",
                                    "2.5",
                                    "1.5",
                                    nullptr,
                                    "a text that is longer than any small buffer",
                                    "{00000001-0002-0003-0405-060708090A0B}",
                                    "\x01\x02\x03",
                                    "7"};
    for (std::size_t i = 0; i < copies.size(); ++i) {
        EXPECT_EQ(copies[i].View().Kind(), values[i].Kind()) << i;
        if (expected[i]) {
            EXPECT_EQ(Utf8Encode(copies[i].View().AsString()), expected[i]) << i;
        }
    }
    EXPECT_EQ(copies[5], OleVariant(Variant(1.5)));
    EXPECT_LT(copies[0], copies[1]);
    EXPECT_LT(copies[1], copies[3]);
    // Exact numbers by all their digits, whatever their scale.
    const auto decimal = [](std::int64_t units, int scale) { return OleVariant(TFieldValue::Decimal({units, scale})); };
    EXPECT_LT(decimal(123456789012345678, 6), decimal(123456789012345679, 6));
    EXPECT_EQ(decimal(15, 1), decimal(1500, 3));
    EXPECT_EQ(decimal(7, 0), copies[10]);
    EXPECT_LT(decimal(INT64_MAX, 17), decimal(INT64_MAX, 0));
    EXPECT_LT(decimal(INT64_MIN, 0), decimal(INT64_MIN, 17));
}

} // namespace
