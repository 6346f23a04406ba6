#include "framework/windows/systemtime.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

TCalendarRange CalendarRange(TDateTime minDate, TDateTime maxDate) {
    TCalendarRange range;
    if (DateOf(minDate) != 0) {
        range.Which |= GDTR_MIN;
        range.Days[0] = ToSystemTime(std::max(minDate, FirstCalendarDay));
    }
    if (DateOf(maxDate) != 0) {
        range.Which |= GDTR_MAX;
        range.Days[1] = ToSystemTime(std::max(maxDate, FirstCalendarDay));
    }
    return range;
}

} // namespace framework
