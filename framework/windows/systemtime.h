#pragma once

// Dates as the native calendar windows exchange them.

#include "framework/graphics/win32.h"
#include "framework/system/dates.h"

namespace framework {

/// The first day that the native calendars know; what lies before it is shown as this one.
inline constexpr TDateTime FirstCalendarDay = -53797; // 1752-09-14

inline SYSTEMTIME ToSystemTime(TDateTime value) {
    const TCalendarDate date = DecodeDate(value);
    const TClockTime time = DecodeTime(value);
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(date.Year);
    result.wMonth = static_cast<WORD>(date.Month);
    result.wDay = static_cast<WORD>(date.Day);
    result.wDayOfWeek = static_cast<WORD>(DayOfWeek(value) - 1);
    result.wHour = static_cast<WORD>(time.Hour);
    result.wMinute = static_cast<WORD>(time.Minute);
    result.wSecond = static_cast<WORD>(time.Second);
    result.wMilliseconds = static_cast<WORD>(time.MilliSecond);
    return result;
}

inline TDateTime FromSystemTime(const SYSTEMTIME& value) {
    return EncodeDateTime(value.wYear, value.wMonth, value.wDay, value.wHour, value.wMinute, value.wSecond,
                          value.wMilliseconds);
}

/// The days between which a native calendar lets the person choose: whole days, 0 for no bound.
struct TCalendarBounds {
    TDateTime Min = 0;
    TDateTime Max = 0;

    /// `value` with its day moved to the bound that it lies beyond, its time kept.
    TDateTime Bounded(TDateTime value) const;
    /// Tells the window of a calendar by MCM_SETRANGE, or that of a picker by DTM_SETRANGE.
    void Show(HWND window, UINT message) const;
};
/// Changes one of the bounds to the day of `value`; false when it was that already.
bool SetBound(TDateTime& bound, TDateTime value);

} // namespace framework
