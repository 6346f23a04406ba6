// What the virtual data grid decides without a window: totals beside digit-by-digit sums, keys, columns and footers.

#include "data/Zorvirtualdbgrid_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace ZOR;

namespace {

using TValue = TFieldValue;

TFormatSettings Plain() {
    TFormatSettings settings;
    settings.DecimalSeparator = u'.';
    return settings;
}

TEST(ColumnTotal, IsExactToTheLastDigit) {
    const TValue aThird = TValue::Decimal({333'333'333'333'333'333, 18});
    struct TCase {
        const char* Name;
        std::vector<TValue> Values;
        const char16_t* Text;
        TVarType Type;
    };
    const TCase cases[] = {
        {"nothing but Null", {TValue::Null(), TValue::Null()}, u"", varNull},
        {"a single zero", {TValue::Null(), TValue::Integer(0)}, u"0", varInteger},
        {"truth values are counted",
         {TValue::Boolean(true), TValue::Boolean(false), TValue::Boolean(true)},
         u"2",
         varInteger},
        {"beyond 64 bits",
         {TValue::Integer(INT64_MAX), TValue::Integer(INT64_MAX), TValue::Integer(1)},
         u"18446744073709551615",
         varDouble},
        {"back from beyond",
         {TValue::Integer(INT64_MAX), TValue::Integer(5), TValue::Integer(-6)},
         u"9223372036854775806",
         varInt64},
        {"the least number", {TValue::Integer(INT64_MIN)}, u"-9223372036854775808", varInt64},
        {"decimals keep theirs", {TValue::Decimal({150, 2}), TValue::Decimal({250, 2})}, u"4.00", varCurrency},
        {"cents across zero", {TValue::Decimal({1, 2}), TValue::Decimal({-2, 2})}, u"-0.01", varCurrency},
        {"of several scales", {TValue::Decimal({15, 1}), TValue::Decimal({-1'500'001, 6})}, u"-0.000001", varDouble},
        {"three thirds", {aThird, aThird, aThird}, u"0.999999999999999999", varDouble},
        {"money",
         {TValue::Money(Currency::FromUnits(INT64_MAX)), TValue::Money(Currency::FromUnits(1))},
         u"922337203685477.5808",
         varDouble},
        {"wide ones",
         {TValue::Text(u"123456789012345678901234567.89"), TValue::Text(u"-23456789012345678901234567.88")},
         u"100000000000000000000000000.01",
         varDouble},
        {"a tenth ten times", std::vector<TValue>(10, TValue::Float(0.1)), u"1", varDouble},
        {"a small one beside great ones",
         {TValue::Float(1e19), TValue::Float(0.5), TValue::Float(-1e19)},
         u"0.5",
         varDouble},
    };
    for (const TCase& each : cases) {
        TColumnTotal total;
        for (const TValue& value : each.Values)
            total.Add(value);
        EXPECT_EQ(total.AsText(Plain()), each.Text) << each.Name;
        EXPECT_EQ(total.AsVariant().GetVarType(), each.Type) << each.Name;
    }
}

TEST(ColumnTotal, IsToldAsTheVariantThatComesAlong) {
    const struct {
        TValue Value;
        const char16_t* Text;
    } cases[] = {{TValue::Null(), u""},
                 {TValue::Money(Currency(1.5)), u"1.5"},
                 {TValue::Decimal({10000, 2}), u"100"},
                 {TValue::Text(u"123456789012345678901234567.89"), u"123456789012345678901234567.89"}};
    for (const auto& each : cases) {
        TColumnTotal total;
        total.Add(each.Value);
        EXPECT_EQ(total.AsToldText(Plain()), each.Text);
    }
}

TEST(ColumnTotal, AgreesWithSumsOfCents) {
    const unsigned randomSeed = std::random_device()();
    SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
    std::mt19937_64 random(randomSeed);
    std::uniform_int_distribution<std::int64_t> cents(-1'000'000'000'000, 1'000'000'000'000);
    for (int round = 0; round < 50; ++round) {
        TColumnTotal total;
        std::int64_t sum = 0;
        for (int i = 0; i < 500; ++i) {
            const std::int64_t value = cents(random);
            sum += value;
            // The same amount in each of its forms.
            if (i % 3 == 0)
                total.Add(TValue::Decimal({value, 2}));
            else if (i % 3 == 1)
                total.Add(TValue::Money(Currency::FromUnits(value * 100)));
            else
                total.Add(TValue::Text(TNumeric{value, 2}.AsText()));
        }
        ASSERT_EQ(total.AsVariant(), Variant(Currency::FromUnits(sum * 100)));
        ASSERT_EQ(total.AsText(Plain()), (TNumeric{sum * 100, 4}.AsText()));
    }
}

TEST(RowKeys, NumbersAboveZeroCountBeforeGuids) {
    const TGUID one{1};
    const TGUID two{2};
    struct TCase {
        TRowId Row;
        TRowId Wanted;
        bool Is;
    };
    const TCase cases[] = {
        {{5, one}, {5, two}, true},   {{5, one}, {6, one}, false}, {{5, one}, {0, one}, false},
        {{0, one}, {5, one}, true},   {{0, one}, {0, two}, false}, {{-5, one}, {-5, one}, false},
        {{-5, one}, {0, one}, false}, {{0, two}, {-1, two}, true}, {{0, {}}, {7, {}}, false},
    };
    for (const TCase& each : cases) {
        EXPECT_EQ(IsRow(each.Row, each.Wanted), each.Is) << each.Row.first << " and " << each.Wanted.first;
        EXPECT_EQ(TRowIds({{77, TGUID{77}}, each.Wanted}).Contains(each.Row), each.Is) << each.Row.first;
    }
}

TEST(Columns, AreFoundDraggedAndColoured) {
    // The second one was moved to the front, the last one is hidden.
    const std::vector<TGridColumn> columns = {{50, 100}, {0, 50}, {150, 30}, {0, 500, false}};
    const std::pair<int, int> places[] = {{0, 0}, {49, 0}, {149, 0}, {150, 2}, {179, 2}, {180, -1}};
    for (const auto& [x, column] : places)
        EXPECT_EQ(ColumnByX(columns, x), column) << x;
    EXPECT_TRUE(MayDragColumn(false, NoColumn, 0));
    EXPECT_FALSE(MayDragColumn(true, NoColumn, 0));
    EXPECT_FALSE(MayDragColumn(true, 0, 0));
    EXPECT_TRUE(MayDragColumn(true, 1, 0));
    EXPECT_FALSE(MayDropColumn(true, 2, 0, 0)) << "the place of the boxes";
    EXPECT_TRUE(MayDropColumn(true, 2, 1, 0));
    EXPECT_TRUE(MayDropColumn(false, 2, 0, 0));
    EXPECT_FALSE(MayDropColumn(true, 0, 2, 1)) << "the boxes would be in another column";
    // Against a real move of items.
    for (int from = 0; from < 4; ++from) {
        for (int to = 0; to < 4; ++to) {
            std::vector<int> order = {0, 1, 2, 3};
            order.erase(order.begin() + from);
            order.insert(order.begin() + to, from);
            for (int i = 0; i < 4; ++i)
                EXPECT_EQ(IndexAfterMove(i, from, to), std::find(order.begin(), order.end(), i) - order.begin());
        }
    }
    EXPECT_EQ(LettersOn(RowColor(1, 0), 0xFFFFFF), 0) << "of a dark scheme";
    EXPECT_EQ(LettersOn(RowColor(1, 0), 0x404040), 0x404040);
    EXPECT_EQ(RowColor(4, 3), 0xFFFFFF);
    EXPECT_EQ(RowColor(1, 0), 234 << 16 | 228 << 8 | 225);
    EXPECT_EQ(RowColor(1, 3), 8 << 16 | 2 << 8 | 255) << "each part goes round by itself";
}

TEST(Footer, CellsLieUnderTheirColumns) {
    const std::vector<TFooterColumn> columns = {{2, 60}, {0, 40, false}, {1, 50}, {3, 100}};
    const TRect band{2, 180, 122, 199};
    struct TCase {
        int Offset;
        bool Mirrored;
        std::vector<std::tuple<int, int, int>> Cells; // column, left and right
    };
    const TCase cases[] = {
        {0, false, {{2, 2, 62}, {1, 62, 112}, {3, 112, 212}}},
        {-60, false, {{1, 2, 52}, {3, 52, 152}}}, // the first ends where the band begins
        {-70, false, {{1, -8, 42}, {3, 42, 142}}},
        {10, false, {{2, 12, 72}, {1, 72, 122}}}, // the last would begin where it ends
        {0, true, {{2, 62, 122}, {1, 12, 62}, {3, -88, 12}}},
        {-70, true, {{1, 82, 132}, {3, -18, 82}}},
    };
    for (const TCase& each : cases) {
        std::vector<std::tuple<int, int, int>> cells;
        for (const TFooterCell& cell : FooterCells(columns, band, each.Offset, each.Mirrored)) {
            EXPECT_EQ(cell.Place.Top, band.Top);
            EXPECT_EQ(cell.Place.Bottom, band.Bottom);
            cells.emplace_back(cell.Column, cell.Place.Left, cell.Place.Right);
        }
        EXPECT_EQ(cells, each.Cells) << each.Offset << (each.Mirrored ? " mirrored" : "");
    }
    EXPECT_EQ(FooterBand({2, 2, 298, 21}, 200, 19, true), (TRect{2, 179, 298, 198}));
    EXPECT_TRUE(FooterBand({2, 2, 298, 21}, 200, 19, false).IsEmpty());
    EXPECT_TRUE(FooterBand({2, 2, 298, 2}, 200, 19, true).IsEmpty());
}

TEST(Footer, TextsStayInsideOfTheirMargins) {
    const TRect cell{100, 10, 180, 30};
    struct TCase {
        TAlignment Alignment;
        int Width;
        int Left;
        int Right;
    };
    const TCase cases[] = {
        {taLeftJustify, 30, 104, 134}, {taRightJustify, 30, 146, 176}, {taCenter, 30, 125, 155},
        {taLeftJustify, 90, 104, 176}, {taRightJustify, 90, 104, 176}, {taCenter, 75, 104, 176},
    };
    for (const TCase& each : cases)
        EXPECT_EQ(FooterTextPlace(each.Alignment, {each.Width, 13}, cell, 4), (TRect{each.Left, 13, each.Right, 26}))
            << each.Alignment << " " << each.Width;
    EXPECT_EQ(FooterTextPlace(taCenter, {20, 25}, cell, 4).Top, 8) << "half of -5, towards zero";
}

} // namespace
