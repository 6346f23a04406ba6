#pragma once

// The spin edit's rules: which characters a whole number takes, its range, and steps that never overflow.

#include "numeric/Zornumericentry_rules.h"

namespace ZOR {

/// What a spin edit is set to.
struct TSpinEntry {
    int Increment = 1;
    int MinValue = 0;
    /// 0 and below leave the top open, even where MinValue is lower still; with both bounds equal the range is off.
    int MaxValue = 0;
};

/// Digits, "+", "-" and command characters; with EditorEnabled false only commands other than backspace.
bool IsValidSpinChar(char16_t key, bool editorEnabled);

/// CheckValue: MinValue, MaxValue or the value itself.
int CheckSpinValue(int value, const TSpinEntry& entry);

/// The range of the up-down.
struct TSpinRange {
    int Min = 0;
    int Max = 0;
    friend bool operator==(const TSpinRange&, const TSpinRange&) = default;
};

/// Min is MinValue, Max is MaxValue or, for 0, 2000000000.
TSpinRange SpinRange(const TSpinEntry& entry);

/// The value after one step, within the range. A sum beyond the range of an int stops at its end.
int StepSpinValue(int value, TStepDirection direction, const TSpinEntry& entry);

/// Where the up-down has to stand so that the unit step which it makes itself lands on `value`.
int PositionBeforeStep(int value, TStepDirection direction);

/// SetValue: the decimal digits of the value within the range.
String SpinText(int value, const TSpinEntry& entry);

/// CM_EXIT: the text to set where the value lies outside the range or a zero has a minus; nothing where the text stays,
/// leading zeros and all. An empty or otherwise unreadable text raises EConvertError.
std::optional<String> LeaveSpin(StringView text, const TSpinEntry& entry);

} // namespace ZOR
