#pragma once

// The calendar that drops down from a date field. The person picks a day, or a month or year where the field asks for
// one; the focus stays in the field all the while.

#include "foundation/Zorpopup.h"
#include "framework/windows/monthcalendar.h"

namespace ZOR {

class Tzor_cal_popup_form : public TZORPopup {
    FRAMEWORK_CLASS(Tzor_cal_popup_form)

public:
    /// Fires with the calendar as Sender once the person has picked a day, a month or a year.
    TNotifyEvent OnPick;

    Tzor_cal_popup_form();
    ~Tzor_cal_popup_form() override;

    TMonthCalendar* GetCalendar() const { return FCalendar; }
    /// What is to be picked: a day, a month (cvYear shows those of a year) or a year (cvDecade). It shows in systems
    /// whose calendars know views; the others pick days.
    TCalendarView GetView() const { return FView; }
    void SetView(TCalendarView value) { FView = value; }

protected:
    void CreateParams(TCreateParams& params) override;
    void Prepare() override;
    TRect PlaceFor(const TRect& target, const TRect& workArea) const override;
    void DoShow() override;

private:
    void ViewChanged();
    void Pick();

    TMonthCalendar* FCalendar;
    TSize FSize; // that shows a whole month, in pixels
    TCalendarView FView = cvMonth;
};

} // namespace ZOR
