#include "framework/windows/monthcalendar.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kInitialSize{225, 160};

} // namespace

const TEnumInfo& DescribeEnum(TCalDayOfWeek) {
    static const TEnumInfo info{u"TCalDayOfWeek",
                                {u"dowMonday", u"dowTuesday", u"dowWednesday", u"dowThursday", u"dowFriday",
                                 u"dowSaturday", u"dowSunday", u"dowLocaleDefault"}};
    return info;
}

const TClassInfo& TMonthCalendar::StaticClass() {
    namespace row = controlrows;
    using C = TMonthCalendar;
    static const TClassInfo info = DescribeClass<TMonthCalendar>(
        u"TMonthCalendar", TWinControl::StaticClass(),
        {row::Align(), row::Anchors(), row::AutoSize(false), row::BiDiMode(), row::Constraints(),
         // The multiple choice first: it decides what the other dates mean.
         Property<&C::GetMultiSelect, &C::SetMultiSelect>(u"MultiSelect", false),
         Property<&C::GetDate, &C::SetDate>(u"Date").Dated(TFloatKind::Date).StoredWhen<&C::DateStored>(),
         row::DoubleBuffered(), row::Enabled(),
         Property<&C::GetEndDate, &C::SetEndDate>(u"EndDate").Dated(TFloatKind::Date).StoredWhen<&C::EndDateStored>(),
         Property<&C::GetFirstDayOfWeek, &C::SetFirstDayOfWeek>(u"FirstDayOfWeek", dowLocaleDefault), row::Font(),
         Property<&C::GetMaxDate, &C::SetMaxDate>(u"MaxDate").Dated(TFloatKind::Date),
         Property<&C::GetMaxSelectRange, &C::SetMaxSelectRange>(u"MaxSelectRange", 31),
         Property<&C::GetMinDate, &C::SetMinDate>(u"MinDate").Dated(TFloatKind::Date), row::ParentBiDiMode(),
         row::ParentFont(), row::ParentShowHint(), row::ShowHint(),
         Property<&C::GetShowToday, &C::SetShowToday>(u"ShowToday", true),
         Property<&C::GetShowTodayCircle, &C::SetShowTodayCircle>(u"ShowTodayCircle", true), row::TabOrder(),
         row::TabStop(true), row::Visible(), Property<&C::GetWeekNumbers, &C::SetWeekNumbers>(u"WeekNumbers", false),
         row::InputEvents(), Event<&C::OnSelChange>(u"OnSelChange"), Event<&C::OnViewChange>(u"OnViewChange")});
    return info;
}

TMonthCalendar::TMonthCalendar(TComponent* owner)
    : TWinControl(owner), FInitialDate(framework::Date()), FDate(FInitialDate), FEndDate(FInitialDate) {
    // The native calendar captures the mouse by itself and tells which day was picked.
    FControlStyle >> csCaptureMouse >> csClickEvents >> csSetCaption;
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
    SetTabStop(true);
}

// The window

void TMonthCalendar::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, MONTHCAL_CLASSW);
    if (FMultiSelect)
        params.Style |= MCS_MULTISELECT;
    if (!FShowToday)
        params.Style |= MCS_NOTODAY;
    if (!FShowTodayCircle)
        params.Style |= MCS_NOTODAYCIRCLE;
    if (FWeekNumbers)
        params.Style |= MCS_WEEKNUMBERS;
}

void TMonthCalendar::CreateWnd() {
    TWinControl::CreateWnd();
    if (FMultiSelect)
        SendMessageW(FHandle, MCM_SETMAXSELCOUNT, static_cast<WPARAM>(FMaxSelectRange), 0);
    if (FFirstDayOfWeek != dowLocaleDefault)
        SendMessageW(FHandle, MCM_SETFIRSTDAYOFWEEK, 0, FFirstDayOfWeek);
    FBounds.Show(FHandle, MCM_SETRANGE);
    ShowSelection();
    AdjustSize();
}

bool TMonthCalendar::CanAutoSize(int& newWidth, int& newHeight) {
    if (!HandleAllocated())
        return false;
    const TSize size = GetRequiredSize();
    newWidth = size.Width;
    newHeight = size.Height;
    return true;
}

void TMonthCalendar::CMFontChanged(TMessage& message) {
    TLifeGuard alive(*this);
    TWinControl::CMFontChanged(message);
    if (alive)
        AdjustSize();
}

TSize TMonthCalendar::GetRequiredSize() const {
    RECT required{};
    SendMessageW(GetHandle(), MCM_GETMINREQRECT, 0, reinterpret_cast<LPARAM>(&required));
    // The line that names the present day may be wider than the days.
    const auto today = FShowToday ? static_cast<int>(SendMessageW(GetHandle(), MCM_GETMAXTODAYWIDTH, 0, 0)) : 0;
    return {std::max(static_cast<int>(required.right - required.left), today),
            static_cast<int>(required.bottom - required.top)};
}

TCalendarView TMonthCalendar::GetCurrentView() const {
    return HandleAllocated() ? static_cast<TCalendarView>(SendMessageW(FHandle, MCM_GETCURRENTVIEW, 0, 0)) : cvMonth;
}

void TMonthCalendar::SetCurrentView(TCalendarView value) {
    SendMessageW(GetHandle(), MCM_SETCURRENTVIEW, 0, value);
}

// Dates

void TMonthCalendar::SetDate(TDateTime value) {
    value = FBounds.Bounded(DateOf(value));
    const TDateTime days = FEndDate - FDate;
    FDate = value;
    FEndDate = FBounds.Bounded(FMultiSelect ? value + days : value);
    if (HandleAllocated())
        ShowSelection(); // also when it is the same day: the person may have gone on to another month
}

void TMonthCalendar::SetEndDate(TDateTime value) {
    value = FBounds.Bounded(DateOf(value));
    if (GetEndDate() == value)
        return;
    if (!FMultiSelect || value < FDate) {
        FEndDate = value;
        FDate = value;
    } else {
        FEndDate = value;
        LimitRange();
    }
    if (HandleAllocated())
        ShowSelection();
}

/// In text forms the range comes before its limit: it is cut when both are known.
void TMonthCalendar::LimitRange() {
    if (!IsLoading())
        FEndDate = std::min(FEndDate, FDate + FMaxSelectRange - 1);
}

void TMonthCalendar::Loaded() {
    LimitRange();
    TWinControl::Loaded();
}

void TMonthCalendar::SetMaxDate(TDateTime value) {
    ChangeBound(FBounds.Max, value);
}

void TMonthCalendar::SetMinDate(TDateTime value) {
    ChangeBound(FBounds.Min, value);
}

void TMonthCalendar::ChangeBound(TDateTime& bound, TDateTime value) {
    if (!SetBound(bound, value))
        return;
    if (HandleAllocated())
        FBounds.Show(FHandle, MCM_SETRANGE);
    SetDate(FDate);
}

void TMonthCalendar::ShowSelection() {
    SYSTEMTIME days[2] = {ToSystemTime(std::max(FDate, FirstCalendarDay)),
                          ToSystemTime(std::max(FEndDate, FirstCalendarDay))};
    if (FMultiSelect)
        SendMessageW(FHandle, MCM_SETSELRANGE, 0, reinterpret_cast<LPARAM>(days));
    else
        SendMessageW(FHandle, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(days));
}

// Setters

void TMonthCalendar::ChangeStyle(bool& field, bool value) {
    if (field == value)
        return;
    field = value;
    RecreateWnd();
}

void TMonthCalendar::SetFirstDayOfWeek(TCalDayOfWeek value) {
    if (FFirstDayOfWeek == value)
        return;
    FFirstDayOfWeek = value;
    if (value == dowLocaleDefault)
        RecreateWnd(); // only a new window asks the locale again
    else if (HandleAllocated())
        SendMessageW(FHandle, MCM_SETFIRSTDAYOFWEEK, 0, value);
}

void TMonthCalendar::SetMaxSelectRange(int value) {
    value = std::max(value, 1);
    if (FMaxSelectRange == value)
        return;
    FMaxSelectRange = value;
    LimitRange();
    if (!HandleAllocated() || !FMultiSelect)
        return;
    ShowSelection();
    SendMessageW(FHandle, MCM_SETMAXSELCOUNT, static_cast<WPARAM>(value), 0);
}

void TMonthCalendar::SetMultiSelect(bool value) {
    if (FMultiSelect == value)
        return;
    FEndDate = FDate;
    ChangeStyle(FMultiSelect, value);
}

void TMonthCalendar::SetShowToday(bool value) {
    ChangeStyle(FShowToday, value);
}

void TMonthCalendar::SetShowTodayCircle(bool value) {
    ChangeStyle(FShowTodayCircle, value);
}

void TMonthCalendar::SetWeekNumbers(bool value) {
    ChangeStyle(FWeekNumbers, value);
}

// Messages

/// Clicks come from the native calendar, which tells of days that were picked, and does not tell of double clicks.
void TMonthCalendar::Dispatch(TMessage& message) {
    TLifeGuard alive(*this);
    const bool twice = message.Msg == WM_LBUTTONDBLCLK && IsDay(PointFromLParam(message.LParam));
    TWinControl::Dispatch(message);
    if (twice && alive)
        DblClick();
}

bool TMonthCalendar::IsDay(TPoint place) const {
    MCHITTESTINFO hit{};
    hit.cbSize = sizeof(hit);
    hit.pt = {place.X, place.Y};
    SendMessageW(FHandle, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.uHit & MCHT_CALENDARDATE) == MCHT_CALENDARDATE;
}

void TMonthCalendar::CNNotify(TMessage& message) {
    const auto& header = *reinterpret_cast<const NMHDR*>(message.LParam);
    switch (header.code) {
    case MCN_SELCHANGE: {
        const auto& change = *reinterpret_cast<const NMSELCHANGE*>(message.LParam);
        TakeSelection(change.stSelStart, change.stSelEnd);
        return;
    }
    case MCN_SELECT: {
        const auto& choice = *reinterpret_cast<const NMSELCHANGE*>(message.LParam);
        TLifeGuard alive(*this);
        TakeSelection(choice.stSelStart, choice.stSelEnd);
        if (alive)
            Click();
        return;
    }
    case MCN_VIEWCHANGE: {
        // Going down to a month or a year chooses it without saying so.
        SYSTEMTIME days[2]{};
        TLifeGuard alive(*this);
        if (SendMessageW(FHandle, FMultiSelect ? MCM_GETSELRANGE : MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(days)))
            TakeSelection(days[0], days[1]);
        if (alive)
            ViewChange();
        return;
    }
    default:
        TWinControl::CNNotify(message);
    }
}

void TMonthCalendar::TakeSelection(const SYSTEMTIME& first, const SYSTEMTIME& last) {
    const TDateTime date = DateOf(FromSystemTime(first));
    const TDateTime endDate = FMultiSelect ? DateOf(FromSystemTime(last)) : date;
    if (FDate == date && FEndDate == endDate)
        return; // native calendars tell of the same choice from time to time
    FDate = date;
    FEndDate = endDate;
    SelChange();
}

void TMonthCalendar::SelChange() {
    Fire(*this, OnSelChange, this);
}

void TMonthCalendar::ViewChange() {
    Fire(*this, OnViewChange, this);
}

} // namespace framework
