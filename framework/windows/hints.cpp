#include "framework/windows/hints.h"

#include "framework/graphics/canvas.h"
#include "framework/graphics/textmetrics.h"
#include "framework/graphics/themes.h"
#include "framework/windows/application.h"
#include "framework/windows/hint_rules.h"
#include "framework/windows/timer.h"

#include <algorithm>
#include <vsstyle.h>
#include <vssym32.h>

namespace framework {

namespace {

constexpr TSize kMargin{4, 2}; // between the frame and the letters, in pixels

/// Once a hint has shown, the next one along the way comes at once, after this many milliseconds.
constexpr std::uint32_t kNextHintPause = 50;
/// How often the pointer is looked after while a hint shows, in milliseconds.
constexpr std::uint32_t kWatchInterval = 50;

TPoint PointerPosition() {
    POINT point{};
    GetCursorPos(&point);
    return FromWin(point);
}

/// How far the visible part of an arrow reaches below its hot spot.
int PointerHeight() {
    return MulDiv(GetSystemMetrics(SM_CYCURSOR), 5, 8);
}

/// The control whose ShowHint decides for `control`: itself or the nearest parent that has it on.
TControl* HintingControl(TControl* control) {
    while (control && !control->GetShowHint())
        control = control->GetParent();
    return control;
}

/// The nearest hint text from `control` upwards.
String InheritedHint(const TControl* control) {
    for (; control; control = control->GetParent()) {
        if (!control->GetHint().empty())
            return control->GetHint();
    }
    return {};
}

bool ProgramIsInForeground() {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

} // namespace

// The window

const TClassInfo& THintWindow::StaticClass() {
    static const TClassInfo info = DescribeClass<THintWindow>(u"THintWindow", TCustomControl::StaticClass());
    return info;
}

THintWindow::THintWindow(TComponent* owner) : TCustomControl(owner) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0))
        GetFont()->SetLogFont(metrics.lfStatusFont);
    GetFont()->SetColor(clInfoText);
    SetColor(clInfoBk);
}

void THintWindow::CreateParams(TCreateParams& params) {
    TCustomControl::CreateParams(params);
    params.Style &= ~static_cast<DWORD>(WS_CHILD | WS_VISIBLE);
    params.Style |= WS_POPUP;
    params.ExStyle |= WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
    params.WindowClass.style |= CS_DROPSHADOW | CS_SAVEBITS;
}

void THintWindow::Dispatch(TMessage& message) {
    if (message.Msg == WM_NCHITTEST)
        message.Result = HTTRANSPARENT;
    else
        TCustomControl::Dispatch(message);
}

UINT THintWindow::DrawFlags() const {
    return DT_LEFT | DT_WORDBREAK | DT_NOPREFIX | (UseRightToLeftReading() ? DT_RTLREADING | DT_RIGHT : 0u);
}

TSize THintWindow::CalcHintSize(int maxWidth, const String& text) const {
    const int frame = 2 * (1 + kMargin.Width);
    const TSize letters = TTextMeasure(*GetFont()).Layout(text, DrawFlags(), std::max(maxWidth - frame, 1));
    return {letters.Width + frame, letters.Height + 2 * (1 + kMargin.Height)};
}

void THintWindow::ActivateHint(const TRect& place, const String& text) {
    SetText(text);
    SetBoundsRect(place);
    SetWindowPos(GetHandle(), HWND_TOPMOST, place.Left, place.Top, place.Width(), place.Height(),
                 SWP_SHOWWINDOW | SWP_NOACTIVATE);
    Invalidate();
}

/// The colour of the letters that goes with what was painted.
TColor THintWindow::PaintBackground() {
    TCanvas& canvas = *GetCanvas();
    const TRect all = GetClientRect();
    const RECT place = ToWin(all);
    canvas.GetBrush()->SetColor(GetColor());
    canvas.FillRect(all);
    const TThemeHandle theme(GetColor() == clInfoBk ? OpenThemeData(FHandle, L"TOOLTIP") : nullptr);
    COLORREF letters = 0;
    if (theme && SUCCEEDED(GetThemeColor(theme.Get(), TTP_STANDARD, TTSS_NORMAL, TMT_TEXTCOLOR, &letters)) &&
        SUCCEEDED(DrawThemeBackground(theme.Get(), canvas.GetHandle(), TTP_STANDARD, TTSS_NORMAL, &place, nullptr)))
        return static_cast<TColor>(letters);
    canvas.GetBrush()->SetColor(clBtnShadow);
    canvas.FrameRect(all);
    return GetFont()->GetColor();
}

void THintWindow::Paint() {
    TCanvas& canvas = *GetCanvas();
    const TColor color = PaintBackground();
    canvas.GetBrush()->SetStyle(bsClear);
    canvas.SetFont(GetFont());
    canvas.GetFont()->SetColor(color);
    TRect letters = GetClientRect().Inflated(-1 - kMargin.Width, -1 - kMargin.Height);
    canvas.TextRect(letters, GetText(), DrawFlags());
}

// The controller

namespace {

/// Follows the mouse from control to control. A component, so that it hears when the hint's control dies.
class THintController : public TComponent {
public:
    THintController() : TComponent(nullptr), FTimer(nullptr) {
        FTimer.SetEnabled(false);
        FTimer.OnTimer = [this](TObject*) { TimerTick(); };
    }

    void MouseOver(TControl* control);
    void Hide();

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    enum TPhase {
        Idle,
        Waiting,  ///< the pointer rests over the control; the hint will show
        Watching, ///< the control was asked; the hint shows, or the control had none for this place
    };

    void Enter(TPhase phase, std::uint32_t interval);
    void Wait();
    void TimerTick();
    void Ask();
    void Show(const THintInfo& info, bool placed);
    bool PointerIsThere() const;
    void Watch();

    TControl* FControl = nullptr; // whose hint waits, shows or was taken away
    TPhase FPhase = Idle;
    TTimer FTimer;
    std::unique_ptr<THintWindow> FWindow; // while the hint shows
    TRect FCursorRect;
    ULONGLONG FShownAt = 0;
    int FHideTimeout = 0;
};

void THintController::MouseOver(TControl* control) {
    TControl* hinting = HintingControl(control);
    if (hinting == FControl)
        return;
    const bool showed = FWindow != nullptr;
    Hide();
    if (FControl)
        RemoveFreeNotification(FControl);
    FControl = hinting;
    if (!hinting)
        return;
    FreeNotification(hinting);
    if (hinting->GetComponentState().Contains(csDesigning))
        return;
    if (showed)
        Enter(Waiting, kNextHintPause);
    else
        Wait();
}

/// The pause before a hint. It begins anew when the pointer turns out to be elsewhere: the mouse tracker tells in a
/// moment that it left, or the position was out of date.
void THintController::Wait() {
    Enter(Waiting, static_cast<std::uint32_t>(std::max(TheApplication().GetHintPause(), 1)));
}

void THintController::Hide() {
    if (FPhase == Idle)
        return;
    Enter(Idle, 0);
    FWindow.reset();
}

void THintController::Enter(TPhase phase, std::uint32_t interval) {
    FPhase = phase;
    FTimer.SetEnabled(false);
    FTimer.SetInterval(interval);
    FTimer.SetEnabled(phase != Idle);
}

void THintController::TimerTick() {
    if (FPhase == Waiting)
        Ask();
    else if (FPhase == Watching)
        Watch();
}

bool THintController::PointerIsThere() const {
    return HintingControl(FindDragTarget(PointerPosition(), true)) == FControl;
}

void THintController::Ask() {
    if (!TheApplication().GetShowHint() || !ProgramIsInForeground()) {
        Hide();
        return;
    }
    if (!PointerIsThere()) {
        Wait();
        return;
    }
    const TPoint pointer = PointerPosition();
    THintInfo info;
    info.HintControl = FControl;
    info.HintPos = {pointer.X, pointer.Y + PointerHeight()};
    info.HintMaxWidth = TheScreen().GetWorkArea(Bounds(pointer.X, pointer.Y, 1, 1)).Width();
    info.CursorPos = FControl->ScreenToClient(pointer);
    info.CursorRect = FControl->GetClientRect();
    info.HideTimeout = TheApplication().GetHintHidePause();
    info.HintStr = GetShortHint(InheritedHint(FControl));
    const TPoint proposed = info.HintPos;
    TControl* const asked = FControl;
    bool refused = false;
    try {
        refused = asked->Perform(CM_HINTSHOW, 0, reinterpret_cast<LPARAM>(&info)) != 0;
    } catch (...) {
        if (FControl == asked)
            Hide(); // or it would be asked again and again as long as the pointer rests
        throw;
    }
    if (FControl != asked || FPhase != Waiting)
        return; // the answer took the control or the pointer away
    FCursorRect = info.CursorRect;
    const bool isPartOfControl = FCursorRect != FControl->GetClientRect();
    if (!refused && !info.HintStr.empty())
        Show(info, info.HintPos != proposed);
    else if (isPartOfControl)
        Enter(Watching, kWatchInterval); // another part may have a hint
    else
        Hide();
}

void THintController::Show(const THintInfo& info, bool placed) {
    FWindow = std::make_unique<THintWindow>(nullptr);
    FWindow->SetBiDiMode(info.HintControl->GetBiDiMode());
    FWindow->SetColor(info.HintColor);
    if (const TCustomForm* form = GetParentForm(info.HintControl); form && form->HandleAllocated())
        FWindow->ChangeScale(TheScreen().GetPixelsPerInch(form->GetHandle()), TheScreen().GetPixelsPerInch());
    const TPoint spot = placed ? info.HintPos : PointerPosition();
    const TRect workArea = TheScreen().GetWorkArea(Bounds(spot.X, spot.Y, 1, 1));
    const TSize size = FWindow->CalcHintSize(std::min(info.HintMaxWidth, workArea.Width()), info.HintStr);
    const TPoint place = PlaceHint(spot, placed ? 0 : PointerHeight(), size, workArea);
    FHideTimeout = info.HideTimeout;
    FShownAt = GetTickCount64();
    Enter(Watching, kWatchInterval);
    FWindow->ActivateHint(Bounds(place.X, place.Y, size.Width, size.Height), info.HintStr);
}

void THintController::Watch() {
    if (!PointerIsThere()) {
        FWindow.reset();
        Wait();
    } else if (!FCursorRect.Contains(FControl->ScreenToClient(PointerPosition()))) {
        FWindow.reset();
        Enter(Waiting, kNextHintPause);
    } else if (FWindow && GetTickCount64() - FShownAt >= static_cast<ULONGLONG>(std::max(FHideTimeout, 0))) {
        FWindow.reset();
        if (FCursorRect == FControl->GetClientRect())
            Enter(Idle, 0);
    }
}

void THintController::Notification(TComponent* component, TOperation operation) {
    TComponent::Notification(component, operation);
    if (operation == opRemove && component == FControl) {
        FControl = nullptr;
        Hide();
    }
}

THintController& HintController() {
    // Never freed: controls that die with static objects still tell it.
    static THintController& controller = *new THintController;
    return controller;
}

} // namespace

void HintMouseOver(TControl* control) {
    HintController().MouseOver(control);
}

void HideHint() {
    HintController().Hide();
}

} // namespace framework
