#include "framework/windows/application.h"

#include "framework/graphics/win32.h"
#include "framework/system/applicationhooks.h"
#include "framework/system/formatsettings.h"
#include "framework/system/strings.h"
#include "framework/windows/hints.h"
#include "framework/windows/locale.h"

#include <algorithm>
#include <commctrl.h>
#include <memory>

namespace framework {

const TClassInfo& TApplication::StaticClass() {
    static const TClassInfo info = DescribeClass<TApplication>(u"TApplication", TComponent::StaticClass());
    return info;
}

TApplication::TApplication() : TComponent(nullptr) {
    SetApplicationExceptionHandler([this](TObject* sender) { HandleException(sender); });
}

void TApplication::FreeComponents() {
    while (GetComponentCount() > 0) {
        TComponent* component = GetComponent(GetComponentCount() - 1);
        TLifeGuard alive(*component);
        component->BeforeDestruction();
        if (alive)
            delete component;
    }
    DisposeDestroyedWindows();
}

void TApplication::Initialize() {
    FormatSettings() = UserFormatSettings();
    INITCOMMONCONTROLSEX request{sizeof(request), ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&request);
}

void TApplication::SetMainForm(TCustomForm* form) {
    FMainForm = form;
    if (form)
        FreeNotification(form);
}

void TApplication::Run() {
    FTerminated = false;
    if (FMainForm)
        FMainForm->Show();
    while (!FTerminated)
        HandleMessage();
}

void TApplication::Terminate() {
    FTerminated = true;
    PostQuitMessage(0);
}

void TApplication::ProcessMessages() {
    while (ProcessMessage()) {
    }
}

void TApplication::HandleMessage() {
    if (!ProcessMessage())
        Idle();
}

bool TApplication::ProcessMessage() {
    DisposeDestroyedWindows();
    MSG message{};
    if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        return false;
    if (message.message == WM_QUIT) {
        FTerminated = true;
        return true;
    }
    bool handled = false;
    try {
        const THandlerScope handler;
        Fire(*this, OnMessage, message, handled);
        handled = handled || IsKeyMessage(message);
    } catch (...) {
        HandleException(this);
        handled = true;
    }
    if (!handled) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DisposeDestroyedWindows();
    return true;
}

bool TApplication::IsKeyMessage(MSG& message) {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST)
        return false;
    TWinControl* control = FindOwningControl(message.hwnd);
    return control && control->Perform(CN_BASE + message.message, message.wParam, message.lParam) != 0;
}

void TApplication::Idle() {
    bool done = true;
    try {
        const THandlerScope handler;
        Fire(*this, OnIdle, this, done);
    } catch (...) {
        HandleException(this);
    }
    if (done && !FTerminated)
        WaitMessage();
}

void TApplication::HandleException(TObject* sender) {
    ReleaseCapture(); // a drag during which something went wrong is over
    try {
        throw;
    } catch (const EAbort&) {
        return;
    } catch (const std::exception& error) {
        Report(sender, error);
    } catch (...) {
        Report(sender, Exception(u"An unknown error occurred"));
    }
}

void TApplication::Report(TObject* sender, const std::exception& error) {
    if (!OnException) {
        ShowException(error);
        return;
    }
    try {
        Fire(*this, OnException, sender, error);
    } catch (const EAbort&) {
        return;
    } catch (const std::exception& second) {
        // The host's own handler failed: there is nobody left to ask but the user.
        ShowException(error);
        ShowException(second);
    }
}

void TApplication::SetActive(bool value) {
    if (FActive == value)
        return;
    FActive = value;
    Fire(*this, value ? OnActivate : OnDeactivate, this);
}

void TApplication::ShowException(const std::exception& error) {
    MessageDialog(Utf8Decode(error.what()), FTitle, MB_OK | MB_ICONERROR);
}

int TApplication::MessageDialog(const String& text, const String& caption, UINT flags) {
    HideHint();
    HWND owner = GetActiveWindow();
    if (!owner && FMainForm && FMainForm->HandleAllocated())
        owner = FMainForm->GetHandle();
    return MessageBoxW(owner, WideChars(text), WideChars(caption), flags);
}

void TApplication::DestroyLater(HWND window) {
    FDyingWindows.push_back(window);
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0); // so that a waiting loop comes round
}

void TApplication::QueueRelease(TComponent* component) {
    if (std::any_of(FReleased.begin(), FReleased.end(),
                    [component](const TReleased& each) { return each.Component == component; }))
        return;
    FReleased.push_back({component, HandlerDepth()});
    FreeNotification(component);
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void TApplication::DisposeDestroyedWindows() {
    if (FDisposing)
        return;
    FDisposing = true;
    const int depth = HandlerDepth();
    const auto isDue = [depth](const TReleased& each) { return depth < std::max(each.Depth, 1); };
    for (auto due = FReleased.begin();
         (due = std::find_if(FReleased.begin(), FReleased.end(), isDue)) != FReleased.end();) {
        TComponent* component = due->Component;
        FReleased.erase(due);
        TLifeGuard alive(*component);
        component->BeforeDestruction();
        if (alive)
            delete component;
    }
    while (!FDyingWindows.empty() && !NativeProcedureRunning()) {
        const HWND window = FDyingWindows.back();
        FDyingWindows.pop_back();
        DestroyWindow(window);
    }
    FDisposing = false;
}

void TApplication::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FMainForm)
        FMainForm = nullptr;
    std::erase_if(FReleased, [component](const TReleased& each) { return each.Component == component; });
}

// Screen

const TClassInfo& TScreen::StaticClass() {
    static const TClassInfo info = DescribeClass<TScreen>(u"TScreen", TComponent::StaticClass());
    return info;
}

TScreen::TScreen() : TComponent(nullptr) {
}

int TScreen::GetWidth() const {
    return GetSystemMetrics(SM_CXSCREEN);
}

int TScreen::GetHeight() const {
    return GetSystemMetrics(SM_CYSCREEN);
}

int TScreen::GetPixelsPerInch() const {
    return GetPixelsPerInch(nullptr);
}

int TScreen::GetPixelsPerInch(HWND window) const {
    if (const UINT dpi = window ? GetDpiForWindow(window) : GetDpiForSystem())
        return static_cast<int>(dpi);
    return USER_DEFAULT_SCREEN_DPI;
}

TRect TScreen::GetWorkArea(const TRect& place) const {
    const RECT wanted = ToWin(place);
    MONITORINFO info{};
    info.cbSize = sizeof(info);
    if (GetMonitorInfoW(MonitorFromRect(&wanted, MONITOR_DEFAULTTONEAREST), &info))
        return FromWin(info.rcWork);
    return {0, 0, GetWidth(), GetHeight()};
}

TCustomForm* TScreen::GetForm(int index) const {
    if (index < 0 || index >= GetFormCount())
        throw EListError(u"Form index out of bounds");
    return FForms[static_cast<std::size_t>(index)];
}

namespace {

/// What a handler throws is reported here already: the focus is on its way, perhaps away from a control that dies.
void Tell(TScreen& screen, const TNotifyEvent& event) {
    try {
        Fire(screen, event, &screen);
    } catch (...) {
        TheApplication().HandleException(&screen);
    }
}

} // namespace

void Tell(TControl& control, UINT message, LPARAM lParam) {
    TLifeGuard alive(control);
    try {
        control.Perform(message, 0, lParam);
    } catch (...) {
        TheApplication().HandleException(alive ? &control : nullptr);
    }
}

void TScreen::SetActive(TCustomForm* form, TWinControl* control) {
    const bool formChanged = FActiveForm != form;
    const bool controlChanged = FActiveControl != control;
    FActiveForm = form;
    FActiveControl = control;
    if (form)
        FreeNotification(form);
    if (control)
        FreeNotification(control);
    if (formChanged)
        Tell(*this, OnActiveFormChange);
    if (controlChanged)
        Tell(*this, OnActiveControlChange);
}

void TScreen::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FActiveForm)
        FActiveForm = nullptr;
    if (component == FActiveControl)
        FActiveControl = nullptr;
}

void TScreen::SetCursor(TCursor value) {
    if (FCursor == value)
        return;
    FCursor = value;
    ::SetCursor(CursorHandle(value));
}

HCURSOR TScreen::CursorHandle(TCursor cursor) const {
    struct TSystemCursor {
        TCursor Cursor;
        int Resource; // the IDC_... number
    };
    static constexpr TSystemCursor kSystemCursors[] = {
        {crArrow, 32512},    {crCross, 32515},  {crIBeam, 32513},     {crSizeNESW, 32643},  {crSizeNS, 32645},
        {crSizeNWSE, 32642}, {crSizeWE, 32644}, {crUpArrow, 32516},   {crHourGlass, 32514}, {crNo, 32648},
        {crAppStart, 32650}, {crHelp, 32651},   {crHandPoint, 32649}, {crSizeAll, 32646},
    };
    if (cursor == crNone)
        return nullptr;
    int resource = 32512;
    for (const TSystemCursor& each : kSystemCursors) {
        if (each.Cursor == cursor)
            resource = each.Resource;
    }
    return LoadCursorW(nullptr, MAKEINTRESOURCEW(resource)); // shared, never freed
}

TApplication& TheApplication() {
    struct TOwner {
        TApplication& Application = *new TApplication;
        ~TOwner() { Application.FreeComponents(); }
    };
    static const TOwner owner;
    return owner.Application;
}

TScreen& TheScreen() {
    static TScreen& screen = *new TScreen;
    return screen;
}

} // namespace framework
