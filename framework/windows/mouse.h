#pragma once

// Who has the mouse: the control under it, and the control that captured it. Graphic controls take part through the
// window they lie on.

#include "framework/windows/control.h"

namespace framework {

class TMouseTracker {
public:
    /// The control that gets all mouse messages until it releases them; null when none of ours does.
    TControl* GetCapture() const;
    void SetCapture(TControl* control);
    /// The graphic control for which `window` holds the capture; null when it captured for itself.
    TControl* CapturedGraphic(HWND window) const;

    /// The system took the capture from `window`: a press that began there is no click any more.
    void CaptureLost(HWND window);

    /// The mouse moved within `window` and lies over `control`; tells the control left and the one entered, and asks
    /// the system to say when the mouse leaves the window.
    void MovedOver(TControl* control, HWND window);
    /// The mouse left the window without entering another of ours.
    void LeftWindow(HWND window);
    TControl* GetControl() const { return FOver; }
    /// A control dies.
    void Forget(TControl* control);

private:
    void ChangeOver(TControl* control);

    TControl* FOver = nullptr;
    TControl* FCapture = nullptr; // set while a control of ours captures the mouse
    HWND FTracked = nullptr;      // the window that will send WM_MOUSELEAVE
};

/// Never freed: controls that die with static objects still tell it.
TMouseTracker& MouseTracker();

} // namespace framework
