#pragma once

// What a screen reader asks of a window.

#include "framework/windows/wincontrol.h"

#include <oleacc.h>

namespace testsupport {

/// The accessible object of a control's client area; Found tells whether there is one.
class TAccessibleView {
public:
    explicit TAccessibleView(framework::TWinControl& control) {
        if (AccessibleObjectFromWindow(control.GetHandle(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                       reinterpret_cast<void**>(&FObject)) != S_OK)
            FObject = nullptr;
    }
    TAccessibleView(const TAccessibleView&) = delete;
    TAccessibleView& operator=(const TAccessibleView&) = delete;
    ~TAccessibleView() {
        if (FObject)
            FObject->Release();
    }

    bool Found() const { return FObject != nullptr; }
    IAccessible* operator->() const { return FObject; }
    static VARIANT Number(long value) {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = value;
        return child;
    }
    framework::String Name(long child) const { return Text(&IAccessible::get_accName, child); }
    framework::String Value(long child) const { return Text(&IAccessible::get_accValue, child); }
    framework::String Text(HRESULT (STDMETHODCALLTYPE IAccessible::*ask)(VARIANT, BSTR*), long child) const {
        BSTR answer = nullptr;
        (FObject->*ask)(Number(child), &answer);
        framework::String result = framework::FromWide(answer);
        SysFreeString(answer);
        return result;
    }
    long State(long child) const {
        VARIANT state{};
        FObject->get_accState(Number(child), &state);
        return state.lVal;
    }
    /// The child with the focus; 0 for the object itself or when it is elsewhere.
    long Focus() const {
        VARIANT focus{};
        return FObject->get_accFocus(&focus) == S_OK && focus.vt == VT_I4 ? focus.lVal : 0;
    }

private:
    IAccessible* FObject = nullptr;
};

} // namespace testsupport
