// The focus on a form: which control has it, who is told when it moves, and the keys that move it.

#include "framework/windows/application.h"
#include "framework/windows/forms.h"
#include "framework/windows/hints.h"

namespace framework {

void TCustomForm::SetActiveControl(TWinControl* value) {
    if (FActiveControl == value)
        return;
    if (value && (value == this || GetParentForm(value) != this || (!IsLoading() && !value->CanFocus())))
        throw EInvalidOperation(u"Cannot focus a disabled or invisible window");
    FActiveControl = value;
    if (value)
        FreeNotification(value);
    if (IsLoading() || !FActive)
        return;
    TakeWindowFocus();
}

void TCustomForm::FocusControl(TWinControl* control) {
    if (control == this) {
        if (HandleAllocated())
            ::SetFocus(FHandle);
        return;
    }
    if (!control->CanFocus())
        throw EInvalidOperation(u"Cannot focus a disabled or invisible window");
    if (!GetShowing() || (HandleAllocated() && !IsWindowVisible(FHandle))) {
        FActiveControl = control; // it gets the focus when the form is shown
        FreeNotification(control);
        return;
    }
    ::SetFocus(control->GetHandle());
}

void TCustomForm::TakeWindowFocus() {
    if (!HandleAllocated() || !GetShowing() || FFocusSuspended > 0)
        return;
    if (GetParent()) { // one of the outer form's controls, which keeps the active one
        if (TWinControl* first = FindNextControl(nullptr, true, true, false))
            ::SetFocus(first->GetHandle());
        return;
    }
    if (FActiveControl && !FActiveControl->CanFocus())
        FActiveControl = nullptr;
    if (FActiveControl) {
        if (!FActiveControl->Focused())
            ::SetFocus(FActiveControl->GetHandle());
    } else if (::GetFocus() != FHandle) {
        ::SetFocus(FHandle); // so that the form hears keys; it comes back here by WM_SETFOCUS
    } else {
        SetFocusedControl(nullptr);
    }
}

/// A form that comes to the front goes on where it was left, or begins with its first control.
void TCustomForm::ChooseActiveControl() {
    if (!FActiveControl || !FActiveControl->CanFocus())
        FActiveControl = FindNextControl(nullptr, true, true, false);
    if (FActiveControl)
        FreeNotification(FActiveControl);
}

bool TCustomForm::SetFocusedControl(TWinControl* control) {
    if (FFocusSuspended > 0)
        return true;
    if (control == FFocusedControl)
        return true;
    const int change = ++FFocusMessages;
    TLifeGuard alive(*this);
    FActiveControl = control;
    if (control)
        FreeNotification(control);
    TLifeGuard targetAlive(control ? *control : *this);
    TheScreen().SetActive(this, control);
    if (!alive || !targetAlive || change != FFocusMessages)
        return false;
    // First those that are left, from the inside out, up to the first that holds the new one as well.
    while (FFocusedControl && !(control && FFocusedControl->ContainsControl(control))) {
        TWinControl* leaving = FFocusedControl;
        FFocusedControl = leaving->GetParent() == this ? nullptr : leaving->GetParent();
        if (!leaving->GetComponentState().Contains(csDestroying))
            Tell(*leaving, CM_EXIT);
        if (!alive || !targetAlive || change != FFocusMessages)
            return false;
    }
    // Then those that are entered, from the outside in.
    while (FFocusedControl != control) {
        TWinControl* entered = control;
        while (entered->GetParent() != FFocusedControl && entered->GetParent() != this)
            entered = entered->GetParent();
        FFocusedControl = entered;
        FreeNotification(entered);
        Tell(*entered, CM_ENTER);
        if (!alive || !targetAlive || change != FFocusMessages)
            return false;
        if (!FFocusedControl)
            return false; // it died or was hidden as it was entered
    }
    Tell(*this, CM_FOCUSCHANGED, reinterpret_cast<LPARAM>(control));
    return alive && targetAlive && change == FFocusMessages;
}

void TCustomForm::DefocusControl(TWinControl* control, bool removing) {
    if (FFocusSuspended > 0)
        return;
    if (removing && FFocusedControl && control->ContainsControl(FFocusedControl))
        FFocusedControl = control->GetParent() == this ? nullptr : control->GetParent();
    if (!FActiveControl || !control->ContainsControl(FActiveControl))
        return;
    TLifeGuard alive(*this);
    TLifeGuard controlAlive(*control);
    const bool hadFocus = FActiveControl->Focused();
    FActiveControl = nullptr;
    if (TheScreen().GetActiveForm() == this)
        TheScreen().SetActive(this, nullptr);
    if (!alive || IsDestroying() || !hadFocus)
        return;
    // The user goes on with the next one rather than with a form that hears no keys.
    TWinControl* next = controlAlive ? FindNextControl(control, true, true, false) : nullptr;
    for (const TWinControl* first = next; next && control->ContainsControl(next);) {
        next = FindNextControl(next, true, true, false);
        if (next == first)
            next = nullptr;
    }
    if (next)
        ::SetFocus(next->GetHandle());
    else
        ::SetFocus(FHandle);
    if (alive && !FActiveControl)
        Tell(*this, CM_FOCUSCHANGED); // no button has the focus now, so that Enter clicks the default one
}

void TCustomForm::WMActivate(TMessage& message) {
    FActive = LowWord(message.WParam) != WA_INACTIVE;
    if (FActive && !IsDesigning())
        ChooseActiveControl();
    TLifeGuard alive(*this);
    TCustomForm* before = TheScreen().GetActiveForm();
    if (!FActive) {
        HideHint();
    } else if (before != this) {
        TLifeGuard beforeAlive(before ? *before : *this);
        TheScreen().SetActive(this, FActiveControl);
        if (before && beforeAlive && !before->IsDestroying())
            before->Perform(CM_DEACTIVATE);
        if (alive && TheScreen().GetActiveForm() == this)
            Perform(CM_ACTIVATE);
    }
    // The native procedure gives the window the focus, and so WM_SETFOCUS passes it on to the active control.
    if (alive)
        TWinControl::DefaultHandler(message);
}

void TCustomForm::Activate() {
    Fire(*this, OnActivate, this);
}

void TCustomForm::Deactivate() {
    Fire(*this, OnDeactivate, this);
}

void TCustomForm::CMDialogKey(TMessage& message) {
    if (GetKeyState(VK_MENU) < 0) {
        TWinControl::CMDialogKey(message);
        return;
    }
    switch (message.WParam) {
    case VK_TAB:
        if (GetKeyState(VK_CONTROL) < 0)
            break;
        SelectNext(FActiveControl, GetKeyState(VK_SHIFT) >= 0, true);
        message.Result = 1;
        return;
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
        if (!FActiveControl)
            break;
        FActiveControl->GetParent()->SelectNext(FActiveControl, message.WParam == VK_RIGHT || message.WParam == VK_DOWN,
                                                false);
        message.Result = 1;
        return;
    default:
        break;
    }
    TWinControl::CMDialogKey(message);
}

} // namespace framework
