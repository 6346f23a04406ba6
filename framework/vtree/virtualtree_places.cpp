// Where things are: columns, cells and what is inside of them, the header, and what lies at a point. Columns run from
// the reading side; in a tree that is read from the right, places are mirrored here and nowhere else.

#include "framework/graphics/brushes.h"
#include "framework/graphics/checkmarks.h"
#include "framework/vtree/virtualtree.h"

#include <algorithm>

namespace framework {

namespace {

constexpr int kButton = 9;    // pixels of the button that expands
constexpr int kBehindBox = 3; // pixels between a check box and what follows

TRect Mirrored(const TRect& part, const TRect& cell) {
    if (part.IsEmpty())
        return part;
    return {cell.Left + cell.Right - part.Right, part.Top, cell.Left + cell.Right - part.Left, part.Bottom};
}

} // namespace

bool TBaseVirtualTree::IsThemed() const {
    return HasPaint(toThemeAware) && IsAppThemed() != FALSE && IsThemeActive() != FALSE;
}

TAlignment TBaseVirtualTree::MirroredAlignment(TAlignment alignment) const {
    if (!UseRightToLeftAlignment() || alignment == taCenter)
        return alignment;
    return alignment == taLeftJustify ? taRightJustify : taLeftJustify;
}

/// As texts show in the column's cells.
TAlignment TBaseVirtualTree::CellAlignment(TColumnIndex column) const {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    return MirroredAlignment(columns.IsValidColumn(column) ? columns.GetColumn(column)->GetAlignment() : taLeftJustify);
}

TSize TBaseVirtualTree::BoxSize() const {
    if (FBoxSize == TSize{})
        FBoxSize = TCheckPainter(IsThemed()).Size();
    return FBoxSize;
}

int TBaseVirtualTree::CheckBoxLeft() const {
    return FMargin + (HasPaint(toShowRoot) ? FIndent : 0);
}

bool TBaseVirtualTree::IsMainColumn(TColumnIndex column) const {
    return column == NoColumn || column == FHeader->GetMainColumn();
}

bool TBaseVirtualTree::ShowsBox(const TVirtualNode* node) const {
    return HasMisc(toCheckSupport) && node->GetCheckType() != ctNone;
}

int TBaseVirtualTree::ContentX(int clientX) const {
    return (UseRightToLeftAlignment() ? GetClientWidth() - 1 - clientX : clientX) + FScrollX;
}

TColumnIndex TBaseVirtualTree::ColumnAt(int clientX) const {
    return FHeader->GetColumns()->ColumnFromPosition(TPoint{ContentX(clientX), 0});
}

TRect TBaseVirtualTree::ColumnRect(TColumnIndex column, int top, int bottom) const {
    const TVirtualTreeColumns& columns = *FHeader->GetColumns();
    int start = -FScrollX;
    int width = std::max(ContentWidth(), GetClientWidth() + FScrollX);
    if (columns.IsValidColumn(column)) {
        const TVirtualTreeColumn& found = *columns.GetColumn(column);
        start += found.GetLeft();
        width = found.IsVisible() ? found.GetWidth() : 0;
    }
    const int left = UseRightToLeftAlignment() ? GetClientWidth() - start - width : start;
    return {left, top, left + width, bottom};
}

TBaseVirtualTree::TCellLayout TBaseVirtualTree::LayoutOf(TVirtualNode* node, TColumnIndex column,
                                                         const TRect& cell) const {
    TCellLayout layout;
    layout.Cell = cell;
    int start = cell.Left + FMargin;
    if (IsMainColumn(column)) {
        const int level = static_cast<int>(TNodeStore::Level(node)) + (HasPaint(toShowRoot) ? 1 : 0);
        const auto centered = [&](int left, TSize size) {
            return Bounds(left, cell.Top + (cell.Height() - size.Height) / 2, size.Width, size.Height);
        };
        start += level * FIndent;
        if (HasPaint(toShowButtons) && node->Has(vsHasChildren) && level > 0)
            layout.Button = centered(start - FMargin - (FIndent + kButton) / 2, {kButton, kButton});
        if (ShowsBox(node)) {
            layout.CheckBox = centered(start, BoxSize());
            start = layout.CheckBox.Right + kBehindBox;
        }
    }
    layout.Content = {start, cell.Top, std::max(cell.Right - FMargin, start), cell.Bottom};
    if (UseRightToLeftAlignment()) {
        layout.Button = Mirrored(layout.Button, cell);
        layout.CheckBox = Mirrored(layout.CheckBox, cell);
        layout.Content = Mirrored(layout.Content, cell);
    }
    return layout;
}

TRect TBaseVirtualTree::GetDisplayRect(TVirtualNode* node, TColumnIndex column, bool textOnly) {
    if (!node || node == FStore->Root() || !FStore->Contains(node) || !TNodeStore::IsRow(node))
        return {};
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    if (!EnsureLayout() || !still || !TNodeStore::IsRow(node))
        return {};
    const std::int64_t top = TNodeStore::PlaceOf(node, TNodeMeasure::Height) - FScrollY;
    if (top >= GetClientHeight() || top + node->GetNodeHeight() <= 0)
        return {};
    const TRect cell = ColumnRect(column, static_cast<int>(top), static_cast<int>(top) + node->GetNodeHeight());
    if (!textOnly)
        return cell;
    const TRect content = LayoutOf(node, column, cell).Content;
    const int text = DoGetNodeWidth(node, column);
    if (!alive || !still)
        return {};
    const int width = std::min(text + 2 * FTextMargin, content.Width());
    const int spare = content.Width() - width;
    const TAlignment alignment = CellAlignment(column);
    const int before = alignment == taLeftJustify ? 0 : alignment == taCenter ? spare / 2 : spare;
    return Bounds(content.Left + before, content.Top, width, content.Height());
}

TVirtualNode* TBaseVirtualTree::GetNodeAt(TPoint point) const {
    return point.Y < 0 ? nullptr : FStore->NodeAt(FScrollY + point.Y, TNodeMeasure::Height);
}

THitInfo TBaseVirtualTree::GetHitTestInfoAt(TPoint point) {
    THitInfo hit;
    hit.HitPoint = point;
    if (!EnsureLayout())
        return hit;
    hit.HitColumn = ColumnAt(point.X);
    std::int64_t top = 0;
    hit.HitNode = point.Y < 0 ? nullptr : FStore->NodeAt(FScrollY + point.Y, TNodeMeasure::Height, &top);
    const bool besideColumns = hit.HitColumn == NoColumn && FHeader->GetColumns()->GetCount() > 0;
    if (!hit.HitNode || (besideColumns && !HasSelection(toFullRowSelect))) {
        hit.HitNode = nullptr;
        hit.HitPositions << hiNowhere;
        return hit;
    }
    hit.HitPositions << hiOnItem;
    if (besideColumns)
        return hit;
    const int start = static_cast<int>(top - FScrollY);
    const TRect cell = ColumnRect(hit.HitColumn, start, start + hit.HitNode->GetNodeHeight());
    const TCellLayout layout = LayoutOf(hit.HitNode, hit.HitColumn, cell);
    const bool before = UseRightToLeftAlignment() ? point.X >= layout.Content.Right : point.X < layout.Content.Left;
    if (layout.Button.Inflated(2, cell.Height()).Contains(point) && !layout.Button.IsEmpty())
        hit.HitPositions << hiOnItemButton;
    else if (!layout.CheckBox.IsEmpty() && layout.CheckBox.Inflated(1, cell.Height()).Contains(point))
        hit.HitPositions << hiOnItemCheckbox;
    else if (before)
        hit.HitPositions << hiOnItemIndent;
    else
        hit.HitPositions << hiOnItemLabel;
    return hit;
}

void TBaseVirtualTree::InvalidateNode(TVirtualNode* node) {
    if (!HandleAllocated() || FLayoutDirty || FUpdateCount > 0)
        return; // all of it is going to be painted
    const TRect row = GetDisplayRect(node, NoColumn);
    if (row.IsEmpty())
        return;
    const RECT area{0, row.Top, GetClientWidth(), row.Bottom};
    InvalidateRect(FHandle, &area, FALSE);
}

int TBaseVirtualTree::GetMaxColumnWidth(TColumnIndex column) {
    TLifeGuard alive(*this);
    if (!EnsureLayout() || !FHeader->GetColumns()->IsValidColumn(column))
        return 0;
    int width = FHeader->IsVisible() ? FHeader->CaptionWidth(column) : 0;
    std::int64_t top = 0;
    TNodeRef node(*FStore, FStore->NodeAt(FScrollY, TNodeMeasure::Height, &top));
    for (int y = static_cast<int>(top - FScrollY); node && y < GetClientHeight();) {
        if (!InitNode(node.Get()))
            return width;
        const TCellLayout layout = LayoutOf(node.Get(), column, Bounds(0, 0, kGreatestColumnWidth, 1));
        const int taken = kGreatestColumnWidth - layout.Content.Width();
        const int content = DoGetNodeWidth(node.Get(), column);
        if (!alive || !node)
            return width;
        width = std::max(width, taken + content + 2 * FTextMargin);
        y += node.Get()->GetNodeHeight();
        node.Set(FStore->Next(node.Get(), TNodeMeasure::Rows));
    }
    return width;
}

// The header

namespace {

/// From the window's corner to that of the client area.
TPoint ClientInset(HWND window) {
    RECT place{};
    POINT origin{};
    GetWindowRect(window, &place);
    ClientToScreen(window, &origin);
    return {origin.x - place.left, origin.y - place.top};
}

} // namespace

TRect TBaseVirtualTree::GetHeaderRect() const {
    int edge = 0;
    if (FBorderStyle != bsNone)
        edge = GetCtl3D() ? GetSystemMetrics(SM_CXEDGE) : GetSystemMetrics(SM_CXBORDER);
    const int height = FHeader->IsVisible() ? FHeader->GetHeight() : 0;
    return {edge, edge, GetWidth() - edge, edge + height};
}

bool TBaseVirtualTree::InHeader(TPoint point) const {
    if (!HandleAllocated() || !FHeader->IsVisible())
        return false;
    const TPoint inset = ClientInset(FHandle);
    return GetHeaderRect().Contains({point.X + inset.X, point.Y + inset.Y});
}

TRect TBaseVirtualTree::HeaderCellRect(TColumnIndex column) const {
    const int top = GetHeaderRect().Top - ClientInset(FHandle).Y;
    return ColumnRect(column, top, top + FHeader->GetHeight());
}

void TBaseVirtualTree::WMNCCalcSize(TMessage& message) {
    DefaultHandler(message);
    // Both forms of the message begin with the proposed rectangle, which is the client area's now.
    auto& client = *reinterpret_cast<RECT*>(message.LParam);
    const LONG room = GetHeaderRect().Height() + RoomBelowHeader();
    client.top = std::min(client.top + room, client.bottom);
}

void TBaseVirtualTree::WMNCPaint(TMessage& message) {
    TLifeGuard alive(*this);
    DefaultHandler(message);
    if (alive && HandleAllocated())
        PaintHeaderBand();
}

void TBaseVirtualTree::PaintHeaderBand() {
    FHeaderDirty = false;
    const TPoint inset = ClientInset(FHandle);
    const TRect header = GetHeaderRect();
    if (inset.Y <= header.Top)
        return; // no room for it
    const TWindowDC dc(FHandle, GetDCEx(FHandle, nullptr, DCX_WINDOW | DCX_CACHE | DCX_CLIPSIBLINGS | DCX_VALIDATE));
    if (const int room = RoomBelowHeader(); room > 0) {
        const RECT below{header.Left, header.Bottom, header.Right, header.Bottom + room};
        FillRect(dc, &below, GetBrush()->GetHandle());
    }
    if (!FHeader->IsVisible())
        return;
    const int nearEdge = UseRightToLeftAlignment() ? header.Right - inset.X - GetClientWidth() : inset.X - header.Left;
    FHeader->PaintHeader(dc, header, nearEdge - FScrollX);
}

void TBaseVirtualTree::InvalidateHeader() {
    if (!HandleAllocated() || !FHeader->IsVisible() || std::exchange(FHeaderDirty, true))
        return;
    const RECT corner{0, 0, 1, 1}; // so that a WM_PAINT comes
    InvalidateRect(FHandle, &corner, FALSE);
}

void TBaseVirtualTree::FrameChanged() {
    if (HandleAllocated())
        SetWindowPos(FHandle, nullptr, 0, 0, 0, 0,
                     SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    FLayoutDirty = true;
    Invalidate();
}

void TBaseVirtualTree::HeaderFrameChanged(TVTHeader& header) {
    if (&header == FHeader.get())
        FrameChanged();
    HeaderChanged(header, true);
}

void TBaseVirtualTree::HeaderRenumbered(TVTHeader& header, const std::function<TColumnIndex(TColumnIndex)>& moved) {
    if (&header == FHeader.get())
        FFocusedColumn = moved(FFocusedColumn);
}

void TBaseVirtualTree::HeaderChanged(TVTHeader& header, bool places) {
    if (&header != FHeader.get() || IsLoading() || IsDestroying())
        return;
    InvalidateHeader();
    if (places) {
        FLayoutDirty = true;
        Invalidate();
    }
}

void TBaseVirtualTree::HeaderColumnResized(TVTHeader& header, TColumnIndex column) {
    if (&header == FHeader.get() && !IsLoading() && !IsDestroying())
        DoColumnResize(column);
}

void TBaseVirtualTree::DoColumnResize(TColumnIndex column) {
    Fire(*this, OnColumnResize, FHeader.get(), column);
}

void TBaseVirtualTree::DoHeaderClick(const TVTHeaderHitInfo& hitInfo) {
    Fire(*this, OnHeaderClick, FHeader.get(), hitInfo);
}

bool TBaseVirtualTree::DoHeaderDragging(TColumnIndex column) {
    bool allowed = true;
    return Fire(*this, OnHeaderDragging, FHeader.get(), column, allowed) && allowed;
}

void TBaseVirtualTree::DoHeaderDragged(TColumnIndex column, int oldPosition) {
    Fire(*this, OnHeaderDragged, FHeader.get(), column, oldPosition);
}

} // namespace framework
