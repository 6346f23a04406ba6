#pragma once

// Where the cells of a grid lie, and what its scroll bar says, decided without a window. Columns and rows have numbers
// from 0, fixed ones included; pixels are those of the client area. Fixed columns and the title row stay where they
// are while the others scroll below them. A mirrored grid begins at the right edge.

#include "framework/system/types.h"
#include "framework/windows/columns_rules.h"

#include <vector>

namespace framework {

/// A cell by its column and row; -1 for none.
struct TGridCoord {
    int X = -1;
    int Y = -1;
    friend bool operator==(const TGridCoord&, const TGridCoord&) = default;
};

struct TGridGeometry {
    std::vector<TColumnExtent> Columns; ///< the line behind a column belongs to its width
    int FixedColumns = 0;
    int FixedRows = 0;   ///< 1 with a title row, else 0
    int TitleHeight = 0; ///< pixels, with the line below
    int RowHeight = 1;   ///< pixels, with the line below
    int RowCount = 0;
    int ScrollX = 0; ///< pixels by which the columns are scrolled
    TSize Client;
    bool Mirrored = false;

    int ColumnCount() const { return static_cast<int>(Columns.size()); }
    int FixedWidth() const;
    int FixedHeight() const { return FixedRows > 0 ? TitleHeight : 0; }
    /// The width of all columns that scroll, and that of the part through which they are seen.
    int ScrollRange() const;
    int ScrollExtent() const;
    /// How many rows that are not fixed fit as a whole, at least 1.
    int VisibleRows() const;
    /// The whole place of a cell, wherever it is scrolled to; empty for one that does not exist or is hidden.
    TRect CellRect(TGridCoord cell) const;
    /// What can be seen of it.
    TRect ShownRect(TGridCoord cell) const;
    /// All cells of a row that scrolls, within the client area.
    TRect RowRect(int row) const;
    /// The cell at a point; what lies beside the cells has -1 for the column or the row.
    TGridCoord CellAt(TPoint point) const;
    /// The column that the divider within `grip` pixels of a point in the title row resizes; -1 for none.
    int DividerAt(TPoint point, int grip) const;
    /// The column in whose place the one that is dragged would be dropped.
    int DropColumn(int dragged, int x) const;
    /// The width of a column whose far edge is dragged to `x`.
    int DraggedWidth(int column, int x) const;
    /// The scroll offset that shows a column, moved as little as need be.
    int ScrollToShow(int column) const;
    /// The next visible column that scrolls, in that direction; -1 when there is none.
    int NextColumn(int from, int step) const;

private:
    int ColumnLeft(int column) const;
    int Reading(int x) const { return Mirrored ? Client.Width - 1 - x : x; }
    TRect Place(TRect rect) const;
};

/// What a scroll bar says, from position 0.
struct TScrollBarPlace {
    int Last = 0; ///< the greatest position; 0 when there is nothing to scroll
    int Page = 0;
    int Position = 0;
    friend bool operator==(const TScrollBarPlace&, const TScrollBarPlace&) = default;
};

/// The bar by the number of the active record, from 1, among `count` records of which `visible` fit.
TScrollBarPlace BarOfNumber(int number, int count, int visible);
/// The number that a position of that bar means.
int NumberOfBar(int position, int count);
/// Where records have no numbers the thumb has three places: at the first one, at the last one, between.
TScrollBarPlace BarOfEnds(bool atFirst, bool atLast);
enum class TRowBarMove { None, First, PageUp, PageDown, Last };
/// What dragging that thumb to a position asks for.
TRowBarMove MoveOfBar(int position);

} // namespace framework
