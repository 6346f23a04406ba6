#pragma once

// A field for a date or a time of day over the native date-time picker, which brings its own typing and calendar.

#include "framework/windows/systemtime.h"
#include "framework/windows/wincontrol.h"

namespace framework {

enum TDateTimeKind { dtkDate, dtkTime };
enum TDTDateMode { dmComboBox, dmUpDown };
enum TDTCalAlignment { dtaLeft, dtaRight };
const TEnumInfo& DescribeEnum(TDateTimeKind);
const TEnumInfo& DescribeEnum(TDTDateMode);
const TEnumInfo& DescribeEnum(TDTCalAlignment);

class TDateTimePicker : public TWinControl {
    FRAMEWORK_CLASS(TDateTimePicker)

public:
    FRAMEWORK_PROPERTY(TDTCalAlignment, CalAlignment, GetCalAlignment, SetCalAlignment);
    FRAMEWORK_PROPERTY(bool, Checked, GetChecked, SetChecked);
    FRAMEWORK_PROPERTY(TDateTime, Date, GetDate, SetDate);
    FRAMEWORK_PROPERTY(TDTDateFormat, DateFormat, GetDateFormat, SetDateFormat);
    FRAMEWORK_PROPERTY(TDTDateMode, DateMode, GetDateMode, SetDateMode);
    FRAMEWORK_PROPERTY(TDateTime, DateTime, GetDateTime, SetDateTime);
    FRAMEWORK_READ_PROPERTY(bool, DroppedDown, GetDroppedDown);
    FRAMEWORK_PROPERTY(String, Format, GetFormat, SetFormat);
    FRAMEWORK_PROPERTY(TDateTimeKind, Kind, GetKind, SetKind);
    FRAMEWORK_PROPERTY(TDateTime, MaxDate, GetMaxDate, SetMaxDate);
    FRAMEWORK_PROPERTY(TDateTime, MinDate, GetMinDate, SetMinDate);
    FRAMEWORK_PROPERTY(bool, ShowCheckbox, GetShowCheckbox, SetShowCheckbox);
    FRAMEWORK_PROPERTY(TDateTime, Time, GetTime, SetTime);

    /// The person changed the value or its check box: once for each change.
    TNotifyEvent OnChange;
    TNotifyEvent OnDropDown;
    TNotifyEvent OnCloseUp;

    explicit TDateTimePicker(TComponent* owner);

    /// The side of the field with which the calendar is flush.
    TDTCalAlignment GetCalAlignment() const { return FCalAlignment; }
    void SetCalAlignment(TDTCalAlignment value);
    /// Whether there is a value, where a check box asks for it; without one always true.
    virtual bool GetChecked() const { return FChecked; }
    virtual void SetChecked(bool value);
    /// The day and the time of day, with milliseconds; in the beginning the present moment. A value beyond the bounds
    /// becomes the bound. Setting it fires no OnChange and leaves Checked alone.
    TDateTime GetDateTime() const { return FDateTime; }
    void SetDateTime(TDateTime value);
    /// The day alone; setting it keeps the time.
    TDateTime GetDate() const { return DateOf(FDateTime); }
    void SetDate(TDateTime value);
    bool DateStored() const { return FChanged; }
    /// The time of day alone; setting it keeps the day.
    TDateTime GetTime() const { return TimeOf(FDateTime); }
    void SetTime(TDateTime value);
    /// The locale's short or long date.
    TDTDateFormat GetDateFormat() const { return FDateFormat; }
    void SetDateFormat(TDTDateFormat value);
    TDTDateMode GetDateMode() const { return FDateMode; }
    void SetDateMode(TDTDateMode value);
    bool GetDroppedDown() const { return FDroppedDown; }
    /// A picture of the value in the letters of Win32 (DTM_SETFORMAT), such as yyyy'-'MM'-'dd; empty for the locale's.
    const String& GetFormat() const { return FFormat; }
    void SetFormat(const String& value);
    TDateTimeKind GetKind() const { return FKind; }
    void SetKind(TDateTimeKind value);
    /// Bounds of what can be entered; 0 for none.
    TDateTime GetMaxDate() const { return FBounds.Max; }
    void SetMaxDate(TDateTime value);
    TDateTime GetMinDate() const { return FBounds.Min; }
    void SetMinDate(TDateTime value);
    /// Whether a box beside the value says that there is one.
    bool GetShowCheckbox() const { return FShowCheckbox; }
    void SetShowCheckbox(bool value);

    bool Focused() const override;

protected:
    void CreateParams(TCreateParams& params) override;
    void CreateWnd() override;
    void DestroyHandle() override;
    void CNNotify(TMessage& message) override;
    virtual void Change();
    virtual void DropDown();
    virtual void CloseUp();

private:
    void TakeValue(bool checked, const SYSTEMTIME& value);
    void ShowValue();
    void ChangeBound(TDateTime& bound, TDateTime value);
    template <class TValue>
    void ChangeStyle(TValue& field, TValue value);

    TDateTime FDateTime;
    TCalendarBounds FBounds;
    String FFormat;
    TDateTimeKind FKind = dtkDate;
    TDTDateFormat FDateFormat = dfShort;
    TDTDateMode FDateMode = dmComboBox;
    TDTCalAlignment FCalAlignment = dtaLeft;
    bool FShowCheckbox = false;
    bool FChecked = true;
    bool FChanged = false; // the value is not that of the beginning any more
    bool FDroppedDown = false;
};

} // namespace framework
