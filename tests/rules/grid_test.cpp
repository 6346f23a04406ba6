// Where the cells of a grid lie, and what its scroll bar says.

#include "framework/dbgrid/grid_rules.h"

#include <gtest/gtest.h>

using namespace framework;

namespace {

/// An indicator of 10 pixels and columns of 50, 0 (hidden), 100 and 70, seen through 200 x 100 pixels.
TGridGeometry Sample(bool mirrored, int scroll = 0) {
    TGridGeometry grid;
    grid.Columns = {{10, true}, {50, true}, {40, false}, {100, true}, {70, true}};
    grid.FixedColumns = 1;
    grid.FixedRows = 1;
    grid.TitleHeight = 20;
    grid.RowHeight = 15;
    grid.RowCount = 4;
    grid.ScrollX = scroll;
    grid.Client = {200, 100};
    grid.Mirrored = mirrored;
    return grid;
}

TEST(GridGeometry, PlacesCells) {
    struct TCase {
        int Scroll;
        TGridCoord Cell;
        TRect Whole;
        TRect Shown;
    };
    const TCase cases[] = {
        {0, {0, 0}, {0, 0, 10, 20}, {0, 0, 10, 20}},
        {0, {1, 1}, {10, 20, 60, 35}, {10, 20, 60, 35}},
        {0, {2, 1}, {}, {}},
        {0, {4, 3}, {160, 50, 230, 65}, {160, 50, 200, 65}},
        {30, {0, 1}, {0, 20, 10, 35}, {0, 20, 10, 35}},
        {30, {1, 0}, {-20, 0, 30, 20}, {10, 0, 30, 20}},
        {55, {1, 1}, {-45, 20, 5, 35}, {}},
        {0, {1, 4}, {}, {}},
        {0, {5, 1}, {}, {}},
    };
    for (const bool mirrored : {false, true}) {
        for (const TCase& each : cases) {
            const auto side = [&](const TRect& rect) {
                return mirrored && !rect.IsEmpty() ? TRect{200 - rect.Right, rect.Top, 200 - rect.Left, rect.Bottom}
                                                   : rect;
            };
            const TGridGeometry grid = Sample(mirrored, each.Scroll);
            EXPECT_TRUE(grid.CellRect(each.Cell) == side(each.Whole)) << &each - cases << mirrored;
            EXPECT_TRUE(grid.ShownRect(each.Cell) == side(each.Shown)) << &each - cases << mirrored;
            // Every pixel that shows leads back to its cell.
            const TRect shown = grid.ShownRect(each.Cell);
            for (const int x : {shown.Left, shown.Right - 1}) {
                if (!shown.IsEmpty()) {
                    EXPECT_TRUE(grid.CellAt({x, shown.Bottom - 1}) == each.Cell) << &each - cases << mirrored;
                }
            }
        }
    }
    TGridGeometry grid = Sample(false);
    EXPECT_TRUE(grid.CellAt({20, 99}) == (TGridCoord{1, -1})) << "below the rows";
    EXPECT_TRUE(grid.CellAt({-1, 5}) == TGridCoord{});
    EXPECT_EQ(grid.VisibleRows(), 5);
    grid.Client.Height = 5;
    EXPECT_EQ(grid.VisibleRows(), 1);
    grid.RowHeight = 0;
    EXPECT_EQ(grid.VisibleRows(), 1);
}

TEST(GridGeometry, ScrollsSizesAndDrags) {
    for (const bool mirrored : {false, true}) {
        SCOPED_TRACE(mirrored);
        const auto at = [&](int x) { return mirrored ? 199 - x : x; };
        TGridGeometry grid = Sample(mirrored);
        EXPECT_EQ(grid.ScrollRange(), 220);
        EXPECT_EQ(grid.ScrollExtent(), 190);
        EXPECT_EQ(grid.ScrollToShow(4), 30);
        EXPECT_EQ(grid.ScrollToShow(1), 0);
        EXPECT_EQ(grid.NextColumn(1, 1), 3) << "past the hidden one";
        EXPECT_EQ(grid.NextColumn(1, -1), -1) << "never a fixed one";
        EXPECT_EQ(grid.NextColumn(4, 1), -1);
        EXPECT_EQ(grid.DividerAt({at(61), 5}, 3), 1);
        EXPECT_EQ(grid.DividerAt({at(61), 25}, 3), -1) << "titles only";
        EXPECT_EQ(grid.DividerAt({at(11), 5}, 3), -1) << "the indicator keeps its width";
        EXPECT_EQ(grid.DraggedWidth(3, at(100)), 40);
        EXPECT_EQ(grid.DropColumn(1, at(130)), 3);
        EXPECT_EQ(grid.DropColumn(4, at(12)), 1);
        EXPECT_EQ(grid.DropColumn(4, at(0)), 1) << "not before the indicator";
        grid.ScrollX = 30;
        EXPECT_EQ(grid.DividerAt({at(31), 5}, 3), 1);
        EXPECT_EQ(grid.ScrollToShow(1), 0);
        grid.ScrollX = 60;
        EXPECT_EQ(grid.DividerAt({at(11), 5}, 3), -1) << "it lies below the indicator";
    }
}

TEST(GridBar, TellsAndTakesPlaces) {
    EXPECT_EQ(BarOfNumber(1, 5, 5), TScrollBarPlace{}) << "all of them show";
    EXPECT_EQ(BarOfNumber(1, 6, 5), (TScrollBarPlace{9, 5, 0}));
    const TScrollBarPlace last = BarOfNumber(1000000, 1000000, 20);
    EXPECT_EQ(last.Position + last.Page - 1, last.Last) << "the thumb reaches the end with the last record";
    for (const int number : {1, 2, 500000, 1000000})
        EXPECT_EQ(NumberOfBar(BarOfNumber(number, 1000000, 20).Position, 1000000), number);
    EXPECT_EQ(BarOfNumber(-1, 100, 5).Position, 0) << "a record without a number";
    EXPECT_EQ(NumberOfBar(50, 0), 1);
    EXPECT_EQ(MoveOfBar(BarOfEnds(true, false).Position), TRowBarMove::First);
    EXPECT_EQ(MoveOfBar(BarOfEnds(false, false).Position), TRowBarMove::None);
    EXPECT_EQ(MoveOfBar(BarOfEnds(false, true).Position), TRowBarMove::Last);
    EXPECT_EQ(MoveOfBar(1), TRowBarMove::PageUp);
    EXPECT_EQ(MoveOfBar(99), TRowBarMove::Last);
}

} // namespace
