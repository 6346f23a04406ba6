#include "framework/windows/timer.h"

#include "framework/windows/application.h"

#include <commctrl.h>
#include <unordered_map>

namespace framework {

/// The hidden window that receives the ticks of all timers; it stays once it is there. Each start of a timer gets an
/// identifier of its own, so that a tick still waiting in the queue when its timer was stopped or freed finds nobody.
class TTimerWindow {
public:
    /// The identifier of the started timer; EOutOfResources when the system has no more timers.
    UINT_PTR Start(TTimer& timer, std::uint32_t interval);
    void Stop(UINT_PTR identifier);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Tick(UINT_PTR identifier);

    HWND FWindow = nullptr;
    UINT_PTR FLastIdentifier = 0;
    std::unordered_map<UINT_PTR, TTimer*> FTimers;
};

namespace {

TTimerWindow& TimerWindow() {
    // Never freed: timers owned by the application are stopped when static objects die already.
    static TTimerWindow& window = *new TTimerWindow;
    return window;
}

} // namespace

UINT_PTR TTimerWindow::Start(TTimer& timer, std::uint32_t interval) {
    if (!FWindow) {
        FWindow = CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        if (FWindow)
            SetWindowLongPtrW(FWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    if (!FWindow || !SetTimer(FWindow, FLastIdentifier + 1, interval, nullptr))
        throw EOutOfResources(u"Not enough timers are available");
    FTimers.emplace(++FLastIdentifier, &timer);
    return FLastIdentifier;
}

void TTimerWindow::Stop(UINT_PTR identifier) {
    KillTimer(FWindow, identifier);
    FTimers.erase(identifier);
}

LRESULT CALLBACK TTimerWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_TIMER)
        return DefWindowProcW(window, message, wParam, lParam);
    TimerWindow().Tick(wParam);
    return 0;
}

void TTimerWindow::Tick(UINT_PTR identifier) {
    const auto found = FTimers.find(identifier);
    if (found == FTimers.end())
        return;
    TTimer& timer = *found->second;
    if (timer.FReporting)
        return;
    TLifeGuard alive(timer);
    try {
        const THandlerScope handler;
        timer.Timer();
    } catch (...) {
        if (alive)
            timer.FReporting = true; // or each further tick would put another message above this one
        TheApplication().HandleException(alive ? &timer : nullptr);
        if (alive)
            timer.FReporting = false;
    }
}

const TClassInfo& TTimer::StaticClass() {
    static const TClassInfo info = DescribeClass<TTimer>(
        u"TTimer", TComponent::StaticClass(),
        {Property<&TTimer::GetEnabled, &TTimer::SetEnabled>(u"Enabled", true),
         Property<&TTimer::GetInterval, &TTimer::SetInterval>(u"Interval", 1000), Event<&TTimer::OnTimer>(u"OnTimer")});
    return info;
}

TTimer::TTimer(TComponent* owner) : TComponent(owner) {
    Restart();
}

TTimer::~TTimer() {
    Stop();
}

void TTimer::SetEnabled(bool value) {
    if (FEnabled == value)
        return;
    FEnabled = value;
    Restart();
}

void TTimer::SetInterval(std::uint32_t value) {
    if (FInterval == value)
        return;
    FInterval = value;
    Restart();
}

void TTimer::Loaded() {
    TComponent::Loaded();
    Restart();
}

void TTimer::Restart() {
    Stop();
    if (FEnabled && FInterval > 0 && !GetComponentState().Contains(csLoading) &&
        !GetComponentState().Contains(csDesigning))
        FIdentifier = TimerWindow().Start(*this, FInterval);
}

void TTimer::Stop() {
    if (FIdentifier)
        TimerWindow().Stop(std::exchange(FIdentifier, 0));
}

void TTimer::Timer() {
    // A designer may have taken the timer over since it was started.
    if (!GetComponentState().Contains(csDesigning))
        Fire(*this, OnTimer, this);
}

} // namespace framework
