#pragma once

// The rules of the date field, without a window: how a date is typed digit by digit into the mask of the locale, how a
// value becomes text and text a value, how values are bounded, snapped to months and years, and stepped, and what is
// said about a text that is no date.
//
// "No date" is a value whose whole days are 0 or less; it shows as the empty text. Carets are counted from 0, a caret
// stands before the character of its number.

#include "foundation/Zormessages_rules.h"
#include "framework/system/dates.h"

#include <optional>

namespace ZOR {
using namespace framework;

/// What part of a date the field enters.
enum TDateTimeView {
    dtvDay,   ///< a day, and with dfLong the time
    dtvMonth, ///< a month, held as its first day
    dtvYear,  ///< a year, held as its 1 January
};

const TEnumInfo& DescribeEnum(TDateTimeView);

inline constexpr int BackspaceKey = 8;
inline constexpr int DeleteKey = 46;
/// A separator that was typed, whichever it is: as a character, the point has the number of the Delete key.
inline constexpr int SeparatorKey = u':';

/// The lowest date that the field accepts at all, 1753-01-01.
inline constexpr TDateTime LowestDate = -53688;

/// How the field is set up.
struct TDateField {
    TFormatSettings Settings; ///< those of the locale as EntrySettings gives them; others are followed to the letter
    TDTDateFormat Format = dfShort; ///< in this field dfLong means date and time
    TDateTimeView View = dtvDay;
    int MaxLength = 0;      ///< longest text in UTF-16 units; 0 and less for no limit
    bool PicksOnly = false; ///< a date is picked or stepped to, not typed

    bool HasTime() const { return Format == dfLong; }
    /// Whether nothing is typed into the text: Delete then empties the field.
    bool TypingIsClosed() const { return PicksOnly || View != dtvDay; }
};

/// The settings under which a locale's dates can be typed into a mask: the short date with two places for day and month
/// and four for the year, parted by nothing but its separator, and the short time as hh:mm. Under d.MM.yyyy nobody
/// could type the 15th; and a mask of digits has no place for AM and PM, so the clock shows 24 hours.
TFormatSettings EntrySettings(const TFormatSettings& locale);

/// True when a value is a date and not "no date".
bool HasDate(TDateTime value);

// Typing.

/// Whether a virtual key is a digit of the numeric keypad (96 to 105). The digit keys themselves come as characters.
bool IsNumKey(int key);

/// The places of the typed text: 9 for a digit, everything else as it stands, as in 9999-99-99 99:99.
String EntryMask(const TDateField& field);

/// Rewrites the text of the field after a key has acted on it: digits overwrite, removed ones become zeros, and the
/// result fills the mask. `caret` is where the key has left the caret, `key` a digit as a character, BackspaceKey,
/// DeleteKey or anything else. `minDate` supplies the year that 0000 becomes where the year does not come first.
/// Returns by how much the caret has to move: 1 over the separator behind it, 0, or -1 for a key that changes no digit.
/// It never fails, whatever the text. See RewriteTypedDate for what a field does with it.
int zamienNaDate(String& text, int key, int caret, const TDateField& field, TDateTime minDate = 0);

/// The state of an edit.
struct TEntryText {
    String Text;
    int SelStart = 0;
    int SelLength = 0;
    friend bool operator==(const TEntryText&, const TEntryText&) = default;
};

/// What becomes of the field when a key was typed, given its state before the key and the state in which the native
/// edit is after it. `key` is a digit as a character, BackspaceKey, DeleteKey or SeparatorKey; for any other nothing
/// changes.
///
/// Digits go to the first place at or behind the caret and leave the caret behind them, or behind the separator that
/// follows. Delete and Backspace turn the digit beside the caret into 0; Delete stays before it, Backspace goes over
/// it, and both pass separators in their direction. What was selected becomes zeros first. A first digit removed by
/// Backspace is dropped, and the others move up. A text that was emptied stays empty: that is how no date is entered.
/// Separators need not be typed and change nothing; right before a separator, or a digit before it, one passes it.
TEntryText RewriteTypedDate(const TEntryText& before, const TEntryText& after, int key, const TDateField& field,
                            TDateTime minDate = 0);

/// Whether a character that was typed goes on to the platform; the others are consumed. Where typing is closed (months
/// are entered by whats_marked_ex) only the keys of copy and select all pass. Elsewhere those of cut, paste and undo
/// do, too.
bool AcceptsCharacter(char16_t character, const TEntryText& state, bool useMaskEdit, const TDateField& field);

// Text and value.

/// The display format of a view, MMM yyyy, MMMM yyyy or yyyy; empty for days, which show the short date format, and the
/// short time format with dfLong.
String setDateFormatEx(TDTDateFormat format, TDateTimeView view);

/// The text of a value; empty for no date. Raises nothing: a value beyond the calendar has no text either.
String double_to_text(TDateTime value, const TDateField& field);

/// The outcome of reading a text.
struct TDateCheck {
    bool Valid = false;  ///< false: the text stays and the field is in error
    TDateTime Value = 0; ///< when valid; 0 for the empty text
    friend bool operator==(const TDateCheck&, const TDateCheck&) = default;
};

/// What a paste into the mask makes of the field: the text of what the clipboard holds where that is a date of the
/// field, otherwise nothing.
std::optional<String> PastedDate(StringView clipboardText, const TDateField& field);

/// Reads the text of a view: a date, with dfLong also with a time; a month by its name or number and a year; or a year.
/// Whatever double_to_text writes is valid. The empty text is valid too and means no date. The value is not bounded
/// yet; a text that names a day which counts as no date is not valid.
TDateCheck sprawdz_combosa(StringView text, const TDateField& field);

/// The first step of leaving the field: the text without blanks around it and, where a time was typed without its
/// separator, with one: 2024-05-06 1230 becomes 2024-05-06 12:30.
String CompletedOnExit(StringView text, const TDateField& field);

/// What is said about a text that is no date, with `now` as the example of a valid one.
TMessageText InvalidDateMessage(TMessageLanguage language, TDateTime now, const TDateField& field);

// The value.

/// A date as the view holds it: the first of its month, 1 January of its year, or the value itself; no date stays so.
/// December 1899 and that year are held as their only day that is a date, the 31st.
TDateTime SnappedToView(TDateTime value, TDateTimeView view);

/// The value of the field with its bounds, and the memory of what Delete has cleared. Operations that return bool tell
/// whether the text must be rebuilt and the change told.
class TDateValue {
public:
    TDateTime Current() const { return FDateTime; }
    bool HasDate() const { return ZOR::HasDate(FDateTime); }
    /// The value before the last change.
    TDateTime Previous() const { return FPreviousDate; }
    TDateTime MinDate() const { return FMinDate; }
    TDateTime MaxDate() const { return FMaxDate; }
    bool ClearedByDelete() const { return FClearedByDelete; }

    /// The program, the person or the calendar sets the date with its time. A date above MaxDate becomes MaxDate, one
    /// below MinDate the day of MinDate with its own time, one below 1753-01-01 that date; then it is snapped to the
    /// view. With MinDate above MaxDate, MaxDate is looked at first. 0 is a date below MinDate like any other: see
    /// Clear. True also when the bounds turn another value into the one that is held, as the text may show the other.
    bool SetDate(TDateTime value, TDateTimeView view);
    /// Sets the time of day alone; whole days in `value` are ignored. What then lies beyond a bound becomes the bound,
    /// also without a date: a time on its own is below MinDate like any other value. Otherwise it makes no date.
    bool SetTime(TDateTime value);
    /// Bounds; those without whole days are none. A date that the field holds is moved inside.
    bool SetMinDate(TDateTime value, TDateTimeView view);
    bool SetMaxDate(TDateTime value, TDateTimeView view);
    /// The view has changed to this one.
    bool SetView(TDateTimeView view);

    /// The person has emptied the field: no date, whatever the bounds.
    bool Clear();
    /// The same by the Delete key in the month and year views: the next Up or Down brings the date back.
    bool ClearByDelete();
    /// Brings back what ClearByDelete has taken; false when there is nothing to bring back.
    bool RestoreCleared(TDateTimeView view);

    /// Takes the value of a text that was read (see sprawdz_combosa), 0 meaning no date. A value that shows as the same
    /// text as the one held is no change: what the text does not show, such as seconds, is kept.
    bool Enter(TDateTime value, const TDateField& field);
    /// Sets a value that was stepped to or chosen by month. Unlike SetDate it is kept inside the bounds even where its
    /// month or year begins outside of them, and below 1899-12-31 it is that day rather than no date.
    bool StepTo(TDateTime value, TDateTimeView view);

private:
    TDateTime Bounded(TDateTime value) const;
    TDateTime Lowest() const;
    void Take(TDateTime value);
    bool SetBound(TDateTime TDateValue::*bound, TDateTime value, TDateTimeView view);

    TDateTime FDateTime = 0;
    TDateTime FMaxDate = 0;
    TDateTime FMinDate = 0;
    TDateTime FPreviousDate = 0;
    bool FClearedByDelete = false;
};

// Stepping with Up and Down.

/// The part of the date in which a caret stands in the text that the field shows for `value`. A caret on a separator,
/// or at the end, belongs to the part on its left. Nothing beyond the text and where there is none.
std::optional<TDateUnit> MarkedPart(int caret, TDateTime value, const TDateField& field);

/// Up (`step` 1) or Down (-1). What Delete has cleared is brought back, and that is all; Down without a date gives the
/// present day; otherwise the part at the caret is stepped, within the bounds. Returns whether the value has changed.
bool whats_marked(TDateValue& value, int caret, int step, TDateTime now, const TDateField& field);

/// Where the caret goes in the rebuilt text after a step: back to its place, but in long month names to their end.
int CaretAfterStep(StringView text, int caret, const TDateField& field);

/// Letters or digits that were typed shortly after one another to name a month.
struct TMonthEntry {
    String Typed;
    std::uint64_t LastKey = 0; ///< when the last one was typed, in milliseconds of any clock
};

/// Pauses longer than this begin a new name, in milliseconds.
inline constexpr std::uint64_t MonthEntryPause = 1500;

/// Takes a character typed in the month view. Letters seek the first month whose long or short name begins with what
/// was typed, the same letter again the next such month; digits give its number. Without a date the year is the present
/// one. Returns true when the character is part of a name or number; the value then has that month, if it is complete
/// enough to tell. Any other character ends the entry and answers false.
bool whats_marked_ex(TMonthEntry& entry, char16_t character, std::uint64_t milliseconds, TDateValue& value,
                     TDateTime now, const TDateField& field);

} // namespace ZOR
