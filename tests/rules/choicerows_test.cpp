// The rows of a choice list: how many, where, which comes next, and how one is put together.

#include "lists/Zorcombobox_list_rules.h"

#include <gtest/gtest.h>

using namespace ZOR;

namespace {

TEST(ChoiceList, OpensBesideTheField) {
    constexpr TRect screen{0, 0, 1000, 700};
    struct TRow {
        const char* Name;
        TRect Field;
        int Width;
        int Rows;
        bool RightToLeft;
        TRect Expected;
    };
    const TRow rows[] = {
        // Rows of 15 + 1 pixels; the border comes on top of them.
        {"below", {100, 100, 221, 121}, 121, 10, false, {98, 119, 219, 281}},
        {"the rows alone decide", {100, 519, 221, 540}, 121, 10, false, {98, 538, 219, 700}},
        {"above", {100, 520, 221, 541}, 121, 10, false, {98, 360, 219, 522}},
        {"left edge", {1, 100, 122, 121}, 121, 2, false, {0, 119, 121, 153}},
        {"right edge", {860, 100, 981, 121}, 300, 2, false, {679, 119, 979, 153}},
        {"as wide as neither side has", {200, 100, 321, 121}, 990, 2, false, {10, 119, 1000, 153}},
        {"right to left", {500, 100, 621, 121}, 300, 2, true, {319, 119, 619, 153}},
    };
    for (const TRow& row : rows) {
        SCOPED_TRACE(row.Name);
        const TRect place = ChoiceListPlace(row.Field, row.Width, 15, row.Rows, screen, row.RightToLeft);
        EXPECT_EQ(place.Left, row.Expected.Left);
        EXPECT_EQ(place.Top, row.Expected.Top);
        EXPECT_EQ(place.Right, row.Expected.Right);
        EXPECT_EQ(place.Bottom, row.Expected.Bottom);
    }
    const int widest = ChoiceListWidthOn(screen, screen.Width() * 2);
    EXPECT_EQ(ChoiceListPlace({400, 100, 500, 121}, widest, 15, 3, screen, false).Left, screen.Left + 10)
        << "also a list as wide as the screen keeps the margin";
    EXPECT_EQ(ChoiceListWidthOn(screen, 100), 100);
    EXPECT_EQ(ShownRows(3, 10), 3);
    EXPECT_EQ(ShownRows(11, 10), 10);
    EXPECT_EQ(ShownRows(5, 0), 1);
}

TEST(ChoiceList, StepsThroughItsRows) {
    struct TRow {
        int Current;
        int Count;
        int Step;
        int Expected;
    };
    for (const TRow& row : {TRow{-1, 3, -1, 0},
                            {0, 3, -1, 0},
                            {2, 3, -1, 1},
                            {-1, 3, 1, 0},
                            {0, 3, 1, 1},
                            {2, 3, 1, 2},
                            {-1, 0, 1, -1},
                            {-1, 0, -1, -1}})
        EXPECT_EQ(StepRow(row.Current, row.Count, row.Step), row.Expected) << row.Current << " " << row.Step;
    EXPECT_EQ(StepRows(5, 100, 10), 15);
    EXPECT_EQ(StepRows(95, 100, 10), 99);
    EXPECT_EQ(StepRows(5, 100, -10), 0);
    EXPECT_EQ(StepRows(0, 0, 10), -1);
}

TEST(ChoiceRow, IsPutTogetherFromThreeRuns) {
    const auto runs = SplitRow(u"Kraków", {2, 3});
    EXPECT_EQ(runs[0], u"Kr");
    EXPECT_EQ(runs[1], u"akó");
    EXPECT_EQ(runs[2], u"w");
    EXPECT_EQ(SplitRow(u"Kraków", {})[0], u"Kraków");
    EXPECT_EQ(OneLine(u"a\r\nb\tc\u007F"), u"a  b c ");
    EXPECT_TRUE(ReadsRightToLeft(u"12 \u05D0bc"));
    EXPECT_FALSE(ReadsRightToLeft(u"Łódź \u05D0"));
    EXPECT_FALSE(ReadsRightToLeft(u"123"));

    constexpr TRect row{10, 20, 110, 36};
    const auto left = LayOutRow(row, {20, 30, 10}, false, false);
    EXPECT_EQ(left[0], (TRect{12, 20, 32, 36}));
    EXPECT_EQ(left[1], (TRect{32, 20, 62, 36}));
    EXPECT_EQ(left[2], (TRect{62, 20, 72, 36}));
    const auto right = LayOutRow(row, {20, 30, 10}, true, true);
    EXPECT_EQ(right[2], (TRect{48, 20, 58, 36}));
    EXPECT_EQ(right[1], (TRect{58, 20, 88, 36}));
    EXPECT_EQ(right[0], (TRect{88, 20, 108, 36})) << "the first run stands right, where reading begins";
}

} // namespace
