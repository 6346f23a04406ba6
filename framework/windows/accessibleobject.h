#pragma once

// What answers screen readers for a window: the system's own object for it, of which descendants take over what they
// know better.

#include "framework/windows/messages.h"

#include <oleacc.h>

namespace framework {

/// Counted as COM objects are; it may outlive its window and be called from another program through COM.
class TAccessibleObject : public IAccessible {
public:
    TAccessibleObject(HWND window, IAccessible* system) : FWindow(window), FSystem(system) {}
    TAccessibleObject(const TAccessibleObject&) = delete;
    TAccessibleObject& operator=(const TAccessibleObject&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object)
            return E_POINTER;
        if (!IsEqualIID(id, __uuidof(IUnknown)) && !IsEqualIID(id, __uuidof(IDispatch)) &&
            !IsEqualIID(id, __uuidof(IAccessible)))
            return QueryOther(id, object);
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&FReferences)); }
    ULONG STDMETHODCALLTYPE Release() override;

    // What the system knows
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return FSystem->GetTypeInfoCount(count); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return FSystem->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return FSystem->GetIDsOfNames(id, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override {
        return FSystem->Invoke(member, id, locale, flags, parameters, result, exception, badArgument);
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return FSystem->get_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return FSystem->get_accKeyboardShortcut(child, shortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override { return FSystem->get_accParent(parent); }
    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override { return FSystem->get_accChildCount(count); }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
        return FSystem->get_accChild(child, object);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return FSystem->get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override {
        return FSystem->get_accDescription(child, description);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override {
        return FSystem->get_accRole(child, role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        return FSystem->get_accState(child, state);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return FSystem->get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override {
        return FSystem->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override { return FSystem->get_accFocus(child); }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override {
        return FSystem->get_accSelection(children);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return FSystem->get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(long flags, VARIANT child) override { return FSystem->accSelect(flags, child); }
    HRESULT STDMETHODCALLTYPE accLocation(long* left, long* top, long* width, long* height, VARIANT child) override {
        return FSystem->accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) override {
        return FSystem->accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(long left, long top, VARIANT* child) override {
        return FSystem->accHitTest(left, top, child);
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override { return FSystem->accDoDefaultAction(child); }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override {
        return FSystem->put_accName(child, name);
    }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override {
        return FSystem->put_accValue(child, value);
    }

protected:
    virtual ~TAccessibleObject() { FSystem->Release(); }

    /// Such as the object's window and the windows inside it.
    virtual HRESULT QueryOther(REFIID id, void** object) { return FSystem->QueryInterface(id, object); }
    HWND Window() const { return FWindow; }
    IAccessible& System() const { return *FSystem; }

private:
    friend bool AnswerWithObject(HWND window, TMessage& message,
                                 TAccessibleObject* (*make)(HWND window, IAccessible* system));

    HWND FWindow;
    IAccessible* FSystem;      // counted
    HMODULE FModule = nullptr; // counted: where the object's code is, such as a package
    LONG FReferences = 1;
};

/// For a window whose parts have no windows. They are numbered from 1, and this object tells of each of them.
class TNumberedObject : public TAccessibleObject {
public:
    using TAccessibleObject::TAccessibleObject;

    HRESULT STDMETHODCALLTYPE get_accChildCount(long* count) override {
        *count = Count();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT, IDispatch** object) override {
        *object = nullptr; // all of them are told of by this object
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE accNavigate(long direction, VARIANT start, VARIANT* end) override {
        if (start.vt != VT_I4)
            return System().accNavigate(direction, start, end);
        const LONG last = Count();
        LONG to = 0;
        if (start.lVal == CHILDID_SELF && direction == NAVDIR_FIRSTCHILD)
            to = 1;
        else if (start.lVal == CHILDID_SELF && direction == NAVDIR_LASTCHILD)
            to = last;
        else if (start.lVal == CHILDID_SELF)
            return System().accNavigate(direction, start, end);
        else if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN)
            to = start.lVal + 1;
        else if (direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP)
            to = start.lVal - 1;
        *end = {};
        if (to < 1 || to > last)
            return S_FALSE;
        *end = Number(to);
        return S_OK;
    }

protected:
    HRESULT QueryOther(REFIID id, void** object) override {
        if (!IsEqualIID(id, __uuidof(IEnumVARIANT)))
            return TAccessibleObject::QueryOther(id, object);
        *object = nullptr; // the system would list windows; without it the children are asked for by number
        return E_NOINTERFACE;
    }

    /// How many parts there are; 0 when the window is gone.
    virtual LONG Count() const = 0;
    static VARIANT Number(LONG value) {
        VARIANT result{};
        result.vt = VT_I4;
        result.lVal = value;
        return result;
    }
    /// Gives a place of the window's client area as a place on the screen; S_FALSE for an empty one.
    HRESULT GivePlace(const TRect& place, long* left, long* top, long* width, long* height) const {
        POINT corner{place.Left, place.Top};
        ClientToScreen(Window(), &corner);
        *left = corner.x;
        *top = corner.y;
        *width = place.Width();
        *height = place.Height();
        return place.IsEmpty() ? S_FALSE : S_OK;
    }
};

/// A text as COM hands it over; S_FALSE for an empty one.
HRESULT GiveText(const String& text, BSTR* answer);

/// Answers WM_GETOBJECT for the client area of a window with what `make` builds around the system's object; false, the
/// message untouched, when it asks for something else or the system has none. The object's class lies in the module of
/// `make`, which stays in memory as long as the object.
bool AnswerWithObject(HWND window, TMessage& message, TAccessibleObject* (*make)(HWND window, IAccessible* system));

} // namespace framework
