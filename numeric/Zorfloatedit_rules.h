#pragma once

// The float edit's rules: which characters a field for a decimal number takes, how its fixed decimals are overtyped,
// what becomes of texts that are no numbers, and how text and value follow from each other.
//
// Two separators are kept apart. The locale's separator decides which text is a number. The control's own separator,
// a comma, is what the typing rules look for. Where the locale's is not the comma, "." is typed as the comma, which
// makes no number there: what comes of it is the whole part in full with its decimals selected, to be typed over. The
// rules that keep to a number of decimals while it is typed need an own separator that follows the locale.

#include "numeric/Zornumericentry_rules.h"

namespace ZOR {

/// What a field for decimal numbers is set to.
struct TDecimalEntry {
    /// Digits behind the separator; see UsedDecimals.
    int Decimals = 2;
    bool EditorEnabled = true;
    /// ReadOnly of the edit: keys reach the native edit, which refuses them, and the rules write nothing.
    bool ReadOnly = false;
    Extended MinValue = 0;
    /// With both bounds equal the range is off.
    Extended MaxValue = 0;
    /// The own separator is the locale's instead of the comma.
    bool SeparatorFollowsLocale = false;
};

/// The control's own separator.
char16_t OwnSeparator(const TDecimalEntry& entry, const TFormatSettings& settings);

/// The character that the decimal key of the numeric keypad stands for, whatever the keyboard layout makes of it: the
/// one that IsValidFloatChar lets through as a separator.
char16_t KeypadDecimalChar(const TFormatSettings& settings);

/// The characters that are taken at all: the locale's separator, "e", "+", digits, "-" where MinValue is below 0, and
/// command characters. Without decimals no "." and no ",", with EditorEnabled false only commands.
bool IsValidFloatChar(char16_t key, const TDecimalEntry& entry, const TFormatSettings& settings);

/// All that KeyPress decides before the host sees the key: rejected characters, the own separator for ".", overtyping
/// of a full decimal part, one separator only, the first digit over a selected text, backspace beside the decimals.
/// A rejected character does not reach the host. Commands pass unchanged.
///
/// After TCustomEdit::KeyPress, where an action reaches the host, an empty text is set to empty once more with a
/// selection length of 1.
TKeyAction FloatKeyPress(char16_t key, const TEntryState& state, const TDecimalEntry& entry,
                         const TFormatSettings& settings);
/// The same for a key that the control has judged already: a descendant may take other characters.
TKeyAction FloatAcceptedKey(char16_t key, const TEntryState& state, const TDecimalEntry& entry,
                            const TFormatSettings& settings);

/// Change: an unreadable text gives way to the last valid one, written with the decimals of this field, or to nothing
/// where that is no number here. Unfinished numbers stay; those that convert, as "0," does, are remembered, and what
/// makes another one unreadable is taken back by itself. The caret stays where the two texts begin to differ.
TEntryChange FloatChange(const TEntryState& state, const TEntryMemory& memory, const TDecimalEntry& entry,
                         const TFormatSettings& settings);

/// CheckValue outside Change: the comparisons with MinValue and then MaxValue, in this order.
Extended CheckFloatValue(Extended value, const TDecimalEntry& entry);

/// GetValue: 0 for an empty text, otherwise the number within the range. An unreadable text raises EConvertError.
Extended ReadFloatValue(StringView text, const TDecimalEntry& entry, const TFormatSettings& settings);

/// SetValue: the text to set for a value, nothing where it stands there already.
std::optional<String> WriteFloatValue(StringView text, Extended value, const TDecimalEntry& entry,
                                      const TFormatSettings& settings);

/// DoExit: what WriteFloatValue gives for the value of the text. An unreadable text raises EConvertError.
std::optional<String> LeaveFloat(StringView text, const TDecimalEntry& entry, const TFormatSettings& settings);

/// WMPaste: the whole text after a paste; empty where the clipboard's text is no finite number.
String PasteFloat(StringView clipboardText, const TFormatSettings& settings);

} // namespace ZOR
