#pragma once

// The framed month calendar: dates to pick with a requirement frame and a caption label.

#include "foundation/Zorframed.h"
#include "framework/windows/monthcalendar.h"

namespace ZOR {

/// The native calendar paints its own border together with the months.
inline constexpr TFraming MonthCalendarFraming{.Requirement = PlainRequirement,
                                               .StateChanged = TFrameRepaint::Repaint,
                                               .EnabledChanged = TFrameRepaint::Repaint,
                                               .Place = TFramePlace::OverClient,
                                               .HintInside = false};

class TZORMonthCalendar : public TZORFramed<TMonthCalendar, MonthCalendarFraming> {
    FRAMEWORK_CLASS(TZORMonthCalendar)

public:
    explicit TZORMonthCalendar(TComponent* owner) : TZORFramed(owner) {}
};

namespace Zormonthcalendar {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zormonthcalendar

} // namespace ZOR
