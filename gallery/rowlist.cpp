#include "gallery/rowlist.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>

namespace gallery {

const TClassInfo& TRowList::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info =
        DescribeClass<TRowList>(u"TRowList", TCustomControl::StaticClass(),
                                {row::Align(), row::Anchors(), row::Color(clWindow), row::Constraints(),
                                 Property<&TRowList::GetCount>(u"Count"), row::Ctl3D(), row::Enabled(), row::Font(),
                                 Property<&TRowList::GetItemIndex, &TRowList::SetItemIndex>(u"ItemIndex", -1),
                                 row::ParentColor(false), row::ParentCtl3D(), row::ParentFont(), row::TabOrder(),
                                 row::TabStop(true), row::Visible(), Event<&TRowList::OnSelect>(u"OnSelect")});
    return info;
}

TRowList::TRowList(TComponent* owner) : TCustomControl(owner) {
    FControlStyle = {csCaptureMouse, csClickEvents, csDoubleClicks, csOpaque};
    SetDoubleBuffered(true);
    SetTabStop(true);
    SetColor(clWindow);
    SetParentColor(false);
    SetBounds(0, 0, 160, 120);
}

void TRowList::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    params.Style |= WS_VSCROLL | WS_CLIPCHILDREN;
    if (GetCtl3D())
        params.ExStyle |= WS_EX_CLIENTEDGE;
}

void TRowList::CreateWnd() {
    TCustomControl::CreateWnd();
    UpdateScrollBar();
}

void TRowList::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_VSCROLL:
        return WMVScroll(message);
    case WM_GETDLGCODE:
        message.Result = DLGC_WANTARROWS;
        return;
    case WM_SIZE:
        TCustomControl::Dispatch(message);
        KeepInRange();
        UpdateScrollBar();
        return Scrolled();
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRow(FItemIndex);
        break;
    default:
        break;
    }
    TCustomControl::Dispatch(message);
}

// Rows

int TRowList::GetRowHeight() const {
    if (FRowHeight == 0)
        FRowHeight = TTextMeasure(*GetFont()).LineHeight() + 2 * FRowPadding;
    return FRowHeight;
}

int TRowList::RowsInView() const {
    return std::max(1, GetClientHeight() / GetRowHeight());
}

TRect TRowList::RowRect(int row) const {
    return Bounds(0, (row - FTopIndex) * GetRowHeight(), GetClientWidth(), GetRowHeight());
}

int TRowList::RowAt(int y) const {
    const int row = y < 0 ? -1 : FTopIndex + y / GetRowHeight();
    return row < GetCount() ? row : -1;
}

int TRowList::MaxTopIndex() const {
    return std::max(0, GetCount() - RowsInView());
}

void TRowList::SetItemIndex(int value) {
    value = std::clamp(value, -1, GetCount() - 1);
    if (FItemIndex == value)
        return;
    InvalidateRow(FItemIndex);
    FItemIndex = value;
    InvalidateRow(value);
    if (value >= 0)
        ScrollIntoView(value);
    SelectionChanged();
}

void TRowList::SetTopIndex(int value) {
    value = std::clamp(value, 0, MaxTopIndex());
    if (FTopIndex == value)
        return;
    FTopIndex = value;
    UpdateScrollBar();
    Invalidate();
    Scrolled();
}

void TRowList::ScrollIntoView(int row) {
    if (row < FTopIndex)
        SetTopIndex(row);
    else if (row >= FTopIndex + RowsInView())
        SetTopIndex(row - RowsInView() + 1);
}

void TRowList::KeepInRange() {
    FItemIndex = std::min(FItemIndex, GetCount() - 1);
    FTopIndex = std::min(FTopIndex, MaxTopIndex());
}

void TRowList::RowsChanged() {
    KeepInRange();
    UpdateScrollBar();
    Invalidate();
    Scrolled();
}

void TRowList::RowsRemovedAbove(int count) {
    FItemIndex = std::max(-1, FItemIndex - count);
    FTopIndex = std::max(0, FTopIndex - count);
}

void TRowList::InvalidateRow(int row) {
    if (row < 0 || !HandleAllocated())
        return;
    const RECT rect = ToWin(RowRect(row));
    InvalidateRect(FHandle, &rect, FALSE);
}

void TRowList::SelectionChanged() {
    Fire(*this, OnSelect, this);
}

void TRowList::CMFontChanged(TMessage& message) {
    FRowHeight = 0;
    TCustomControl::CMFontChanged(message);
    RowsChanged();
}

std::optional<TRect> TRowList::FindSpot(const std::vector<String>& words) {
    if (words.size() < 2 || !SameText(words[0], u"row"))
        return std::nullopt;
    std::int32_t number = 0;
    int found = -1;
    if (TryStrToInt(words[1], number))
        found = number - 1;
    for (int row = 0; found < 0 && row < GetCount(); ++row) {
        if (SameText(Copy(RowText(row), 1, static_cast<int>(words[1].size())), words[1]))
            found = row;
    }
    if (found < 0 || found >= GetCount())
        return std::nullopt;
    ScrollIntoView(found);
    return RowRect(found);
}

// Scrolling

void TRowList::UpdateScrollBar() {
    if (!HandleAllocated())
        return;
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = std::max(0, GetCount() - 1);
    info.nPage = static_cast<UINT>(RowsInView());
    info.nPos = FTopIndex;
    SetScrollInfo(FHandle, SB_VERT, &info, TRUE);
}

void TRowList::WMVScroll(const TMessage& message) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_TRACKPOS;
    switch (LowWord(message.WParam)) {
    case SB_LINEUP:
        return SetTopIndex(FTopIndex - 1);
    case SB_LINEDOWN:
        return SetTopIndex(FTopIndex + 1);
    case SB_PAGEUP:
        return SetTopIndex(FTopIndex - RowsInView());
    case SB_PAGEDOWN:
        return SetTopIndex(FTopIndex + RowsInView());
    case SB_TOP:
        return SetTopIndex(0);
    case SB_BOTTOM:
        return SetTopIndex(MaxTopIndex());
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        if (GetScrollInfo(FHandle, SB_VERT, &info))
            SetTopIndex(info.nTrackPos);
        return;
    default:
        return;
    }
}

bool TRowList::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    if (TCustomControl::DoMouseWheel(shift, wheelDelta, mousePos))
        return true;
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL)
        lines = static_cast<UINT>(RowsInView());
    FWheelRest += wheelDelta * static_cast<int>(lines);
    SetTopIndex(FTopIndex - FWheelRest / WHEEL_DELTA);
    FWheelRest %= WHEEL_DELTA;
    return true;
}

// Input

void TRowList::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TCustomControl::KeyDown(key, shift);
    if (!alive)
        return;
    int row = FItemIndex;
    int step = key == VK_UP || key == VK_PRIOR || key == VK_END ? -1 : 1;
    switch (key) {
    case VK_UP:
        row = std::max(0, row - 1);
        break;
    case VK_DOWN:
        ++row;
        break;
    case VK_PRIOR:
        row = std::max(0, row - RowsInView());
        break;
    case VK_NEXT:
        row += RowsInView();
        break;
    case VK_HOME:
        row = 0;
        break;
    case VK_END:
        row = GetCount() - 1;
        break;
    default:
        return;
    }
    key = 0;
    row = std::clamp(row, 0, std::max(0, GetCount() - 1));
    for (; row >= 0 && row < GetCount(); row += step) {
        if (CanSelect(row))
            return SetItemIndex(row);
    }
    if (FItemIndex >= 0)
        ScrollIntoView(step < 0 ? 0 : GetCount() - 1); // what cannot be selected beyond it is at least seen
}

void TRowList::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    if (FTakesFocus && CanFocus() && !Focused())
        SetFocus();
    if (!alive)
        return;
    if (const int row = RowAt(y); row >= 0 && button == mbLeft && CanSelect(row))
        SetItemIndex(row);
    if (alive)
        TCustomControl::MouseDown(button, shift, x, y);
}

// Painting

TColor TRowList::RowBackground(int, bool selected) const {
    if (!selected)
        return GetColor();
    return Focused() ? clHighlight : clBtnFace;
}

void TRowList::Paint() {
    TCanvas& canvas = *GetCanvas();
    canvas.SetFont(GetFont());
    const TRect clip = canvas.GetClipRect();
    const TRect client = GetClientRect();
    const int height = GetRowHeight();
    for (int row = FTopIndex + std::max(0, clip.Top / height); row < GetCount(); ++row) {
        const TRect rect = RowRect(row);
        if (rect.Top >= clip.Bottom)
            break;
        const bool selected = row == FItemIndex;
        canvas.GetBrush()->SetColor(RowBackground(row, selected));
        canvas.FillRect(rect);
        canvas.GetBrush()->SetStyle(bsClear);
        canvas.GetFont()->SetColor(selected && Focused() ? clHighlightText : GetFont()->GetColor());
        PaintRow(canvas, row, rect, selected);
    }
    const int end = RowRect(GetCount()).Top;
    if (end < client.Bottom) {
        canvas.GetBrush()->SetColor(GetColor());
        canvas.FillRect({0, end, client.Right, client.Bottom});
    }
}

} // namespace gallery
