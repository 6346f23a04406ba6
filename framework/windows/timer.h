#pragma once

// Timers: an event that comes again and again.

#include "framework/system/components.h"

namespace framework {

class TTimer : public TComponent {
    FRAMEWORK_CLASS(TTimer)

public:
    FRAMEWORK_PROPERTY(bool, Enabled, GetEnabled, SetEnabled);
    FRAMEWORK_PROPERTY(std::uint32_t, Interval, GetInterval, SetInterval);

    /// Fires every Interval milliseconds while messages are handled. What it throws goes to the application's
    /// HandleException, and the timer rests while that is shown.
    TNotifyEvent OnTimer;

    explicit TTimer(TComponent* owner);
    ~TTimer() override;

    bool GetEnabled() const { return FEnabled; }
    void SetEnabled(bool value);
    /// Milliseconds between two events; 0 stops the timer. The system does not go below 10 (SetTimer). Setting another
    /// interval starts it anew.
    std::uint32_t GetInterval() const { return FInterval; }
    void SetInterval(std::uint32_t value);

protected:
    void Loaded() override;
    /// An interval has passed; fires OnTimer.
    virtual void Timer();

private:
    friend class TTimerWindow;

    void Restart();
    void Stop();

    std::uintptr_t FIdentifier = 0; // of the system's timer; 0 while none runs
    std::uint32_t FInterval = 1000;
    bool FEnabled = true;
    bool FReporting = false; // what OnTimer threw is being shown
};

} // namespace framework
