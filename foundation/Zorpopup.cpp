#include "foundation/Zorpopup.h"

#include "framework/windows/application.h"

#include <algorithm>
#include <vector>

namespace ZOR {

namespace {

constexpr std::uint32_t kWatchInterval = 50; // milliseconds

bool IsPress(WPARAM message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
    case WM_NCXBUTTONDOWN:
        return true;
    default:
        return false;
    }
}

/// Menus have windows of their own and belong to whatever opened them.
bool IsMenu(HWND window) {
    constexpr wchar_t kMenuClass[] = L"#32768";
    wchar_t name[ARRAYSIZE(kMenuClass) + 1]{};
    return GetClassNameW(window, name, ARRAYSIZE(name)) > 0 && FromWide(name) == FromWide(kMenuClass);
}

} // namespace

/// The popups that are open, and the hooks that the thread has meanwhile: one that sees where the mouse is pressed
/// before the press is handled, and one that refuses popups the focus. Some native controls take it on any click.
class TOpenPopups {
public:
    static void Add(TZORPopup& popup) {
        Popups().push_back(&popup);
        if (mouseHook)
            return;
        mouseHook = SetWindowsHookExW(WH_MOUSE, MouseHook, nullptr, GetCurrentThreadId());
        focusHook = SetWindowsHookExW(WH_CBT, FocusHook, nullptr, GetCurrentThreadId());
    }
    static void Remove(TZORPopup& popup) {
        std::erase(Popups(), &popup);
        if (!Popups().empty() || !mouseHook)
            return;
        UnhookWindowsHookEx(std::exchange(mouseHook, nullptr));
        UnhookWindowsHookEx(std::exchange(focusHook, nullptr));
    }

private:
    static std::vector<TZORPopup*>& Popups() {
        static auto& popups = *new std::vector<TZORPopup*>;
        return popups;
    }

    static LRESULT CALLBACK MouseHook(int code, WPARAM message, LPARAM data) {
        if (code == HC_ACTION && IsPress(message))
            Pressed(reinterpret_cast<const MOUSEHOOKSTRUCT*>(data)->hwnd);
        return CallNextHookEx(nullptr, code, message, data);
    }
    static LRESULT CALLBACK FocusHook(int code, WPARAM window, LPARAM data) {
        if (code == HCBT_SETFOCUS || code == HCBT_ACTIVATE) {
            const auto taker = reinterpret_cast<HWND>(window);
            if (std::any_of(Popups().begin(), Popups().end(), [taker](auto* each) { return each->Holds(taker); }))
                return 1;
        }
        return CallNextHookEx(nullptr, code, window, data);
    }
    static void Pressed(HWND window) {
        // What closes may open another or free itself.
        const std::vector<TZORPopup*> open = Popups();
        for (TZORPopup* popup : open) {
            if (std::find(Popups().begin(), Popups().end(), popup) == Popups().end())
                continue;
            try {
                const THandlerScope handler;
                popup->PressedElsewhere(window);
            } catch (...) {
                TheApplication().HandleException(nullptr); // no exception may cross the system's frames
            }
        }
    }

    static inline HHOOK mouseHook = nullptr;
    static inline HHOOK focusHook = nullptr;
};

const TClassInfo& TZORPopup::StaticClass() {
    static const TClassInfo info = DescribeClass<TZORPopup>(u"TZORPopup", TForm::StaticClass());
    return info;
}

TZORPopup::TZORPopup(TPopupClosing closing) : TForm(nullptr), FClosing(closing) {
    SetBorderStyle(bsNone);
    SetPosition(poDesigned);
    SetScaled(false);          // a popup suits itself to its field's monitor each time it opens
    SetFormStyle(fsStayOnTop); // in Wine being owned is not enough to get the mouse above a form that was raised
    FWatch.SetEnabled(false);
    FWatch.SetInterval(kWatchInterval);
    FWatch.OnTimer = [this](TObject*) { WatchTarget(); };
}

TZORPopup::~TZORPopup() {
    Destroying();
    StopWatching();
    DestroyHandle();
}

void TZORPopup::CreateParams(TCreateParams& params) {
    TForm::CreateParams(params);
    params.ExStyle |= WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW;
    params.WindowClass.style |= CS_DROPSHADOW;
    if (const HWND target = TargetWindow())
        params.WndParent = GetAncestor(target, GA_ROOT); // stays above the form, and goes with it
}

void TZORPopup::ForgetWindow() {
    StopWatching();
    TForm::ForgetWindow();
}

HWND TZORPopup::TargetWindow() const {
    return FTarget && FTarget->HandleAllocated() ? FTarget->GetHandle() : nullptr;
}

bool TZORPopup::Holds(HWND window) const {
    return HandleAllocated() && (window == GetHandle() || IsChild(GetHandle(), window));
}

void TZORPopup::Notification(TComponent* component, TOperation operation) {
    TForm::Notification(component, operation);
    if (operation == opRemove && component == FTarget)
        FTarget = nullptr;
}

// Opening and closing

void TZORPopup::PopUp(TWinControl& target) {
    TLifeGuard alive(*this);
    TLifeGuard targetAlive(target);
    if (FTarget != &target) {
        FTarget = &target;
        FreeNotification(&target);
    }
    if (FClosing.OnFocusLoss && !target.Focused()) {
        if (target.CanFocus())
            target.SetFocus();
        if (!alive || !targetAlive || !target.Focused())
            return;
    }
    Hide(); // also when it only believes to be shown: its window goes with that of a form made anew
    if (alive && targetAlive && TargetShows())
        Show();
}

void TZORPopup::CloseUp() {
    Hide();
}

void TZORPopup::DoShow() {
    Prepare();
    FollowTarget();
    FWatch.SetEnabled(true);
    TOpenPopups::Add(*this);
    TForm::DoShow();
}

void TZORPopup::DoHide() {
    StopWatching();
    TLifeGuard alive(*this);
    TForm::DoHide();
    if (alive)
        Fire(*this, OnCloseUp, this);
}

void TZORPopup::StopWatching() {
    TOpenPopups::Remove(*this);
    FWatch.SetEnabled(false);
}

// Beside the field

/// Brings the popup above another form when its field has moved there; not while windows are being made anew.
void TZORPopup::FollowForm() {
    const HWND target = TargetWindow();
    if (target && HandleAllocated() && GetWindow(GetHandle(), GW_OWNER) != GetAncestor(target, GA_ROOT))
        RecreateWnd();
}

void TZORPopup::FollowTarget() {
    RECT place{};
    if (!GetWindowRect(TargetWindow(), &place))
        return;
    FTargetPlace = FromWin(place);
    SetBoundsRect(PlaceFor(FTargetPlace, TheScreen().GetWorkArea(FTargetPlace)));
}

bool TZORPopup::TargetMoved() const {
    RECT place{};
    return GetWindowRect(TargetWindow(), &place) && FromWin(place) != FTargetPlace;
}

bool TZORPopup::TargetShows() const {
    const HWND target = TargetWindow();
    return target && IsWindowVisible(target) && !IsIconic(GetAncestor(target, GA_ROOT));
}

// The field hears nothing when its form or a panel moves, is hidden or minimised.
void TZORPopup::WatchTarget() {
    if (!TargetShows() || (FClosing.OnFocusLoss && !FTarget->Focused()) || (FClosing.OnTargetMove && TargetMoved())) {
        CloseUp();
        return;
    }
    FollowForm();
    FollowTarget();
    ShowInFront();
}

/// A popup that stays open is out of sight while the person works elsewhere: it lies above all windows, and would cover
/// other programs, and dialogs that take its clicks away.
void TZORPopup::ShowInFront() {
    if (!HandleAllocated())
        return;
    const bool inFront = GetForegroundWindow() == GetAncestor(TargetWindow(), GA_ROOT);
    if (inFront != (IsWindowVisible(GetHandle()) != FALSE))
        ShowWindow(GetHandle(), inFront ? SW_SHOWNA : SW_HIDE);
}

void TZORPopup::PressedElsewhere(HWND window) {
    if (!FClosing.OnClickElsewhere || Holds(window) || IsMenu(window))
        return;
    const HWND target = TargetWindow();
    if (!target || (window != target && !IsChild(target, window))) // the field decides for itself
        CloseUp();
}

bool TZORPopup::HandleTargetMessage(TMessage& message) {
    if (!IsOpen())
        return false;
    switch (message.Msg) {
    case CN_KEYDOWN:
        if (!FClosing.OnEscape || message.WParam != VK_ESCAPE)
            return false;
        message.Result = 1; // it closes this and nothing else: neither the field nor the form get to see it
        CloseUp();
        return true;
    case CM_LOSTFOCUS:
        if (FClosing.OnFocusLoss)
            CloseUp();
        return false;
    case CM_EXIT:
        CloseUp();
        return false;
    case WM_WINDOWPOSCHANGED:
    case CM_VISIBLECHANGED:
    case CM_ENABLEDCHANGED:
        if (!FTarget || !FTarget->GetEnabled() || !FTarget->GetVisible() || (FClosing.OnTargetMove && TargetMoved()))
            CloseUp();
        else
            FollowTarget();
        return false;
    default:
        return false;
    }
}

} // namespace ZOR
