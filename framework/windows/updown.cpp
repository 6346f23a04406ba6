#include "framework/windows/updown.h"

#include "framework/graphics/brushes.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kInitialSize{16, 25};

} // namespace

const TEnumInfo& DescribeEnum(TUDAlignButton) {
    static const TEnumInfo info{u"TUDAlignButton", {u"udLeft", u"udRight"}};
    return info;
}

const TEnumInfo& DescribeEnum(TUDOrientation) {
    static const TEnumInfo info{u"TUDOrientation", {u"udHorizontal", u"udVertical"}};
    return info;
}

const TClassInfo& TCustomUpDown::StaticClass() {
    static const TClassInfo info = DescribeClass<TCustomUpDown>(u"TCustomUpDown", TWinControl::StaticClass());
    return info;
}

const TClassInfo& TUpDown::StaticClass() {
    namespace row = controlrows;
    using U = TCustomUpDown;
    static const TClassInfo info =
        DescribeClass<TUpDown>(u"TUpDown", TCustomUpDown::StaticClass(),
                               {Property<&U::GetAlignButton, &U::SetAlignButton>(u"AlignButton", udRight),
                                row::Anchors(),
                                Property<&U::GetAssociate, &U::SetAssociate>(u"Associate"),
                                Property<&U::GetArrowKeys, &U::SetArrowKeys>(u"ArrowKeys", true),
                                row::Constraints(),
                                row::DoubleBuffered(),
                                row::Enabled(),
                                Property<&U::GetMin, &U::SetMin>(u"Min", 0),
                                Property<&U::GetMax, &U::SetMax>(u"Max", 100),
                                Property<&U::GetIncrement, &U::SetIncrement>(u"Increment", 1),
                                Property<&U::GetOrientation, &U::SetOrientation>(u"Orientation", udVertical),
                                row::ParentShowHint(),
                                Property<&U::GetPosition, &U::SetPosition>(u"Position", 0),
                                row::ShowHint(),
                                row::TabOrder(),
                                row::TabStop(false),
                                Property<&U::GetThousands, &U::SetThousands>(u"Thousands", true),
                                row::Visible(),
                                Property<&U::GetWrap, &U::SetWrap>(u"Wrap", false),
                                Event<&U::OnChanging>(u"OnChanging"),
                                Event<&U::OnChangingEx>(u"OnChangingEx"),
                                Event<&U::OnClick>(u"OnClick"),
                                row::FocusEvents(),
                                row::MouseEvents()});
    return info;
}

TCustomUpDown::TCustomUpDown(TComponent* owner) : TWinControl(owner) {
    // The native window captures the mouse by itself, and quick presses are as many steps.
    FControlStyle >> csCaptureMouse >> csClickEvents >> csDoubleClicks >> csSetCaption;
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
}

// The window

void TCustomUpDown::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, UPDOWN_CLASSW);
    params.WindowClass.style |= CS_HREDRAW | CS_VREDRAW; // both arrows change with the size
    params.ExStyle &= ~static_cast<DWORD>(WS_EX_RIGHT);
    params.Style |= UDS_HOTTRACK;
    params.Style |= FAlignButton == udRight ? UDS_ALIGNRIGHT : UDS_ALIGNLEFT;
    if (FOrientation == udHorizontal)
        params.Style |= UDS_HORZ;
    if (FArrowKeys)
        params.Style |= UDS_ARROWKEYS;
    if (As<TCustomEdit>(FAssociate))
        params.Style |= UDS_SETBUDDYINT;
    if (!FThousands)
        params.Style |= UDS_NOTHOUSANDS;
    if (FWrap)
        params.Style |= UDS_WRAP;
}

void TCustomUpDown::CreateWnd() {
    const TRect bounds = GetBoundsRect();
    TWinControl::CreateWnd();
    SetBoundsRect(bounds); // the native window prefers a width of its own
    ApplyRange();
    SendMessageW(FHandle, UDM_SETPOS32, 0, FPosition);
    Connect();
}

void TCustomUpDown::ApplyRange() {
    UDACCEL step{0, static_cast<UINT>(FIncrement)};
    SendMessageW(FHandle, UDM_SETRANGE32, static_cast<WPARAM>(FMin), FMax);
    SendMessageW(FHandle, UDM_SETACCEL, 1, reinterpret_cast<LPARAM>(&step));
}

void TCustomUpDown::KeepWindowState() {
    FPosition = GetPosition();
    TWinControl::KeepWindowState();
}

// Range and position

int TCustomUpDown::InRange(int value) const {
    return std::clamp(value, std::min(FMin, FMax), std::max(FMin, FMax));
}

void TCustomUpDown::SetRange(int min, int max) {
    if (FMin == min && FMax == max)
        return;
    FPosition = GetPosition();
    FMin = min;
    FMax = max;
    if (!IsLoading()) // a form may state the position before the range that holds it
        FPosition = InRange(FPosition);
    if (!HandleAllocated())
        return;
    ApplyRange();
    SendMessageW(FHandle, UDM_SETPOS32, 0, FPosition);
}

void TCustomUpDown::SetIncrement(int value) {
    if (FIncrement == value)
        return;
    FIncrement = value;
    if (HandleAllocated())
        ApplyRange();
}

int TCustomUpDown::GetPosition() const {
    return HandleAllocated() ? static_cast<int>(SendMessageW(FHandle, UDM_GETPOS32, 0, 0)) : FPosition;
}

void TCustomUpDown::SetPosition(int value) {
    const int before = GetPosition();
    if (!IsLoading())
        value = InRange(value);
    if (value == before)
        return;
    if (!IsLoading() && !CanChange(value, value > before ? updUp : updDown))
        return;
    FPosition = value;
    if (HandleAllocated())
        SendMessageW(FHandle, UDM_SETPOS32, 0, value);
}

void TCustomUpDown::Loaded() {
    TWinControl::Loaded();
    FPosition = InRange(FPosition);
    Connect();
}

// Looks

void TCustomUpDown::SetAlignButton(TUDAlignButton value) {
    if (FAlignButton == value)
        return;
    FAlignButton = value;
    Connect();
}

void TCustomUpDown::SetArrowKeys(bool value) {
    if (FArrowKeys == value)
        return;
    FArrowKeys = value;
    RecreateWnd();
}

void TCustomUpDown::SetOrientation(TUDOrientation value) {
    if (FOrientation == value)
        return;
    FOrientation = value;
    if (!IsLoading())
        SetBounds(GetLeft(), GetTop(), GetHeight(), GetWidth());
    RecreateWnd();
}

void TCustomUpDown::SetThousands(bool value) {
    if (FThousands == value)
        return;
    FThousands = value;
    RecreateWnd();
}

void TCustomUpDown::SetWrap(bool value) {
    if (FWrap == value)
        return;
    FWrap = value;
    RecreateWnd();
}

// The associated control

void TCustomUpDown::SetAssociate(TWinControl* value) {
    if (FAssociate == value)
        return;
    for (int i = 0; value && GetParent() && i < GetParent()->GetControlCount(); ++i) {
        auto* other = As<TCustomUpDown>(GetParent()->GetControl(i));
        if (other && other != this && other->FAssociate == value)
            throw EInvalidOperation(value->GetName() + u" is already associated with " + other->GetName());
    }
    if (HandleAllocated() && FAssociate)
        SendMessageW(FHandle, UDM_SETBUDDY, 0, 0);
    FAssociate = value;
    if (value)
        FreeNotification(value);
    RecreateWnd(); // the window learns only in its creation that it has to write the number
    Connect();
}

void TCustomUpDown::Connect() {
    if (!FAssociate || IsLoading())
        return;
    const int place =
        FAlignButton == udRight ? FAssociate->GetLeft() + FAssociate->GetWidth() : FAssociate->GetLeft() - GetWidth();
    if (!HandleAllocated()) {
        SetBounds(place, FAssociate->GetTop(), GetWidth(), FAssociate->GetHeight());
        return;
    }
    if (!FAssociate->HandleAllocated() && !FAssociate->GetParent())
        return;
    // The native window would take its room from the other one, and a width of its own; here each keeps its size.
    const int width = GetWidth();
    const TRect bounds = FAssociate->GetBoundsRect();
    SendMessageW(FHandle, UDM_SETBUDDY, reinterpret_cast<WPARAM>(FAssociate->GetHandle()), 0);
    FAssociate->SetBoundsRect(bounds);
    SetBounds(place, bounds.Top, width, bounds.Height());
    SendMessageW(FHandle, UDM_SETPOS32, 0, FPosition);
}

void TCustomUpDown::Notification(TComponent* component, TOperation operation) {
    TWinControl::Notification(component, operation);
    if (operation == opRemove && component == FAssociate)
        FAssociate = nullptr;
}

// Steps

bool TCustomUpDown::CanChange(int newValue, TUpDownDirection direction) {
    bool allow = true;
    return Fire(*this, OnChanging, this, allow) && allow &&
           Fire(*this, OnChangingEx, this, allow, newValue, direction) && allow;
}

void TCustomUpDown::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case CN_HSCROLL:
    case CN_VSCROLL:
        return CNScroll(message);
    case CM_MOUSELEAVE: {
        // The system watches one window at a time, and by now it is the one that the pointer went on to.
        TLifeGuard alive(*this);
        TWinControl::Dispatch(message);
        TMessage leave{WM_MOUSELEAVE, 0, 0, 0};
        if (alive)
            DefaultHandler(leave);
        return;
    }
    default:
        TWinControl::Dispatch(message);
    }
}

void TCustomUpDown::CNNotify(TMessage& message) {
    const auto& step = *reinterpret_cast<const NMUPDOWN*>(message.LParam);
    if (step.hdr.code != UDN_DELTAPOS) {
        TWinControl::CNNotify(message);
        return;
    }
    constexpr std::int64_t kLowest = INT_MIN;
    constexpr std::int64_t kHighest = INT_MAX;
    const std::int64_t target = std::int64_t{step.iPos} + step.iDelta;
    const auto newValue = static_cast<int>(std::clamp(target, kLowest, kHighest));
    const TUpDownDirection direction = step.iDelta > 0 ? updUp : step.iDelta < 0 ? updDown : updNone;
    message.Result = TRUE; // no step
    const HWND window = FHandle;
    TLifeGuard alive(*this);
    try {
        if (!CanChange(newValue, direction))
            return;
    } catch (...) {
        // Told here, as the native window would take a step after an exception in its parent.
        TheApplication().HandleException(alive ? this : nullptr);
        return;
    }
    if (FHandle != window) {
        // A handler had the window made anew: the step belongs to the new one.
        const std::int64_t position = std::int64_t{GetPosition()} + step.iDelta;
        FPosition = InRange(static_cast<int>(std::clamp(position, kLowest, kHighest)));
        if (FHandle)
            SendMessageW(FHandle, UDM_SETPOS32, 0, FPosition);
        return;
    }
    FPosition = GetPosition();
    message.Result = FALSE;
}

void TCustomUpDown::WMEraseBkgnd(TMessage& message) {
    // The arrows leave a line between them when the height is odd.
    const RECT client = ToWin(GetClientRect());
    FillRect(reinterpret_cast<HDC>(message.WParam), &client, GetBrush()->GetHandle());
    message.Result = TRUE;
}

void TCustomUpDown::CNScroll(TMessage& message) {
    const int position = GetPosition(); // the message carries 16 bits of it
    if (LowWord(message.WParam) != SB_THUMBPOSITION || position == FPosition)
        return;
    Click(std::exchange(FPosition, position) < position ? btNext : btPrev);
}

void TCustomUpDown::Click(TUDBtnType button) {
    Fire(*this, OnClick, this, button);
}

} // namespace framework
