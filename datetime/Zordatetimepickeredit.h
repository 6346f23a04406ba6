#pragma once

// The date field: a date, or a date and a time, a month or a year is typed, stepped with the arrow keys part by part,
// or picked from a calendar that drops down. Nothing entered is a value too: no date. What is typed can be read from
// Date at once; when the field is left, the text is completed and brought into the bounds, and a text that is no date
// is told of and can be corrected.

#include "datetime/Zor_callendar_popup_unit.h"
#include "datetime/Zordatetimepickeredit_rules.h"
#include "foundation/Zorframedcombo.h"

namespace ZOR {

inline constexpr TFraming DateEditFraming = ComboFraming(DateRequirement);

class TZORDateTimePickerEdit : public TZORFramedCombo<TCustomComboBox, DateEditFraming> {
    FRAMEWORK_CLASS(TZORDateTimePickerEdit)

public:
    FRAMEWORK_PROPERTY(TWymagany, Wymagany, GetFWymagany, SetFWymagany);
    FRAMEWORK_PROPERTY(TComboBoxStyle, Style, GetStyle2, SetStyle2);
    FRAMEWORK_PROPERTY(TDateTime, Date, GetFDateTime, SetFDate);
    FRAMEWORK_PROPERTY(TDateTime, Value, GetFDateTime, SetFDate);
    FRAMEWORK_PROPERTY(TDateTime, DateTime, GetFDateTime, SetFDateTime);
    FRAMEWORK_PROPERTY(TDateTime, MinDate, GetFMinDate, SetFMinDate);
    FRAMEWORK_PROPERTY(TDateTime, MaxDate, GetFMaxDate, SetFMaxDate);
    FRAMEWORK_PROPERTY(TDateTime, Time, GetFTime, SetFTime);
    FRAMEWORK_PROPERTY(bool, ZORDroppedDown, GetZORDroppedDown, SetZORDroppedDown);
    FRAMEWORK_PROPERTY(TDTDateFormat, DateFormat, GetFDateFormat, SetFDateFormat);
    FRAMEWORK_PROPERTY(TDateTimeView, DateTimeView, GetFDateTimeView, SetFDateTimeView);
    FRAMEWORK_PROPERTY(bool, UseMaskEdit, GetUseMaskEdit, SetUseMaskEdit);

    explicit TZORDateTimePickerEdit(TComponent* owner);
    ~TZORDateTimePickerEdit() override;

    /// An error that the program sets stands until the text is another one, or Esc gives it up.
    void SetFWymagany(TWymagany value);
    /// With csDropDownList, and where the owner would draw the list, a date is picked or stepped to, and not typed. The
    /// window always has an edit part and a drop button.
    TComboBoxStyle GetStyle2() const { return FPublishedStyle; }
    void SetStyle2(TComboBoxStyle value) { FPublishedStyle = value; }
    /// The value, as soon as what is typed can be read; 0 for no date. While a text cannot be read, the one before it.
    TDateTime GetFDateTime() const { return FValue.Current(); }
    /// Sets date and time within the bounds and fires OnChange. The value that is held already is no change; but for
    /// handlers of OnChange it gives the field its text back. With MinDate set, 0 is a date below it: Clear empties the
    /// field in any case.
    void SetFDate(TDateTime value);
    void SetFDateTime(TDateTime value) { SetFDate(value); }
    /// Bounds of what can be entered; without whole days there is none. The lowest date of all is 1753-01-01.
    TDateTime GetFMinDate() const { return FValue.MinDate(); }
    void SetFMinDate(TDateTime value);
    TDateTime GetFMaxDate() const { return FValue.MaxDate(); }
    void SetFMaxDate(TDateTime value);
    /// The time of day; setting it keeps the date, and whole days in `value` do not count.
    TDateTime GetFTime() const { return TimeOf(FValue.Current()); }
    void SetFTime(TDateTime value);
    /// Whether the calendar is open. It opens only where a person can see and use it.
    bool GetZORDroppedDown() const { return FPopup && FPopup->IsOpen(); }
    void SetZORDroppedDown(bool value);
    /// dfLong: date and time.
    TDTDateFormat GetFDateFormat() const { return FDateFormat; }
    void SetFDateFormat(TDTDateFormat value);
    TDateTimeView GetFDateTimeView() const { return FView; }
    /// A date that is set becomes the first of its month or year.
    void SetFDateTimeView(TDateTimeView value);
    /// Whether days are typed into a mask: digits overwrite, what is removed becomes 0, separators stay. Otherwise the
    /// text is free, and read as it is.
    bool GetUseMaskEdit() const { return FUseMaskEdit; }
    void SetUseMaskEdit(bool value) { FUseMaskEdit = value; }

    /// Empties the field: no date, whatever the bounds.
    void Clear() override;
    /// Opens the calendar, or closes it when it is open.
    void calendar_pop();
    /// Puts the text of the value into the field.
    void set_text();
    /// Reads the text: true when it is a date, which becomes the value, or empty. Otherwise Wymagany becomes wError
    /// and the text stays.
    bool sprawdz_combosa();
    /// The calendar; null before it was opened for the first time.
    Tzor_cal_popup_form* GetCalendarPopup() const { return FPopup.get(); }

    void WndProc(TMessage& message) override;

protected:
    void EditWndProc(TMessage& message) override;
    void KeyDown(WORD& key, TShiftState shift) override;
    void KeyPress(char16_t& key) override;
    void Change() override;
    void DoExit() override;
    void CMTextChanged(TMessage& message) override;
    void Loaded() override;

    /// The person has picked the calendar's date.
    virtual void cust_cal_Click();

private:
    TDateField Field() const;
    TDateCheck CheckedText() const;
    bool TextShowsValue() const;
    void EndErrorOfAnotherText(const String& text);
    bool EscIsOwn() const;
    TEntryText EntryText() const;
    void Announce();
    void TextIsRead();
    void TakeText();
    void ValueChanged(bool changed);
    void SetBound(bool (TDateValue::*setBound)(TDateTime, TDateTimeView), TDateTime value);
    void RestoreByEscape(int caret);
    void ClearByDelete();
    void StepPart(int caret, int step);
    void TypeMonth(char16_t character);
    bool IsMasked() const { return FUseMaskEdit && FView == dtvDay; }
    void TypeKey(TMessage& message);
    void PassToEdit(TMessage& message);
    void PasteDate();
    void RewriteTyped();
    bool HandleOwnKey(WORD key, TShiftState shift);
    void OpenCalendar();
    void ShowDateInCalendar();
    void CompleteText();
    bool TellInvalid();

    TDateValue FValue;
    std::optional<TDateValue> FBeforeTyping; // while the text is being typed: what Esc and unreadable texts go back to
    TMonthEntry FMonthEntry;
    std::unique_ptr<Tzor_cal_popup_form> FPopup; // from its first use on
    TDTDateFormat FDateFormat = dfShort;
    TDateTimeView FView = dtvDay;
    TComboBoxStyle FPublishedStyle = csDropDown;
    bool FUseMaskEdit = false;
    std::optional<String> FTextOfError; // at which the program has set an error
    TEntryText FBeforeKey;              // what the key being handled finds, once handlers have had their say
    int FTypedKey = 0;                  // what the key being handled means to the mask; 0 for nothing
    bool FTyping = false;               // a key is on its way through the edit part
    bool FTypedChange = false;          // and has changed the text
    bool FAnnouncing = false;           // a handler hears of a change
    bool FShowingText = false;          // the text being set is that of the value
    bool FTextInError = false;          // the error shown is that of the text
    bool FTellingInvalid = false;       // the message is on the screen
};

namespace Zordatetimepickeredit {
/// Puts the control on the designer's palette.
void Register();
} // namespace Zordatetimepickeredit

} // namespace ZOR
