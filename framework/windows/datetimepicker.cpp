#include "framework/windows/datetimepicker.h"

#include <algorithm>
#include <commctrl.h>

namespace framework {

namespace {

constexpr TSize kInitialSize{186, 21};

} // namespace

const TEnumInfo& DescribeEnum(TDateTimeKind) {
    static const TEnumInfo info{u"TDateTimeKind", {u"dtkDate", u"dtkTime"}};
    return info;
}

const TEnumInfo& DescribeEnum(TDTDateMode) {
    static const TEnumInfo info{u"TDTDateMode", {u"dmComboBox", u"dmUpDown"}};
    return info;
}

const TEnumInfo& DescribeEnum(TDTCalAlignment) {
    static const TEnumInfo info{u"TDTCalAlignment", {u"dtaLeft", u"dtaRight"}};
    return info;
}

const TClassInfo& TDateTimePicker::StaticClass() {
    namespace row = controlrows;
    using P = TDateTimePicker;
    static const TClassInfo info = DescribeClass<TDateTimePicker>(
        u"TDateTimePicker", TWinControl::StaticClass(),
        {row::Align(),
         row::Anchors(),
         row::BiDiMode(),
         Property<&P::GetCalAlignment, &P::SetCalAlignment>(u"CalAlignment", dtaLeft),
         row::Constraints(),
         Property<&P::GetDate, &P::SetDate>(u"Date").Dated(TFloatKind::Date).StoredWhen<&P::DateStored>(),
         Property<&P::GetFormat, &P::SetFormat>(u"Format"),
         Property<&P::GetTime, &P::SetTime>(u"Time").Dated(TFloatKind::Time).StoredWhen<&P::DateStored>(),
         Property<&P::GetShowCheckbox, &P::SetShowCheckbox>(u"ShowCheckbox", false),
         Property<&P::GetChecked, &P::SetChecked>(u"Checked", true),
         row::Color(clWindow),
         Property<&P::GetDateFormat, &P::SetDateFormat>(u"DateFormat", dfShort),
         Property<&P::GetDateMode, &P::SetDateMode>(u"DateMode", dmComboBox),
         row::DoubleBuffered(),
         row::Enabled(),
         row::Font(),
         Property<&P::GetKind, &P::SetKind>(u"Kind", dtkDate),
         Property<&P::GetMaxDate, &P::SetMaxDate>(u"MaxDate").Dated(TFloatKind::Date),
         Property<&P::GetMinDate, &P::SetMinDate>(u"MinDate").Dated(TFloatKind::Date),
         row::ParentBiDiMode(),
         row::ParentColor(false),
         row::ParentFont(),
         row::ParentShowHint(),
         row::ShowHint(),
         row::TabOrder(),
         row::TabStop(true),
         row::Visible(),
         row::OnClick(),
         Event<&P::OnChange>(u"OnChange"),
         Event<&P::OnCloseUp>(u"OnCloseUp"),
         row::OnDblClick(),
         Event<&P::OnDropDown>(u"OnDropDown"),
         row::FocusEvents(),
         row::KeyEvents(),
         row::MouseEvents()});
    return info;
}

TDateTimePicker::TDateTimePicker(TComponent* owner) : TWinControl(owner), FDateTime(Now()) {
    FControlStyle >> csCaptureMouse >> csSetCaption; // the native one captures by itself
    SetBounds(0, 0, kInitialSize.Width, kInitialSize.Height);
    SetParentColor(false);
    SetTabStop(true);
}

// The window

void TDateTimePicker::CreateParams(TCreateParams& params) {
    TWinControl::CreateParams(params);
    CreateSubClass(params, DATETIMEPICK_CLASSW);
    if (FKind == dtkTime)
        params.Style |= DTS_TIMEFORMAT; // which brings arrow buttons in place of the calendar
    else if (FDateFormat == dfLong)
        params.Style |= DTS_LONGDATEFORMAT;
    if (FDateMode == dmUpDown)
        params.Style |= DTS_UPDOWN;
    if (FCalAlignment == dtaRight)
        params.Style |= DTS_RIGHTALIGN;
    if (FShowCheckbox)
        params.Style |= DTS_SHOWNONE;
}

void TDateTimePicker::CreateWnd() {
    TWinControl::CreateWnd();
    FDroppedDown = false;
    if (!FFormat.empty())
        SendMessageW(FHandle, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(WideChars(FFormat)));
    FBounds.Show(FHandle, DTM_SETRANGE);
    ShowValue();
}

void TDateTimePicker::DestroyHandle() {
    TLifeGuard alive(*this);
    if (FDroppedDown && !IsDestroying())
        SendMessageW(FHandle, DTM_CLOSEMONTHCAL, 0, 0);
    if (!alive)
        return;
    FDroppedDown = false;
    TWinControl::DestroyHandle();
}

bool TDateTimePicker::Focused() const {
    // While its calendar is open, the focus lies there.
    return TWinControl::Focused() ||
           (FDroppedDown && HandleAllocated() && ::GetFocus() != nullptr &&
            ::GetFocus() == reinterpret_cast<HWND>(SendMessageW(FHandle, DTM_GETMONTHCAL, 0, 0)));
}

// The value

void TDateTimePicker::SetDateTime(TDateTime value) {
    value = FBounds.Bounded(value);
    if (FDateTime == value)
        return;
    FDateTime = value;
    FChanged = true;
    if (HandleAllocated())
        ShowValue();
}

void TDateTimePicker::SetDate(TDateTime value) {
    if (DateOf(value) != GetDate())
        SetDateTime(ComposeDateTime(value, FDateTime));
}

void TDateTimePicker::SetTime(TDateTime value) {
    if (TimeOf(value) != GetTime())
        SetDateTime(ComposeDateTime(FDateTime, value));
}

void TDateTimePicker::ShowValue() {
    SYSTEMTIME value = ToSystemTime(std::max(FDateTime, FirstCalendarDay));
    SendMessageW(FHandle, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&value));
    if (FShowCheckbox && !FChecked)
        SendMessageW(FHandle, DTM_SETSYSTEMTIME, GDT_NONE, reinterpret_cast<LPARAM>(&value));
}

void TDateTimePicker::SetMaxDate(TDateTime value) {
    ChangeBound(FBounds.Max, value);
}

void TDateTimePicker::SetMinDate(TDateTime value) {
    ChangeBound(FBounds.Min, value);
}

void TDateTimePicker::ChangeBound(TDateTime& bound, TDateTime value) {
    if (!SetBound(bound, value))
        return;
    if (HandleAllocated())
        FBounds.Show(FHandle, DTM_SETRANGE);
    SetDateTime(FDateTime);
}

void TDateTimePicker::SetChecked(bool value) {
    if (FChecked == value)
        return;
    FChecked = value;
    if (HandleAllocated())
        ShowValue();
}

// Setters

template <class TValue>
void TDateTimePicker::ChangeStyle(TValue& field, TValue value) {
    if (field == value)
        return;
    field = value;
    RecreateWnd(); // the native one takes these only as it is created
}

void TDateTimePicker::SetCalAlignment(TDTCalAlignment value) {
    ChangeStyle(FCalAlignment, value);
}

void TDateTimePicker::SetDateFormat(TDTDateFormat value) {
    ChangeStyle(FDateFormat, value);
}

void TDateTimePicker::SetDateMode(TDTDateMode value) {
    ChangeStyle(FDateMode, value);
}

void TDateTimePicker::SetKind(TDateTimeKind value) {
    ChangeStyle(FKind, value);
}

void TDateTimePicker::SetShowCheckbox(bool value) {
    ChangeStyle(FShowCheckbox, value);
}

void TDateTimePicker::SetFormat(const String& value) {
    if (FFormat == value)
        return;
    FFormat = value;
    if (HandleAllocated())
        SendMessageW(FHandle, DTM_SETFORMATW, 0, value.empty() ? 0 : reinterpret_cast<LPARAM>(WideChars(FFormat)));
}

// Notifications

void TDateTimePicker::CNNotify(TMessage& message) {
    const auto& header = *reinterpret_cast<const NMHDR*>(message.LParam);
    switch (header.code) {
    case DTN_DATETIMECHANGE: {
        const auto& change = *reinterpret_cast<const NMDATETIMECHANGE*>(message.LParam);
        return TakeValue(change.dwFlags == GDT_VALID, change.st);
    }
    case DTN_DROPDOWN:
        FDroppedDown = true;
        return DropDown();
    case DTN_CLOSEUP:
        FDroppedDown = false;
        return CloseUp();
    default:
        TWinControl::CNNotify(message);
    }
}

void TDateTimePicker::TakeValue(bool checked, const SYSTEMTIME& value) {
    if (FControlState.Contains(csCreating))
        return;
    TDateTime entered = checked ? FromSystemTime(value) : FDateTime;
    // A day that is picked in the calendar keeps the time of day, although some systems set it to midnight.
    if (FDroppedDown && checked && TimeOf(entered) != GetTime()) {
        entered = DateOf(entered) + GetTime();
        const SYSTEMTIME whole = ToSystemTime(entered);
        SendMessageW(FHandle, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&whole));
    }
    if (FChecked == checked && FDateTime == entered)
        return; // a day picked in the calendar is told twice
    FChanged = FChanged || FDateTime != entered;
    FChecked = checked;
    FDateTime = entered;
    Change();
}

void TDateTimePicker::Change() {
    Fire(*this, OnChange, this);
}

void TDateTimePicker::DropDown() {
    Fire(*this, OnDropDown, this);
}

void TDateTimePicker::CloseUp() {
    Fire(*this, OnCloseUp, this);
}

} // namespace framework
