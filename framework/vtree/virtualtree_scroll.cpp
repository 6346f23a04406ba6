// Scrolling: how far there is to go, the bars, the wheel. Heights are 64-bit numbers, those of the bars 32-bit ones.

#include "framework/vtree/virtualtree.h"

#include <algorithm>
#include <cstdlib>

namespace framework {

namespace {

/// By how many bits a height is shifted so that a scroll bar can hold it.
int BarShift(std::int64_t range) {
    int shift = 0;
    while (range >> shift > INT_MAX / 2)
        ++shift;
    return shift;
}

} // namespace

int TBaseVirtualTree::ContentWidth() const {
    return FHeader->GetColumns()->GetCount() > 0 ? FHeader->GetColumns()->TotalWidth() : FPaintedWidth;
}

/// Brings order, focus, bars and positions up to date; false when a handler freed the tree meanwhile.
bool TBaseVirtualTree::EnsureLayout() {
    if (!FLayoutDirty || FInLayout || FUpdateCount > 0 || FSorting > 0 || !HandleAllocated())
        return true;
    TLifeGuard alive(*this);
    RunDeferredDeletes(); // those of a comparison that raised
    if (alive)
        SortNewNodes();
    if (alive)
        LeaveHiddenFocus();
    if (!alive)
        return false;
    FLayoutDirty = false;
    UpdateScrollBars();
    if (alive && std::exchange(FRowsMoved, false))
        TellTree(EVENT_OBJECT_REORDER);
    return static_cast<bool>(alive);
}

void TBaseVirtualTree::UpdateHorizontalRange() {
    FHeader->GetColumns()->Extents();
    UpdateScrollBars();
    InvalidateHeader();
    Invalidate();
}

void TBaseVirtualTree::ShowScrollBar(int bar, std::int64_t range, int page, std::int64_t position) {
    const int shift = BarShift(range);
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = static_cast<int>(std::max<std::int64_t>((range >> shift) - 1, 0));
    info.nPage = static_cast<UINT>(std::max(page >> shift, 1));
    if (bar == SB_HORZ && UseRightToLeftAlignment())
        position = std::max<std::int64_t>(range - page - position, 0); // the bar counts from the left in any case
    info.nPos = static_cast<int>(position >> shift);
    if (range <= page)
        info.nMax = 0;
    SetScrollInfo(FHandle, bar, &info, TRUE);
}

void TBaseVirtualTree::UpdateScrollBars() {
    if (!HandleAllocated() || IsDestroying() || FInLayout || FUpdateCount > 0)
        return;
    FInLayout = true;
    const TAtScopeEnd done(*this, [this] { FInLayout = false; });
    TLifeGuard alive(*this);
    // A bar that comes or goes changes the room for the other one.
    for (int round = 0; round < 2 && alive; ++round) {
        ShowScrollBar(SB_VERT, ContentHeight(), GetClientHeight(), FScrollY);
        if (alive)
            FHeader->AutoResize();
        if (alive)
            ShowScrollBar(SB_HORZ, ContentWidth(), GetClientWidth(), FScrollX);
    }
    if (alive)
        ScrollTo(FScrollX, FScrollY); // no further than what there still is
}

void TBaseVirtualTree::ScrollTo(int x, std::int64_t y) {
    x = std::clamp(x, 0, std::max(ContentWidth() - GetClientWidth(), 0));
    y = std::clamp<std::int64_t>(y, 0, std::max<std::int64_t>(ContentHeight() - GetClientHeight(), 0));
    const int movedX = FScrollX - x;
    const std::int64_t movedY = FScrollY - y;
    if (movedX == 0 && movedY == 0)
        return;
    FScrollX = x;
    FScrollY = y;
    TLifeGuard alive(*this); // bars that come or go tell of another size
    if (HandleAllocated()) {
        const bool mirrored = UseRightToLeftAlignment();
        if (FLayoutDirty || std::abs(movedX) >= GetClientWidth() || std::abs(movedY) >= GetClientHeight())
            Invalidate();
        else
            ScrollWindowEx(FHandle, mirrored ? -movedX : movedX, static_cast<int>(movedY), nullptr, nullptr, nullptr,
                           nullptr, SW_INVALIDATE);
        if (movedY != 0)
            ShowScrollBar(SB_VERT, ContentHeight(), GetClientHeight(), FScrollY);
        if (alive && movedX != 0) {
            ShowScrollBar(SB_HORZ, ContentWidth(), GetClientWidth(), FScrollX);
            if (alive)
                InvalidateHeader();
        }
    }
    if (alive)
        DoScroll(movedX, movedY);
}

int TBaseVirtualTree::GetOffsetX() {
    return EnsureLayout() ? -FScrollX : 0;
}

void TBaseVirtualTree::SetOffsetX(int value) {
    if (EnsureLayout())
        ScrollTo(-value, FScrollY);
}

std::int64_t TBaseVirtualTree::GetOffsetY() {
    return EnsureLayout() ? -FScrollY : 0;
}

void TBaseVirtualTree::SetOffsetY(std::int64_t value) {
    if (EnsureLayout())
        ScrollTo(FScrollX, -value);
}

void TBaseVirtualTree::DoScroll(int deltaX, std::int64_t deltaY) {
    Fire(*this, OnScroll, this, deltaX, deltaY);
}

void TBaseVirtualTree::HandleScroll(int bar, int code) {
    if (!EnsureLayout())
        return;
    const bool vertical = bar == SB_VERT;
    const std::int64_t range = vertical ? ContentHeight() : ContentWidth();
    const int extent = vertical ? GetClientHeight() : GetClientWidth();
    const int line = LineExtent();
    const int page = std::max(extent - line, line); // a row of the old page stays in view
    const std::int64_t most = std::max<std::int64_t>(range - extent, 0);
    const bool mirrored = !vertical && UseRightToLeftAlignment();
    std::int64_t to = vertical ? FScrollY : mirrored ? most - FScrollX : FScrollX;
    switch (code) {
    case SB_LINEUP:
        to -= line;
        break;
    case SB_LINEDOWN:
        to += line;
        break;
    case SB_PAGEUP:
        to -= page;
        break;
    case SB_PAGEDOWN:
        to += page;
        break;
    case SB_TOP:
        to = 0;
        break;
    case SB_BOTTOM:
        to = range;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: {
        SCROLLINFO info{}; // the message itself carries 16 bits only
        info.cbSize = sizeof(info);
        info.fMask = SIF_TRACKPOS | SIF_RANGE | SIF_PAGE;
        GetScrollInfo(FHandle, bar, &info);
        const bool atEnd = info.nTrackPos >= info.nMax - static_cast<int>(info.nPage) + 1;
        to = atEnd ? range : static_cast<std::int64_t>(info.nTrackPos) << BarShift(range);
        break;
    }
    default:
        return;
    }
    if (vertical)
        ScrollTo(FScrollX, to);
    else
        ScrollTo(static_cast<int>(std::clamp<std::int64_t>(mirrored ? most - to : to, 0, most)), FScrollY);
}

bool TBaseVirtualTree::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    TLifeGuard alive(*this);
    if (TCustomControl::DoMouseWheel(shift, wheelDelta, mousePos) || !alive)
        return true;
    if (!EnsureLayout())
        return true;
    const bool sideways = shift.Contains(ssShift) || ContentHeight() <= GetClientHeight();
    if ((sideways ? ContentWidth() - GetClientWidth() : ContentHeight() - GetClientHeight()) <= 0)
        return false;
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int page = std::max(GetClientHeight() / LineExtent(), 1);
    TWheelSteps& wheel = sideways ? FSidewaysWheel : FWheel;
    const int steps = wheel.Add(-wheelDelta, lines == WHEEL_PAGESCROLL ? page : static_cast<int>(lines));
    const int beforeX = FScrollX;
    const std::int64_t beforeY = FScrollY;
    const int distance = steps * LineExtent();
    ScrollTo(FScrollX + (sideways ? distance : 0), FScrollY + (sideways ? 0 : distance));
    // At the end the wheel is for what lies around the tree.
    return !alive || steps == 0 || FScrollX != beforeX || FScrollY != beforeY;
}

bool TBaseVirtualTree::ScrollIntoView(TVirtualNode* node, bool center) {
    if (!node || node == FStore->Root())
        return false;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    SetVisiblePath(node, true);
    if (!alive || !still || !TNodeStore::IsRow(node))
        return false;
    if (!EnsureLayout() || !still || !TNodeStore::IsRow(node))
        return false;
    const std::int64_t top = TNodeStore::PlaceOf(node, TNodeMeasure::Height);
    const std::int64_t end = top + node->GetNodeHeight();
    const int extent = GetClientHeight();
    std::int64_t to = FScrollY;
    if (center)
        to = top - (extent - node->GetNodeHeight()) / 2;
    else if (top < FScrollY || end - top > extent)
        to = top;
    else if (end > FScrollY + extent)
        to = end - extent;
    const std::int64_t before = FScrollY;
    ScrollTo(FScrollX, to);
    return alive && FScrollY != before;
}

void TBaseVirtualTree::ScrollColumnIntoView(TColumnIndex column) {
    if (!FHeader->GetColumns()->IsValidColumn(column) || !HandleAllocated())
        return;
    const int start = FHeader->GetColumns()->GetColumn(column)->GetLeft();
    const int end = start + FHeader->GetColumns()->GetColumn(column)->GetWidth();
    ScrollTo(ScrollToShow(FScrollX, start - FScrollX, end - FScrollX, GetClientWidth()), FScrollY);
}

TVirtualNode* TBaseVirtualTree::GetTopNode() const {
    return FStore->NodeAt(FScrollY, TNodeMeasure::Height);
}

void TBaseVirtualTree::SetTopNode(TVirtualNode* value) {
    if (!value)
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, value);
    SetVisiblePath(value, true);
    if (!alive || !still)
        return;
    if (EnsureLayout() && still)
        ScrollTo(FScrollX, TNodeStore::PlaceOf(value, TNodeMeasure::Height));
}

} // namespace framework
