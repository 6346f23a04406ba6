#pragma once

// A calendar from which the person picks a day, or several days in a row, over the native month calendar window.

#include "framework/windows/systemtime.h"
#include "framework/windows/wincontrol.h"

namespace framework {

enum TCalDayOfWeek {
    dowMonday,
    dowTuesday,
    dowWednesday,
    dowThursday,
    dowFriday,
    dowSaturday,
    dowSunday,
    dowLocaleDefault, ///< as the user's locale has it
};
const TEnumInfo& DescribeEnum(TCalDayOfWeek);

/// What the calendar shows at once, the MCMV_... numbers of Win32.
enum TCalendarView {
    cvMonth,   ///< the days of a month
    cvYear,    ///< the months of a year
    cvDecade,  ///< the years of a decade
    cvCentury, ///< the decades of a century
};

class TMonthCalendar : public TWinControl {
    FRAMEWORK_CLASS(TMonthCalendar)

public:
    FRAMEWORK_PROPERTY(TDateTime, Date, GetDate, SetDate);
    FRAMEWORK_PROPERTY(TDateTime, EndDate, GetEndDate, SetEndDate);
    FRAMEWORK_PROPERTY(TCalDayOfWeek, FirstDayOfWeek, GetFirstDayOfWeek, SetFirstDayOfWeek);
    FRAMEWORK_PROPERTY(TDateTime, MaxDate, GetMaxDate, SetMaxDate);
    FRAMEWORK_PROPERTY(int, MaxSelectRange, GetMaxSelectRange, SetMaxSelectRange);
    FRAMEWORK_PROPERTY(TDateTime, MinDate, GetMinDate, SetMinDate);
    FRAMEWORK_PROPERTY(bool, MultiSelect, GetMultiSelect, SetMultiSelect);
    FRAMEWORK_PROPERTY(bool, ShowToday, GetShowToday, SetShowToday);
    FRAMEWORK_PROPERTY(bool, ShowTodayCircle, GetShowTodayCircle, SetShowTodayCircle);
    FRAMEWORK_PROPERTY(bool, WeekNumbers, GetWeekNumbers, SetWeekNumbers);
    FRAMEWORK_PROPERTY(TCalendarView, CurrentView, GetCurrentView, SetCurrentView);

    /// The day that is marked became another by the person's doing, be it on the way to the one that is picked.
    TNotifyEvent OnSelChange;
    /// The calendar went from days to months and the like, or back (MCN_VIEWCHANGE).
    TNotifyEvent OnViewChange;

    explicit TMonthCalendar(TComponent* owner);

    /// The marked day, the first one of several; in the beginning the present day. A date beyond the bounds becomes the
    /// bound. Picking a day fires OnClick, setting Date does not.
    TDateTime GetDate() const { return FDate; }
    void SetDate(TDateTime value);
    bool DateStored() const { return FDate != FInitialDate || EndDateStored(); }
    /// With MultiSelect the last of the marked days, at most MaxSelectRange of them; otherwise the same as Date.
    TDateTime GetEndDate() const { return FMultiSelect ? FEndDate : FDate; }
    void SetEndDate(TDateTime value);
    bool EndDateStored() const { return FMultiSelect && FEndDate != FDate; }
    TCalDayOfWeek GetFirstDayOfWeek() const { return FFirstDayOfWeek; }
    void SetFirstDayOfWeek(TCalDayOfWeek value);
    /// Bounds of what can be picked; 0 for none.
    TDateTime GetMaxDate() const { return FBounds.Max; }
    void SetMaxDate(TDateTime value);
    TDateTime GetMinDate() const { return FBounds.Min; }
    void SetMinDate(TDateTime value);
    /// How many days the person can mark with MultiSelect, from 1.
    int GetMaxSelectRange() const { return FMaxSelectRange; }
    void SetMaxSelectRange(int value);
    bool GetMultiSelect() const { return FMultiSelect; }
    void SetMultiSelect(bool value);
    /// Whether a line below the days names the present one.
    bool GetShowToday() const { return FShowToday; }
    void SetShowToday(bool value);
    bool GetShowTodayCircle() const { return FShowTodayCircle; }
    void SetShowTodayCircle(bool value);
    bool GetWeekNumbers() const { return FWeekNumbers; }
    void SetWeekNumbers(bool value);
    /// The view now (MCM_GETCURRENTVIEW); cvMonth without a window, and in systems that know no other.
    TCalendarView GetCurrentView() const;
    void SetCurrentView(TCalendarView value);
    /// The size in pixels that shows one whole month (MCM_GETMINREQRECT). Needs the window.
    TSize GetRequiredSize() const;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void CNNotify(TMessage& message) override;
    void CMFontChanged(TMessage& message) override;
    void Dispatch(TMessage& message) override;
    void Loaded() override;
    /// With AutoSize, as large as one month needs.
    bool CanAutoSize(int& newWidth, int& newHeight) override;
    virtual void SelChange();
    virtual void ViewChange();

private:
    void ChangeBound(TDateTime& bound, TDateTime value);
    void LimitRange();
    void ShowSelection();
    bool IsDay(TPoint place) const;
    void TakeSelection(const SYSTEMTIME& first, const SYSTEMTIME& last);
    void ChangeStyle(bool& field, bool value);

    TDateTime FInitialDate;
    TDateTime FDate;
    TDateTime FEndDate;
    TCalendarBounds FBounds;
    int FMaxSelectRange = 31;
    TCalDayOfWeek FFirstDayOfWeek = dowLocaleDefault;
    bool FMultiSelect = false;
    bool FShowToday = true;
    bool FShowTodayCircle = true;
    bool FWeekNumbers = false;
};

} // namespace framework
