#include "framework/dbgrid/grid_rules.h"

#include "framework/windows/scrollbox_rules.h"

#include <algorithm>

namespace framework {

namespace {

constexpr int kEndsLast = 4; // the thumb's places are 0, 2 and 4

} // namespace

int TGridGeometry::FixedWidth() const {
    return ColumnStart(Columns, FixedColumns);
}

int TGridGeometry::ScrollRange() const {
    return ColumnsWidth(Columns) - FixedWidth();
}

int TGridGeometry::ScrollExtent() const {
    return std::max(Client.Width - FixedWidth(), 0);
}

int TGridGeometry::VisibleRows() const {
    return std::max((Client.Height - FixedHeight()) / std::max(RowHeight, 1), 1);
}

/// The near edge of a column, counted from the side where reading begins.
int TGridGeometry::ColumnLeft(int column) const {
    return ColumnStart(Columns, column) - (column < FixedColumns ? 0 : ScrollX);
}

TRect TGridGeometry::Place(TRect rect) const {
    return Mirrored ? TRect{Client.Width - rect.Right, rect.Top, Client.Width - rect.Left, rect.Bottom} : rect;
}

TRect TGridGeometry::CellRect(TGridCoord cell) const {
    if (cell.X < 0 || cell.X >= ColumnCount() || cell.Y < 0 || cell.Y >= RowCount)
        return {};
    const int left = ColumnLeft(cell.X);
    const int width = Columns[static_cast<std::size_t>(cell.X)].Shown();
    if (width == 0)
        return {};
    if (cell.Y < FixedRows)
        return Place(Bounds(left, 0, width, TitleHeight));
    return Place(Bounds(left, FixedHeight() + (cell.Y - FixedRows) * RowHeight, width, RowHeight));
}

TRect TGridGeometry::ShownRect(TGridCoord cell) const {
    TRect rect = CellRect(cell);
    if (rect.IsEmpty())
        return {};
    const TRect room = Place({cell.X < FixedColumns ? 0 : FixedWidth(), 0, Client.Width, Client.Height});
    rect = {std::max(rect.Left, room.Left), std::max(rect.Top, room.Top), std::min(rect.Right, room.Right),
            std::min(rect.Bottom, room.Bottom)};
    return rect.IsEmpty() ? TRect{} : rect;
}

TRect TGridGeometry::RowRect(int row) const {
    const int top = FixedHeight() + (row - FixedRows) * RowHeight;
    return {0, top, Client.Width, top + RowHeight};
}

TGridCoord TGridGeometry::CellAt(TPoint point) const {
    TGridCoord cell;
    if (point.X < 0 || point.X >= Client.Width || point.Y < 0)
        return cell;
    const int x = Reading(point.X);
    cell.X = ColumnPositionAt(Columns, x < FixedWidth() ? x : x + ScrollX);
    if (point.Y < FixedHeight())
        cell.Y = 0;
    else if (const int row = FixedRows + (point.Y - FixedHeight()) / std::max(RowHeight, 1); row < RowCount)
        cell.Y = row;
    return cell;
}

int TGridGeometry::DividerAt(TPoint point, int grip) const {
    const int x = Reading(point.X);
    if (point.Y < 0 || point.Y >= FixedHeight() || x < FixedWidth())
        return -1;
    const int column = framework::DividerAt(Columns, x + ScrollX, grip);
    return column < FixedColumns ? -1 : column;
}

int TGridGeometry::DropColumn(int dragged, int x) const {
    return std::max(DropPosition(Columns, dragged, std::max(Reading(x), FixedWidth()) + ScrollX), FixedColumns);
}

int TGridGeometry::DraggedWidth(int column, int x) const {
    return Reading(x) - ColumnLeft(column);
}

int TGridGeometry::ScrollToShow(int column) const {
    const int start = ColumnStart(Columns, column) - FixedWidth() - ScrollX;
    return framework::ScrollToShow(ScrollX, start, start + Columns[static_cast<std::size_t>(column)].Shown(),
                                   ScrollExtent());
}

int TGridGeometry::NextColumn(int from, int step) const {
    for (int column = from + step; column >= FixedColumns && column < ColumnCount(); column += step) {
        if (Columns[static_cast<std::size_t>(column)].Visible)
            return column;
    }
    return -1;
}

TScrollBarPlace BarOfNumber(int number, int count, int visible) {
    if (count <= visible)
        return {};
    // One position for each record, so that dragging reaches the last one.
    return {count + visible - 2, visible, std::clamp(number - 1, 0, count - 1)};
}

int NumberOfBar(int position, int count) {
    return std::clamp(position + 1, 1, std::max(count, 1));
}

TScrollBarPlace BarOfEnds(bool atFirst, bool atLast) {
    return {kEndsLast, 1, atFirst ? 0 : atLast ? kEndsLast : kEndsLast / 2};
}

TRowBarMove MoveOfBar(int position) {
    constexpr TRowBarMove kMoves[] = {TRowBarMove::First, TRowBarMove::PageUp, TRowBarMove::None, TRowBarMove::PageDown,
                                      TRowBarMove::Last};
    return kMoves[std::clamp(position, 0, kEndsLast)];
}

} // namespace framework
