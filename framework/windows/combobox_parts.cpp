// The two windows inside a native combo box, and the way their messages take: through EditWndProc and ListWndProc, and
// keys and the mouse through the combo box's own handlers.

#include "framework/windows/accessibility.h"
#include "framework/windows/application.h"
#include "framework/windows/combobox.h"
#include "framework/windows/hints.h"
#include "framework/windows/mouse.h"

#include <algorithm>
#include <commctrl.h>
#include <unordered_map>

namespace framework {

namespace {

/// The combo box that each part belongs to. Never freed: windows may live as long as the program.
std::unordered_map<HWND, TCustomCombo*>& PartOwners() {
    static auto& owners = *new std::unordered_map<HWND, TCustomCombo*>;
    return owners;
}

bool IsKeyMessage(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

} // namespace

LRESULT CALLBACK ComboPartProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = PartOwners().find(window);
    if (found == PartOwners().end())
        return DefWindowProcW(window, message, wParam, lParam);
    TCustomCombo& combo = *found->second;
    TMessage record{message, wParam, lParam, 0};
    TLifeGuard alive(combo);
    try {
        const THandlerScope handler;
        combo.PartWndProc(window, record);
    } catch (...) {
        // No exception may cross the system's frames.
        TheApplication().HandleException(alive ? &combo : nullptr);
    }
    if (message == WM_NCDESTROY) {
        PartOwners().erase(window);
        if (alive && combo.FEdit.Window == window)
            combo.FEdit = {};
        else if (alive && combo.FList.Window == window)
            combo.FList = {};
    }
    return record.Result;
}

const TClassInfo& TCustomCombo::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TCustomCombo>(u"TCustomCombo", TWinControl::StaticClass(), {controlrows::TabStop(true)});
    return info;
}

TCustomCombo::TCustomCombo(TComponent* owner) : TTextControl(owner) {
    // The native one captures the mouse by itself and tells when its choice changed.
    FControlStyle >> csCaptureMouse >> csClickEvents;
    SetParentColor(false);
    SetTabStop(true);
}

TCustomCombo::~TCustomCombo() {
    Destroying();
    DestroyHandle();
}

// The parts

void TCustomCombo::Attach(TPart& part, HWND window, TCustomCombo* owner) {
    if (!window)
        return;
    part.Window = window;
    PartOwners()[window] = owner;
    part.Native = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ComboPartProcedure)));
}

void TCustomCombo::Detach(TPart& part) {
    const TPart gone = std::exchange(part, {});
    if (gone.Window && PartOwners().erase(gone.Window) > 0 && IsWindow(gone.Window))
        SetWindowLongPtrW(gone.Window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(gone.Native));
}

void TCustomCombo::AttachParts() {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    if (!GetComboBoxInfo(FHandle, &info))
        return;
    if (info.hwndItem != FHandle && IsChild(FHandle, info.hwndItem))
        Attach(FEdit, info.hwndItem, this);
    Attach(FList, info.hwndList, this);
}

void TCustomCombo::CreateWnd() {
    TWinControl::CreateWnd();
    AttachParts();
    Send(CB_LIMITTEXT, static_cast<WPARAM>(FMaxLength));
    Send(CB_SETMINVISIBLE, static_cast<WPARAM>(FDropDownCount));
    if (FEdit.Window && UseRightToLeftAlignment()) {
        const LONG_PTR style = GetWindowLongPtrW(FEdit.Window, GWL_STYLE);
        SetWindowLongPtrW(FEdit.Window, GWL_STYLE, style | ES_RIGHT);
    }
}

void TCustomCombo::DestroyHandle() {
    TLifeGuard alive(*this);
    if (!IsDestroying() && GetDroppedDown())
        SetDroppedDown(false); // while its handlers can still be told
    if (alive)
        TWinControl::DestroyHandle();
}

void TCustomCombo::CMRecreateWnd(TMessage& message) {
    const TSelection selection = GetSelection();
    TLifeGuard alive(*this);
    TWinControl::CMRecreateWnd(message);
    if (alive)
        SetSelection(selection); // the native one selects everything as it gets the focus back
}

void TCustomCombo::ForgetWindow() {
    Detach(FEdit);
    Detach(FList);
    TWinControl::ForgetWindow();
}

bool TCustomCombo::OwnsWindow(HWND window) const {
    return window && (window == FHandle || window == FEdit.Window || window == FList.Window);
}

bool TCustomCombo::PointerInside() const {
    POINT point{};
    return GetCursorPos(&point) && OwnsWindow(WindowFromPoint(point));
}

bool TCustomCombo::Focused() const {
    return OwnsWindow(::GetFocus());
}

void TCustomCombo::Invalidate() {
    TWinControl::Invalidate();
    if (FEdit.Window)
        InvalidateRect(FEdit.Window, nullptr, TRUE);
}

LRESULT TCustomCombo::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(FHandle, message, wParam, lParam);
}

// Messages of the parts

void TCustomCombo::PartWndProc(HWND window, TMessage& message) {
    if (window == FEdit.Window)
        EditWndProc(message);
    else
        ListWndProc(message);
}

void TCustomCombo::ListWndProc(TMessage& message) {
    const TPart part = FList;
    CallNative(part.Native, part.Window, message);
}

void TCustomCombo::EditWndProc(TMessage& message) {
    const TPart part = FEdit;
    TLifeGuard alive(*this);
    switch (message.Msg) {
    case WM_SETFOCUS:
        if (TCustomForm* form = GetParentForm(this); form && !form->SetFocusedControl(this))
            return; // a handler sent the focus elsewhere
        CallNative(part.Native, part.Window, message);
        if (alive && FEdit.Window == part.Window)
            Perform(CM_GOTFOCUS);
        return;
    case WM_KILLFOCUS:
        CallNative(part.Native, part.Window, message);
        if (alive && !OwnsWindow(reinterpret_cast<HWND>(message.WParam))) {
            // The part would go on showing its selection; the platform ends it here, Wine does not.
            if (FEdit.Window == part.Window)
                CallWindowProcW(part.Native, part.Window, EM_SETSEL, 0, 0);
            Perform(CM_LOSTFOCUS);
        }
        return;
    case WM_SETCURSOR: // as if the part were the combo box itself, so that Cursor counts here too
        if (reinterpret_cast<HWND>(message.WParam) == part.Window) {
            TMessage mapped = message;
            mapped.WParam = reinterpret_cast<WPARAM>(FHandle);
            RouteToHandlers(part, message, mapped);
            return;
        }
        break;
    case WM_GETOBJECT: // a person who reads by ear is in the part, whose name is the combo box's
        if (AnswerAccessibility(part.Window, message))
            return;
        break;
    case WM_MOUSEWHEEL:
        RouteToHandlers(part, message, message);
        return;
    case WM_MOUSELEAVE:
        if (PointerInside())
            MouseTracker().MovedOver(this, FHandle);
        else
            MouseTracker().LeftWindow(part.Window);
        if (!alive)
            return;
        break;
    default:
        if (IsKeyMessage(message.Msg)) {
            RouteToHandlers(part, message, message);
            return;
        }
        if (message.Msg >= WM_MOUSEFIRST && message.Msg <= WM_MOUSELAST && message.Msg != WM_MOUSEHWHEEL) {
            RouteMouse(part, message);
            return;
        }
    }
    CallNative(part.Native, part.Window, message);
}

void TCustomCombo::RouteMouse(const TPart& part, TMessage& message) {
    TLifeGuard alive(*this);
    if (message.Msg == WM_MOUSEMOVE)
        MouseTracker().MovedOver(this, part.Window);
    else
        HideHint();
    if (!alive || FEdit.Window != part.Window)
        return;
    const TPoint point = PointFromLParam(message.LParam);
    POINT place{point.X, point.Y};
    MapWindowPoints(part.Window, FHandle, &place, 1);
    TMessage mapped = message;
    mapped.LParam = PointToLParam({place.x, place.y});
    RouteToHandlers(part, message, mapped);
}

/// Lets the combo box's own handlers see a message of a part; where they would end in the native procedure, it is the
/// part's, with what the part was sent.
void TCustomCombo::RouteToHandlers(const TPart& part, TMessage& original, TMessage mapped) {
    TRouted routed{&mapped, part, original.WParam, original.LParam, FRouted};
    FRouted = &routed;
    {
        const TAtScopeEnd ended(*this, [this, &routed] { FRouted = routed.Outer; });
        Dispatch(mapped);
    }
    original.Result = mapped.Result;
}

void TCustomCombo::DefaultHandler(TMessage& message) {
    for (const TRouted* each = FRouted; each; each = each->Outer) {
        if (each->Message != &message)
            continue;
        if (!IsWindow(each->Part.Window))
            return; // a handler made the window anew
        // A handler may have put another key in the place of the one that was pressed.
        const bool isKey = IsKeyMessage(message.Msg);
        TMessage native{message.Msg, isKey ? message.WParam : each->WParam, each->LParam, 0};
        TLifeGuard alive(*this);
        const bool outer = std::exchange(FKeyInPart, isKey);
        CallNative(each->Part.Native, each->Part.Window, native);
        message.Result = native.Result;
        if (alive)
            FKeyInPart = outer;
        return;
    }
    TWinControl::DefaultHandler(message);
}

// Messages of the combo box itself

void TCustomCombo::WndProc(TMessage& message) {
    if (message.Msg == WM_MOUSELEAVE && PointerInside()) {
        MouseTracker().MovedOver(this, FEdit.Window); // only from the border into the edit part
        DefaultHandler(message);
        return;
    }
    // Handlers have seen a key that the edit part passes on.
    if (FKeyInPart && IsKeyMessage(message.Msg))
        TWinControl::DefaultHandler(message);
    else
        TWinControl::WndProc(message);
}

void TCustomCombo::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_SETFOCUS:
        if (FEdit.Window) {
            DefaultHandler(message); // passes it on to the edit part, which tells of it
            return;
        }
        break;
    case WM_KILLFOCUS:
        if (OwnsWindow(reinterpret_cast<HWND>(message.WParam))) {
            DefaultHandler(message);
            return;
        }
        break;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
        return AnswerColors(message); // a part asks
    case CN_COMMAND:
        return CNCommand(message);
    case CM_WANTSPECIALKEY:
        if (GetDroppedDown() && (message.WParam == VK_RETURN || message.WParam == VK_ESCAPE)) {
            message.Result = 1; // closes the list, not the form
            return;
        }
        break;
    default:
        break;
    }
    TWinControl::Dispatch(message);
}

void TCustomCombo::CNCommand(TMessage& message) {
    switch (HighWord(message.WParam)) {
    case CBN_EDITCHANGE:
        return EditChanged();
    case CBN_DROPDOWN:
        return DropDown();
    case CBN_CLOSEUP:
        return CloseUp();
    case CBN_DBLCLK:
        return DblClick();
    default:
        break;
    }
}

void TCustomCombo::EditChanged() {
    if (FControlState.Contains(csCreating) || FSettingText)
        return;
    // The native edit tells of an undo twice, and of keys that a limit turned away.
    String text = GetText();
    if (text == FReportedText)
        return;
    FReportedText = std::move(text);
    Change();
}

void TCustomCombo::Change() {
    Fire(*this, OnChange, this);
}

void TCustomCombo::Select() {
    if (OnSelect)
        Fire(*this, OnSelect, this);
    else
        Change();
}

void TCustomCombo::DropDown() {
    Fire(*this, OnDropDown, this);
}

void TCustomCombo::CloseUp() {
    Fire(*this, OnCloseUp, this);
}

void TCustomCombo::SetEditText(const String& text) {
    TLifeGuard alive(*this);
    const bool outer = std::exchange(FSettingText, true);
    SendMessageW(FEdit.Window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(WideChars(text)));
    if (!alive)
        return;
    FSettingText = outer;
    NoteText();
}

// Setters

void TCustomCombo::SetDropDownCount(int value) {
    value = std::max(value, 1);
    if (FDropDownCount == value)
        return;
    FDropDownCount = value;
    if (HandleAllocated())
        Send(CB_SETMINVISIBLE, static_cast<WPARAM>(value));
}

bool TCustomCombo::GetDroppedDown() const {
    return HandleAllocated() && Send(CB_GETDROPPEDSTATE) != 0;
}

void TCustomCombo::SetDroppedDown(bool value) {
    if (GetDroppedDown() != value)
        SendMessageW(GetHandle(), CB_SHOWDROPDOWN, value, 0);
}

void TCustomCombo::SetMaxLength(int value) {
    value = std::max(value, 0);
    if (FMaxLength == value)
        return;
    FMaxLength = value;
    if (HandleAllocated())
        Send(CB_LIMITTEXT, static_cast<WPARAM>(value));
}

} // namespace framework
