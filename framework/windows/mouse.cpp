#include "framework/windows/mouse.h"

#include "framework/windows/application.h"
#include "framework/windows/hints.h"

namespace framework {

TShiftState ShiftStateFromMouse(WPARAM keys) {
    TShiftState shift;
    if (keys & MK_SHIFT)
        shift << ssShift;
    if (keys & MK_CONTROL)
        shift << ssCtrl;
    if (keys & MK_LBUTTON)
        shift << ssLeft;
    if (keys & MK_RBUTTON)
        shift << ssRight;
    if (keys & MK_MBUTTON)
        shift << ssMiddle;
    if (GetKeyState(VK_MENU) < 0)
        shift << ssAlt;
    return shift;
}

TShiftState ShiftStateFromKeyboard() {
    TShiftState shift;
    if (GetKeyState(VK_SHIFT) < 0)
        shift << ssShift;
    if (GetKeyState(VK_CONTROL) < 0)
        shift << ssCtrl;
    if (GetKeyState(VK_MENU) < 0)
        shift << ssAlt;
    return shift;
}

TMouseTracker& MouseTracker() {
    static TMouseTracker& tracker = *new TMouseTracker;
    return tracker;
}

TControl* TMouseTracker::GetCapture() const {
    const HWND window = ::GetCapture();
    if (!window)
        return nullptr;
    TControl* graphic = CapturedGraphic(window);
    return graphic ? graphic : FindControl(window);
}

void TMouseTracker::SetCapture(TControl* control) {
    if (!control) {
        FCapture = nullptr;
        ReleaseCapture();
        return;
    }
    auto* window = As<TWinControl>(control);
    if (!window)
        window = control->GetParent();
    if (!window)
        return;
    ::SetCapture(window->GetHandle()); // which tells the one that has it now
    FCapture = control;
}

void TMouseTracker::CaptureLost(HWND window) {
    if (!FCapture)
        return;
    const TWinControl* holder = As<TWinControl>(FCapture);
    if (!holder)
        holder = FCapture->GetParent();
    if (holder && holder->HandleAllocated() && holder->GetHandle() == window)
        std::exchange(FCapture, nullptr)->CancelClick();
}

TControl* TMouseTracker::CapturedGraphic(HWND window) const {
    if (!FCapture || ::GetCapture() != window || !As<TGraphicControl>(FCapture))
        return nullptr;
    const TWinControl* parent = FCapture->GetParent();
    return parent && parent->HandleAllocated() && parent->GetHandle() == window ? FCapture : nullptr;
}

void TMouseTracker::MovedOver(TControl* control, HWND window) {
    if (FTracked != window) {
        TRACKMOUSEEVENT request{sizeof(request), TME_LEAVE, window, 0};
        if (TrackMouseEvent(&request))
            FTracked = window;
    }
    ChangeOver(control);
}

void TMouseTracker::LeftWindow(HWND window) {
    if (FTracked != window)
        return;
    FTracked = nullptr;
    const TWinControl* owner = FindOwningControl(window); // also of a part inside a native control
    if (owner && FOver && (FOver == owner || FOver->GetParent() == owner))
        ChangeOver(nullptr);
}

void TMouseTracker::ChangeOver(TControl* control) {
    if (FOver == control)
        return;
    TControl* left = FOver;
    FOver = control;
    if (left)
        Tell(*left, CM_MOUSELEAVE);
    // The handler may have destroyed the control that was entered; Forget has then cleared FOver.
    if (FOver && FOver == control)
        Tell(*control, CM_MOUSEENTER);
    HintMouseOver(FOver);
}

void TMouseTracker::Forget(TControl* control) {
    if (FCapture == control)
        FCapture = nullptr;
    if (FOver == control) {
        FOver = nullptr;
        HintMouseOver(nullptr);
    }
}

} // namespace framework
