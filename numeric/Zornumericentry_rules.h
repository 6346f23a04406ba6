#pragma once

// What the numeric fields share: where a person stands in a field and what a key does there, how a text is judged while
// it is still being typed, how a number is written, and arithmetic that is exact in the decimal digits people see.

#include "framework/system/numbers.h"

#include <optional>

namespace ZOR {
using namespace framework;

/// A stretch of text in UTF-16 units from 0 on; with length 0 the caret's place.
struct TEntrySelection {
    int Start = 0;
    int Length = 0;
    friend bool operator==(const TEntrySelection&, const TEntrySelection&) = default;
};

/// A field's text and the selection in it, as EM_GETSEL tells it. Rules bring a selection that lies outside the text
/// back into it before they use it.
struct TEntryState {
    String Text;
    TEntrySelection Selection;
    friend bool operator==(const TEntryState&, const TEntryState&) = default;
};

/// What a field does with a key, in the order of the members.
struct TKeyAction {
    /// The whole text is replaced (WM_SETTEXT), which is a change like any other: the field's Change runs at once.
    std::optional<String> Text = std::nullopt;
    /// Then this is selected, or the caret goes there. A place beyond the text, which Change may have shortened, is its
    /// end, as for EM_SETSEL.
    std::optional<TEntrySelection> Selection = std::nullopt;
    /// What the key has become; 0 is a key that the native edit does not get.
    char16_t Key = 0;
    /// Whether TCustomEdit::KeyPress follows, where the host's OnKeyPress sees the key, even a 0, and may still change
    /// it. The native edit then types what the key is in the end.
    bool ReachesHost = true;
};

/// What Change knows of earlier texts.
struct TEntryMemory {
    /// The last text that was a number, of this field or of all that share it.
    StringView LastValidText = {};
    /// The text that stood in this field before the change.
    StringView TextBefore = {};
};

/// What Change finds about the text that stands in a field now.
struct TEntryChange {
    /// Another text to put in its place, and where the caret goes then. Setting it calls Change again, which finds
    /// nothing more to put right.
    std::optional<TEntryState> Repair = std::nullopt;
    /// The text that stands in the end, repaired or not, is a number and becomes the LastValidText.
    bool IsValid = false;
};

/// What a step does: the ordinals are those of TUpDownDirection.
enum class TStepDirection { None, Up, Down };

/// How far a text is from being a number under a decimal separator.
enum class TNumberText {
    Empty,
    /// Reads as a finite number. Blanks around it are allowed.
    Number,
    /// Becomes a number when the person types on: a lone sign, digits that end in the separator, an exponent just
    /// begun. It reads as what it has so far, a lone sign as 0.
    Unfinished,
    /// NAN or INF, which only a program writes. It reads as such, but no person's text is ever replaced by it.
    NotFinite,
    Unreadable,
};

struct TNumberReading {
    TNumberText Kind = TNumberText::Empty;
    /// The number; 0 for an empty or unreadable text, and never -0.
    Extended Value = 0;
};

/// Reads a text with the decimal separator of `settings` and no other.
TNumberReading ReadNumber(StringView text, const TFormatSettings& settings);
/// The same where every "." stands for the decimal separator, as it does for the value of a field.
TNumberReading ReadNumberWithPoints(StringView text, const TFormatSettings& settings);

/// The number of decimals that is used: a property below 0 counts as 0, one above 18 as 18.
int UsedDecimals(int decimals);

/// A number with `decimals` decimals and up to 18 significant digits, decimal ties rounded away from zero, never with
/// a minus before a zero; from 1e18 on with an exponent. Every finite number reads back, if rounded; NaN and
/// infinities become NAN, INF and -INF.
String NumberText(Extended value, int decimals, const TFormatSettings& settings);

/// Control characters, which every field lets through for the native edit (copy, paste, undo): below 32 except
/// carriage return, which belongs to the form's default button.
constexpr bool IsCommandChar(char16_t key) {
    return key < 32 && key != u'\r';
}

/// What a field of which EditorEnabled is false does not take: text, backspace and ".".
constexpr bool ChangesText(char16_t key) {
    return key >= 32 || key == u'\b';
}

/// The selection, brought inside a text of that length.
TEntrySelection SelectionWithin(TEntrySelection selection, std::size_t length);

/// `text` in place of an unreadable one: the caret goes to where, before it, the two begin to differ, so that a
/// character taken back leaves it where it was.
TEntryState RepairedState(const TEntryState& unreadable, String text);

/// Whole part of the number, towards zero; numbers beyond the range of an int give its ends, NaN gives 0.
int TruncatedToInt(Extended value);

/// The nearest integer, ties towards plus infinity (2.5 gives 3, -2.5 gives -2); numbers beyond the range of the result
/// give its ends, NaN gives 0.
std::int64_t RoundTiesUp(Extended value);

/// The decimal that a person wrote for a single: 0.01 for 0.01f, although the single is 0.00999999977648258209. NaN
/// and infinities give 0.
Extended WrittenSingle(float value);

/// The multiple of `step` next to `value`: for None the nearest, ties as RoundTiesUp of the quotient has them; for Up
/// and Down the one that the quotient rounded up or down gives. Reckons in the decimal digits of both numbers, so that
/// 0.3 is a multiple of 0.1. A step of 0, and one too small to be counted in the value, leave the value as it is.
Extended RozRound(Extended value, Extended step, TStepDirection direction);
/// True where RozRound has nothing to do.
bool IsMultiple(Extended value, Extended step);
/// The sum, exact in the decimal digits of both numbers as far as 18 digits reach.
Extended DecimalSum(Extended left, Extended right);

} // namespace ZOR
