// The window of a control: its class, its creation and destruction, its bounds, and the way a message takes from the
// system to WndProc and on to the native window procedure.

#include "framework/graphics/brushes.h"
#include "framework/graphics/bufferedpaint.h"
#include "framework/graphics/canvas.h"
#include "framework/graphics/handles.h"
#include "framework/windows/application.h"
#include "framework/windows/mouse.h"
#include "framework/windows/wincontrol.h"
#include "framework/windows/windowclasses.h"

#include <algorithm>
#include <unordered_map>

namespace framework {

namespace {

// All of this is touched by the user-interface thread alone. Never freed: windows may live as long as the program.
struct TWindowTable {
    std::unordered_map<HWND, TWinControl*> Controls;
    TWinControl* Creating = nullptr; // whose window is on its way: its first messages come before its handle is known
    HWND LastWindow = nullptr;       // most messages come in runs for one window
    TWinControl* LastControl = nullptr;
};

TWindowTable& Windows() {
    static TWindowTable& table = *new TWindowTable;
    return table;
}

void Enter(HWND window, TWinControl* control) {
    Windows().Controls[window] = control;
}

void Forget(HWND window) {
    TWindowTable& table = Windows();
    table.Controls.erase(window);
    if (table.LastWindow == window)
        table.LastWindow = nullptr;
}

int nativeCalls = 0; // how many native window procedures of ours are running, over all windows
int handlers = 0;

} // namespace

TWinControl* FindControl(HWND window) {
    TWindowTable& table = Windows();
    if (!window)
        return nullptr;
    if (table.LastWindow == window)
        return table.LastControl;
    const auto found = table.Controls.find(window);
    if (found == table.Controls.end())
        return nullptr;
    table.LastWindow = window;
    table.LastControl = found->second;
    return found->second;
}

TWinControl* FindOwningControl(HWND window) {
    for (; window; window = GetAncestor(window, GA_PARENT)) {
        if (TWinControl* control = FindControl(window))
            return control;
    }
    return nullptr;
}

bool NativeProcedureRunning() {
    return nativeCalls > 0;
}

int HandlerDepth() {
    return handlers;
}

THandlerScope::THandlerScope() {
    ++handlers;
}

THandlerScope::~THandlerScope() {
    --handlers;
}

LRESULT CALLBACK ControlWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    TWindowTable& table = Windows();
    TWinControl* control = FindControl(window);
    if (!control && table.Creating) {
        control = std::exchange(table.Creating, nullptr);
        control->FHandle = window;
        Enter(window, control);
    }
    if (!control)
        return DefWindowProcW(window, message, wParam, lParam);
    TMessage record{message, wParam, lParam, 0};
    control->MainWndProc(record);
    return record.Result;
}

void TWinControl::MainWndProc(TMessage& message) {
    TLifeGuard alive(*this);
    const HWND window = FHandle;
    try {
        const THandlerScope handler;
        WndProc(message);
        if (alive && message.Msg == FFailedPaint)
            FFailedPaint = 0;
    } catch (...) {
        // No exception may cross the system's frames.
        if (!alive || IsNewPaintFailure(message))
            TheApplication().HandleException(alive ? this : nullptr);
    }
    if (message.Msg != WM_NCDESTROY)
        return;
    Forget(window);
    if (alive && FHandle == window)
        ForgetWindow();
}

/// True for any failure but that of painting which failed the last time as well: the message that reports it uncovers
/// the window again, which has to be painted again, and so on for ever.
bool TWinControl::IsNewPaintFailure(const TMessage& message) {
    switch (message.Msg) {
    case WM_PAINT:
        if (FHandle)
            ValidateRect(FHandle, nullptr); // or the system would ask for the same at once
        break;
    case WM_NCPAINT:
    case WM_ERASEBKGND:
        break;
    default:
        return true;
    }
    return std::exchange(FFailedPaint, message.Msg) != message.Msg;
}

void TWinControl::ForgetWindow() {
    FHandle = nullptr;
    FShowing = false;
}

void TWinControl::DefaultHandler(TMessage& message) {
    if (!FHandle) {
        TControl::DefaultHandler(message);
        return;
    }
    if (message.Msg >= CM_BASE && message.Msg < FirstRegisteredMessage)
        return; // component messages mean nothing to a native procedure
    CallNative(FDefWndProc, FHandle, message);
}

void TWinControl::CallNative(WNDPROC procedure, HWND window, TMessage& message) {
    TLifeGuard alive(*this);
    const HWND own = FHandle;
    ++FNativeDepth;
    ++nativeCalls;
    message.Result = CallWindowProcW(procedure, window, message.Msg, message.WParam, message.LParam);
    --nativeCalls;
    if (alive && FHandle == own) // the calls of an abandoned window are not counted any more
        --FNativeDepth;
}

// Creation

void TWinControl::CreateParams(TCreateParams& params) {
    params.Caption = FText;
    params.WinClassName = ClassName();
    params.Style = WS_CHILD | WS_CLIPSIBLINGS;
    if (FControlStyle.Contains(csAcceptsControls)) {
        params.Style |= WS_CLIPCHILDREN;
        params.ExStyle |= WS_EX_CONTROLPARENT;
    }
    if (!GetEnabled())
        params.Style |= WS_DISABLED;
    if (FTabStop)
        params.Style |= WS_TABSTOP;
    if (ShowsOnParent())
        params.Style |= WS_VISIBLE; // shown with its parent; a call to show it later would cost more
    params.X = GetLeft();
    params.Y = GetTop();
    params.Width = GetWidth();
    params.Height = GetHeight();
    if (UseRightToLeftAlignment())
        params.ExStyle |= WS_EX_RIGHT;
    if (UseRightToLeftReading())
        params.ExStyle |= WS_EX_RTLREADING;
    if (UseRightToLeftScrollBar())
        params.ExStyle |= WS_EX_LEFTSCROLLBAR;
    if (GetParent() && GetParent()->HandleAllocated())
        params.WndParent = GetParent()->FHandle;
    params.WindowClass.style = CS_DBLCLKS;
    params.WindowClass.lpfnWndProc = DefWindowProcW;
}

void TWinControl::CreateSubClass(TCreateParams& params, const wchar_t* nativeClass) {
    constexpr UINT kKeptStyles = CS_HREDRAW | CS_VREDRAW | CS_GLOBALCLASS | CS_OWNDC | CS_CLASSDC;
    const UINT ownStyle = params.WindowClass.style;
    if (!GetClassInfoW(nullptr, nativeClass, &params.WindowClass) &&
        !GetClassInfoW(GetModuleHandleW(nullptr), nativeClass, &params.WindowClass))
        throw EInvalidOperation(u"There is no window class " + FromWide(nativeClass, std::wcslen(nativeClass)));
    params.WindowClass.style = (params.WindowClass.style & ~kKeptStyles) | ownStyle;
}

void TWinControl::AddBorder(TCreateParams& params, TBorderStyle border) const {
    if (border == bsNone)
        return;
    if (FCtl3D)
        params.ExStyle |= WS_EX_CLIENTEDGE;
    else
        params.Style |= WS_BORDER;
}

void TWinControl::ChangeWindowStyle(DWORD style, bool present) {
    if (!FHandle)
        return;
    const LONG_PTR bits = GetWindowLongPtrW(FHandle, GWL_STYLE);
    const auto changed = static_cast<LONG_PTR>(style);
    SetWindowLongPtrW(FHandle, GWL_STYLE, present ? bits | changed : bits & ~changed);
}

void TWinControl::CreateWindowHandle(const TCreateParams& params) {
    FHandle = nullptr;
    Windows().Creating = this;
    const HWND window = CreateWindowExW(params.ExStyle, params.WindowClass.lpszClassName, WideChars(params.Caption),
                                        params.Style, params.X, params.Y, params.Width, params.Height, params.WndParent,
                                        nullptr, params.WindowClass.hInstance, nullptr);
    Windows().Creating = nullptr;
    if (!window)
        throw EInvalidOperation(u"Windows could not create a window of class " + params.WinClassName);
}

void TWinControl::CreateWnd() {
    TCreateParams params;
    CreateParams(params);
    if (!params.WndParent && (params.Style & WS_CHILD))
        throw EInvalidOperation(u"The control " + GetNamePath() + u" has no parent window");
    FDefWndProc = params.WindowClass.lpfnWndProc;

    const HINSTANCE instance = GetModuleHandleW(nullptr);
    const wchar_t* className = WideChars(params.WinClassName);
    WNDCLASSW registered{};
    if (!GetClassInfoW(instance, className, &registered)) {
        registered = params.WindowClass;
        registered.lpfnWndProc = ControlWindowProcedure;
        registered.hInstance = instance;
        registered.lpszClassName = className;
        registered.lpszMenuName = nullptr;
        registered.hbrBackground = nullptr;
        if (!registered.hCursor)
            registered.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)); // IDC_ARROW
        RegisterWindowClass(registered, params.WinClassName, ClassInfo());
    }
    params.WindowClass.hInstance = instance;
    params.WindowClass.lpszClassName = className;
    const bool hasChildren = GetControlCount() > 0;
    const TRect planned = hasChildren ? GetClientRect() : TRect{};
    {
        FControlState << csCreating;
        const TAtScopeEnd created(*this, [this] { FControlState >> csCreating; });
        CreateWindowHandle(params);
    }
    FText.clear(); // the window keeps the text now
    SendMessageW(FHandle, WM_SETFONT, reinterpret_cast<WPARAM>(GetFont()->GetHandle()), FALSE);
    SizeFromWindow();
    if (hasChildren && GetClientRect() != planned)
        Realign(); // the system gave it another size, such as that of a screen which is too small
}

void TWinControl::CreateHandle() {
    if (FHandle)
        return;
    TLifeGuard alive(*this);
    CreateWnd();
    if (!alive)
        return; // such as by a list's handler that measures its items
    // A new child window goes below its siblings; ours lies above those that came before it.
    if (TWinControl* parent = GetParent(); parent && !parent->GetControlState().Contains(csCreating)) {
        const auto place = std::find(parent->FWindows.begin(), parent->FWindows.end(), this);
        const bool siblingsBelow = std::any_of(parent->FWindows.begin(), place,
                                               [](const TWinControl* each) { return each->HandleAllocated(); });
        if (siblingsBelow) {
            const auto above = std::find_if(place + 1, parent->FWindows.end(),
                                            [](const TWinControl* each) { return each->HandleAllocated(); });
            SetWindowPos(FHandle, above == parent->FWindows.end() ? HWND_TOP : (*above)->FHandle, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        }
    }
    CreateChildHandles();
}

void TWinControl::CreateChildHandles() {
    // The topmost first: each new window goes below those that are there.
    TLifeGuard alive(*this);
    FControlState << csCreating;
    const TAtScopeEnd created(*this, [this] { FControlState >> csCreating; });
    for (std::size_t i = FWindows.size(); alive && i-- > 0;) {
        if (i < FWindows.size())
            FWindows[i]->UpdateShowing();
    }
}

HWND TWinControl::GetHandle() const {
    HandleNeeded();
    return FHandle;
}

void TWinControl::HandleNeeded() const {
    if (FHandle)
        return;
    if (GetParent())
        GetParent()->HandleNeeded();
    if (!FHandle) // the parent may have made it with its own
        const_cast<TWinControl*>(this)->CreateHandle();
}

// Destruction

bool TWinControl::NativeCallRunning() const {
    return FNativeDepth > 0 || std::any_of(FWindows.begin(), FWindows.end(),
                                           [](const TWinControl* each) { return each->NativeCallRunning(); });
}

void TWinControl::AbandonWindow() {
    // A native procedure that is running would return into a destroyed window. The window is hidden and left to its
    // native procedure alone until all of them have ended.
    for (TWinControl* child : FWindows) {
        if (child->FHandle)
            child->AbandonWindow();
    }
    Forget(FHandle);
    SetWindowLongPtrW(FHandle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FDefWndProc));
    FNativeDepth = 0;
    ForgetWindow();
}

void TWinControl::DestroyHandle() {
    if (!FHandle)
        return;
    FControlState << csDestroyingHandle;
    if (NativeCallRunning()) {
        const HWND window = FHandle;
        KeepStates();
        ShowWindow(window, SW_HIDE);
        AbandonWindow();
        TheApplication().DestroyLater(window);
    } else {
        DestroyWnd();
    }
    FControlState >> csDestroyingHandle;
}

void TWinControl::KeepWindowState() {
    FText = GetText();
}

void TWinControl::KeepStates() {
    if (!IsDestroying())
        KeepWindowState();
    for (TWinControl* child : FWindows) {
        if (child->FHandle)
            child->KeepStates();
    }
}

void TWinControl::DestroyWnd() {
    KeepStates();
    const HWND window = FHandle;
    DestroyWindow(window);
    if (FHandle == window)
        ForgetWindow();
}

void TWinControl::RecreateWnd() {
    if (FHandle)
        Perform(CM_RECREATEWND);
}

void TWinControl::CMRecreateWnd(TMessage&) {
    if (FRecreating)
        return;
    TCustomForm* form = GetParentForm(this);
    const HWND focus = ::GetFocus();
    const bool hadFocus = FHandle && focus && (focus == FHandle || IsChild(FHandle, focus));
    TWinControl* focused = hadFocus ? FindOwningControl(focus) : nullptr;
    // The focus wanders while the window is away; for the user it stays, so nobody is told.
    TWinControl& suspended = form ? *form : *this;
    TLifeGuard alive(*this);
    FRecreating = true;
    if (form)
        form->SuspendFocus(true);
    const TAtScopeEnd recreated(*this, [this] { FRecreating = false; });
    const TAtScopeEnd resumed(suspended, [form] {
        if (form)
            form->SuspendFocus(false);
    });
    DestroyHandle();
    UpdateControlState();
    if (alive && focused && focused->FHandle)
        ::SetFocus(focused->FHandle);
}

// Showing

void TWinControl::UpdateControlState() {
    TWinControl* top = this;
    while (top->GetParent()) {
        top = top->GetParent();
        if (!top->FShowing)
            return;
    }
    if (As<TCustomForm>(top))
        UpdateShowing();
}

void TWinControl::UpdateShowing() {
    TLifeGuard alive(*this);
    const bool show = ShowsOnParent() && !IsDestroying();
    if (show) {
        if (!FHandle)
            CreateHandle();
        else
            CreateChildHandles();
    }
    if (!alive || !FHandle || FShowing == show)
        return;
    FShowing = show;
    try {
        Perform(CM_SHOWINGCHANGED);
    } catch (...) {
        if (alive)
            FShowing = !show;
        throw;
    }
}

void TWinControl::CMShowingChanged(TMessage&) {
    const bool visible = (GetWindowLongPtrW(FHandle, GWL_STYLE) & WS_VISIBLE) != 0;
    if (visible == FShowing)
        return;
    SetWindowPos(FHandle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE |
                     (FShowing ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

// Bounds

void TWinControl::SetBounds(int left, int top, int width, int height) {
    if (!FHandle) {
        const TSize before{GetWidth(), GetHeight()};
        TLifeGuard alive(*this);
        TControl::SetBounds(left, top, width, height);
        if (alive && before != TSize{GetWidth(), GetHeight()})
            Realign(); // without a window no WM_SIZE comes that would
        return;
    }
    width = ConstrainedExtent(std::max(width, 0), GetConstraints()->GetMinWidth(), GetConstraints()->GetMaxWidth());
    height = ConstrainedExtent(std::max(height, 0), GetConstraints()->GetMinHeight(), GetConstraints()->GetMaxHeight());
    if (Bounds(left, top, width, height) == GetBoundsRect())
        return;
    // The window tells of its new place by WM_WINDOWPOSCHANGED, from which the control takes it.
    SetWindowPos(FHandle, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void TWinControl::SizeFromWindow() {
    RECT place{};
    if (!GetWindowRect(FHandle, &place))
        return;
    const LONG_PTR style = GetWindowLongPtrW(FHandle, GWL_STYLE);
    if (style & WS_MINIMIZE)
        return; // the control keeps the place to which it will come back
    if (style & WS_CHILD)
        MapWindowPoints(nullptr, GetAncestor(FHandle, GA_PARENT), reinterpret_cast<POINT*>(&place), 2);
    const TRect bounds = FromWin(place);
    if (bounds == GetBoundsRect())
        return;
    const bool sized = bounds.Width() != GetWidth() || bounds.Height() != GetHeight();
    UpdateBoundsDirect(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
    if (FControlState.Contains(csCreating))
        return;
    TLifeGuard alive(*this);
    RequestAlign();
    if (alive && sized)
        Realign();
    if (alive && sized)
        Resize(); // whose handlers find the children where they belong
}

TRect TWinControl::GetClientRect() const {
    if (FHandle) {
        RECT client{};
        ::GetClientRect(FHandle, &client);
        return FromWin(client);
    }
    // The same answer without a window: the size less the borders that the styles ask for.
    TCreateParams params;
    const_cast<TWinControl*>(this)->CreateParams(params);
    RECT border{};
    AdjustWindowRectEx(&border, params.Style, FALSE, params.ExStyle);
    return {0, 0, std::max(0, GetWidth() - static_cast<int>(border.right - border.left)),
            std::max(0, GetHeight() - static_cast<int>(border.bottom - border.top))};
}

TPoint TWinControl::GetClientOrigin() const {
    if (!FHandle) {
        const TRect client = GetClientRect();
        const TPoint outer = TControl::GetClientOrigin();
        return {outer.X + (GetWidth() - client.Width()) / 2, outer.Y + GetHeight() - client.Height()};
    }
    POINT origin{};
    ::ClientToScreen(FHandle, &origin);
    return {origin.x, origin.y};
}

void TWinControl::WMSize(TMessage& message) {
    DefaultHandler(message);
    if (!FControlState.Contains(csCreating))
        Realign();
}

void TWinControl::WMMove(TMessage& message) {
    DefaultHandler(message);
}

// Painting

void TWinControl::Invalidate() {
    if (FHandle)
        InvalidateRect(FHandle, nullptr, !FControlStyle.Contains(csOpaque) || !FGraphics.empty());
}

void TWinControl::Update() {
    if (FHandle)
        UpdateWindow(FHandle);
}

void TWinControl::Refresh() {
    Repaint();
}

void TWinControl::PaintTo(HDC dc, int x, int y) {
    const TSavedDC saved(dc);
    OffsetWindowOrgEx(dc, -x, -y, nullptr);
    SendMessageW(GetHandle(), WM_PRINT, reinterpret_cast<WPARAM>(dc),
                 PRF_NONCLIENT | PRF_CLIENT | PRF_ERASEBKGND | PRF_CHILDREN | PRF_OWNED);
}

void TWinControl::WMEraseBkgnd(TMessage& message) {
    if (FDefWndProc != DefWindowProcW) {
        DefaultHandler(message); // native controls know what of their background shows
        return;
    }
    // A double-buffered control fills its background in the buffer, not on the screen. Children that ask for what lies
    // behind them come with a context of their own.
    const auto dc = reinterpret_cast<HDC>(message.WParam);
    if (!FDoubleBuffered || WindowFromDC(dc) != FHandle) {
        const RECT client = ToWin(GetClientRect());
        FillRect(dc, &client, FBrush->GetHandle());
    }
    message.Result = 1;
}

void TWinControl::WMPaint(TMessage& message) {
    if (FControlState.Contains(csCustomPaint) || !FGraphics.empty())
        PaintHandler(message);
    else
        DefaultHandler(message);
}

void TWinControl::PaintHandler(TMessage& message) {
    const auto given = reinterpret_cast<HDC>(message.WParam);
    TLifeGuard alive(*this);
    if (FDefWndProc != DefWindowProcW) {
        // A native control paints itself; what lies on it comes on top.
        DefaultHandler(message);
        if (!alive || !FHandle || FGraphics.empty())
            return;
        if (given)
            PaintControls(given);
        else
            PaintControls(TWindowDC(FHandle));
        return;
    }
    const auto paintAll = [&](HDC dc) {
        PaintWindow(dc);
        if (alive)
            PaintControls(dc);
    };
    if (given) {
        paintAll(given);
        return;
    }
    const TPaintDC dc(FHandle);
    if (!FDoubleBuffered) {
        paintAll(dc);
        return;
    }
    const TBufferedPaint buffer(dc, GetClientRect());
    const HDC memory = buffer;
    Perform(WM_ERASEBKGND, reinterpret_cast<WPARAM>(memory));
    if (alive)
        paintAll(memory);
}

void TWinControl::PaintControls(HDC dc) {
    TLifeGuard alive(*this);
    // By index: what is painted may come and go in its handlers.
    for (std::size_t i = 0; alive && i < FGraphics.size(); ++i) {
        TControl* child = FGraphics[i];
        const RECT place = ToWin(child->GetBoundsRect());
        if (!child->ShowsOnParent() || !RectVisible(dc, &place))
            continue;
        const TSavedDC saved(dc);
        POINT origin{};
        GetViewportOrgEx(dc, &origin);
        SetViewportOrgEx(dc, origin.x + child->GetLeft(), origin.y + child->GetTop(), nullptr);
        IntersectClipRect(dc, 0, 0, child->GetWidth(), child->GetHeight());
        child->Perform(WM_PAINT, reinterpret_cast<WPARAM>(dc));
    }
}

} // namespace framework
