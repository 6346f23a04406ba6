// What a window hears: the mouse and the keys, notifications that belong to its children, and the focus.

#include "framework/graphics/brushes.h"
#include "framework/windows/accessibility.h"
#include "framework/windows/application.h"
#include "framework/windows/hints.h"
#include "framework/windows/mouse.h"
#include "framework/windows/wincontrol.h"

namespace framework {

void TWinControl::WndProc(TMessage& message) {
    switch (message.Msg) {
    case WM_SETFOCUS: {
        TCustomForm* form = GetParentForm(this);
        if (form && form != this && !form->SetFocusedControl(this))
            return; // a handler sent the focus elsewhere
        break;
    }
    case WM_NCHITTEST:
        TControl::WndProc(message);
        return;
    case WM_MOUSELEAVE: {
        TLifeGuard alive(*this);
        MouseTracker().LeftWindow(FHandle);
        if (!alive)
            return;
        break;
    }
    default:
        if (message.Msg >= WM_MOUSEFIRST && message.Msg <= WM_MOUSELAST && IsControlMouseMessage(message))
            return;
    }
    TControl::WndProc(message);
}

void TWinControl::Dispatch(TMessage& message) {
    switch (message.Msg) {
    case WM_PAINT:
        return WMPaint(message);
    case WM_NCPAINT:
        return WMNCPaint(message);
    case WM_ERASEBKGND:
        return WMEraseBkgnd(message);
    case WM_SIZE:
        return WMSize(message);
    case WM_MOVE:
        return WMMove(message);
    case WM_WINDOWPOSCHANGED:
        if (FHandle) {
            // Our own idea of the place first: handlers of the size that the native procedure sends on rely on it.
            TLifeGuard alive(*this);
            SizeFromWindow();
            if (alive && FHandle)
                DefaultHandler(message);
        } else {
            Realign(); // no WM_SIZE will follow
        }
        return;
    case WM_PRINTCLIENT: // themed children ask for what lies behind them; native classes know the message
        return FDefWndProc == DefWindowProcW ? PaintHandler(message) : DefaultHandler(message);
    case WM_CAPTURECHANGED:
        MouseTracker().CaptureLost(FHandle);
        return DefaultHandler(message);
    case WM_SETFOCUS: {
        TLifeGuard alive(*this);
        DefaultHandler(message);
        if (alive)
            Perform(CM_GOTFOCUS);
        return;
    }
    case WM_KILLFOCUS: {
        TLifeGuard alive(*this);
        DefaultHandler(message);
        if (alive)
            Perform(CM_LOSTFOCUS);
        return;
    }
    case WM_COMMAND:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
    case WM_COMPAREITEM:
    case WM_DELETEITEM:
    case WM_NOTIFY:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLORMSGBOX:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
        if (!ReflectToChild(message))
            DefaultHandler(message);
        return;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (!DoKeyDown(message))
            DefaultHandler(message);
        return;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        if (!DoKeyUp(message))
            DefaultHandler(message);
        return;
    case WM_CHAR:
        if (!DoKeyPress(message))
            DefaultHandler(message);
        return;
    case WM_MOUSEWHEEL:
        return MouseWheel(message);
    case WM_SETCURSOR:
        return WMSetCursor(message);
    case WM_SYSCOLORCHANGE:
        DefaultHandler(message);
        Invalidate();
        NotifyControls(CM_SYSCOLORCHANGE);
        return;
    case CM_SYSCOLORCHANGE: // the system tells top-level windows alone
        Perform(WM_SYSCOLORCHANGE);
        return;
    case WM_GETOBJECT:
        if (!AnswerAccessibility(FHandle, message))
            DefaultHandler(message);
        return;
    case CN_CTLCOLORMSGBOX:
    case CN_CTLCOLOREDIT:
    case CN_CTLCOLORLISTBOX:
    case CN_CTLCOLORBTN:
    case CN_CTLCOLORSTATIC:
        return AnswerColors(message);
    case CN_NOTIFY:
        return CNNotify(message);
    case CN_KEYDOWN:
    case CN_SYSKEYDOWN:
        return CNKeyDown(message);
    case CN_CHAR:
    case CN_SYSCHAR:
        return CNChar(message);
    case CM_ENTER:
        return CMEnter(message);
    case CM_EXIT:
        return CMExit(message);
    case CM_DIALOGKEY:
        return CMDialogKey(message);
    case CM_DIALOGCHAR:
        return CMDialogChar(message);
    case CM_FOCUSCHANGED:
        return Broadcast(message);
    case CM_SHOWINGCHANGED:
        return CMShowingChanged(message);
    case CM_RECREATEWND:
        return CMRecreateWnd(message);
    case CM_CHILDKEY:
        if (GetParent())
            GetParent()->WndProc(message);
        return;
    case CM_PARENTCTL3DCHANGED:
        return Follow(FParentCtl3D, [this] { SetCtl3D(GetParent()->FCtl3D); });
    case CM_CTL3DCHANGED: {
        TLifeGuard alive(*this);
        RecreateWnd();
        if (alive)
            NotifyControls(CM_PARENTCTL3DCHANGED);
        return;
    }
    case CM_SHOWHINTCHANGED:
        return NotifyControls(CM_PARENTSHOWHINTCHANGED);
    case CM_CURSORCHANGED:
        if (FHandle && GetMouseCapture())
            ::SetCursor(TheScreen().CursorHandle(GetCursor()));
        return;
    default:
        TControl::Dispatch(message);
    }
}

// Notifications that speak of a child go back to it

bool TWinControl::ReflectToChild(TMessage& message) {
    HWND window = nullptr;
    switch (message.Msg) {
    case WM_NOTIFY:
        window = reinterpret_cast<const NMHDR*>(message.LParam)->hwndFrom;
        break;
    case WM_DRAWITEM:
        window = reinterpret_cast<const DRAWITEMSTRUCT*>(message.LParam)->hwndItem;
        break;
    case WM_DELETEITEM:
        window = reinterpret_cast<const DELETEITEMSTRUCT*>(message.LParam)->hwndItem;
        break;
    case WM_COMPAREITEM:
        window = reinterpret_cast<const COMPAREITEMSTRUCT*>(message.LParam)->hwndItem;
        break;
    case WM_MEASUREITEM: // carries no window, only the child's identifier
        window = GetDlgItem(FHandle, static_cast<int>(message.WParam));
        break;
    default:
        window = reinterpret_cast<HWND>(message.LParam);
    }
    TWinControl* child = FindControl(window);
    if (!child)
        return false;
    message.Result = child->Perform(CN_BASE + message.Msg, message.WParam, message.LParam);
    return true;
}

void TWinControl::DefaultReflected(TMessage& message) {
    message.Result = 0;
}

void TWinControl::AnswerColors(TMessage& message) {
    const auto dc = reinterpret_cast<HDC>(message.WParam);
    SetTextColor(dc, ColorToRGB(GetFont()->GetColor()));
    SetBkColor(dc, ColorToRGB(FBrush->GetColor()));
    message.Result = reinterpret_cast<LRESULT>(FBrush->GetHandle());
}

// Mouse

bool TWinControl::IsControlMouseMessage(TMessage& message) {
    if (message.Msg == WM_MOUSEWHEEL || message.Msg == WM_MOUSEHWHEEL)
        return false; // they go to the focus and carry screen coordinates
    const TPoint point = PointFromLParam(message.LParam);
    TControl* graphic = MouseTracker().CapturedGraphic(FHandle);
    const bool captured = ::GetCapture() == FHandle;
    if (!graphic && !captured) {
        if (TControl* hit = ControlAtPos(point, false); hit && !As<TWinControl>(hit))
            graphic = hit;
    }
    if (message.Msg == WM_MOUSEMOVE) {
        TLifeGuard alive(*this);
        MouseTracker().MovedOver(graphic ? graphic : this, FHandle);
        if (!alive || (graphic && MouseTracker().GetControl() != graphic))
            return true;
        // Disabled children hear nothing of the mouse, but their hints may tell why they are.
        if (TControl* disabled = captured ? nullptr : ControlAtPos(point, true); !graphic && disabled)
            HintMouseOver(disabled);
        else if (!graphic)
            HintMouseOver(this);
    } else {
        HideHint();
    }
    if (!graphic)
        return false;
    message.Result = graphic->Perform(message.Msg, message.WParam,
                                      PointToLParam({point.X - graphic->GetLeft(), point.Y - graphic->GetTop()}));
    return true;
}

void TWinControl::MouseWheel(TMessage& message) {
    TLifeGuard alive(*this);
    const auto delta = static_cast<std::int16_t>(HighWord(message.WParam));
    if (DoMouseWheel(ShiftStateFromMouse(LowWord(message.WParam)), delta, PointFromLParam(message.LParam)))
        message.Result = 1;
    else if (alive)
        DefaultHandler(message); // which offers it to the parent
}

void TWinControl::WMSetCursor(TMessage& message) {
    if (LowWord(static_cast<std::uint64_t>(message.LParam)) != HTCLIENT || !FHandle) {
        DefaultHandler(message);
        return;
    }
    TCursor cursor = TheScreen().GetCursor();
    if (cursor == crDefault && reinterpret_cast<HWND>(message.WParam) == FHandle) {
        POINT point{};
        GetCursorPos(&point);
        const TControl* over = ControlAtPos(ScreenToClient({point.x, point.y}), false);
        if (over && !As<TWinControl>(over))
            cursor = over->GetCursor();
        for (const TControl* each = this; cursor == crDefault && each; each = each->GetParent())
            cursor = each->GetCursor();
    }
    if (cursor == crDefault) {
        DefaultHandler(message);
        return;
    }
    ::SetCursor(TheScreen().CursorHandle(cursor));
    message.Result = TRUE;
}

// Keys

bool TWinControl::DoKeyDown(TMessage& message) {
    TLifeGuard alive(*this);
    HideHint();
    TCustomForm* form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview() && form->DoKeyDown(message))
        return true;
    if (!alive || FControlStyle.Contains(csNoStdEvents))
        return !alive;
    WORD key = static_cast<WORD>(message.WParam);
    KeyDown(key, ShiftStateFromKeyboard());
    message.WParam = key;
    return !alive || key == 0;
}

bool TWinControl::DoKeyUp(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomForm* form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview() && form->DoKeyUp(message))
        return true;
    if (!alive || FControlStyle.Contains(csNoStdEvents))
        return !alive;
    // Key 0 is not a key of any keyboard: other windows announce a changed text with it.
    const bool wasKey = message.WParam != 0;
    WORD key = static_cast<WORD>(message.WParam);
    KeyUp(key, ShiftStateFromKeyboard());
    message.WParam = key;
    return !alive || (wasKey && key == 0);
}

bool TWinControl::DoKeyPress(TMessage& message) {
    TLifeGuard alive(*this);
    TCustomForm* form = GetParentForm(this);
    if (form && form != this && form->GetKeyPreview() && form->DoKeyPress(message))
        return true;
    if (!alive || FControlStyle.Contains(csNoStdEvents))
        return !alive;
    auto key = static_cast<char16_t>(message.WParam);
    KeyPress(key);
    message.WParam = key;
    return !alive || key == 0;
}

void TWinControl::KeyDown(WORD& key, TShiftState shift) {
    Fire(*this, OnKeyDown, this, key, shift);
}

void TWinControl::KeyPress(char16_t& key) {
    Fire(*this, OnKeyPress, this, key);
}

void TWinControl::KeyUp(WORD& key, TShiftState shift) {
    Fire(*this, OnKeyUp, this, key, shift);
}

void TWinControl::CNKeyDown(TMessage& message) {
    if (IsDesigning())
        return;
    TLifeGuard alive(*this);
    if (GetParent() && GetParent()->Perform(CM_CHILDKEY, message.WParam, reinterpret_cast<LPARAM>(this)) != 0) {
        message.Result = 1;
        return;
    }
    if (!alive)
        return;
    LRESULT wanted = 0; // the WM_GETDLGCODE bits of a control that uses such a key itself
    switch (message.WParam) {
    case VK_TAB:
        wanted = DLGC_WANTTAB;
        break;
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
        wanted = DLGC_WANTARROWS;
        break;
    case VK_RETURN:
    case VK_EXECUTE:
    case VK_ESCAPE:
    case VK_CANCEL:
        wanted = DLGC_WANTALLKEYS;
        break;
    default:
        return;
    }
    TCustomForm* form = GetParentForm(this);
    if (form && Perform(CM_WANTSPECIALKEY, message.WParam) == 0 && (Perform(WM_GETDLGCODE) & wanted) == 0 &&
        form->Perform(CM_DIALOGKEY, message.WParam, message.LParam) != 0)
        message.Result = 1;
}

void TWinControl::CNChar(TMessage& message) {
    if (IsDesigning())
        return;
    TCustomForm* form = GetParentForm(this);
    if (!form)
        return;
    const bool accelerator = message.Msg == CN_SYSCHAR;
    // Ctrl+Alt is how AltGr arrives: such a character is text, whatever has the focus.
    if (!accelerator && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) < 0)
        return;
    // A space with Alt opens the window's own menu.
    if (accelerator ? message.WParam == VK_SPACE : (Perform(WM_GETDLGCODE) & DLGC_WANTCHARS) != 0)
        return;
    if (form->Perform(CM_DIALOGCHAR, message.WParam, message.LParam) != 0)
        message.Result = 1;
}

// Focus

void TWinControl::CMEnter(TMessage&) {
    DoEnter();
}

void TWinControl::CMExit(TMessage&) {
    DoExit();
}

void TWinControl::DoEnter() {
    Fire(*this, OnEnter, this);
}

void TWinControl::DoExit() {
    Fire(*this, OnExit, this);
}

} // namespace framework
