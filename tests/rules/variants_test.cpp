#include "framework/system/exceptions.h"
#include "framework/system/strings.h"
#include "framework/system/variants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

namespace framework {
namespace {

TFormatSettings WithComma() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    return settings;
}

/// The message of the error that `use` raises, empty without one.
template <typename Use>
std::string ErrorOf(Use use) {
    try {
        use();
    } catch (const EVariantError& error) {
        return error.what();
    }
    return {};
}

const Variant list = VarArrayOf({1, u"a", Null()});

TEST(VariantKinds, ComeFromTheTypeOfTheValue) {
    enum TPlain { plain };
    static_assert(!std::is_constructible_v<Variant, const int*>);
    static_assert(!std::is_constructible_v<Variant, std::nullptr_t>);
    static_assert(!std::is_constructible_v<Variant, char16_t>);
    static_assert(!std::is_constructible_v<Variant, TPlain>);
    static_assert(std::is_nothrow_move_constructible_v<Variant> && std::is_nothrow_move_assignable_v<Variant>);
    static_assert(sizeof(Variant) <= 32);

    const struct {
        Variant Value;
        TVarType Type;
    } rows[] = {
        {Variant(), varEmpty},
        {Null(), varNull},
        {true, varBoolean},
        {std::int8_t{-1}, varInteger},
        {7, varInteger},
        {7u, varInt64},
        {std::int64_t{7}, varInt64},
        {std::uint64_t{7}, varInt64},
        {std::numeric_limits<std::uint64_t>::max(), varDouble},
        {1.5f, varDouble},
        {1.5L, varDouble},
        {Currency(2), varCurrency},
        {VarFromDateTime(2.5), varDate},
        {u"text", varUString},
        {String(u"text"), varUString},
        {StringView(u"text"), varUString},
        {list, varArray | varVariant},
    };
    for (const auto& row : rows)
        EXPECT_EQ(VarType(row.Value), row.Type);
    EXPECT_TRUE(VarIsNumeric(true) && VarIsNumeric(1) && VarIsNumeric(1.0) && VarIsNumeric(Currency(1)));
    EXPECT_FALSE(VarIsNumeric(u"1") || VarIsNumeric(VarFromDateTime(1)) || VarIsNumeric(Null()) || VarIsNumeric({}));
}

TEST(VariantConversions, FollowTheValue) {
    const struct {
        const char* Name;
        Variant Value;
        StringView Text;
        std::int64_t Integer;
        Extended Float;
        bool Truth;
        Currency Money;
    } rows[] = {
        {"unassigned", Variant(), u"", 0, 0, false, 0},
        {"true", true, u"True", -1, -1, true, -1},
        {"false", false, u"False", 0, 0, false, 0},
        {"integer", -42, u"-42", -42, -42, true, -42},
        {"float, half to even down", 2.5, u"2.5", 2, 2.5L, true, Currency(2.5L)},
        {"float, half to even up", -3.5L, u"-3.5", -4, -3.5L, true, Currency(-3.5L)},
        {"float below a half", 0.1L, u"0.1", 0, 0.1L, true, Currency(0.1L)},
        {"money", Currency(19.99L), u"19.99", 20, 19.99L, true, Currency(19.99L)},
        {"integer text", u" 12", u" 12", 12, 12, true, 12},
        {"float text", u"1.5e1", u"1.5e1", 15, 15, true, 15},
        {"zero text", u"0.0", u"0.0", 0, 0, false, 0},
        {"day and a half", VarFromDateTime(1.5), u"12/31/1899 12:00:00", 2, 1.5L, true, Currency(1.5L)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        EXPECT_TRUE(row.Value.AsString() == row.Text) << Utf8Encode(row.Value.AsString());
        EXPECT_EQ(row.Value.AsInteger(), row.Integer);
        EXPECT_EQ(row.Value.AsFloat(), row.Float);
        EXPECT_EQ(row.Value.AsBoolean(), row.Truth);
        EXPECT_EQ(row.Value.AsCurrency(), row.Money);
    }
    EXPECT_TRUE(Variant(u"tRUE").AsBoolean());
    EXPECT_FALSE(Variant(u"FALSE").AsBoolean());
    EXPECT_EQ(Variant(u"$FF").AsInteger(), 255);
    EXPECT_EQ(Variant(u"9223372036854775807").AsInteger(), INT64_MAX) << "not by way of a float";
    EXPECT_EQ(Variant(u"922337203685477.5807").AsCurrency(), Currency::FromUnits(INT64_MAX));
    EXPECT_TRUE(Variant(1.5).AsString(WithComma()) == u"1,5");
    EXPECT_EQ(Variant(u"1,5").AsFloat(WithComma()), 1.5L);
}

TEST(VariantConversions, RefuseClearly) {
    const struct {
        std::function<void()> Use;
        const char* Message;
    } rows[] = {
        {[] { Null().AsInteger(); }, "Cannot convert Null to an integer"},
        {[] { Null().AsString(); }, "Cannot convert Null to a text"},
        {[] { Null().AsDate(); }, "Cannot convert Null to a date"},
        {[] { Variant(u"abc").AsFloat(); }, "Cannot convert 'abc' to a number"},
        {[] { Variant(u"").AsInteger(); }, "Cannot convert '' to an integer"},
        {[] { Variant(u"yes").AsBoolean(); }, "Cannot convert 'yes' to a truth value"},
        {[] { Variant(1e19).AsInteger(); }, "Cannot convert 1E19 to an integer"},
        {[] { Variant(std::nan("")).AsInteger(); }, "Cannot convert NAN to an integer"},
        {[] { Variant(1e16).AsCurrency(); }, "Cannot convert 1E16 to a currency value"},
        {[] { Variant(INT64_MAX).AsCurrency(); }, "Cannot convert 9223372036854775807 to a currency value"},
        {[] { list.AsString(); }, "Cannot convert a list of values to a text"},
        {[] { VarFromDateTime(1e9).AsString(); }, "Cannot convert the day number 1000000000 to a text"},
        {[] { list[3]; }, "The list of values has no element 3"},
        {[] { Variant(5)[0]; }, "The value is not a list"},
        {[] { Variant() + list; }, "Cannot convert a list of values to a number"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ErrorOf(row.Use), row.Message);
    EXPECT_TRUE(VarToStr(Null()).empty());
    EXPECT_TRUE(VarToStrDef(Null(), u"-") == u"-");
    EXPECT_TRUE(VarToStrDef(0, u"-") == u"0");
    EXPECT_THROW(VarToStr(list), EVariantError);
}

TEST(VariantDates, GoToTextAndBackAsTheSettingsSay) {
    TFormatSettings dayFirst = WithComma();
    dayFirst.ShortDateFormat = u"dd.MM.yyyy";
    dayFirst.DateSeparator = u'.';
    const struct {
        TDateTime Day;
        StringView Text;
        StringView DayFirst;
        StringView ForPrograms;
    } rows[] = {
        {0, u"12/30/1899", u"30.12.1899", u"1899-12-30"},
        {45351.75, u"02/29/2024 18:00:00", u"29.02.2024 18:00:00", u"2024-02-29 18:00:00"},
        {2958465, u"12/31/9999", u"31.12.9999", u"9999-12-31"},
        {-693593, u"01/01/0001", u"01.01.0001", u"0001-01-01"},
        {-1.25, u"12/29/1899 06:00:00", u"29.12.1899 06:00:00", u" 1899-12-29 06:00 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Utf8Encode(row.Text));
        EXPECT_TRUE(VarFromDateTime(row.Day).AsString() == row.Text);
        EXPECT_TRUE(VarFromDateTime(row.Day).AsString(dayFirst) == row.DayFirst);
        EXPECT_EQ(Variant(row.Text).AsDate(), row.Day);
        EXPECT_EQ(Variant(row.DayFirst).AsDate(dayFirst), row.Day);
        EXPECT_EQ(Variant(row.ForPrograms).AsDate(), row.Day);
    }
    EXPECT_TRUE(VarFromDateTime(45656.9999999999).AsString() == u"12/31/2024") << "rounded into the next day";
    EXPECT_EQ(Variant(u" 45657,5 ").AsDate(WithComma()), 45657.5);
    EXPECT_EQ(Variant(u"12").AsDate(), 12) << "days, not hours";
    EXPECT_EQ(Variant(45657).AsDate(), 45657);
    for (const StringView text : {u"2023-02-29", u"2024-13-01", u"0000-01-01", u"24-01-01", u"2024-01-01 24:00:00",
                                  u"2024-01-01x", u"2024-01-01 10:00:00x", u"31/12/2024"})
        EXPECT_THROW(Variant(text).AsDate(), EVariantError) << Utf8Encode(text);
}

TEST(VariantOrder, ComparesByValueAcrossKinds) {
    const Variant nan = std::nan("");
    // Each row in rising order.
    const std::vector<Variant> rows[] = {
        {Variant(), Null(), -1, list},
        {nan, -std::numeric_limits<double>::infinity(), -2, Currency(-1.5L), true, -0.5, Currency::FromUnits(-1), false,
         Currency::FromUnits(1), 0.5L, 1, Currency(1.5L), VarFromDateTime(1.75), 2, INT64_MAX,
         std::numeric_limits<double>::infinity()},
        {INT64_MAX - 1, INT64_MAX},
        {u"", u"A", u"a", u"ab", u"b"},
        {5, u"7.5", 10, 20, u"text"},
        {10, u"$F", 20},
        {true, u"False"},
        {u"12/30/2024", VarFromDateTime(45657), u"2025-01-01"},
        {u"0.1", Currency(0.25L), u"0.3"},
        {VarArrayOf({1}), VarArrayOf({1, 2}), VarArrayOf({1, 2, Null()}), VarArrayOf({1, u"a"}), VarArrayOf({2})},
    };
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            for (std::size_t k = 0; k < row.size(); ++k) {
                const std::weak_ordering expected = i <=> k;
                EXPECT_TRUE((row[i] <=> row[k]) == expected) << "row " << &row - rows << ": " << i << ", " << k;
            }
        }
    }
}

TEST(VariantOrder, FindsTheSameValueInDifferentClothes) {
    const std::pair<Variant, Variant> rows[] = {
        {1, 1.0},
        {0.1, 0.1L},
        {0.1, Currency(0.1L)},
        {0.1L, Currency(0.1L)},
        {Currency(3), std::int64_t{3}},
        {u"5", 5},
        {u"1e1", 10},
        {u"true", true},
        {true, -1},
        {2.0, VarFromDateTime(2)},
        {std::nan(""), std::nan("")},
        {String(u"a"), u"a"},
        {VarArrayOf({1, u"x"}), VarArrayOf({1.0, u"x"})},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(row.first == row.second) << "row " << &row - rows;
    EXPECT_TRUE(Variant(5) != Variant(u"five"));
    EXPECT_TRUE(Variant(std::int64_t{9007199254740993}) != Variant(std::int64_t{9007199254740992}));
}

// Keys of one kind, floats of different widths among them, must stay sorted in a container.
TEST(VariantOrder, SortsNumbersConsistently) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    std::vector<Variant> values;
    for (int i = 0; i < 300; ++i) {
        const int tenths = static_cast<int>(random() % 60);
        const Variant kinds[] = {tenths / 10, tenths / 10.0, tenths / 10.0L, Currency(tenths) / Currency(10)};
        values.push_back(kinds[random() % std::size(kinds)]);
    }
    std::sort(values.begin(), values.end());
    for (std::size_t i = 0; i < values.size(); ++i) {
        for (std::size_t k = i; k < values.size(); ++k)
            ASSERT_FALSE(values[k] < values[i]) << i << ", " << k;
    }
}

TEST(VariantSums, KeepTheKindThatHoldsThem) {
    const struct {
        const char* Name;
        Variant Left, Right, Sum;
        TVarType Type;
    } rows[] = {
        {"integers", 1, 2, 3, varInteger},
        {"integers growing wide", INT32_MAX, 1, std::int64_t{INT32_MAX} + 1, varInt64},
        {"integers growing too wide", INT64_MAX, 1, 9223372036854775808.0L, varDouble},
        {"negative ones too", INT64_MIN, -1, -9223372036854775808.0L, varDouble},
        {"truth values count -1", true, true, -2, varInteger},
        {"money", Currency(0.1L), Currency(0.2L), Currency(0.3L), varCurrency},
        {"money and integer", Currency(0.1L), 2, Currency(2.1L), varCurrency},
        {"money and float", Currency(0.5L), 0.25, 0.75, varDouble},
        {"dates", VarFromDateTime(45657), 1, VarFromDateTime(45658), varDate},
        {"texts are joined", u"1", u"2", u"12", varUString},
        {"text and number", u"1.5", 2, 3.5, varDouble},
        {"unassigned", Variant(), Currency(1), Currency(1), varCurrency},
        {"unassigned on the right", u"a", Variant(), u"a", varUString},
        {"Null", 1, Null(), Null(), varNull},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        const Variant sum = row.Left + row.Right;
        EXPECT_EQ(VarType(sum), row.Type);
        EXPECT_TRUE(sum == row.Sum) << Utf8Encode(VarToStr(sum));
    }
    EXPECT_THROW(Variant(u"a") + 1, EVariantError);
    Variant total;
    for (int i = 0; i < 1000; ++i)
        total += Currency(0.1L);
    EXPECT_TRUE(total.AsString() == u"100");
}

TEST(VariantLists, HoldTheirElements) {
    EXPECT_EQ(list.Count(), 3u);
    EXPECT_TRUE(list[1] == Variant(u"a"));
    EXPECT_TRUE(VarIsNull(list[2]));
    EXPECT_EQ(Variant(u"text").Count(), 0u);
    Variant copy = list;
    Variant taken = std::move(copy);
    EXPECT_TRUE(taken == list);
    EXPECT_TRUE(VarIsArray(Variant::FromList({})));
}

} // namespace
} // namespace framework
