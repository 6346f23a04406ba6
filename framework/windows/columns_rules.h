#pragma once

// The columns of a header or a grid as extents along a line, decided without a window. A column has an index, its place
// in the collection, and a position, its place on the screen from the reading side; everything here goes by positions
// and by pixels from the first column's near edge, whichever side that is on.

#include <span>
#include <vector>

namespace framework {

/// The narrowest and the widest a column can be at all, in pixels.
inline constexpr int kLeastColumnWidth = 0;
inline constexpr int kGreatestColumnWidth = 32767;

struct TColumnExtent {
    int Width = 0; ///< pixels; a hidden column keeps its width and takes none
    bool Visible = true;

    constexpr int Shown() const { return Visible ? Width : 0; }
};
using TColumnExtents = std::span<const TColumnExtent>;

/// The width of all visible columns together.
int ColumnsWidth(TColumnExtents columns);
/// Where the column at this position begins.
int ColumnStart(TColumnExtents columns, int position);
/// The position of the visible column at `x`; -1 outside of all.
int ColumnPositionAt(TColumnExtents columns, int x);
/// The column that a divider within `grip` pixels of `x` resizes, the one that ends there; -1 for none. Of columns that
/// end at the same pixel it is the last, so that one of no width can be widened again.
int DividerAt(TColumnExtents columns, int x, int grip);
/// `width` within the two limits and those of any column; a minimum above the maximum counts more.
int FitColumnWidth(int width, int minimum, int maximum);
/// The width at which the column at `position` fills what the others leave of `available` pixels.
int FillingWidth(TColumnExtents columns, int position, int available);
/// The position to which a column goes that is dropped at `x`: before or behind the one whose middle it is nearer to.
int DropPosition(TColumnExtents columns, int dragged, int x);
/// Moves an entry of an order from one position to another; those between make room.
void MovePosition(std::vector<int>& order, int from, int to);

} // namespace framework
