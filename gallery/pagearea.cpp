#include "gallery/pagearea.h"

#include <algorithm>

namespace gallery {

namespace {

constexpr int kLine = 24; // pixels that a click on an arrow or a part of the wheel's notch scrolls

} // namespace

const TClassInfo& TPageArea::StaticClass() {
    namespace row = controlrows;
    static const TClassInfo info = DescribeClass<TPageArea>(
        u"TPageArea", TCustomControl::StaticClass(),
        {row::Align(), row::Anchors(), row::Color(clBtnFace), row::Constraints(), row::Font(), row::ParentColor(true),
         row::ParentFont(), row::TabOrder(), row::TabStop(false), row::Visible()});
    return info;
}

TPageArea::TPageArea(TComponent* owner) : TCustomControl(owner) {
    FControlStyle << csAcceptsControls;
    SetBounds(0, 0, 320, 240);
    SetColor(clBtnFace);
    SetParentColor(true);
}

void TPageArea::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    params.Style |= WS_HSCROLL | WS_VSCROLL;
}

void TPageArea::Notification(TComponent* component, TOperation operation) {
    TCustomControl::Notification(component, operation);
    if (component == FPage && operation == opRemove)
        FPage = nullptr;
}

void TPageArea::ShowPage(TCustomForm* page) {
    FPage = page;
    FreeNotification(page);
    page->SetBorderStyle(framework::bsNone);
    FDesigned = {page->GetClientWidth(), page->GetClientHeight()};
    FPosition = {};
    page->SetParent(this);
    LayOut();
    page->SetVisible(true);
}

void TPageArea::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_HSCROLL:
    case WM_VSCROLL:
        if (message.LParam == 0) // of our own bars, not of a control
            return WMScroll(message, message.Msg == WM_VSCROLL ? SB_VERT : SB_HORZ);
        break;
    case WM_SIZE:
        TCustomControl::Dispatch(message);
        return LayOut();
    default:
        break;
    }
    TCustomControl::Dispatch(message);
}

void TPageArea::LayOut() {
    if (!FPage || FLayingOut)
        return;
    FLayingOut = true; // bars that come and go size the area
    const TSize bars{GetSystemMetrics(SM_CXVSCROLL), GetSystemMetrics(SM_CYHSCROLL)};
    FLayout = LayOutPage({GetWidth(), GetHeight()}, FDesigned, bars);
    ScrollTo(FPosition);
    FLayingOut = false;
}

void TPageArea::ScrollTo(TPoint position) {
    FPosition = {std::clamp(position.X, 0, FLayout.Most.X), std::clamp(position.Y, 0, FLayout.Most.Y)};
    UpdateScrollBar(SB_HORZ, FLayout.Page.Width, FLayout.View.Width, FPosition.X);
    UpdateScrollBar(SB_VERT, FLayout.Page.Height, FLayout.View.Height, FPosition.Y);
    FPage->SetBounds(-FPosition.X, -FPosition.Y, FLayout.Page.Width, FLayout.Page.Height);
}

void TPageArea::UpdateScrollBar(int bar, int extent, int view, int position) {
    if (!HandleAllocated())
        return;
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = std::max(0, extent - 1);
    info.nPage = static_cast<UINT>(view);
    info.nPos = position;
    SetScrollInfo(FHandle, bar, &info, TRUE);
}

void TPageArea::ScrollIntoView(const TControl& control) {
    if (!FPage || !FPage->ContainsControl(&control))
        return;
    const TPoint place = FPage->ScreenToClient(control.ClientToScreen({0, 0}));
    ScrollTo(ScrollToShow(Bounds(place.X, place.Y, control.GetWidth(), control.GetHeight()), FPosition, FLayout));
}

void TPageArea::WMScroll(const TMessage& message, int bar) {
    if (!FPage)
        return;
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    if (!GetScrollInfo(FHandle, bar, &info))
        return;
    int position = info.nPos;
    switch (LowWord(message.WParam)) {
    case SB_LINEUP:
        position -= kLine;
        break;
    case SB_LINEDOWN:
        position += kLine;
        break;
    case SB_PAGEUP:
        position -= static_cast<int>(info.nPage);
        break;
    case SB_PAGEDOWN:
        position += static_cast<int>(info.nPage);
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        position = info.nTrackPos;
        break;
    case SB_TOP:
        position = 0;
        break;
    case SB_BOTTOM:
        position = info.nMax;
        break;
    default:
        return;
    }
    ScrollTo(bar == SB_VERT ? TPoint{FPosition.X, position} : TPoint{position, FPosition.Y});
}

bool TPageArea::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    if (TCustomControl::DoMouseWheel(shift, wheelDelta, mousePos))
        return true;
    if (!FPage || FLayout.Most.Y == 0)
        return false;
    FWheelRest += wheelDelta * 2 * kLine;
    ScrollTo({FPosition.X, FPosition.Y - FWheelRest / WHEEL_DELTA});
    FWheelRest %= WHEEL_DELTA;
    return true;
}

} // namespace gallery
