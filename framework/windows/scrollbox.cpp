#include "framework/windows/scrollbox.h"

#include "framework/windows/button.h"
#include "framework/windows/edit.h"

#include <algorithm>
#include <cstdlib>

namespace framework {

namespace {

constexpr TSize kInitialSize{185, 41};
constexpr int kDefaultIncrement = 8; // pixels

bool Keeps(const TControl& child, TAnchorKind side) {
    return child.GetAnchors().Contains(side);
}

} // namespace

// One direction

const TClassInfo& TControlScrollBar::StaticClass() {
    using B = TControlScrollBar;
    static const TClassInfo info = DescribeClass<TControlScrollBar>(
        u"TControlScrollBar", TPersistent::StaticClass(),
        {Property<&B::GetIncrement, &B::SetIncrement>(u"Increment", kDefaultIncrement),
         Property<&B::GetMargin, &B::SetMargin>(u"Margin", 0),
         Property<&B::GetRange, &B::SetRange>(u"Range", 0).StoredWhen<&B::RangeStored>(),
         Property<&B::GetPosition, &B::SetPosition>(u"Position", 0),
         Property<&B::GetTracking, &B::SetTracking>(u"Tracking", false),
         Property<&B::GetVisible, &B::SetVisible>(u"Visible", true)});
    return info;
}

TControlScrollBar::TControlScrollBar(TScrollingWinControl* control, TScrollBarKind kind)
    : FControl(control), FKind(kind), FIncrement(kDefaultIncrement) {
}

void TControlScrollBar::Assign(TPersistent* source) {
    const auto* other = As<TControlScrollBar>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    FIncrement = other->FIncrement;
    FTracking = other->FTracking;
    SetVisible(other->FVisible);
    SetMargin(other->FMargin);
    SetRange(other->FRange);
    SetPosition(other->FPosition);
}

int TControlScrollBar::Extent() const {
    const TRect client = FControl->GetClientRect();
    return FKind == sbHorizontal ? client.Width() : client.Height();
}

bool TControlScrollBar::RangeStored() const {
    return !FControl->GetAutoScroll() && FRange > 0;
}

void TControlScrollBar::SetMargin(int value) {
    value = std::max(value, 0);
    if (FMargin == value)
        return;
    FMargin = value;
    FControl->Realign();
}

void TControlScrollBar::SetRange(int value) {
    value = std::max(value, 0);
    if (FRange == value)
        return;
    FRange = value;
    FControl->UpdateScrollBars();
}

void TControlScrollBar::SetVisible(bool value) {
    if (FVisible == value)
        return;
    FVisible = value;
    FControl->UpdateScrollBars();
}

void TControlScrollBar::SetPosition(int value) {
    if (FControl->GetComponentState().Contains(csLoading))
        FLoadedPosition = value;
    else
        ScrollTo(value);
}

void TControlScrollBar::ScrollTo(int value) {
    value = ClampScroll(value, FRange, Extent());
    const int moved = FPosition - value;
    if (moved == 0)
        return;
    FPosition = value;
    TLifeGuard alive(*FControl);
    FControl->ScrollBy(FKind == sbHorizontal ? moved : 0, FKind == sbVertical ? moved : 0);
    if (alive)
        Update();
}

/// Shows range and position on the bar, which hides itself while there is nothing to scroll.
void TControlScrollBar::Update() {
    if (!FControl->HandleAllocated())
        return;
    const int bar = FKind == sbHorizontal ? SB_HORZ : SB_VERT;
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = FVisible ? std::max(FRange - 1, 0) : 0;
    info.nPage = static_cast<UINT>(Extent());
    info.nPos = FPosition;
    if (!FVisible)
        info.nPage = 1;
    SetScrollInfo(FControl->GetHandle(), bar, &info, TRUE);
}

void TControlScrollBar::HandleScroll(int code) {
    const int page = std::max(Extent() - FIncrement, FIncrement); // a line of the old page stays in view
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_TRACKPOS;
    switch (code) {
    case SB_LINEUP:
        return ScrollTo(FPosition - FIncrement);
    case SB_LINEDOWN:
        return ScrollTo(FPosition + FIncrement);
    case SB_PAGEUP:
        return ScrollTo(FPosition - page);
    case SB_PAGEDOWN:
        return ScrollTo(FPosition + page);
    case SB_TOP:
        return ScrollTo(0);
    case SB_BOTTOM:
        return ScrollTo(FRange);
    case SB_THUMBTRACK:
        if (!FTracking)
            return;
        [[fallthrough]];
    case SB_THUMBPOSITION:
        // The message itself carries 16 bits only.
        if (GetScrollInfo(FControl->GetHandle(), FKind == sbHorizontal ? SB_HORZ : SB_VERT, &info))
            ScrollTo(info.nTrackPos);
        return;
    default:
        return;
    }
}

// The control

const TClassInfo& TScrollingWinControl::StaticClass() {
    using S = TScrollingWinControl;
    static const TClassInfo info =
        DescribeClass<TScrollingWinControl>(u"TScrollingWinControl", TCustomControl::StaticClass(),
                                            {Property<&S::GetHorzScrollBar, &S::SetHorzScrollBar>(u"HorzScrollBar"),
                                             Property<&S::GetVertScrollBar, &S::SetVertScrollBar>(u"VertScrollBar")});
    return info;
}

TScrollingWinControl::TScrollingWinControl(TComponent* owner)
    : TCustomControl(owner), FHorzScrollBar(std::make_unique<TControlScrollBar>(this, sbHorizontal)),
      FVertScrollBar(std::make_unique<TControlScrollBar>(this, sbVertical)) {
    FControlStyle << csAcceptsControls;
    FControlStyle >> csSetCaption;
}

TScrollingWinControl::~TScrollingWinControl() {
    Destroying();
    DestroyHandle(); // while the bars are there: its last messages still ask for them
}

void TScrollingWinControl::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    params.WindowClass.style &= ~static_cast<UINT>(CS_HREDRAW | CS_VREDRAW);
}

void TScrollingWinControl::CreateWnd() {
    TCustomControl::CreateWnd();
    UpdateScrollBars();
}

void TScrollingWinControl::Loaded() {
    TCustomControl::Loaded();
    for (TControlScrollBar* bar : {FHorzScrollBar.get(), FVertScrollBar.get()})
        bar->ScrollTo(std::exchange(bar->FLoadedPosition, 0));
}

void TScrollingWinControl::SetAutoScroll(bool value) {
    if (FAutoScroll == value)
        return;
    FAutoScroll = value;
    Realign();
}

/// How far the children reach that do not follow the control's own size.
int TScrollingWinControl::ChildrenExtent(TScrollBarKind kind) const {
    const bool horizontal = kind == sbHorizontal;
    const TAlign nearSide = horizontal ? alLeft : alTop;
    const TAlign farSide = horizontal ? alRight : alBottom;
    const TAnchorKind farAnchor = horizontal ? akRight : akBottom;
    const int position = horizontal ? FHorzScrollBar->FPosition : FVertScrollBar->FPosition;
    int reach = 0;
    int farBands = 0;
    for (int i = 0; i < GetControlCount(); ++i) {
        const TControl& child = *GetControl(i);
        if (!child.GetVisible() && !IsDesigning())
            continue;
        const TRect place = child.GetBoundsRect();
        const bool stays = child.GetAlign() == nearSide ||
                           ((child.GetAlign() == alNone || child.GetAlign() == alCustom) && !Keeps(child, farAnchor));
        if (stays)
            reach = std::max(reach, (horizontal ? place.Right : place.Bottom) + position);
        else if (child.GetAlign() == farSide)
            farBands += horizontal ? place.Width() : place.Height();
    }
    return reach + farBands;
}

void TScrollingWinControl::FitRanges() {
    if (!FAutoScroll || IsLoading())
        return;
    for (TControlScrollBar* bar : {FHorzScrollBar.get(), FVertScrollBar.get()}) {
        const int reach = ChildrenExtent(bar->FKind);
        bar->FRange = reach == 0 ? 0 : reach + bar->FMargin;
    }
}

void TScrollingWinControl::UpdateScrollBars() {
    if (FUpdating || !HandleAllocated() || IsDestroying())
        return;
    FUpdating = true;
    const TAtScopeEnd updated(*this, [this] { FUpdating = false; });
    TLifeGuard alive(*this);
    // A bar that comes or goes changes what shows in the other direction.
    for (TControlScrollBar* bar : {FHorzScrollBar.get(), FVertScrollBar.get(), FHorzScrollBar.get()}) {
        bar->Update();
        if (!alive)
            return;
    }
    for (TControlScrollBar* bar : {FHorzScrollBar.get(), FVertScrollBar.get()}) {
        bar->ScrollTo(bar->FPosition); // no further than what there still is
        if (!alive)
            return;
    }
}

void TScrollingWinControl::AlignControls(TControl* changed, TRect& client) {
    TLifeGuard alive(*this);
    FitRanges();
    UpdateScrollBars();
    if (!alive)
        return;
    client = GetClientRect();
    TCustomControl::AlignControls(changed, client);
}

void TScrollingWinControl::AdjustClientRect(TRect& rect) {
    // Aligned children lie in the whole area.
    rect = Bounds(rect.Left - FHorzScrollBar->FPosition, rect.Top - FVertScrollBar->FPosition,
                  std::max(FHorzScrollBar->FRange, rect.Width()), std::max(FVertScrollBar->FRange, rect.Height()));
}

void TScrollingWinControl::ChangeScale(int m, int d) {
    for (TControlScrollBar* bar : {FHorzScrollBar.get(), FVertScrollBar.get()}) {
        bar->ScrollTo(0);
        bar->FRange = MulDiv(bar->FRange, m, d);
        bar->FMargin = MulDiv(bar->FMargin, m, d);
    }
    TCustomControl::ChangeScale(m, d);
}

// Bringing into view

void TScrollingWinControl::ScrollInView(TControl* control) {
    if (!control || control == this || !IsParentOf(control))
        return;
    const TPoint origin = ScreenToClient(control->GetParent()->ClientToScreen({control->GetLeft(), control->GetTop()}));
    FHorzScrollBar->ScrollTo(
        ScrollToShow(FHorzScrollBar->FPosition, origin.X, origin.X + control->GetWidth(), FHorzScrollBar->Extent()));
    FVertScrollBar->ScrollTo(
        ScrollToShow(FVertScrollBar->FPosition, origin.Y, origin.Y + control->GetHeight(), FVertScrollBar->Extent()));
}

void TScrollingWinControl::AutoScrollInView(TControl* control) {
    if (FAutoScroll)
        ScrollInView(control);
}

// Messages

void TScrollingWinControl::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_HSCROLL:
    case WM_VSCROLL:
        if (message.LParam != 0)
            break; // of a scroll bar that is a control of its own
        (message.Msg == WM_HSCROLL ? FHorzScrollBar : FVertScrollBar)->HandleScroll(LowWord(message.WParam));
        return;
    case WM_GETDLGCODE:
        message.Result = DLGC_WANTARROWS;
        return;
    case CM_CHILDKEY: {
        const auto* child = reinterpret_cast<const TWinControl*>(message.LParam);
        if ((message.WParam == VK_PRIOR || message.WParam == VK_NEXT) && LeavesPagingToParent(*child) &&
            ScrollByKey(static_cast<WORD>(message.WParam), ShiftStateFromKeyboard())) {
            message.Result = 1;
            return;
        }
        break;
    }
    case CM_FOCUSCHANGED: {
        auto* focused = reinterpret_cast<TWinControl*>(message.LParam);
        TLifeGuard alive(*this);
        TCustomControl::Dispatch(message);
        if (alive && focused && focused != this && IsParentOf(focused))
            AutoScrollInView(focused);
        return;
    }
    default:
        break;
    }
    TCustomControl::Dispatch(message);
}

bool TScrollingWinControl::DoMouseWheel(TShiftState shift, int wheelDelta, TPoint mousePos) {
    TLifeGuard alive(*this);
    if (TCustomControl::DoMouseWheel(shift, wheelDelta, mousePos) || !alive)
        return true;
    const bool sideways = shift.Contains(ssShift) || !FVertScrollBar->CanScroll();
    TControlScrollBar& bar = sideways ? *FHorzScrollBar : *FVertScrollBar;
    if (!bar.CanScroll())
        return false;
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int page = bar.Extent() / bar.FIncrement;
    const int steps = bar.FWheel.Add(-wheelDelta, lines == WHEEL_PAGESCROLL ? page : static_cast<int>(lines));
    const int before = bar.FPosition;
    bar.ScrollTo(before + steps * bar.FIncrement);
    // At the end of the area the wheel is for what lies around it.
    return !alive || steps == 0 || bar.FPosition != before;
}

bool TScrollingWinControl::LeavesPagingToParent(const TWinControl& child) const {
    if (const auto* edit = As<TCustomEdit>(&child))
        return edit->HandleAllocated() && (GetWindowLongPtrW(edit->GetHandle(), GWL_STYLE) & ES_MULTILINE) == 0;
    return As<TButtonControl>(&child) != nullptr;
}

bool TScrollingWinControl::ScrollByKey(WORD key, TShiftState shift) {
    if (shift.Contains(ssShift) || shift.Contains(ssAlt))
        return false;
    const bool sideways = key == VK_LEFT || key == VK_RIGHT;
    TControlScrollBar& bar = sideways ? *FHorzScrollBar : *FVertScrollBar;
    if (!bar.CanScroll())
        return false;
    switch (key) {
    case VK_LEFT:
    case VK_UP:
        bar.HandleScroll(SB_LINEUP);
        return true;
    case VK_RIGHT:
    case VK_DOWN:
        bar.HandleScroll(SB_LINEDOWN);
        return true;
    case VK_PRIOR:
        bar.HandleScroll(SB_PAGEUP);
        return true;
    case VK_NEXT:
        bar.HandleScroll(SB_PAGEDOWN);
        return true;
    case VK_HOME:
        bar.HandleScroll(SB_TOP);
        return true;
    case VK_END:
        bar.HandleScroll(SB_BOTTOM);
        return true;
    default:
        return false;
    }
}

void TScrollingWinControl::KeyDown(WORD& key, TShiftState shift) {
    TLifeGuard alive(*this);
    TCustomControl::KeyDown(key, shift);
    if (alive && key != 0 && ScrollByKey(key, shift) && alive)
        key = 0;
}

void TScrollingWinControl::MouseDown(TMouseButton button, TShiftState shift, int x, int y) {
    TLifeGuard alive(*this);
    TCustomControl::MouseDown(button, shift, x, y);
    if (!alive || button != mbLeft || IsDesigning() || !HandleAllocated())
        return;
    // A click beside the children makes the keys scroll, unless one of the children has them.
    if (!IsChild(GetHandle(), ::GetFocus()) && CanFocus())
        SetFocus();
}

// The box

const TClassInfo& TScrollBox::StaticClass() {
    namespace row = controlrows;
    using S = TScrollingWinControl;
    static const TClassInfo info = DescribeClass<TScrollBox>(
        u"TScrollBox", TScrollingWinControl::StaticClass(),
        {row::Align(),
         row::Anchors(),
         Property<&S::GetAutoScroll, &S::SetAutoScroll>(u"AutoScroll", true),
         row::AutoSize(false),
         row::BiDiMode(),
         row::ControlBorder(
             Property<&TScrollBox::GetBorderStyle, &TScrollBox::SetBorderStyle>(u"BorderStyle", bsSingle)),
         row::Constraints(),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Color(clWindow),
         row::Ctl3D(),
         row::Font(),
         row::ParentLinks(true),
         row::ShowHint(),
         row::TabOrder(),
         row::TabStop(false),
         row::Visible(),
         row::OnClick(),
         row::OnDblClick(),
         row::FocusEvents(),
         row::MouseEvents(),
         row::OnMouseWheel(),
         row::OnResize()});
    return info;
}

TScrollBox::TScrollBox(TComponent* owner) : TScrollingWinControl(owner) {
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

void TScrollBox::CreateParams(TCreateParams& params) {
    TScrollingWinControl::CreateParams(params);
    AddBorder(params, FBorderStyle);
}

void TScrollBox::SetBorderStyle(TBorderStyle value) {
    if (FBorderStyle == value)
        return;
    FBorderStyle = value;
    RecreateWnd();
}

} // namespace framework
