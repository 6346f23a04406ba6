#include "framework/windows/accessibility.h"

#include "framework/windows/forms.h"
#include "framework/windows/label.h"

#include <oleacc.h>

namespace framework {

namespace {

const TCustomLabel* FindLabelOf(const TWinControl& control, const TWinControl& within) {
    for (int i = 0; i < within.GetControlCount(); ++i) {
        const TControl* child = within.GetControl(i);
        if (const auto* label = As<TCustomLabel>(child); label && label->GetFocusControl() == &control)
            return label;
        if (const auto* window = As<TWinControl>(child)) {
            if (const TCustomLabel* label = FindLabelOf(control, *window))
                return label;
        }
    }
    return nullptr;
}

const TCustomLabel* LabelOf(const TWinControl& control) {
    const TCustomForm* form = GetParentForm(&control);
    return form ? FindLabelOf(control, *form) : nullptr;
}

struct TMarkedText {
    String Text;         // without the marks
    char16_t Marked = 0; // the letter behind the first single &
};

TMarkedText WithoutMarks(const String& caption) {
    TMarkedText result;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) {
            ++i;
            if (caption[i] != u'&' && !result.Marked)
                result.Marked = caption[i];
        }
        result.Text += caption[i];
    }
    return result;
}

/// The system's object for a window, whose name and shortcut are those of the label.
class TNamedObject final : public IAccessible {
public:
    TNamedObject(HWND window, IAccessible* system) : FWindow(window), FSystem(system) {}

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (!object)
            return E_POINTER;
        if (!IsEqualIID(id, __uuidof(IUnknown)) && !IsEqualIID(id, __uuidof(IDispatch)) &&
            !IsEqualIID(id, __uuidof(IAccessible)))
            return FSystem->QueryInterface(id, object); // such as its window and its list of children
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&FReferences)); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&FReferences);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

    // What the label says
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return Say(child, name, &AccessibleName, &IAccessible::get_accName);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return Say(child, shortcut, &AccessibleShortcut, &IAccessible::get_accKeyboardShortcut);
    }

    // All else is the system's
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

private:
    ~TNamedObject() { FSystem->Release(); }

    HRESULT Say(VARIANT child, BSTR* answer, String (*fromLabel)(const TWinControl&),
                HRESULT (STDMETHODCALLTYPE IAccessible::*fromSystem)(VARIANT, BSTR*)) {
        if (!answer)
            return E_POINTER;
        // The object may outlive the control, and be asked for one of the items inside it.
        const TWinControl* control = FindOwningControl(FWindow);
        if (!control || child.vt != VT_I4 || child.lVal != CHILDID_SELF)
            return (FSystem->*fromSystem)(child, answer);
        try {
            const String text = fromLabel(*control);
            if (text.empty())
                return (FSystem->*fromSystem)(child, answer);
            *answer = SysAllocStringLen(WideChars(text), static_cast<UINT>(text.size()));
            return *answer ? S_OK : E_OUTOFMEMORY;
        } catch (...) { // no exception may cross into the other program
            return E_OUTOFMEMORY;
        }
    }

    HWND FWindow;
    IAccessible* FSystem; // counted
    LONG FReferences = 1;
};

} // namespace

String AccessibleName(const TWinControl& control) {
    const TCustomLabel* label = LabelOf(control);
    if (!label)
        return {};
    const String caption = label->GetText();
    return label->GetShowAccelChar() ? WithoutMarks(caption).Text : caption;
}

String AccessibleShortcut(const TWinControl& control) {
    const TCustomLabel* label = LabelOf(control);
    if (!label || !label->GetShowAccelChar())
        return {};
    char16_t letter = WithoutMarks(label->GetText()).Marked;
    if (!letter)
        return {};
    CharUpperBuffW(reinterpret_cast<wchar_t*>(&letter), 1);
    return u"Alt+" + String(1, letter);
}

bool AnswerAccessibility(HWND window, TMessage& message) {
    const TWinControl* control = FindOwningControl(window);
    if (static_cast<LONG>(message.LParam) != OBJID_CLIENT || !control || AccessibleName(*control).empty())
        return false;
    // The object travels to another program by COM, which the host may not have started on this thread.
    static thread_local const HRESULT started = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    (void)started;
    void* system = nullptr;
    if (FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), &system)))
        return false;
    auto* object = new TNamedObject(window, static_cast<IAccessible*>(system));
    const LRESULT answer = LresultFromObject(__uuidof(IAccessible), message.WParam, object);
    object->Release();
    if (answer <= 0)
        return false;
    message.Result = answer;
    return true;
}

} // namespace framework
