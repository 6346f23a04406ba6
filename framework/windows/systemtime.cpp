#include "framework/windows/systemtime.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

TDateTime TCalendarBounds::Bounded(TDateTime value) const {
    const TDateTime day = DateOf(value);
    if (Max != 0 && day > Max)
        return ComposeDateTime(Max, value);
    return Min != 0 && day < Min ? ComposeDateTime(Min, value) : value;
}

void TCalendarBounds::Show(HWND window, UINT message) const {
    WPARAM which = 0;
    SYSTEMTIME days[2]{};
    if (Min != 0) {
        which |= GDTR_MIN;
        days[0] = ToSystemTime(std::max(Min, FirstCalendarDay));
    }
    if (Max != 0) {
        which |= GDTR_MAX;
        days[1] = ToSystemTime(std::max(Max, FirstCalendarDay));
    }
    SendMessageW(window, message, which, reinterpret_cast<LPARAM>(days));
}

bool SetBound(TDateTime& bound, TDateTime value) {
    if (bound == DateOf(value))
        return false;
    bound = DateOf(value);
    return true;
}

} // namespace framework
