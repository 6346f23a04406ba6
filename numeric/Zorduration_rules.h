#pragma once

// The text of a duration: hours, a separator, minutes, with a minus in front where it is negative. How such a text is
// read and written, and how it is edited so that the separator never gets lost.

#include "numeric/Zornumericentry_rules.h"

namespace ZOR {

/// How the part behind the separator counts.
enum class TMinutesForm {
    Minutes,    ///< 01:30, an hour and a half
    Hundredths, ///< 01,50, the same; any number of decimals of an hour is read, two are written
};

/// The notation of a field's durations.
struct TDurationForm {
    TMinutesForm Minutes = TMinutesForm::Minutes;
    char16_t Separator = u':';
    /// A minus may be typed.
    bool MayBeNegative = false;
};

/// Minutes as hours and minutes, towards zero: each of at least two digits, "-" in front when the value is below 0.
/// Beyond 9e18 minutes all values look alike; NaN counts as 0.
String ValueToTimeStr(Extended value, char16_t separator);

/// The whole minutes of a value, towards zero, as its form shows them; never with a minus before a zero.
String DurationText(Extended value, const TDurationForm& form);

/// Reads a duration as minutes. Minutes above 59 count as such; hundredths of an hour are rounded to whole minutes,
/// ties up. Without a separator hundredths are whole hours, minutes are unreadable. Where a part is empty the text is
/// unfinished and the part counts as 0. A minus in front of either part makes the whole negative.
TNumberReading ReadDuration(StringView text, const TDurationForm& form);

enum class TTimePart { Hours, Minutes };

/// The part in which the selection begins; the place before the separator belongs to the hours.
TTimePart TimePartAt(const TEntryState& state, char16_t separator);
/// The whole part, without the sign. A text without separator is all hours.
TEntrySelection TimePartSelection(StringView text, TTimePart part, char16_t separator);

/// A digit is typed: into the hours it is inserted, and a second one leads on to the minutes; of the minutes it takes
/// the place of a digit. Typed over all of the text it begins a new duration. Nothing where there is no room for it.
std::optional<TEntryState> TypeDurationDigit(char16_t digit, const TEntryState& state, const TDurationForm& form);
/// The minutes are selected.
TEntryState GoToMinutes(const TEntryState& state, const TDurationForm& form);
/// A minus is put in front, or taken away if one stands there; typed over all of the text it begins a new duration.
TEntryState TurnSign(const TEntryState& state, const TDurationForm& form);
/// What backspace, or with `forward` delete, does to a text with a separator: minutes become zeros, the caret steps
/// over the separator, all of the text may be erased. Nothing for a text without separator, which the native edit may
/// edit.
std::optional<TEntryState> EraseInDuration(bool forward, const TEntryState& state, const TDurationForm& form);
/// Where the caret goes with Left, or with `forward` Right; nothing where it moves as in every field.
std::optional<TEntrySelection> CrossSeparator(bool forward, const TEntryState& state, const TDurationForm& form);

} // namespace ZOR
