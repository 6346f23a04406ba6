#include "framework/windows/accessibility.h"

#include "framework/windows/accessibleobject.h"
#include "framework/windows/forms.h"
#include "framework/windows/label.h"
#include "framework/windows/latefunction.h"

namespace framework {

namespace {

// Only programs that assistive ones look at come this far.
const TLateFunction<decltype(::CreateStdAccessibleObject)> createStdAccessibleObject(L"oleacc.dll",
                                                                                     "CreateStdAccessibleObject");
const TLateFunction<decltype(::LresultFromObject)> lresultFromObject(L"oleacc.dll", "LresultFromObject");

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
class TNamedObject final : public TAccessibleObject {
public:
    using TAccessibleObject::TAccessibleObject;

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override {
        return Say(child, name, &AccessibleName, &IAccessible::get_accName);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return Say(child, shortcut, &AccessibleShortcut, &IAccessible::get_accKeyboardShortcut);
    }

private:
    HRESULT Say(VARIANT child, BSTR* answer, String (*fromLabel)(const TWinControl&),
                HRESULT (STDMETHODCALLTYPE IAccessible::*fromSystem)(VARIANT, BSTR*)) {
        if (!answer)
            return E_POINTER;
        // The object may outlive the control, and be asked for one of the items inside it.
        const TWinControl* control = FindOwningControl(Window());
        if (!control || child.vt != VT_I4 || child.lVal != CHILDID_SELF)
            return (System().*fromSystem)(child, answer);
        try {
            const String text = fromLabel(*control);
            if (text.empty())
                return (System().*fromSystem)(child, answer);
            return GiveText(text, answer);
        } catch (...) { // no exception may cross into the other program
            return E_OUTOFMEMORY;
        }
    }
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

HRESULT GiveText(const String& text, BSTR* answer) {
    *answer = text.empty() ? nullptr : SysAllocStringLen(WideChars(text), static_cast<UINT>(text.size()));
    if (text.empty())
        return S_FALSE;
    return *answer ? S_OK : E_OUTOFMEMORY;
}

// Not inline: this code has to stay when that of a package goes with its last object.
ULONG TAccessibleObject::Release() {
    const LONG left = InterlockedDecrement(&FReferences);
    if (left == 0) {
        const HMODULE module = FModule;
        delete this;
        if (module)
            FreeLibrary(module);
    }
    return static_cast<ULONG>(left);
}

bool AnswerWithObject(HWND window, TMessage& message, TAccessibleObject* (*make)(HWND window, IAccessible* system)) {
    if (static_cast<LONG>(message.LParam) != OBJID_CLIENT)
        return false;
    // The object travels to another program by COM, which the host may not have started on this thread.
    static thread_local const HRESULT started = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    (void)started;
    void* system = nullptr;
    if (FAILED(createStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible), &system)))
        return false;
    TAccessibleObject* object = make(window, static_cast<IAccessible*>(system));
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(make), &object->FModule);
    const LRESULT answer = lresultFromObject(__uuidof(IAccessible), message.WParam, object);
    object->Release();
    if (answer <= 0)
        return false;
    message.Result = answer;
    return true;
}

bool AnswerAccessibility(HWND window, TMessage& message) {
    const TWinControl* control = FindOwningControl(window);
    if (static_cast<LONG>(message.LParam) != OBJID_CLIENT || !control || AccessibleName(*control).empty())
        return false;
    return AnswerWithObject(window, message, [](HWND named, IAccessible* system) -> TAccessibleObject* {
        return new TNamedObject(named, system);
    });
}

} // namespace framework
