#pragma once

// The spin float edit's rules. The field holds a decimal number (tStandard) or a duration in whole minutes, typed as
// hours and minutes (tTime, 01:30) or as hours and hundredths of an hour (tTimeDecimal, 01,50; whoever types 1:30 there
// has it rewritten so).
//
// A decimal number is typed as in the float edit. A duration has two parts, hours and minutes, on either side of a
// separator that keys never remove. One part is selected at a time; the arrow keys step the part where the caret
// stands, two typed digits of hours lead on to the minutes. Whatever keys, wheel and clipboard do, the text can be
// read.

#include "foundation/Zormessages_rules.h"
#include "numeric/Zorduration_rules.h"
#include "numeric/Zorfloatedit_rules.h"

#include <array>

namespace ZOR {

/// What the field holds.
enum TTryb {
    tStandard,    ///< a decimal number
    tTime,        ///< whole minutes, shown as hours and minutes
    tTimeDecimal, ///< whole minutes, shown as hours and hundredths of an hour
};

/// The published names, by ordinal.
inline constexpr std::array<StringView, 3> TrybNames{u"tStandard", u"tTime", u"tTimeDecimal"};

/// What a spin float edit is set to. With MinValue equal to MaxValue a decimal number has no range and a duration stays
/// within UnboundedMinutes; otherwise a MaxValue of 0 or below leaves the top open.
struct TSpinFloatEntry : TDecimalEntry {
    TTryb Tryb = tStandard;
    /// The step, in minutes for durations. It means the shortest decimal of the single (WrittenSingle).
    float Increment = 0.01F;
    /// Durations are rounded to multiples of Increment when the field is left, steps and clamped values in every mode.
    bool Zaokraglaj = false;
};

/// 9999:59, either way.
inline constexpr int UnboundedMinutes = 599999;

/// The separator character of the mode: the locale's decimal separator, in tTime its time separator (":" in a locale
/// that has none).
char16_t TrybSeparator(TTryb mode, const TFormatSettings& settings);
/// What parts hours from minutes in the mode, also where the field shows hundredths: there the locale's time separator,
/// or ":" where that is the decimal separator as well.
char16_t ClockSeparator(TTryb mode, const TFormatSettings& settings);

// Value and range

/// The text that shows a value in its mode, without regard to the range, but so that a value within the range is still
/// within it when it is read back. Durations never show a minus before a zero.
String SpinFloatText(Extended value, const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// GetValue: the reading's Value is MinValue where the Kind is Empty or Unreadable, and is not brought into the range.
/// Unfinished numbers and empty parts of a duration count as what they have so far; of an empty text in tTimeDecimal
/// that is 0. A text with the clock separator is hours and minutes in tTimeDecimal, too.
TNumberReading ReadSpinFloat(StringView text, const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// CheckValueEx: -1 below the range, 1 above it, 0 within.
int CheckSpinFloatValueEx(Extended value, const TSpinFloatEntry& entry);

/// CheckValue: a value outside the range becomes the bound, or with Zaokraglaj the outermost multiple of Increment
/// inside it, if there is one.
Extended CheckSpinFloatValue(Extended value, const TSpinFloatEntry& entry);

/// What writing a value does.
struct TSpinFloatWrite {
    /// The text to set; nothing where it stands there already.
    std::optional<String> Text = std::nullopt;
    /// Nothing was done, Wymagany stays as it is too: the text shows this value already.
    bool SameValue = false;
    /// The value that was given lay outside the range: Wymagany becomes wError. Otherwise it goes back to the saved
    /// state.
    bool OutOfRange = false;
};

/// SetValue. Values are the same when they agree to the field's decimals.
TSpinFloatWrite WriteSpinFloat(StringView text, Extended value, const TSpinFloatEntry& entry,
                               const TFormatSettings& settings);

/// What a change of mode does: the new Increment, and 0 written as the value. The text is set in every case.
struct TTrybChange {
    float Increment = 0;
    String Text;
    /// 0 lies outside the range.
    bool OutOfRange = false;
};

/// SetFTryb, for `entry` as it was before.
TTrybChange ChangeTryb(TTryb mode, const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// What happens when the person leaves the field.
struct TSpinFloatLeave {
    /// Wymagany goes back to the saved state and the framework's exit runs. Otherwise the message is shown, the focus
    /// comes back and Wymagany becomes wError.
    bool Accepted = false;
    /// The text to set first; nothing where it stands there already.
    std::optional<String> Text = std::nullopt;
};

/// CMExit. A duration is rounded first where Zaokraglaj asks for it, which may lead into the range. A value within it
/// is written in full; one outside, or a duration without range beyond UnboundedMinutes, is written in full as it was
/// typed; an unreadable text stays, so that nothing typed is lost.
TSpinFloatLeave LeaveSpinFloat(StringView text, const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// ShowBladValidacjiMessage: what the box says. Polish users also read the range, durations as hours and minutes.
TMessageText RangeMessage(const TSpinFloatEntry& entry, TMessageLanguage language, const TFormatSettings& settings);

/// AsCurrency: amounts beyond the range give its ends, NaN gives 0.
Currency SpinFloatCurrency(Extended value);

// Keys, caret and wheel

/// The character that the decimal key of the numeric keypad stands for.
char16_t KeypadDecimalChar(const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// KeyPress: FloatKeyPress in tStandard. In durations digits, separators (".", "," and ":" alike lead to the minutes;
/// in tTimeDecimal the clock separator rewrites the duration as hours and minutes, the others as hundredths), "-"
/// (turns the sign where MinValue is below 0), "+" (takes it away) and backspace are carried out here and reach the
/// host as 0; other characters are rejected, commands pass.
TKeyAction SpinFloatKeyPress(char16_t key, const TEntryState& state, const TSpinFloatEntry& entry,
                             const TFormatSettings& settings);

/// Keys without a character that durations treat in their own way.
enum class TCaretKey { Left, Right, Delete };

/// What such a key, pressed without Shift, Ctrl and Alt, does instead of the native edit: Left and Right at the border
/// of a part, or with a part selected, go on to the other one; Delete keeps the separator. Nothing where the key is the
/// native edit's. The Key of the action means nothing.
std::optional<TKeyAction> SpinFloatKeyDown(TCaretKey key, const TEntryState& state, const TSpinFloatEntry& entry,
                                           const TFormatSettings& settings);

/// Change: FloatChange in tStandard. An unreadable duration (a menu can cut the separator out) gives way to
/// the last valid text, or where that is none to one of no length. Durations have a LastValidText of their own field;
/// the float edits' shared one is of no use to them.
TEntryChange SpinFloatChange(const TEntryState& state, const TEntryMemory& memory, const TSpinFloatEntry& entry,
                             const TFormatSettings& settings);

/// The whole text after a paste; empty where the clipboard's text does not read in this mode.
String PasteSpinFloat(StringView clipboardText, const TSpinFloatEntry& entry, const TFormatSettings& settings);

/// The part of a duration in which the selection begins; in tStandard the hours.
TTimePart TimePartAt(const TEntryState& state, const TSpinFloatEntry& entry, const TFormatSettings& settings);
/// What is selected when the field is entered or the part changes: the whole part of a duration, without the sign; in
/// tStandard the whole text.
TEntrySelection TimePartSelection(StringView text, TTimePart part, const TSpinFloatEntry& entry,
                                  const TFormatSettings& settings);

/// The field after `steps` steps up (or down when negative), by an arrow key, the up-down or the wheel: the value
/// within the range, the same part selected again or the caret at its distance from the end of the text. A step is
/// Increment, for durations in whole minutes, and never less than the last place of the text; with the caret in the
/// hours as many whole Increments as it takes for an hour or more. With Zaokraglaj a value that is no multiple first
/// goes to the next multiple on its way. An unreadable text counts as MinValue. Nothing changes for an Increment of 0,
/// nor in a read-only field.
TEntryState StepSpinFloat(const TEntryState& state, int steps, const TSpinFloatEntry& entry,
                          const TFormatSettings& settings);

} // namespace ZOR
